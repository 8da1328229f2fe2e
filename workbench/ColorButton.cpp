#include "workbench/ColorButton.h"

#include <cstdio>

namespace workbench
{
namespace
{
constexpr int kFramePixels = 3; // of the button around the colour
constexpr int kPressedShift = 1;
} // namespace

void ColorButton::SetColor(COLORREF color)
{
    m_color = color;
    char text[8];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", static_cast<unsigned>(GetRValue(color)),
                  static_cast<unsigned>(GetGValue(color)), static_cast<unsigned>(GetBValue(color)));
    SetWindowText(text);
    Invalidate(FALSE);
}

void ColorButton::DrawItem(LPDRAWITEMSTRUCT item)
{
    CDC& dc = *CDC::FromHandle(item->hDC);
    const bool pressed = (item->itemState & ODS_SELECTED) != 0;
    CRect rect = item->rcItem;
    dc.DrawFrameControl(rect, DFC_BUTTON, DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0));
    rect.DeflateRect(kFramePixels, kFramePixels);
    if ((item->itemState & ODS_FOCUS) != 0)
    {
        dc.DrawFocusRect(rect);
    }
    rect.DeflateRect(1, 1);
    if (pressed)
    {
        rect.OffsetRect(kPressedShift, kPressedShift);
    }
    dc.FillSolidRect(rect, ::GetSysColor(COLOR_3DSHADOW));
    rect.DeflateRect(1, 1);
    dc.FillSolidRect(rect, m_color);
}
} // namespace workbench
