// ProjectTree.h - the tree of the project: shows the items, and changes them as the user says
#pragma once

#include "tavkit/trees/TavTreeCtrl.h"
#include "workbench/Project.h"
#include "workbench/ProjectSource.h"

#include <array>
#include <optional>
#include <string>
#include <unordered_set>

namespace workbench
{
/// What the tree tells its parent: codes of WM_COMMAND under the tree's own id.
enum ProjectNotice
{
    projectChosen = 1,  ///< another item is chosen, or none any more
    projectChanged = 2, ///< the chosen item has another label, or is hidden or shown
    projectFocus = 3,   ///< the tree has got the focus
    projectUnread = 4   ///< a folder couldn't be read: ReadProblem() says why
};

/// What can be done with the chosen item.
enum class ProjectCommand
{
    newGroup, ///< in a container, else beside the item
    rename,   ///< opens the editor over the label
    hide,     ///< hides the item, or shows it again
    moveUp,
    moveDown,
    remove ///< from the project; files stay on disk
};

/// Shows a project over a folder. Folders are read when they are unfolded, pictures when they come into view, to see
/// whether they have pages. Dragged with the left button an item is moved, with the right one the user is asked. A
/// context menu is left to the parent, which gets WM_CONTEXTMENU.
class ProjectTree : public CTavTreeCtrl
{
public:
    /// Creates the window as a child. @param font  must outlive the window.
    BOOL Create(const RECT& rect, CWnd* parent, UINT id, CFont* font);

    /// Begins anew with a folder, unfolded once. False if it can't be opened; the tree is empty then.
    bool OpenFolder(const std::string& path);

    /// Begins anew with the folder as it is now, and with what was imported; groups and other changes are gone.
    void Reload();
    /// Puts what was imported beside what lies in the folder, unfolded; what is in the project already is left alone.
    /// Not told to the parent. False if there is no project.
    bool Import(const std::vector<repository::NodeRecord>& items);

    [[nodiscard]] const Project& Items() const { return m_project; }
    /// The chosen item; null if there is none. Valid until the next change.
    [[nodiscard]] const ProjectItem* Chosen() const;
    /// Chooses the first item that stands for a moniker among those that were read so far, or none. A program's choice
    /// isn't told.
    bool ChooseMoniker(const std::string& moniker);
    /// A file on disk has another path now: the items that stand for it follow, and so do labels that are its name.
    void FileRenamed(const std::string& from, const std::string& to);
    /// Why a folder couldn't be read, as a sentence; empty if none was refused so far.
    [[nodiscard]] const std::string& ReadProblem() const { return m_readProblem; }

    /// True if a command can be carried out now.
    [[nodiscard]] bool Can(ProjectCommand command) const;
    /// Carries out a command that can be.
    void Do(ProjectCommand command);
    /// Chooses the next item whose label holds a text, and says how that ended. Interrupted: the next call goes on.
    SearchEnd FindNext(const std::string& text);
    /// Where a context menu asked for by the keyboard is to come up: under the chosen label, in screen pixels.
    [[nodiscard]] CPoint MenuPlace() const;

protected:
    bool IsDragItem(HTREEITEM item) override;
    bool IsDragTrgt(HTREEITEM dragItem, HTREEITEM target) override;
    void OnDragEnd(HTREEITEM dragItem, HTREEITEM target) override;
    bool DTCSlctChg(HTREEITEM oldItem, HTREEITEM newItem, LRESULT* result) override;
    void DTCKeyDown(unsigned short key, LRESULT* result) override;
    void DTCBeginLabelEdit(NMHDR* header, LRESULT* result) override;
    void DTCEndLabelEdit(NMHDR* header, LRESULT* result) override;
    afx_msg void OnItemExpanding(NMHDR* header, LRESULT* result);
    afx_msg void OnGetDispInfo(NMHDR* header, LRESULT* result);
    afx_msg void OnGotFocus(NMHDR* header, LRESULT* result);
    DECLARE_MESSAGE_MAP()

private:
    /// What an item's glyph stands for.
    enum class Glyph
    {
        folder,
        group,
        picture,
        table,
        vector,
        other,
        count
    };
    class Quiet;

    [[nodiscard]] static Glyph GlyphOf(const ProjectItem& item);
    [[nodiscard]] static int ButtonOf(const ProjectItem& item);
    [[nodiscard]] size_t ImageIndex(const ProjectItem& item) const;
    [[nodiscard]] ProjectId IdOf(HTREEITEM item) const;
    [[nodiscard]] HTREEITEM RowOf(ProjectId id);
    bool Read(ProjectId id);
    void Open(ProjectId id);
    HTREEITEM Reveal(ProjectId id);
    HTREEITEM InsertRow(const ProjectItem& item, HTREEITEM parent, HTREEITEM after);
    void DrawGlyph(HTREEITEM row, const ProjectItem& item);
    void DrawGlyphsWithin(ProjectId id);
    void UpdateButton(ProjectId id);
    void ShowRow(ProjectId id, const std::vector<ProjectId>& unfolded);
    void RemoveRow(ProjectId id);
    [[nodiscard]] std::vector<ProjectId> UnfoldedWithin(ProjectId id);
    void Choose(ProjectId id);
    void MoveTo(ProjectId id, ProjectPlace place);
    void CopyTo(ProjectId id, ProjectPlace place);
    void MakeGroup();
    void ToggleHidden();
    void RemoveChosen();
    [[nodiscard]] bool AskToCopy(bool& copy) const;
    void Tell(ProjectNotice notice);

    std::string m_folder; ///< as it was asked for
    /// What was imported into the project when it was last loaded anew.
    std::vector<repository::NodeRecord> m_imported;
    ProjectSource m_source;
    Project m_project;
    std::unordered_set<ProjectId> m_opened; ///< items whose children have rows
    /// Images by glyph, shown and hidden; none before the first of its kind was drawn.
    std::array<std::optional<int>, 2 * static_cast<size_t>(Glyph::count)> m_images;
    ProjectId m_told = 0;     ///< item that the parent knows as the chosen one
    ProjectId m_searched = 0; ///< where an interrupted search came to
    int m_quiet = 0;          ///< changes of the selection aren't told while this isn't 0
    std::string m_readProblem;
};
} // namespace workbench
