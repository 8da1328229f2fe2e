// ColorButton.h - a button that shows a colour
#pragma once

#include <afxwin.h>

namespace workbench
{
/// A push button that shows a colour. For a control of the type BS_OWNERDRAW. Its text is the colour's hexadecimal
/// number, for those who can't see it.
class ColorButton : public CButton
{
public:
    void SetColor(COLORREF color);
    [[nodiscard]] COLORREF Color() const { return m_color; }

    void DrawItem(LPDRAWITEMSTRUCT item) override;

private:
    COLORREF m_color = 0;
};
} // namespace workbench
