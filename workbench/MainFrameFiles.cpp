// MainFrameFiles.cpp - the main window's questions for files and folders, and what becomes of the answers
#include "workbench/MainFrame.h"

#include "host/FileBytes.h"
#include "host/PathText.h"
#include "host/repository/NodeNames.h"
#include "tavkit/filedlg/DlgSlctDir.h"
#include "tavkit/filedlg/FileDlg.h"
#include "workbench/Formats.h"
#include "workbench/ProjectStore.h"
#include "workbench/ScaleBar.h"

namespace workbench
{
namespace
{
constexpr char kFolderKey[] = "ImageFolders"; ///< setting, and category with defaults, of Open Folder
constexpr char kFolderTitle[] = "Choose the folder that the project is over:";
constexpr char kTableLabel[] = "Table";
constexpr std::size_t kMostNamed = 10; ///< files that a message names

[[nodiscard]] std::string Quoted(const std::string& path)
{
    return "\"" + std::string(host::SplitPath(path).name) + "\"";
}

[[nodiscard]] bool IsFolder(const std::string& path)
{
    const DWORD attributes = ::GetFileAttributesW(host::WidePath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

void Tell(const std::string& problem) { AfxMessageBox(problem.c_str(), MB_OK | MB_ICONEXCLAMATION); }

[[nodiscard]] std::string PathOf(const FileDlg& dialog) { return dialog.GetFile(0)->GetPathOnDisk().c_str(); }

/// The kind of a layer that can be read; 0 for one that can't.
[[nodiscard]] unsigned int PictureKind(const std::string& moniker)
{
    return ReadPictureInfo(moniker) ? static_cast<unsigned int>(bdiRaster) : 0;
}

/// Vector data isn't read here; its name has to do.
[[nodiscard]] unsigned int ThematicKind(const std::string& moniker)
{
    const unsigned int kind = repository::KindOfFile(host::SplitPath(moniker).name);
    const bool isThere = ::GetFileAttributesW(host::WidePath(moniker).c_str()) != INVALID_FILE_ATTRIBUTES;
    return (kind & bdiVector) != 0 && isThere ? kind : PictureKind(moniker);
}
} // namespace

void MainFrame::OnFileOpenFolder()
{
    CDlgSlctDir dialog(m_hWnd);
    dialog.m_strTitle = kFolderTitle;
    dialog.m_strKey = kFolderKey;
    if (!dialog.DoBrowse())
    {
        return;
    }
    if (const std::string problem = TryProject({static_cast<LPCTSTR>(dialog.m_strPath), {}}); !problem.empty())
    {
        Tell("The folder can't be opened. " + problem);
    }
}

void MainFrame::OnFileOpenProject()
{
    FileDlg dialog;
    if (!dialog.OpenPrjct(FileDlg::kLoad))
    {
        return;
    }
    ProjectContent project;
    std::string problem = LoadProject(PathOf(dialog), project);
    problem = problem.empty() ? TryProject(project) : problem;
    if (!problem.empty())
    {
        Tell("The project " + Quoted(PathOf(dialog)) + " can't be opened. " + problem);
    }
}

void MainFrame::OnFileOpenWorkspace()
{
    FileDlg dialog;
    if (!dialog.OpenWorkspace(FileDlg::kLoad))
    {
        return;
    }
    const std::string path = PathOf(dialog);
    WorkspaceContent workspace;
    std::string problem = LoadWorkspace(path, workspace);
    problem = problem.empty() ? TryProject(workspace.project) : problem;
    if (!problem.empty())
    {
        Tell("The workspace " + Quoted(path) + " can't be opened. " + problem);
        return;
    }
    m_readOnlyWorkspace = dialog.GetChckReadOnly() ? path : std::string();
    if (!dialog.GetChckEditOnly()) // otherwise the project is wanted, looked at as now
    {
        ShowAsIn(workspace);
    }
}

/// Opens a project in place of the one before. @return why that can't be done; nothing has changed then, unless the
/// folder goes in this very moment
std::string MainFrame::TryProject(const ProjectContent& project)
{
    if (!IsFolder(project.folder))
    {
        return "Its folder \"" + project.folder + "\" isn't there.";
    }
    m_pictures.Load(project.folder);
    const bool opened = m_project.Tree().OpenFolder(m_pictures.Folder());
    m_project.Tree().Import(project.imported);
    UpdateLayers();
    FillList(0);
    return opened ? std::string() : "Its folder \"" + project.folder + "\" can't be read.";
}

/// Shows what a workspace showed when it was saved, as far as it is still there.
void MainFrame::ShowAsIn(const WorkspaceContent& workspace)
{
    if (ParsePixelSize(workspace.pixelSize))
    {
        m_pixelSize.SetWindowText(workspace.pixelSize.c_str());
    }
    m_view.ShowScaleBar(workspace.scaleBar);
    const auto showPicture = [&] {
        if (!workspace.picture.empty() && CurrentPath() != workspace.picture)
        {
            ProjectItem item;
            item.kind = bdiRaster;
            item.moniker = workspace.picture;
            item.label = ImportedLabel(workspace.picture);
            item.imported = true;
            ShowItem(item);
        }
    };
    showPicture(); // a table whose name tells no picture belongs to this one
    const std::string problem = workspace.table.empty() ? std::string() : TryTable(workspace.table);
    showPicture(); // the table may have brought its own
    if (!problem.empty())
    {
        Tell(problem);
    }
}

ProjectContent MainFrame::ProjectAsItIs()
{
    const Project& project = m_project.Tree().Items();
    const ProjectItem* const root = project.Find(project.Root());
    return {root ? root->moniker : m_pictures.Folder(), project.Imported()};
}

void MainFrame::OnFileSaveProject()
{
    FileDlg dialog;
    if (dialog.OpenPrjct(FileDlg::kSave) && !SaveProject(PathOf(dialog), ProjectAsItIs()))
    {
        Tell("The project " + Quoted(PathOf(dialog)) + " can't be written.");
    }
}

void MainFrame::OnFileSaveWorkspace()
{
    FileDlg dialog;
    if (!dialog.OpenWorkspace(FileDlg::kSave))
    {
        return;
    }
    const std::string path = PathOf(dialog);
    const WorkspaceContent workspace{ProjectAsItIs(), CurrentPath(), m_table.Path(), PixelSizeText(),
                                     m_view.IsScaleBarShown()};
    if (repository::SameName(path, m_readOnlyWorkspace))
    {
        Tell("The workspace " + Quoted(path) + " was opened read-only. Another name can be given to it.");
    }
    else if (!SaveWorkspace(path, workspace))
    {
        Tell("The workspace " + Quoted(path) + " can't be written.");
    }
}

void MainFrame::OnFileImportImages()
{
    FileDlg dialog;
    if (dialog.OpenRasterData(&m_formats.Plugins(), FileDlg::kLoad, true, true, nullptr))
    {
        Import(dialog, PictureKind);
    }
}

void MainFrame::OnFileImportThematic()
{
    FileDlg dialog;
    if (dialog.OpenGisObjects(&m_formats.Plugins(), FileDlg::kLoad, true))
    {
        Import(dialog, ThematicKind);
    }
}

/// Puts what was picked into the project and shows the first of it. What can't be read stays out, which is told.
/// @param kindOf  the kind of a moniker, 0 for one that can't be read
void MainFrame::Import(const FileDlg& dialog, unsigned int (*kindOf)(const std::string& moniker))
{
    std::vector<repository::NodeRecord> items;
    std::string unread;
    std::size_t numUnread = 0;
    {
        const CWaitCursor wait;
        for (int i = 0; i < dialog.GetNumSlctFiles(); ++i)
        {
            const std::string moniker = dialog.GetFile(i)->GetMoniker().c_str();
            if (const unsigned int kind = kindOf(moniker))
            {
                items.push_back({kind, moniker, ImportedLabel(moniker)});
            }
            else if (++numUnread <= kMostNamed)
            {
                unread += "\n" + ImportedLabel(moniker);
            }
        }
    }
    if (!items.empty())
    {
        if (!AddToProject(items))
        {
            return;
        }
        if (m_project.Tree().ChooseMoniker(items.front().id))
        {
            OnProjectChosen();
        }
    }
    if (numUnread > 0)
    {
        unread += numUnread > kMostNamed ? "\nand " + std::to_string(numUnread - kMostNamed) + " more" : "";
        Tell("What can't be read wasn't imported:\n" + unread);
    }
}

/// @return false if the user was told why not; the window may be gone then
bool MainFrame::AddToProject(const std::vector<repository::NodeRecord>& items)
{
    if (m_project.Tree().Items().Imported().size() + items.size() > kMostImported)
    {
        Tell("A project takes " + std::to_string(kMostImported) + " imported layers and tables at most.");
        return false;
    }
    if (!m_project.Tree().Import(items))
    {
        Tell("There is no project to import into. Open a folder first.");
        return false;
    }
    UpdateLayers();
    return true;
}

void MainFrame::OnUpdateHasProject(CCmdUI* command) { command->Enable(m_project.Tree().Items().Root() != 0); }

void MainFrame::OnFileLoadTable()
{
    FileDlg dialog;
    if (!dialog.OpenAttrData(&m_formats.Plugins(), FileDlg::kLoad, kTableLabel))
    {
        return;
    }
    const std::string moniker = dialog.GetFile(0)->GetMoniker().c_str();
    if (const std::string problem = TryTable(moniker); !problem.empty())
    {
        Tell(problem);
        return;
    }
    AddToProject({{bdiTable, moniker, ImportedLabel(moniker)}});
}

/// The list that had the focus last, if it is one; else the table.
void MainFrame::OnFileSaveContents()
{
    if (m_focus == &m_list)
    {
        m_list.SaveToFile();
    }
    else
    {
        m_table.SaveToFile();
    }
}

void MainFrame::OnUpdateSaveContents(CCmdUI* command)
{
    command->Enable(m_focus == &m_list ? m_list.GetNumRow() > 0 : !m_table.Path().empty());
}
} // namespace workbench
