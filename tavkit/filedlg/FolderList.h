// FolderList.h - lists of folders: taken apart, joined and merged, and what their special entries stand for
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/DString.h"
#include "tavkit/frame/services/DVector.h"

#include <functional>

namespace tavkit
{

inline constexpr char kFolderSeparator[] = ";"; ///< between the entries of a list's textual form

/// With this many entries in history and defaults together, every folder that joins the history costs it its oldest.
inline constexpr int kFullFolderList = 10;

/// A place that an entry of a folder list may stand for.
enum class Place
{
    None,       ///< a path, or no place that is known
    InstallDir, ///< the installation folder; a tail may follow the word
    Desktop,
    Documents
};

/// The place that an entry names, without regard to case. Only "InstallDir" may carry a tail, whatever it is made of:
/// "InstallDir\Examples" names the place, "Desktop\Work" doesn't.
[[nodiscard]] TAVKIT_API Place PlaceOf(char const* entry) noexcept;

/// The path of an entry that names Place::InstallDir: the folder without closing separators, and the entry's tail.
[[nodiscard]] TAVKIT_API DString InstalledPath(DString installDir, DString const& entry);

/// Makes a real path of an entry that is a token and leaves any other as it is.
using FolderTranslator = std::function<void(DString& entry)>;

/// Appends every entry of a list, translated. Empty pieces are no entries; nothing else is left out.
TAVKIT_API void AppendHistory(DVectorSafe<DString>& folders, DString const& list, FolderTranslator const& translate);

/// Appends the entries of a list that aren't there yet, translated and compared without regard to case. Entries that
/// translate to nothing are left out.
TAVKIT_API void AppendDefaults(DVectorSafe<DString>& folders, DString const& list, FolderTranslator const& translate);

/// How many entries AppendDefaults would add.
[[nodiscard]] TAVKIT_API int CountDefaults(DVectorSafe<DString> const& folders, DString const& list,
                                           FolderTranslator const& translate);

/// The textual form: the entries joined by ";", none at the end.
[[nodiscard]] TAVKIT_API DString JoinFolders(DVectorSafe<DString> const& folders);

/// Puts a folder, in its own letter case, to the front of a history, from where it was or as a new entry. A full list
/// loses the oldest entry first, even if the folder is in the history already: the list then shrinks. That is wanted.
/// @param merged  entries of history and defaults together
TAVKIT_API void PutToFront(DVectorSafe<DString>& history, int merged, DString const& folder);

} // namespace tavkit
