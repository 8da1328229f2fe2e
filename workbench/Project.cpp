#include "workbench/Project.h"

#include "host/PathText.h"
#include "host/repository/NodeNames.h"
#include "tavkit/frame/NoCase.h"

#include <algorithm>
#include <unordered_set>

namespace workbench
{
namespace
{
constexpr char kGroupLabel[] = "New Group";
constexpr char kImportLabel[] = "Imported";
constexpr std::string_view kBlanks = " \t";

[[nodiscard]] std::string_view WithoutBlanks(std::string_view text) noexcept
{
    const std::size_t begin = text.find_first_not_of(kBlanks);
    return begin == std::string_view::npos ? std::string_view()
                                           : text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}
/// A text that is the same for names that differ at most in the case of ASCII letters.
[[nodiscard]] std::string Folded(std::string text)
{
    std::ranges::transform(text, text.begin(), [](char c) { return static_cast<char>(tavkit::FoldedByte(c)); });
    return text;
}
} // namespace

ProjectId Project::Begin(const repository::NodeRecord& root)
{
    Clear();
    m_root = ++m_last;
    ProjectItem item;
    item.id = m_root;
    item.kind = root.kind;
    item.moniker = root.id;
    item.label = root.display;
    m_items.emplace(m_root, std::move(item));
    return m_root;
}

void Project::Clear()
{
    m_items.clear();
    m_root = 0;
}

const ProjectItem* Project::Find(ProjectId id) const
{
    const auto found = m_items.find(id);
    return found == m_items.end() ? nullptr : &found->second;
}

ProjectItem* Project::Get(ProjectId id) { return const_cast<ProjectItem*>(Find(id)); }

bool Project::IsHidden(ProjectId id) const
{
    for (const ProjectItem* item = Find(id); item; item = Find(item->parent))
    {
        if (item->hidden)
        {
            return true;
        }
    }
    return false;
}

bool Project::IsWithin(ProjectId id, ProjectId other) const
{
    for (const ProjectItem* item = Find(id); item; item = Find(item->parent))
    {
        if (item->id == other)
        {
            return true;
        }
    }
    return false;
}

ProjectId Project::FindMoniker(std::string_view moniker) const
{
    for (const ProjectItem* item = Find(m_root); item; item = Find(Next(*item)))
    {
        if (!item->moniker.empty() && repository::SameName(item->moniker, moniker))
        {
            return item->id;
        }
    }
    return 0;
}

void Project::Fill(ProjectId id, const std::vector<repository::NodeRecord>& children)
{
    ProjectItem* const parent = Get(id);
    if (!parent || parent->filled)
    {
        return;
    }
    parent->filled = true;
    parent->children.reserve(parent->children.size() + children.size());
    m_items.reserve(m_items.size() + children.size()); // the parent's place doesn't depend on it
    for (const repository::NodeRecord& child : children)
    {
        ProjectItem item;
        item.kind = child.kind;
        item.moniker = child.id;
        item.label = child.display;
        Add(std::move(item), {id, parent->children.size()});
    }
}

bool Project::MayChange(ProjectId id) const { return id != m_root && Find(id); }

ProjectPlace Project::PlaceFor(ProjectId dragged, ProjectId target) const
{
    const ProjectItem* const item = Find(dragged);
    const ProjectItem* const other = Find(target == 0 ? m_root : target);
    if (!MayChange(dragged) || !other || IsWithin(other->id, dragged))
    {
        return {};
    }
    if (other->IsContainer())
    {
        return {other->id, other->children.size()};
    }
    const bool fromAbove = item->parent == other->parent && item->index < other->index;
    const ProjectPlace place{other->parent, other->index + (fromAbove ? 1 : 0)};
    return CanTake(place) ? place : ProjectPlace();
}

ProjectPlace Project::PlaceBeside(ProjectId id, bool up) const
{
    const ProjectItem* const item = Find(id);
    if (!MayChange(id) || !CanTake({item->parent, 0}) ||
        (up ? item->index == 0 : item->index + 1 == Find(item->parent)->children.size()))
    {
        return {};
    }
    return {item->parent, up ? item->index - 1 : item->index + 2};
}

bool Project::Move(ProjectId id, ProjectPlace place)
{
    ProjectItem* const item = Get(id);
    if (!MayChange(id) || !CanTake(place) || IsWithin(place.parent, id))
    {
        return false;
    }
    // The place is counted with the item still where it was.
    if (item->parent == place.parent && item->index < place.index)
    {
        --place.index;
    }
    Detach(*item);
    Insert(*item, place);
    return true;
}

ProjectId Project::Copy(ProjectId id, ProjectPlace place)
{
    const ProjectItem* const source = Find(id);
    if (!MayChange(id) || !CanTake(place) || IsWithin(place.parent, id))
    {
        return 0;
    }
    return AddCopy(*source, place);
}

ProjectId Project::MakeGroup(ProjectPlace place)
{
    if (!CanTake(place))
    {
        return 0;
    }
    const auto& brothers = Find(place.parent)->children;
    ProjectItem group;
    group.label = kGroupLabel;
    for (int number = 2; std::ranges::any_of(brothers, [&](ProjectId id) { return Find(id)->label == group.label; });
         ++number)
    {
        group.label = kGroupLabel + (" " + std::to_string(number));
    }
    group.filled = true;
    return Add(std::move(group), place).id;
}

bool Project::Rename(ProjectId id, std::string_view label)
{
    label = WithoutBlanks(label);
    if (!MayChange(id) || label.empty())
    {
        return false;
    }
    Get(id)->label = label;
    return true;
}

std::vector<ProjectId> Project::FileRenamed(std::string_view from, std::string_view to)
{
    std::vector<ProjectId> renamed;
    for (auto& [id, item] : m_items)
    {
        const host::PathParts parts = host::SplitPath(item.moniker);
        const std::size_t fileLength = item.moniker.size() - parts.options.size();
        if (item.moniker.empty() || !repository::SameName(std::string_view(item.moniker).substr(0, fileLength), from))
        {
            continue;
        }
        if (item.label == parts.name)
        {
            item.label = host::DisplayName(to);
        }
        item.moniker.replace(0, fileLength, to);
        renamed.push_back(id);
    }
    return renamed;
}

bool Project::SetHidden(ProjectId id, bool hidden)
{
    if (!MayChange(id))
    {
        return false;
    }
    Get(id)->hidden = hidden;
    return true;
}

bool Project::Remove(ProjectId id)
{
    if (!MayChange(id))
    {
        return false;
    }
    Detach(*Find(id));
    Forget(id);
    return true;
}

SearchResult Project::FindNext(std::string_view text, ProjectId after, const Filler& fill, int mostFills)
{
    if (text.empty() || m_root == 0)
    {
        return {};
    }
    const ProjectId start = Find(after) ? after : 0;
    ProjectId came = start;
    while (true)
    {
        ProjectId next = m_root;
        if (came != 0)
        {
            if (const ProjectItem* const item = Find(came); !item->filled && (item->kind & bdiContainer) != 0)
            {
                if (mostFills-- == 0)
                {
                    return {SearchEnd::interrupted, came};
                }
                fill(came);
            }
            next = Next(*Find(came));
        }
        if (next == 0)
        {
            if (start == 0)
            {
                return {};
            }
            next = m_root; // from the top again
        }
        if (repository::NameHolds(Find(next)->label, text))
        {
            return {SearchEnd::found, next};
        }
        if (next == start)
        {
            return {};
        }
        came = next;
    }
}

std::vector<ProjectId> Project::Import(const std::vector<repository::NodeRecord>& items)
{
    std::vector<ProjectId> added;
    const ProjectItem* const root = Find(m_root);
    if (!root)
    {
        return added;
    }
    std::unordered_set<std::string> known;
    for (const auto& [id, item] : m_items)
    {
        known.insert(Folded(item.moniker));
    }
    const auto& first = root->children;
    const auto found =
        std::ranges::find_if(first, [&](ProjectId id) { return Find(id)->kind == 0 && Find(id)->imported; });
    ProjectId group = found == first.end() ? 0 : *found;
    for (const repository::NodeRecord& record : items)
    {
        if (!known.insert(Folded(record.id)).second)
        {
            continue;
        }
        ProjectItem item;
        item.imported = true;
        if (group == 0)
        {
            ProjectItem shared = item;
            shared.label = kImportLabel;
            shared.filled = true;
            group = Add(std::move(shared), {m_root, first.size()}).id;
        }
        item.kind = record.kind;
        item.moniker = record.id;
        item.label = record.display;
        added.push_back(Add(std::move(item), {group, Find(group)->children.size()}).id);
    }
    return added;
}

std::vector<repository::NodeRecord> Project::Imported() const
{
    std::vector<repository::NodeRecord> items;
    std::unordered_set<std::string> monikers;
    for (const ProjectItem* item = Find(m_root); item; item = Find(Next(*item)))
    {
        if (item->imported && item->kind != 0 && monikers.insert(item->moniker).second)
        {
            items.push_back({item->kind, item->moniker, item->label});
        }
    }
    return items;
}

ProjectItem& Project::Add(ProjectItem item, ProjectPlace place)
{
    const ProjectId id = ++m_last;
    item.id = id;
    ProjectItem& added = m_items.emplace(id, std::move(item)).first->second;
    Insert(added, place);
    return added;
}

ProjectId Project::AddCopy(const ProjectItem& source, ProjectPlace place)
{
    ProjectItem item = source;
    item.children.clear();
    const ProjectId copy = Add(std::move(item), place).id;
    for (std::size_t i = 0; i < source.children.size(); ++i)
    {
        AddCopy(*Find(source.children[i]), {copy, i});
    }
    return copy;
}

void Project::Insert(ProjectItem& item, ProjectPlace place)
{
    item.parent = place.parent;
    ProjectItem& parent = *Get(place.parent);
    const std::size_t index = std::min(place.index, parent.children.size());
    parent.children.insert(parent.children.begin() + static_cast<std::ptrdiff_t>(index), item.id);
    Renumber(parent, index);
}

void Project::Detach(const ProjectItem& item)
{
    ProjectItem& parent = *Get(item.parent);
    const std::size_t index = item.index;
    parent.children.erase(parent.children.begin() + static_cast<std::ptrdiff_t>(index));
    Renumber(parent, index);
}

void Project::Renumber(const ProjectItem& parent, std::size_t from)
{
    for (std::size_t i = from; i < parent.children.size(); ++i)
    {
        Get(parent.children[i])->index = i;
    }
}

void Project::Forget(ProjectId id)
{
    const auto node = m_items.extract(id);
    for (const ProjectId child : node.mapped().children)
    {
        Forget(child);
    }
}

bool Project::CanTake(ProjectPlace place) const
{
    const ProjectItem* const parent = Find(place.parent);
    return parent && parent->IsContainer();
}

ProjectId Project::Next(const ProjectItem& item) const
{
    if (!item.children.empty())
    {
        return item.children.front();
    }
    for (const ProjectItem* at = &item; at->parent != 0; at = Find(at->parent))
    {
        const auto& brothers = Find(at->parent)->children;
        if (const std::size_t next = at->index + 1; next < brothers.size())
        {
            return brothers[next];
        }
    }
    return 0;
}
} // namespace workbench
