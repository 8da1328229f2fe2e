// TavImageList.h - image list of small glyphs, painted on demand in the colours that a caller names
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

#include "tavkit/drawing/GlyphCache.h"
#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/DString.h"

#include <forward_list>
#include <memory>
#include <type_traits>

/// Circles, rectangles and icons of 16 by 16 pixels in one image list. Each pair of colours and each icon becomes one
/// image, which is remembered: the index handed out stays good until Clear(). All of it happens on the thread of the
/// window.
/// Without an image list (before Create(), or where the screen has a depth that no image list has) every glyph and icon
/// gives -1; a glyph is painted then at the next call that finds a list.
class TAVKIT_API CTavImageList : public CImageList
{
public:
    static constexpr int kImageSize = 16;   ///< pixels, both ways
    static constexpr int kFirstRoom = 32;   ///< images there is room for at first
    static constexpr int kGrowth = 16;      ///< images by which it grows
    static constexpr int kNoDefaultYet = 0; ///< the default image until there is one

    CTavImageList();
    ~CTavImageList() override;

    /// The window whose screen decides the colour depth and on whose context glyphs are painted; borrowed. To be called
    /// before Create() and before any glyph; null takes the screen.
    void SetWindow(CWnd* window);

    /// Makes the image list in the window's colour depth (8, 16, 24 or 32 bits; at any other there is none afterwards)
    /// with one image, the default one, in the colour of windows. What the object held before is dropped.
    void Create();

    /// The image without a glyph. After Clear() it is whatever image is added first, by design.
    [[nodiscard]] int GetDefaultImage() const;

    /// A circle, or any ellipse.
    /// @param rect    place in the image; only that of the first call with these colours counts
    /// @param barred  crosses the circle with a red line on a white band at half the rectangle's height
    /// @return index of the image; -1 if the list refused it
    int GetCircle(COLORREF color, COLORREF border, CRect rect, bool barred);

    /// GetCircle() without a bar, a little smaller than the image.
    int GetCircleSmall(COLORREF color, COLORREF border);

    /// A rectangle; otherwise as GetCircle().
    int GetRect(COLORREF color, COLORREF border, CRect rect);

    /// Paints a rectangle of other colours over an image, which GetRect() then gives for those and no longer for the
    /// old.
    /// @return false if the list refused, as it does for a wrong index. The colours are remembered even then.
    bool ReplaceRect(int image, COLORREF color, COLORREF border);

    /// An icon.
    /// @param iconId  number of its resource in the low 16 bits
    /// @param file    module that holds it; null or "" for the framework's resource chain
    /// @return index of the image; -1 if there is no such file or icon
    int GetIcon(unsigned int iconId, char const* file);

    /// Removes all images and forgets what they were; the list itself stays.
    void Clear();

private:
    struct IconDeleter
    {
        void operator()(HICON icon) const { ::DestroyIcon(icon); }
    };
    using Icon = std::unique_ptr<std::remove_pointer_t<HICON>, IconDeleter>;

    struct IconEntry
    {
        unsigned int id;
        int image;
        DString file; ///< empty for the framework's resource chain
        Icon icon;    ///< null for the framework's resource chain
    };

    enum class Shape
    {
        None,
        Circle,
        Rect
    };

    /// A bitmap with one glyph on the colour of windows, compatible with the window.
    void Paint(CBitmap& bitmap, Shape shape, tavkit::GlyphKey const& key, CRect const& rect) const;
    int GetGlyph(tavkit::GlyphCache& cache, Shape shape, tavkit::GlyphKey const& key, CRect const& rect);
    static Icon LoadFrom(HINSTANCE module, unsigned int iconId);

    CWnd* m_pWindow = nullptr;
    int m_nDefaultImage = kNoDefaultYet;
    std::forward_list<IconEntry> m_icons; ///< the newest first, as in the other two
    tavkit::GlyphCache m_circles;
    tavkit::GlyphCache m_rects;
};
