// ChartPane.h - a window of its own over the main window, with choices above a chart
#pragma once

#include "workbench/FrameLayout.h"

#include <afxwin.h>

namespace workbench
{
/// A small window that stays in front of the main window and is hidden, not destroyed, when it is closed. Esc closes
/// it; the Tab key goes round its parts. What it has to tell goes to the main window as WM_COMMAND under its number.
class ChartPane : public CWnd
{
public:
    /// Shows it, or hides it.
    void Toggle();
    [[nodiscard]] bool IsShown() const { return IsWindowVisible() != FALSE; }

    BOOL PreTranslateMessage(MSG* message) override;

protected:
    /// Where the window comes up at the right side of the main window, and beyond it as far as the screen goes.
    enum class Side
    {
        upper,
        lower
    };

    /// Makes the window, hidden. @param size  in dialog units
    BOOL CreatePane(const char* title, CWnd* owner, UINT id, CFont* font, const DialogUnits& units, SIZE size,
                    Side side);
    /// Makes a label and the box that it names.
    BOOL CreateChoice(CStatic& label, const char* text, CComboBox& box, UINT boxId);
    /// Puts a label and its box into the bar above the chart. @param slot  0 or 1, from the left
    void PlaceChoice(CStatic& label, CComboBox& box, int slot);
    /// What the bar leaves for the chart.
    [[nodiscard]] CRect ChartRect() const;
    void Tell(int notice);

    virtual void PlaceParts() = 0;
    /// It has been shown, or hidden.
    virtual void OnShown() = 0;

    afx_msg void OnClose();
    afx_msg void OnSetFocus(CWnd* old);
    afx_msg void OnSize(UINT type, int width, int height);
    DECLARE_MESSAGE_MAP()

private:
    void Show(bool show);

    CWnd* m_owner = nullptr;
    UINT m_id = 0;
    CFont* m_font = nullptr;
    DialogUnits m_units;
    Side m_side = Side::upper;
    bool m_isPlaced = false; ///< it was shown once, and lies where the user left it
};
} // namespace workbench
