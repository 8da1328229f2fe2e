// Project.h - the items of the project tree: what lies in the opened folder, in the order and groups that the user
// makes
#pragma once

#include "host/repository/Repository.h"

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace workbench
{
/// Number of an item; 0 stands for none. A number isn't used a second time.
using ProjectId = unsigned int;

/// One item.
struct ProjectItem
{
    ProjectId id = 0;
    ProjectId parent = 0;  ///< 0 for the root
    std::size_t index = 0; ///< place among its brothers
    unsigned int kind = 0; ///< bits of BDINodeKind; 0 for a group that the user made
    std::string moniker;   ///< what the item stands for; empty for a group
    std::string label;
    bool hidden = false;   ///< by itself, whatever it stands in
    bool filled = false;   ///< its children are known
    bool imported = false; ///< wasn't found in the folder, but put beside what lies there
    std::vector<ProjectId> children;

    /// True for what other items can be put into: folders and groups, not the pages of a picture.
    [[nodiscard]] bool IsContainer() const noexcept { return kind == 0 || (kind & bdiContainer) != 0; }
};

/// A place for an item: in front of the child that has this index now, or behind the last.
struct ProjectPlace
{
    ProjectId parent = 0; ///< 0 for nowhere
    std::size_t index = 0;

    bool operator==(const ProjectPlace&) const = default;
};

/// How a search ended.
enum class SearchEnd
{
    found,
    missing,    ///< no item has such a label
    interrupted ///< enough folders were read for once; a search from the item goes on
};

/// Result of a search.
struct SearchResult
{
    SearchEnd end = SearchEnd::missing;
    ProjectId item = 0; ///< the item found, or the one that the search came to; 0 for none

    bool operator==(const SearchResult&) const = default;
};

/// A tree of items under one root. Containers are filled as they are looked into. All changes are the project's alone:
/// files and folders on disk stay where and as they are.
class Project
{
public:
    /// Begins anew with a root that isn't filled yet.
    /// @return the root
    ProjectId Begin(const repository::NodeRecord& root);
    /// No items at all, not even a root.
    void Clear();

    [[nodiscard]] ProjectId Root() const noexcept { return m_root; }
    /// An item; null for a number that no item has. Valid until the item is removed or the project begins anew.
    [[nodiscard]] const ProjectItem* Find(ProjectId id) const;
    /// True if an item is hidden by itself or by what it stands in.
    [[nodiscard]] bool IsHidden(ProjectId id) const;
    /// True if the item is the other or stands in it, however deep.
    [[nodiscard]] bool IsWithin(ProjectId id, ProjectId other) const;
    /// The first item in the order of the tree that stands for a moniker, by its text, not its case; 0 for none.
    [[nodiscard]] ProjectId FindMoniker(std::string_view moniker) const;

    /// Gives an item its children. An item that has got them already keeps them.
    void Fill(ProjectId id, const std::vector<repository::NodeRecord>& children);

    /// Any item but the root may be dragged, renamed, hidden, moved and removed.
    [[nodiscard]] bool MayChange(ProjectId id) const;
    /// Where an item that is dropped on another goes: into a container, behind what it holds; else to the side of the
    /// other that it comes from, so that two neighbours change places. Beside all items is the end of the root.
    /// @param target  0 for beside all items
    /// @return nowhere for an item that mustn't be moved, and for one dropped on itself or into itself
    [[nodiscard]] ProjectPlace PlaceFor(ProjectId dragged, ProjectId target) const;
    /// The place one step up or down among its brothers; nowhere at the end of the way.
    [[nodiscard]] ProjectPlace PlaceBeside(ProjectId id, bool up) const;

    /// Puts an item with all that it holds elsewhere. False, and nothing changed, if it can't go there.
    bool Move(ProjectId id, ProjectPlace place);
    /// Puts a copy of an item with all that it holds at a place; what isn't filled yet is filled later of its own.
    /// @return the copy; 0 if it can't go there
    ProjectId Copy(ProjectId id, ProjectPlace place);
    /// Makes an empty group whose label no brother has.
    /// @return the group; 0 if it can't go there
    ProjectId MakeGroup(ProjectPlace place);
    /// Puts what was imported at the end of a group that it shares, which is made at the end of the root. What an item
    /// stands for already is passed over.
    /// @return the items that are new, all in that group; none without a root
    std::vector<ProjectId> Import(const std::vector<repository::NodeRecord>& items);
    /// What was imported and not removed since, in the order of the tree, each moniker once.
    [[nodiscard]] std::vector<repository::NodeRecord> Imported() const;
    /// Gives an item another label, blanks at both ends left out. False, and nothing changed, for a blank one.
    bool Rename(ProjectId id, std::string_view label);
    /// A file has another path now: the items that stand for it, or for a page of it, follow; so do labels that are its
    /// name.
    /// @return the items that follow
    std::vector<ProjectId> FileRenamed(std::string_view from, std::string_view to);
    /// False for the root.
    bool SetHidden(ProjectId id, bool hidden);
    /// Takes an item with all that it holds out of the project.
    bool Remove(ProjectId id);

    /// Fills an item, which isn't filled yet.
    using Filler = std::function<void(ProjectId id)>;
    /// Looks for the next item whose label holds a text in whatever case. The search goes on behind an item, from top
    /// to bottom, begins again at the top and ends at that item, which comes last.
    /// @param after      0 to begin at the root
    /// @param fill       fills the folders that the search comes to
    /// @param mostFills  folders that may be filled at a time
    SearchResult FindNext(std::string_view text, ProjectId after, const Filler& fill, int mostFills);

private:
    [[nodiscard]] ProjectItem* Get(ProjectId id);
    ProjectItem& Add(ProjectItem item, ProjectPlace place);
    ProjectId AddCopy(const ProjectItem& source, ProjectPlace place);
    void Insert(ProjectItem& item, ProjectPlace place);
    void Detach(const ProjectItem& item);
    void Renumber(const ProjectItem& parent, std::size_t from);
    void Forget(ProjectId id);
    [[nodiscard]] bool CanTake(ProjectPlace place) const;
    /// The item behind another in the order of the tree; 0 behind the last.
    [[nodiscard]] ProjectId Next(const ProjectItem& item) const;

    std::unordered_map<ProjectId, ProjectItem> m_items;
    ProjectId m_root = 0;
    ProjectId m_last = 0; ///< number given last
};
} // namespace workbench
