#include "workbench/MainFrame.h"

#include "tavkit/drawing/DlgMsgDetails.h"
#include "tavkit/drawing/XMessageBox.h"
#include "workbench/AboutDlg.h"
#include "workbench/PictureNames.h"
#include "workbench/SettingsDlg.h"
#include "workbench/resource.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace workbench
{
void MainFrame::OnFileExit() { PostMessage(WM_CLOSE); }

void MainFrame::OnEditRename()
{
    if (GetFocus() == &m_project.Tree()) // F2 means what has the focus
    {
        m_project.Tree().Do(ProjectCommand::rename);
        return;
    }
    m_list.SetFocus();
    m_list.EditName(m_current);
}

void MainFrame::OnEditDelete()
{
    const int index = m_current;
    if (index < 0 || !MayDelete(m_pictures.Names()[static_cast<size_t>(index)]))
    {
        return;
    }
    // The one below it comes next, or that above the last.
    int next = m_list.Beside(index, 1);
    next = next >= 0 ? next : m_list.Beside(index, -1);
    m_pictures.Remove(static_cast<size_t>(index));
    FillList(next > index ? next - 1 : next);
}

/// Asks, unless the user has said that it isn't needed. A "No" is never remembered: nothing could be deleted any more.
bool MainFrame::MayDelete(const std::string& name)
{
    if (!m_settings.askBeforeDelete)
    {
        return true;
    }
    std::string shown; // the box takes a single "&" for the mark of a letter
    for (const char c : name)
    {
        shown.append(c == '&' ? 2 : 1, c);
    }
    const std::string text =
        "Delete \"" + shown + "\" from the list?\n\nThe file itself stays as it is. F5 brings it back into the list.";
    const auto answer = static_cast<unsigned>(
        XMessageBox(m_hWnd, text.c_str(), kTitle, MB_YESNO | MB_ICONQUESTION | MB_DONOTASKAGAIN, nullptr, 0));
    if ((answer & ~MB_DONOTASKAGAIN) != IDYES)
    {
        return false;
    }
    if ((answer & MB_DONOTASKAGAIN) != 0)
    {
        Settings settings = m_settings;
        settings.askBeforeDelete = false;
        WriteSettings(m_profileSection, m_settings, settings);
        Apply(settings);
    }
    return true;
}

void MainFrame::OnEditSettings()
{
    SettingsDlg dialog(this, SettingsPlace(m_profileSection), m_settings);
    if (dialog.DoModal() == IDOK)
    {
        WriteSettings(m_profileSection, m_settings, dialog.Result());
        Apply(dialog.Result());
    }
}

void MainFrame::OnViewNext() { Select(m_list.Beside(m_current, 1)); }

void MainFrame::OnViewPrevious() { Select(m_list.Beside(m_current, -1)); }

void MainFrame::OnViewScaleBar() { m_view.ShowScaleBar(!m_view.IsScaleBarShown()); }

void MainFrame::OnViewReload()
{
    const int index = m_current;
    const std::string name = index < 0 ? "" : m_pictures.Names()[static_cast<size_t>(index)];
    m_pictures.Reload();
    m_project.Tree().Reload();
    UpdateLayers();
    const int found = IndexOfName(m_pictures.Names(), name);
    const int last = static_cast<int>(m_pictures.Names().size()) - 1;
    FillList(found >= 0 ? found : std::clamp(index, 0, std::max(0, last)));
}

void MainFrame::OnViewDetails()
{
    if (m_current < 0 || !m_view.OffersDetails())
    {
        return;
    }
    std::string details;
    {
        const CWaitCursor wait;
        details = DescribeFailure(CurrentPath());
    }
    DlgMsgDetails(kTitle, m_view.Message().c_str(), details.c_str(), this).DoModal();
}

void MainFrame::OnHelpAbout() { AboutDlg(this).DoModal(); }

void MainFrame::OnGoPictures() { m_list.SetFocus(); }

void MainFrame::OnGoPixelSize()
{
    m_pixelSize.SetFocus();
    m_pixelSize.SetSel(0, -1);
}

void MainFrame::OnGoTable() { m_table.List().SetFocus(); }

void MainFrame::OnGoClass() { m_table.ClassBox().SetFocus(); }

void MainFrame::OnUpdateHasPicture(CCmdUI* command)
{
    const bool isRenamed = command->m_nID == IDM_EDIT_RENAME && GetFocus() == &m_project.Tree();
    command->Enable(isRenamed ? m_project.Tree().Can(ProjectCommand::rename) : m_current >= 0);
}

void MainFrame::OnUpdateDetails(CCmdUI* command) { command->Enable(m_view.OffersDetails()); }

void MainFrame::OnUpdateNext(CCmdUI* command) { command->Enable(m_list.Beside(m_current, 1) >= 0); }

void MainFrame::OnUpdatePrevious(CCmdUI* command) { command->Enable(m_list.Beside(m_current, -1) >= 0); }

void MainFrame::OnUpdateScaleBar(CCmdUI* command) { command->SetCheck(m_view.IsScaleBarShown() ? 1 : 0); }

void MainFrame::OnListItemChanged(NMHDR* header, LRESULT*)
{
    const auto& change = *reinterpret_cast<const NMLISTVIEW*>(header);
    const bool isSelected = (change.uNewState & ~change.uOldState & LVIS_SELECTED) != 0;
    const int picture = isSelected && !m_isFilling ? m_list.PictureOf(change.iItem) : -1;
    if (picture >= 0 && picture != m_current)
    {
        m_current = picture;
        m_page.clear();
        ShowCurrent();
    }
}

/// The box may tell the same name twice: once by Enter, once as it goes.
void MainFrame::OnListNameEdited(NMHDR* header, LRESULT*)
{
    const LVITEM& item = reinterpret_cast<const NMLVDISPINFO*>(header)->item;
    const int picture = m_list.PictureOf(item.iItem);
    if (item.pszText == nullptr || picture < 0)
    {
        return;
    }
    const auto index = static_cast<size_t>(picture);
    const std::string before = m_pictures.Names()[index];
    const std::string pathBefore = m_pictures.PathOf(index);
    if (before == item.pszText)
    {
        return;
    }
    const std::string problem = m_pictures.Rename(index, item.pszText);
    m_list.ShowName(picture, m_pictures.Names()[index]);
    if (!problem.empty())
    {
        TellLater(problem);
        return;
    }
    m_project.Tree().FileRenamed(pathBefore, m_pictures.PathOf(index));
    if (m_measured == pathBefore)
    {
        m_measured = m_pictures.PathOf(index);
    }
    if (picture == m_current)
    {
        ShowCurrent();
    }
}

/// Tells a problem when the notification under way is over.
void MainFrame::TellLater(const std::string& problem)
{
    if (std::exchange(m_problem, problem).empty())
    {
        PostMessage(kTellProblem);
    }
}

LRESULT MainFrame::OnTellProblem(WPARAM, LPARAM)
{
    const std::string problem = std::exchange(m_problem, {});
    AfxMessageBox(problem.c_str(), MB_OK | MB_ICONEXCLAMATION);
    return 0;
}

void MainFrame::OnListFocus(NMHDR*, LRESULT*) { m_focus = &m_list; }

void MainFrame::OnTablePlace() { UpdateMark(); }

void MainFrame::OnTableFocus() { m_focus = &m_table; }

void MainFrame::OnDetailsFocus() { m_focus = &m_view.DetailsButton(); }

void MainFrame::OnPixelSizeChange()
{
    Settings settings = m_settings;
    settings.pixelSize = PixelSizeText();
    m_view.SetPixelSize(ParsePixelSize(settings.pixelSize));
    WriteSettings(m_profileSection, m_settings, settings);
    m_settings = settings;
}

void MainFrame::OnPixelSizeFocus()
{
    if (m_focus != &m_pixelSize) // and not back from another program
    {
        m_focus = &m_pixelSize;
        m_pixelSizeBefore = PixelSizeText();
    }
}

std::string MainFrame::PixelSizeText() const
{
    CString text;
    m_pixelSize.GetWindowText(text);
    return static_cast<LPCTSTR>(text);
}
} // namespace workbench
