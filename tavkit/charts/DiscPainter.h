// DiscPainter.h - draws equal discs: few by the system, many stamped into the pixels from one that the system drew
#pragma once

#include <afxwin.h>

#include "tavkit/charts/DiscStamp.h"

#include <memory>

namespace tavkit
{

/// Discs of the pen and the brush that are selected into a device context, which must be of one colour. The picture is
/// the same, pixel for pixel, as after CDC::Ellipse for each of them.
class DiscPainter
{
public:
    /// @param page    size of what is drawn on
    /// @param area    where the places lie, right and bottom included
    /// @param radius  pixels
    /// @param count   about how many discs will come
    DiscPainter(CDC& dc, SIZE page, RECT const& area, int radius, int count);
    DiscPainter(DiscPainter const&) = delete;
    DiscPainter& operator=(DiscPainter const&) = delete;

    void Add(int x, int y)
    {
        if (m_places)
        {
            m_places->Add(x, y);
        }
        else
        {
            Draw(m_dc, x, y);
        }
    }
    /// To be called once, behind the last disc.
    void Finish();

private:
    class Pixels;

    void Draw(CDC& dc, int x, int y) const;
    [[nodiscard]] DiscStamp MakeStamp() const;

    CDC& m_dc;
    CRect m_room; ///< the part of the page that discs may touch
    int m_radius;
    std::unique_ptr<DiscPlaces> m_places; ///< null when the system draws each disc
};

} // namespace tavkit
