// FolderList.cpp
#include "tavkit/filedlg/FolderList.h"
#include "tavkit/frame/NoCase.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tavkit
{

namespace
{

constexpr char kInstallDir[] = "InstallDir";
constexpr int kInstallDirLength = sizeof kInstallDir - 1;
constexpr char kDesktop[] = "Desktop";
constexpr char kDocuments[] = "My Documents";

struct NoCaseLess
{
    bool operator()(char const* left, char const* right) const noexcept { return CompareNoCase(left, right) < 0; }
};

/// Calls @p take with each non-empty piece of a list, translated.
template <class Take>
void ForEachEntry(DString const& list, FolderTranslator const& translate, Take take)
{
    for (DString::Tokens walk(list, kFolderSeparator); !walk.Done(); walk.Next())
    {
        if (DString piece = walk.Crnt(); !piece.IsEmpty())
        {
            translate(piece);
            take(piece);
        }
    }
}

/// The entries of a list that aren't among @p folders, each once. Texts that are moved to a new place in memory keep
/// their address, so they can be looked up by it.
[[nodiscard]] std::vector<DString> MissingEntries(DVectorSafe<DString> const& folders, DString const& list,
                                                  FolderTranslator const& translate)
{
    std::vector<DString> missing;
    std::set<char const*, NoCaseLess> known;
    for (DString const& folder : folders)
    {
        known.insert(folder.c_str());
    }
    ForEachEntry(list, translate, [&](DString& entry) {
        if (!entry.IsEmpty() && known.insert(entry.c_str()).second)
        {
            missing.push_back(std::move(entry));
        }
    });
    return missing;
}

} // namespace

Place PlaceOf(char const* entry) noexcept
{
    return StartsWithNoCase(entry, kInstallDir)    ? Place::InstallDir
           : CompareNoCase(entry, kDesktop) == 0   ? Place::Desktop
           : CompareNoCase(entry, kDocuments) == 0 ? Place::Documents
                                                   : Place::None;
}

DString InstalledPath(DString installDir, DString const& entry)
{
    installDir.TrimRight("/\\");
    return installDir + entry.Right(entry.GetLength() - kInstallDirLength);
}

void AppendHistory(DVectorSafe<DString>& folders, DString const& list, FolderTranslator const& translate)
{
    ForEachEntry(list, translate, [&](DString const& folder) { folders.Append(folder); });
}

void AppendDefaults(DVectorSafe<DString>& folders, DString const& list, FolderTranslator const& translate)
{
    for (DString const& entry : MissingEntries(folders, list, translate))
    {
        folders.Append(entry);
    }
}

int CountDefaults(DVectorSafe<DString> const& folders, DString const& list, FolderTranslator const& translate)
{
    return static_cast<int>(MissingEntries(folders, list, translate).size());
}

DString JoinFolders(DVectorSafe<DString> const& folders)
{
    std::string list;
    for (DString const& folder : folders)
    {
        if (&folder != folders.begin())
        {
            list += kFolderSeparator;
        }
        list += folder.c_str();
    }
    return list.c_str();
}

void PutToFront(DVectorSafe<DString>& history, int merged, DString const& folder)
{
    if (merged >= kFullFolderList && !history.IsEmpty())
    {
        history.RemoveLast();
    }
    for (int i = 0; i < history.GetCount(); ++i)
    {
        if (CompareNoCase(history[i].c_str(), folder.c_str()) == 0)
        {
            history.RemoveAt(i);
            break;
        }
    }
    InsertAt(history, 0, folder);
}

} // namespace tavkit
