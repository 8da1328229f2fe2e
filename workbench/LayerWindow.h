// LayerWindow.h - the window of the layers, beside the main window
#pragma once

#include "workbench/LayerList.h"

#include <afxwin.h>

namespace workbench
{
/// A small window that its owner keeps; closing it, or Esc, hides it. Its title counts the layers. The owner is told of
/// a chosen layer by WM_COMMAND with IDC_LAYER_WINDOW and layerChosen.
class LayerWindow : public CWnd
{
public:
    /// Makes the window, hidden, inside the upper right corner of its owner.
    BOOL Create(CWnd* owner);
    void Update(const std::vector<Layer>& layers);
    void Show();
    void Hide();
    [[nodiscard]] bool IsShown() const { return m_hWnd != nullptr && IsWindowVisible(); }
    [[nodiscard]] LayerList& List() { return m_list; }

    BOOL PreTranslateMessage(MSG* message) override;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    afx_msg void OnClose();
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnSetFocus(CWnd* old);
    DECLARE_MESSAGE_MAP()

private:
    void UpdateTitle();

    CWnd* m_owner = nullptr;
    LayerList m_list;
};
} // namespace workbench
