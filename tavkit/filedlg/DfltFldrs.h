// DfltFldrs.h - which folders a file dialog offers for a kind of data
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/DFile.h"
#include "tavkit/frame/services/DString.h"
#include "tavkit/frame/services/DVector.h"

#include <map>

/// The default folders of each folder category, and the folders that the user picked last. A category is named by a
/// key, "ImageFolders" for instance; the set of keys is open. The defaults come from the product configuration; the
/// history lies in the per-user store and is read and written anew each time, most recent folder first.
///
/// A folder list is one text: entries joined by ";". An entry is a path or a token: "Desktop", "My Documents", or
/// "InstallDir" with whatever follows it. Case doesn't matter. Lists are handed out with tokens made real paths. No
/// folder is ever tested for existence, and nothing is reported to the user.
///
/// One instance serves the process, on the thread that runs the dialogs.
class TAVKIT_API DfltFldrs
{
public:
    static constexpr char kHistorySection[] = "DefaultFolders"; ///< of the per-user store; one value per category

    /// The instance, made on the first call. It goes when the module is unloaded.
    static DfltFldrs* Instance();
    /// True if there is an instance; makes none.
    static bool HasInstance();
    /// Deletes the instance, if there is one; the next Instance() makes a new one.
    static void DeleteInstance();

    /// Takes the default folders of the known categories from the product configuration, with the library's own where
    /// the product names none.
    DfltFldrs();
    DfltFldrs(DfltFldrs const& other);
    DfltFldrs& operator=(DfltFldrs const& other);
    virtual ~DfltFldrs();

    /// Takes default folders from an XML file: each child of the root names a category by its name and a folder list by
    /// the attribute "path", in which "/" may stand for "\". Other categories keep what they have; a child without
    /// "path" empties its category.
    /// @return false, and nothing changed, for an empty file name and a file that can't be read or parsed
    bool Load(DFile const& file);
    /// Sets the default folder list of a category. The text is kept as it is; a null key counts as "".
    void SetDfltFldrs(char const* key, char const* folders);

    /// Fills @p folders, emptied first, with the folders of a category: the history in its order, then those defaults
    /// that aren't there yet, compared without regard to case. A null or empty key leaves it empty.
    /// @param bDflts  with the defaults
    /// @param bHist   with the history; without it the store isn't opened
    void GetDirHist(char const* key, DVectorSafe<DString>& folders, bool bDflts, bool bHist);
    /// Puts a folder to the front of a category's history. Of a list that has ten entries with its defaults the oldest
    /// folder goes, even if the new one was in the history already. Nothing is written for a null or empty key and for
    /// an empty folder.
    void SaveDirHist(char const* key, DString const& folder);

    /// Asks the shell for a folder, which is made if it is missing.
    /// @param csidl  number of the folder, CSIDL_DESKTOPDIRECTORY for instance
    /// @param path   receives the path with a closing "\"; left as it is on failure
    static bool GetSpecialFolder(unsigned int csidl, DString& path);
    /// Makes a real path of a token; any other text, and a token that the shell doesn't know, comes back as it is. The
    /// install directory comes without a closing separator, the shell's folders with one.
    static DString TranslateSpecialPath(DString path);

private:
    /// Deletes the instance when the module is unloaded.
    struct CAutoDel
    {
        ~CAutoDel() { DeleteInstance(); }
    };

    void AppendDefaultsOf(char const* key, DVectorSafe<DString>& folders) const;

    static DfltFldrs* m_pSingleInstance;
    static CAutoDel m_autoDelete;

    std::map<DString, DString, DStringLess> m_mapDflt; ///< folder list by category
};
