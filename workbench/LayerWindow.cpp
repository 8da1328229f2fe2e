#include "workbench/LayerWindow.h"

#include "workbench/resource.h"

#include <string>

namespace workbench
{
namespace
{
constexpr CSize kSize(340, 420);
constexpr int kMargin = 24; // from the owner's sides

[[nodiscard]] std::string Counted(int count, const char* one, const char* several)
{
    return std::to_string(count) + " " + (count == 1 ? one : several);
}
} // namespace

BEGIN_MESSAGE_MAP(LayerWindow, CWnd)
    ON_WM_CLOSE()    // hides it
    ON_WM_SIZE()     // the list fills it
    ON_WM_SETFOCUS() // goes on to the list
END_MESSAGE_MAP()

BOOL LayerWindow::Create(CWnd* owner)
{
    m_owner = owner;
    CRect client;
    owner->GetClientRect(client);
    owner->ClientToScreen(client);
    const CRect place(CPoint(client.right - kSize.cx - kMargin, client.top + kMargin), kSize);
    if (!CreateEx(WS_EX_TOOLWINDOW, AfxRegisterWndClass(0, ::LoadCursorA(nullptr, IDC_ARROW)), "Layers",
                  WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN, place, owner, 0))
    {
        return FALSE;
    }
    GetClientRect(client);
    return m_list.Create(client, this, IDC_LAYER_LIST);
}

void LayerWindow::Update(const std::vector<Layer>& layers)
{
    m_list.Update(layers);
    UpdateTitle();
}

void LayerWindow::UpdateTitle()
{
    const std::string title = "Layers: " + Counted(m_list.Count(LayerGroup::images), "image", "images") + ", " +
                              Counted(m_list.Count(LayerGroup::tables), "table", "tables") + ", " +
                              Counted(m_list.Count(LayerGroup::results), "result", "results");
    SetWindowText(title.c_str());
}

void LayerWindow::Show()
{
    ShowWindow(SW_SHOW);
    SetFocus();
}

void LayerWindow::Hide()
{
    ShowWindow(SW_HIDE);
    m_owner->SetFocus();
}

BOOL LayerWindow::PreTranslateMessage(MSG* message)
{
    if (message->message == WM_KEYDOWN && message->wParam == VK_ESCAPE)
    {
        Hide();
        return TRUE;
    }
    return CWnd::PreTranslateMessage(message);
}

BOOL LayerWindow::OnCommand(WPARAM wParam, LPARAM lParam)
{
    if (LOWORD(wParam) != IDC_LAYER_LIST)
    {
        return CWnd::OnCommand(wParam, lParam);
    }
    UpdateTitle();
    if (HIWORD(wParam) == layerChosen)
    {
        m_owner->SendMessage(WM_COMMAND, MAKEWPARAM(IDC_LAYER_WINDOW, layerChosen), reinterpret_cast<LPARAM>(m_hWnd));
    }
    return TRUE;
}

void LayerWindow::OnClose() { Hide(); }

void LayerWindow::OnSize(UINT, int width, int height)
{
    if (m_list.m_hWnd != nullptr)
    {
        m_list.MoveWindow(0, 0, width, height);
    }
}

void LayerWindow::OnSetFocus(CWnd*) { m_list.SetFocus(); }
} // namespace workbench
