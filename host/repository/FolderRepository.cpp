// FolderRepository.cpp
#include "host/repository/FolderRepository.h"

#include <algorithm>

#include <windows.h>

#include "host/FileBytes.h"
#include "host/PathText.h"
#include "host/repository/NodeNames.h"

namespace repository
{
namespace
{
constexpr DWORD kSystemsOwn = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM; ///< both together

struct CloseFind
{
    using pointer = HANDLE;
    void operator()(HANDLE find) const noexcept { ::FindClose(find); }
};

/// The text in the ANSI code page; `complete` becomes false if it can't be turned back.
[[nodiscard]] std::string Narrow(std::wstring_view wide, bool& complete)
{
    constexpr std::size_t kMostBytes = 3; // for one unit, in any code page that a system may have
    std::string text(wide.size() * kMostBytes, '\0');
    const int bytes = ::WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()), text.data(),
                                            static_cast<int>(text.size()), nullptr, nullptr);
    text.resize(static_cast<std::size_t>(std::max(0, bytes)));
    complete = host::Widen(text) == wide;
    return text;
}

[[nodiscard]] DWORD AttributesOf(std::string_view path) { return ::GetFileAttributesW(host::WidePath(path).c_str()); }

/// What makes a folder the same folder whatever path leads to it.
struct FolderIdentity
{
    DWORD volume;
    DWORD indexHigh;
    DWORD indexLow;

    bool operator==(const FolderIdentity&) const = default;
};

/// Follows links. Nothing if there is no such folder.
[[nodiscard]] std::optional<FolderIdentity> IdentityOf(std::string_view path)
{
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const host::FileHandle folder(::CreateFileW(host::WidePath(path).c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                                OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION info;
    if (!folder.IsValid() || !::GetFileInformationByHandle(folder.Get(), &info))
    {
        return std::nullopt;
    }
    return FolderIdentity{info.dwVolumeSerialNumber, info.nFileIndexHigh, info.nFileIndexLow};
}

/// Tells links that go on from those that lead back; the folders along the path are looked at when the first link
/// comes.
class LinkJudge
{
public:
    /// @param folder  the one that the links lie in.
    explicit LinkJudge(std::string_view folder) : m_folder(folder) {}

    [[nodiscard]] bool LeadsOn(std::string_view link)
    {
        if (!m_known)
        {
            m_known = true;
            for (const std::string& folder : host::FoldersAlong(m_folder))
            {
                if (const auto identity = IdentityOf(folder))
                {
                    m_along.push_back(*identity);
                }
            }
        }
        const auto target = IdentityOf(link);
        return target && std::ranges::find(m_along, *target) == m_along.end();
    }

private:
    std::string_view m_folder;
    bool m_known = false;
    std::vector<FolderIdentity> m_along;
};

[[nodiscard]] bool IsFolder(DWORD attributes) noexcept { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

[[nodiscard]] unsigned int KindOfFolder(DWORD attributes, std::string_view path, LinkJudge& links)
{
    return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0 || links.LeadsOn(path) ? bdiContainer : bdiOther;
}

/// The node at a path; nothing if nothing is there, or nothing that is shown.
[[nodiscard]] std::optional<NodeRecord> Look(std::string_view path)
{
    const DWORD attributes = path.empty() ? INVALID_FILE_ATTRIBUTES : AttributesOf(path);
    if (attributes == INVALID_FILE_ATTRIBUTES)
    {
        return std::nullopt;
    }
    NodeRecord node{0, std::string(path), host::DisplayName(path)};
    if (IsFolder(attributes))
    {
        const auto along = host::FoldersAlong(path);
        LinkJudge links(along.size() > 1 ? std::string_view(along[along.size() - 2]) : std::string_view());
        node.kind = KindOfFolder(attributes, path, links);
    }
    else
    {
        node.kind = KindOfFile(node.display);
    }
    return node.kind != 0 ? std::optional(std::move(node)) : std::nullopt;
}

/// The name by which an entry of a folder can be opened; "" if it has none.
[[nodiscard]] std::string NameToOpen(std::string_view folder, const WIN32_FIND_DATAW& entry, std::string& display)
{
    bool complete = false;
    display = Narrow(entry.cFileName, complete);
    if (complete)
    {
        return display;
    }
    // The listing doesn't tell short names: it is faster without them.
    const std::wstring path = host::WidePath((host::JoinPath(folder, ""))) + entry.cFileName;
    std::wstring shortPath(path.size() + MAX_PATH, L'\0');
    const DWORD length = ::GetShortPathNameW(path.c_str(), shortPath.data(), static_cast<DWORD>(shortPath.size()));
    if (length == 0 || length >= shortPath.size())
    {
        return {};
    }
    shortPath.resize(length);
    const std::string name = Narrow(std::wstring_view(shortPath).substr(shortPath.find_last_of(L'\\') + 1), complete);
    return complete ? name : std::string();
}
} // namespace

std::unique_ptr<Repository> FolderRepository::Open(std::string_view path)
{
    auto root = Look(path);
    return root ? std::unique_ptr<Repository>(new FolderRepository(*std::move(root))) : nullptr;
}

std::optional<NodeRecord> FolderRepository::Find(std::string_view id) const
{
    const host::PathParts parts = host::SplitPath(id);
    const std::string_view path = id.substr(0, parts.folder.size() + parts.name.size());
    return host::LiesWithin(m_root.id, path) ? Look(path) : std::nullopt;
}

std::vector<NodeRecord> FolderRepository::Children(const BDINode& parent, unsigned int mask) const
{
    std::vector<NodeRecord> children;
    if ((parent.m_nKind & bdiContainer) == 0)
    {
        return children;
    }
    const std::string_view folder = parent.m_strId.c_str();
    WIN32_FIND_DATAW entry;
    const HANDLE opened = ::FindFirstFileExW(host::WidePath((host::JoinPath(folder, "*"))).c_str(), FindExInfoBasic,
                                             &entry, FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (opened == INVALID_HANDLE_VALUE)
    {
        return children;
    }
    const std::unique_ptr<HANDLE, CloseFind> find(opened);
    LinkJudge links(folder);
    do
    {
        const std::wstring_view name = entry.cFileName;
        if (name == L"." || name == L".." || (entry.dwFileAttributes & kSystemsOwn) == kSystemsOwn)
        {
            continue;
        }
        NodeRecord child;
        const std::string opens = NameToOpen(folder, entry, child.display);
        if (opens.empty())
        {
            continue;
        }
        child.id = host::JoinPath(folder, opens);
        child.kind = IsFolder(entry.dwFileAttributes) ? KindOfFolder(entry.dwFileAttributes, child.id, links)
                                                      : KindOfFile(child.display);
        if ((child.kind & mask) != 0)
        {
            children.push_back(std::move(child));
        }
    } while (::FindNextFileW(opened, &entry));
    std::ranges::sort(children, ComesBefore);
    return children;
}
} // namespace repository
