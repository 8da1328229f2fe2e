// MainFrameProject.cpp - the main window and its project: what is chosen there is shown, what is shown is chosen there
#include "workbench/MainFrame.h"

#include "host/FileBytes.h"
#include "host/PathText.h"
#include "workbench/PictureNames.h"
#include "workbench/resource.h"

namespace workbench
{
namespace
{
/// The command's number among those of the project.
[[nodiscard]] ProjectCommand CommandOf(UINT id) { return static_cast<ProjectCommand>(id - IDM_PROJECT_NEW_GROUP); }

/// The menu that begins with a command; null if there is none.
[[nodiscard]] CMenu* FindMenu(CMenu& bar, UINT firstCommand)
{
    for (int i = 0; i < bar.GetMenuItemCount(); ++i)
    {
        CMenu* const menu = bar.GetSubMenu(i);
        if (menu && menu->GetMenuItemID(0) == firstCommand)
        {
            return menu;
        }
    }
    return nullptr;
}

[[nodiscard]] std::string Counted(std::size_t count, const char* one, const char* several)
{
    return count == 1 ? std::string("One ") + one : std::to_string(count) + " " + several;
}
} // namespace

void MainFrame::OnProjectChosen()
{
    UpdateLayers();
    if (const ProjectItem* const chosen = m_project.Tree().Chosen())
    {
        const ProjectItem item = *chosen; // what is shown may tell the project something new
        m_isProjectChoice = true;
        ShowItem(item);
        m_isProjectChoice = false;
    }
}

/// Shows what an item stands for, and the pictures beside it in the list.
void MainFrame::ShowItem(const ProjectItem& item)
{
    const std::string quoted = "\"" + item.label + "\"";
    const host::PathParts parts = host::SplitPath(item.moniker);
    const std::string folder(parts.folder);
    if (m_project.Tree().Items().IsHidden(item.id))
    {
        ShowNoPicture(quoted + " is hidden. Ctrl+H shows it.");
    }
    else if (item.kind == 0)
    {
        ShowNoPicture(Counted(item.children.size(), "item", "items") + " in " + quoted + ".");
    }
    else if ((item.kind & bdiContainer) != 0)
    {
        ListPictures(item.moniker, {});
        const std::size_t count = m_pictures.Names().size();
        ShowNoPicture(count == 0 ? std::string() : Counted(count, "picture", "pictures") + " in " + quoted + ".");
    }
    else if ((item.kind & bdiRaster) != 0)
    {
        ListPictures(folder, parts.name);
        const int picture = IndexOfName(m_pictures.Names(), parts.name);
        if (picture < 0)
        {
            ShowNoPicture(quoted + " isn't there any more.");
            return;
        }
        m_isFilling = true;
        m_current = picture;
        m_list.Select(m_current);
        m_isFilling = false;
        m_page = parts.options.empty() ? std::string() : item.moniker;
        // What the user typed behind the name of something imported is a part of it.
        m_pageName = item.imported && !parts.options.empty() ? std::string(parts.options.substr(1)) : item.label;
        ShowCurrent();
    }
    else if ((item.kind & bdiTable) != 0)
    {
        ListPictures(folder, {});
        if (const std::string problem = TryTable(item.moniker); !problem.empty())
        {
            TellLater(problem);
        }
    }
    else
    {
        ShowNoPicture(quoted + ((item.kind & bdiOther) != 0 ? " is a link that leads to no other folder."
                                                            : " holds vector data, which isn't drawn here."));
    }
}

/// Shows a text in place of a picture; the list's own problem for an empty one.
void MainFrame::ShowNoPicture(const std::string& message)
{
    m_isFilling = true;
    m_list.Select(-1);
    m_isFilling = false;
    m_current = -1;
    m_page.clear();
    m_message = message;
    ShowCurrent();
}

/// Lists the pictures of a folder unless they are listed already. @param name  of a file that the list is to hold
void MainFrame::ListPictures(const std::string& folder, std::string_view name)
{
    const bool isListed = host::JoinPath(folder, {}) == host::JoinPath(m_pictures.Folder(), {});
    if (!isListed || (!name.empty() && IndexOfName(m_pictures.Names(), name) < 0))
    {
        m_pictures.Load(folder);
        // What was imported may be a picture under any name.
        const std::string path = host::JoinPath(folder, name);
        const bool isOdd = !name.empty() && IndexOfName(m_pictures.Names(), name) < 0;
        if (isOdd && ::GetFileAttributesW(host::WidePath(path).c_str()) != INVALID_FILE_ATTRIBUTES)
        {
            m_pictures.Load(path);
        }
        FillRows();
    }
}

void MainFrame::OnProjectFocus() { m_focus = &m_project.Tree(); }

void MainFrame::OnProjectFieldFocus() { m_focus = &m_project.Field(); }

void MainFrame::OnProjectUnread() { ShowNotice(m_project.Tree().ReadProblem()); }

void MainFrame::OnProjectSearched() { ShowNotice(m_project.SearchProblem()); }

void MainFrame::OnProjectMenu()
{
    if (CMenu* const menu = FindMenu(*GetMenu(), IDM_PROJECT_NEW_GROUP))
    {
        const CPoint place = m_project.MenuPlace();
        menu->TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON, place.x, place.y, this);
    }
}

void MainFrame::OnProjectCommand(UINT id) { m_project.Tree().Do(CommandOf(id)); }

void MainFrame::OnUpdateProjectCommand(CCmdUI* command)
{
    const ProjectItem* const chosen = m_project.Tree().Chosen();
    command->Enable(m_project.Tree().Can(CommandOf(command->m_nID)));
    if (command->m_nID == IDM_PROJECT_HIDE)
    {
        command->SetCheck(chosen && chosen->hidden ? 1 : 0);
    }
}

void MainFrame::OnProjectFind() { m_project.GoToField(); }

void MainFrame::OnProjectFindNext() { m_project.FindNext(); }

void MainFrame::OnGoProject() { m_project.Tree().SetFocus(); }
} // namespace workbench
