#include "workbench/ProjectTree.h"

#include "host/repository/NodeNames.h"

#include <algorithm>

namespace workbench
{
namespace
{
/// Folders that one search reads at the most; an opened drive has many.
constexpr int kMostFills = 500;

// The menu that a right drag ends with.
constexpr UINT kMoveHere = 1;
constexpr UINT kCopyHere = 2;
constexpr UINT kCancel = 3;

/// Colours of a glyph.
struct GlyphColors
{
    COLORREF fill;
    COLORREF border;
};

constexpr std::array<GlyphColors, 6> kGlyphColors{{
    {RGB(244, 200, 84), RGB(132, 98, 16)},   // folder
    {RGB(178, 142, 224), RGB(84, 52, 136)},  // group
    {RGB(96, 184, 104), RGB(24, 92, 36)},    // picture
    {RGB(92, 148, 228), RGB(24, 60, 128)},   // table
    {RGB(240, 148, 72), RGB(140, 64, 8)},    // vector data
    {RGB(190, 190, 190), RGB(104, 104, 104)} // anything else
}};
} // namespace

/// Keeps changes of the selection from the parent. At its end the parent is told if another item is chosen than the one
/// that it knows, unless the choice is the program's own.
class ProjectTree::Quiet
{
public:
    explicit Quiet(ProjectTree& tree, bool tell = true) : m_tree(tree), m_tell(tell) { ++m_tree.m_quiet; }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;
    ~Quiet()
    {
        if (--m_tree.m_quiet > 0)
        {
            return;
        }
        const ProjectId chosen = m_tree.IdOf(m_tree.GetSelectedItem());
        if (m_tell && chosen != m_tree.m_told)
        {
            m_tree.m_told = chosen;
            m_tree.Tell(projectChosen);
        }
        else
        {
            m_tree.m_told = chosen;
        }
    }

private:
    ProjectTree& m_tree;
    bool m_tell;
};

BEGIN_MESSAGE_MAP(ProjectTree, CTavTreeCtrl)
    ON_NOTIFY_REFLECT(TVN_ITEMEXPANDING, OnItemExpanding) // reads what wasn't read yet
    ON_NOTIFY_REFLECT(TVN_GETDISPINFO, OnGetDispInfo)     // a picture comes into view
    ON_NOTIFY_REFLECT(NM_SETFOCUS, OnGotFocus)            // the parent remembers it
END_MESSAGE_MAP()

BOOL ProjectTree::Create(const RECT& rect, CWnd* parent, UINT id, CFont* font)
{
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT |
                             TVS_EDITLABELS | TVS_SHOWSELALWAYS;
    if (!CWnd::CreateEx(WS_EX_CLIENTEDGE, WC_TREEVIEWA, "", kStyle, rect, parent, id))
    {
        return FALSE;
    }
    SetFont(font, FALSE);
    InitImages();
    EnableRghtSlct(true);
    EnableLeftDrag(true);
    EnableRghtDrag(true);
    EnableEdit(true);
    return TRUE;
}

bool ProjectTree::OpenFolder(const std::string& path)
{
    const Quiet quiet(*this, false);
    DeleteAllItems();
    m_opened.clear();
    m_searched = 0;
    m_project.Clear();
    if (path != m_folder)
    {
        m_imported.clear();
        m_folder = path;
    }
    const auto root = m_source.Open(path);
    if (!root)
    {
        return false;
    }
    const ProjectId id = m_project.Begin(*root);
    const HTREEITEM row = InsertRow(*m_project.Find(id), TVI_ROOT, TVI_LAST);
    Open(id);
    Expand(row, TVE_EXPAND);
    return true;
}

void ProjectTree::Reload()
{
    if (m_project.Root() != 0) // a folder that was away for a while loses nothing
    {
        m_imported = m_project.Imported();
    }
    OpenFolder(std::string(m_folder));
    Import(m_imported);
}

bool ProjectTree::Import(const std::vector<repository::NodeRecord>& items)
{
    const Quiet quiet(*this, false);
    for (const ProjectId id : m_project.Import(items))
    {
        const ProjectItem& item = *m_project.Find(id);
        if (!RowOf(item.parent))
        {
            ShowRow(item.parent, {item.parent}); // with all that it holds
        }
        else if (!m_opened.contains(item.parent))
        {
            Open(item.parent);
        }
        else if (!RowOf(id))
        {
            InsertRow(item, RowOf(item.parent), TVI_LAST);
            UpdateButton(item.parent);
        }
    }
    return m_project.Root() != 0;
}

const ProjectItem* ProjectTree::Chosen() const { return m_project.Find(IdOf(GetSelectedItem())); }

bool ProjectTree::ChooseMoniker(const std::string& moniker)
{
    if (const ProjectItem* const chosen = Chosen(); chosen && repository::SameName(chosen->moniker, moniker))
    {
        return true; // there may be several, of which the user chose one
    }
    const ProjectId id = m_project.FindMoniker(moniker);
    const Quiet quiet(*this, false);
    Choose(id);
    return id != 0;
}

void ProjectTree::FileRenamed(const std::string& from, const std::string& to)
{
    for (const ProjectId id : m_project.FileRenamed(from, to))
    {
        if (const HTREEITEM row = RowOf(id))
        {
            SetItemText(row, m_project.Find(id)->label.c_str());
        }
    }
}

// Rows

ProjectTree::Glyph ProjectTree::GlyphOf(const ProjectItem& item)
{
    return item.kind == 0                    ? Glyph::group
           : (item.kind & bdiContainer) != 0 ? Glyph::folder
           : (item.kind & bdiRaster) != 0    ? Glyph::picture
           : (item.kind & bdiTable) != 0     ? Glyph::table
           : (item.kind & bdiVector) != 0    ? Glyph::vector
                                             : Glyph::other;
}

ProjectId ProjectTree::IdOf(HTREEITEM item) const { return static_cast<ProjectId>(GetItemData(item)); }

HTREEITEM ProjectTree::RowOf(ProjectId id) { return id != 0 ? FindItem(DWORD_PTR{id}) : nullptr; }

/// Gets to know what an item holds; nothing if it isn't there any more. @return false if it can't be read at present
bool ProjectTree::Read(ProjectId id)
{
    const ProjectItem* const item = m_project.Find(id);
    if (!item || item->filled)
    {
        return true;
    }
    const ReadResult result = m_source.Read(*item);
    const std::string quoted = "\"" + item->label + "\"";
    if (result.end != ReadEnd::refused)
    {
        m_project.Fill(id, result.children);
    }
    if (result.end != ReadEnd::read)
    {
        m_readProblem = result.end == ReadEnd::gone ? "The folder " + quoted + " isn't there any more."
                                                    : "The folder " + quoted + " can't be read.";
        Tell(projectUnread);
    }
    return result.end != ReadEnd::refused;
}

/// Gives the children of an item their rows. One that can't be read at present is asked again the next time.
void ProjectTree::Open(ProjectId id)
{
    if (m_opened.contains(id))
    {
        return;
    }
    const CWaitCursor wait;
    const bool isRead = Read(id);
    const ProjectItem* const item = m_project.Find(id);
    const HTREEITEM row = RowOf(id);
    if (!isRead || !item || !row)
    {
        return;
    }
    m_opened.insert(id);
    SetRedraw(FALSE);
    for (const ProjectId child : item->children)
    {
        InsertRow(*m_project.Find(child), row, TVI_LAST);
    }
    SetRedraw(TRUE);
    UpdateButton(id);
}

/// Unfolds all that an item stands in. @return its row
HTREEITEM ProjectTree::Reveal(ProjectId id)
{
    std::vector<ProjectId> above;
    for (const ProjectItem* item = m_project.Find(id); item && item->parent != 0; item = m_project.Find(item->parent))
    {
        above.push_back(item->parent);
    }
    for (auto folder = above.rbegin(); folder != above.rend(); ++folder)
    {
        Open(*folder);
        Expand(RowOf(*folder), TVE_EXPAND);
    }
    return RowOf(id);
}

HTREEITEM ProjectTree::InsertRow(const ProjectItem& item, HTREEITEM parent, HTREEITEM after)
{
    const auto& image = m_images[ImageIndex(item)];
    std::string label = item.label;
    TVINSERTSTRUCTA insert{};
    insert.hParent = parent;
    insert.hInsertAfter = after;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_CHILDREN | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    insert.item.pszText = label.data();
    insert.item.lParam = static_cast<LPARAM>(item.id);
    insert.item.cChildren = ButtonOf(item);
    insert.item.iImage = image.value_or(0);
    insert.item.iSelectedImage = insert.item.iImage;
    const HTREEITEM row = InsertItem(&insert);
    if (!image)
    {
        DrawGlyph(row, item);
    }
    return row;
}

/// Whether a row has a button to unfold it: a folder until it turns out to be empty, a picture once it turns out to
/// have pages, which is asked when it comes into view.
int ProjectTree::ButtonOf(const ProjectItem& item)
{
    if (item.filled || item.kind == 0)
    {
        return item.children.empty() ? 0 : 1;
    }
    return (item.kind & bdiContainer) != 0 ? 1 : ProjectSource::MayHavePages(item) ? I_CHILDRENCALLBACK : 0;
}

size_t ProjectTree::ImageIndex(const ProjectItem& item) const
{
    return static_cast<size_t>(GlyphOf(item)) + (m_project.IsHidden(item.id) ? static_cast<size_t>(Glyph::count) : 0);
}

void ProjectTree::DrawGlyph(HTREEITEM row, const ProjectItem& item)
{
    auto& image = m_images[ImageIndex(item)];
    if (image)
    {
        SetItemImage(row, *image, *image);
        return;
    }
    static_assert(kGlyphColors.size() == static_cast<size_t>(Glyph::count));
    const Glyph glyph = GlyphOf(item);
    const GlyphColors colors = kGlyphColors[static_cast<size_t>(glyph)];
    const bool hidden = m_project.IsHidden(item.id);
    if (!hidden && (glyph == Glyph::folder || glyph == Glyph::group))
    {
        DrawRect(row, colors.fill, colors.border);
    }
    else
    {
        DrawCircle(row, colors.fill, colors.border, hidden);
    }
    int drawn = 0;
    int selected = 0;
    if (GetItemImage(row, drawn, selected))
    {
        image = drawn;
    }
}

void ProjectTree::DrawGlyphsWithin(ProjectId id)
{
    const ProjectItem* const item = m_project.Find(id);
    if (const HTREEITEM row = RowOf(id))
    {
        DrawGlyph(row, *item);
    }
    if (m_opened.contains(id))
    {
        for (const ProjectId child : item->children)
        {
            DrawGlyphsWithin(child);
        }
    }
}

void ProjectTree::UpdateButton(ProjectId id)
{
    const ProjectItem* const item = m_project.Find(id);
    const HTREEITEM row = RowOf(id);
    if (item && row)
    {
        TVITEMA change{};
        change.mask = TVIF_HANDLE | TVIF_CHILDREN;
        change.hItem = row;
        change.cChildren = ButtonOf(*item);
        SetItem(&change);
    }
}

/// Gives an item, whose parent is open, a row at its place, and its children theirs where they were unfolded.
void ProjectTree::ShowRow(ProjectId id, const std::vector<ProjectId>& unfolded)
{
    const ProjectItem& item = *m_project.Find(id);
    UpdateButton(item.parent);
    const auto& brothers = m_project.Find(item.parent)->children;
    const HTREEITEM after = item.index == 0 ? TVI_FIRST : RowOf(brothers[item.index - 1]);
    InsertRow(item, RowOf(item.parent), after);
    for (const ProjectId each : unfolded)
    {
        Open(each);
        Expand(RowOf(each), TVE_EXPAND);
    }
    DrawGlyphsWithin(id); // what is hidden may have changed with the place
}

void ProjectTree::RemoveRow(ProjectId id)
{
    std::erase_if(m_opened, [&](ProjectId each) { return m_project.IsWithin(each, id); });
    if (const HTREEITEM row = RowOf(id))
    {
        DeleteItem(row);
    }
}

/// The unfolded ones of an item and all that it holds, an item before what stands in it.
std::vector<ProjectId> ProjectTree::UnfoldedWithin(ProjectId id)
{
    std::vector<ProjectId> unfolded;
    std::vector<ProjectId> waiting{id};
    while (!waiting.empty())
    {
        const ProjectId each = waiting.back();
        waiting.pop_back();
        if (!m_opened.contains(each))
        {
            continue;
        }
        if ((GetItemState(RowOf(each), TVIS_EXPANDED) & TVIS_EXPANDED) != 0)
        {
            unfolded.push_back(each);
        }
        const auto& children = m_project.Find(each)->children;
        waiting.insert(waiting.end(), children.begin(), children.end());
    }
    return unfolded;
}

void ProjectTree::Choose(ProjectId id)
{
    const HTREEITEM row = Reveal(id);
    SelectItem(row);
    if (row)
    {
        EnsureVisible(row);
    }
}

// Commands

bool ProjectTree::Can(ProjectCommand command) const
{
    const ProjectItem* const chosen = Chosen();
    switch (command)
    {
    case ProjectCommand::newGroup:
        return chosen && (chosen->IsContainer() || m_project.Find(chosen->parent)->IsContainer());
    case ProjectCommand::moveUp:
        return chosen && m_project.PlaceBeside(chosen->id, true) != ProjectPlace();
    case ProjectCommand::moveDown:
        return chosen && m_project.PlaceBeside(chosen->id, false) != ProjectPlace();
    default:
        return chosen && m_project.MayChange(chosen->id);
    }
}

void ProjectTree::Do(ProjectCommand command)
{
    if (!Can(command))
    {
        return;
    }
    const ProjectId chosen = Chosen()->id;
    switch (command)
    {
    case ProjectCommand::newGroup:
        MakeGroup();
        break;
    case ProjectCommand::rename:
        SetFocus(); // without it the editor doesn't open
        EditLabel(RowOf(chosen));
        break;
    case ProjectCommand::hide:
        ToggleHidden();
        break;
    case ProjectCommand::moveUp:
    case ProjectCommand::moveDown:
        MoveTo(chosen, m_project.PlaceBeside(chosen, command == ProjectCommand::moveUp));
        break;
    case ProjectCommand::remove:
        RemoveChosen();
        break;
    }
}

void ProjectTree::MakeGroup()
{
    const ProjectItem& chosen = *Chosen();
    const ProjectId chosenId = chosen.id;
    const ProjectId parent = chosen.IsContainer() ? chosenId : chosen.parent;
    Open(parent); // or the group would stand before what a folder is filled with
    if (!m_opened.contains(parent))
    {
        return; // it can't be read
    }
    const ProjectPlace place =
        chosen.IsContainer() ? ProjectPlace{chosenId, 0} : ProjectPlace{chosen.parent, chosen.index};
    const ProjectId group = m_project.MakeGroup(place);
    {
        const Quiet quiet(*this);
        ShowRow(group, {});
        Choose(group);
    }
    Do(ProjectCommand::rename);
}

void ProjectTree::ToggleHidden()
{
    const ProjectItem& chosen = *Chosen();
    m_project.SetHidden(chosen.id, !chosen.hidden);
    DrawGlyphsWithin(chosen.id);
    Tell(projectChanged);
}

void ProjectTree::RemoveChosen()
{
    const Quiet quiet(*this); // the control chooses another
    const ProjectItem& chosen = *Chosen();
    const ProjectId id = chosen.id;
    const ProjectId parent = chosen.parent;
    RemoveRow(id);
    m_project.Remove(id);
    UpdateButton(parent);
}

void ProjectTree::MoveTo(ProjectId id, ProjectPlace place)
{
    const ProjectItem* const item = m_project.Find(id);
    if (!item)
    {
        return;
    }
    const ProjectId from = item->parent;
    const auto unfolded = UnfoldedWithin(id);
    const Quiet quiet(*this);
    const HTREEITEM row = RowOf(id);
    if (!m_project.Move(id, place))
    {
        return;
    }
    if (row)
    {
        RemoveRow(id);
    }
    UpdateButton(from);
    ShowRow(id, unfolded);
    Choose(id);
}

void ProjectTree::CopyTo(ProjectId id, ProjectPlace place)
{
    const ProjectId copy = m_project.Copy(id, place);
    if (copy != 0)
    {
        const Quiet quiet(*this);
        ShowRow(copy, {});
        Choose(copy);
    }
}

SearchEnd ProjectTree::FindNext(const std::string& text)
{
    const CWaitCursor wait;
    const ProjectItem* const chosen = Chosen();
    const ProjectId after = m_searched != 0 ? m_searched : chosen ? chosen->id : 0;
    const SearchResult result = m_project.FindNext(
        text, after, [this](ProjectId id) { (void)Read(id); }, kMostFills);
    m_searched = result.end == SearchEnd::interrupted ? result.item : 0;
    if (result.end == SearchEnd::found)
    {
        const Quiet quiet(*this);
        Choose(result.item);
    }
    return result.end;
}

CPoint ProjectTree::MenuPlace() const
{
    CRect label;
    const HTREEITEM row = GetSelectedItem();
    CPoint place(0, 0);
    if (row && GetItemRect(row, label, TRUE))
    {
        place = CPoint(label.left, label.bottom);
    }
    ClientToScreen(&place);
    return place;
}

// Drag and drop

bool ProjectTree::IsDragItem(HTREEITEM item) { return m_project.MayChange(IdOf(item)); }

bool ProjectTree::IsDragTrgt(HTREEITEM dragItem, HTREEITEM target)
{
    return m_project.PlaceFor(IdOf(dragItem), IdOf(target)) != ProjectPlace();
}

void ProjectTree::OnDragEnd(HTREEITEM dragItem, HTREEITEM target)
{
    const ProjectId dragged = IdOf(dragItem);
    const ProjectId onto = IdOf(target);
    bool copy = false;
    if (IsRghtDrag() && !AskToCopy(copy))
    {
        return;
    }
    // The menu ran a loop of its own: what the drop was about may be gone, which the project finds out.
    if (const ProjectItem* const item = m_project.Find(onto); item && item->IsContainer())
    {
        Open(onto); // the place is behind what it holds
        if (!m_opened.contains(onto))
        {
            return; // it can't be read
        }
    }
    const ProjectPlace place = m_project.PlaceFor(dragged, onto);
    if (place == ProjectPlace())
    {
        return;
    }
    if (copy)
    {
        CopyTo(dragged, place);
    }
    else
    {
        MoveTo(dragged, place);
    }
}

/// Asks what a right drag was meant to do. False for nothing, and when the tree went away meanwhile.
bool ProjectTree::AskToCopy(bool& copy) const
{
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, kMoveHere, "&Move here");
    menu.AppendMenu(MF_STRING, kCopyHere, "&Copy here");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING, kCancel, "Cancel");
    const HWND window = m_hWnd;
    POINT place{};
    ::GetCursorPos(&place);
    const auto answer = static_cast<UINT>(::TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_LEFTBUTTON, place.x,
                                                           place.y, 0, ::GetAncestor(window, GA_ROOT), nullptr));
    copy = answer == kCopyHere;
    return ::IsWindow(window) && (answer == kMoveHere || answer == kCopyHere);
}

// Selection, keys and labels

bool ProjectTree::DTCSlctChg(HTREEITEM, HTREEITEM newItem, LRESULT*)
{
    if (m_quiet == 0)
    {
        m_told = IdOf(newItem);
        Tell(projectChosen);
    }
    return true;
}

void ProjectTree::DTCKeyDown(unsigned short key, LRESULT* result)
{
    if (key == VK_F2 || key == VK_DELETE)
    {
        *result = 1;
        Do(key == VK_F2 ? ProjectCommand::rename : ProjectCommand::remove);
    }
}

void ProjectTree::DTCBeginLabelEdit(NMHDR* header, LRESULT* result)
{
    const HTREEITEM row = reinterpret_cast<NMTVDISPINFOA*>(header)->item.hItem;
    *result = m_project.MayChange(IdOf(row)) ? 0 : 1;
}

void ProjectTree::DTCEndLabelEdit(NMHDR* header, LRESULT* result)
{
    const TVITEMA& edited = reinterpret_cast<NMTVDISPINFOA*>(header)->item;
    *result = 0; // the label is shown as the project took it, without blanks at its ends
    const ProjectId id = IdOf(edited.hItem);
    if (edited.pszText && m_project.Rename(id, edited.pszText))
    {
        SetItemText(edited.hItem, m_project.Find(id)->label.c_str());
        Tell(projectChanged);
    }
}

void ProjectTree::OnItemExpanding(NMHDR* header, LRESULT* result)
{
    const auto& info = *reinterpret_cast<NMTREEVIEWA*>(header);
    *result = 0;
    if ((info.action & TVE_EXPAND) != 0)
    {
        Open(IdOf(info.itemNew.hItem));
    }
}

void ProjectTree::OnGetDispInfo(NMHDR* header, LRESULT* result)
{
    TVITEMA& wanted = reinterpret_cast<NMTVDISPINFOA*>(header)->item;
    *result = 0;
    if ((wanted.mask & TVIF_CHILDREN) != 0)
    {
        const ProjectItem* const item = m_project.Find(IdOf(wanted.hItem));
        wanted.cChildren = item && ProjectSource::HasPages(*item) ? 1 : 0;
        wanted.mask |= TVIF_DI_SETITEM; // it is asked once
    }
}

void ProjectTree::OnGotFocus(NMHDR*, LRESULT* result)
{
    *result = 0;
    Tell(projectFocus);
}

void ProjectTree::Tell(ProjectNotice notice)
{
    if (CWnd* const parent = GetParent())
    {
        parent->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), notice), reinterpret_cast<LPARAM>(m_hWnd));
    }
}
} // namespace workbench
