// DfltFldrs.cpp
#include "tavkit/filedlg/DfltFldrs.h"
#include "tavkit/filedlg/FolderList.h"

#include "tavkit/frame/services/BaseFuncs.h"
#include "tavkit/frame/services/CnfgLdr.h"
#include "tavkit/frame/services/DCnfg.h"
#include "tavkit/frame/services/XMLNode.h"

#include <windows.h>
#include <shlobj.h>

#include <optional>
#include <utility>

namespace
{

/// A folder category that every product has.
struct Category
{
    char const* key;
    char const* folders; ///< unless the product configuration names others
};

constexpr Category kCategories[] = {
    {"ImageFolders", "My Documents;Desktop"},   {"ThematicFolders", "My Documents;Desktop;InstallDir\\Examples"},
    {"ProjectFolders", "My Documents;Desktop"}, {"WorkspaceFolders", "My Documents;Desktop"},
    {"RulesetFolders", "My Documents;Desktop"}, {"SolutionFolders", "My Documents;Desktop"},
};

constexpr char kPathAttribute[] = "path"; ///< of a category in a defaults file

/// The shell's number for the user's documents as its interface of old has it; the headers of today say 5.
constexpr unsigned int kMyDocuments = 12;

/// The user's own folders as the shell says, which takes longer than all the rest of a list; so it is asked again only
/// when the user has moved one, or when one is gone, which is looked after once in a while.
class ShellPlaces
{
public:
    ShellPlaces() = default;
    ShellPlaces(ShellPlaces const&) = delete;
    ShellPlaces& operator=(ShellPlaces const&) = delete;
    ~ShellPlaces()
    {
        if (m_key)
        {
            ::RegCloseKey(m_key);
        }
        if (m_changed)
        {
            ::CloseHandle(m_changed);
        }
    }

    /// Forgets what may have changed. The watch begins before the shell is asked, so that no change falls between.
    void Refresh()
    {
        m_watching = (m_key && ::WaitForSingleObject(m_changed, 0) == WAIT_TIMEOUT) || Watch();
        const ULONGLONG now = ::GetTickCount64();
        m_looking = now - m_looked >= kLookAgain;
        m_looked = m_looking ? now : m_looked;
    }

    void Translate(tavkit::Place place, DString& entry)
    {
        std::optional<DString>& path = place == tavkit::Place::Desktop ? m_desktop : m_documents;
        if (m_watching && path && (!m_looking || ::GetFileAttributesA(path->c_str()) != INVALID_FILE_ATTRIBUTES))
        {
            entry = *path;
            return;
        }
        path.reset();
        DString translated = DfltFldrs::TranslateSpecialPath(entry);
        if (!(translated == entry)) // a refusal is no answer to keep
        {
            path = translated;
        }
        entry = std::move(translated);
    }

private:
    /// Forgets what is known and begins to watch; false if that can't be done.
    bool Watch()
    {
        m_desktop.reset();
        m_documents.reset();
        if (!m_changed)
        {
            m_changed = ::CreateEventA(nullptr, TRUE, FALSE, nullptr);
        }
        if (!m_key)
        {
            ::RegOpenKeyExA(HKEY_CURRENT_USER, kUserFolders, 0, KEY_NOTIFY, &m_key);
        }
        return m_key && m_changed && ::ResetEvent(m_changed) &&
               ::RegNotifyChangeKeyValue(m_key, FALSE, REG_NOTIFY_CHANGE_NAME | REG_NOTIFY_CHANGE_LAST_SET, m_changed,
                                         TRUE) == ERROR_SUCCESS;
    }

    static constexpr char kUserFolders[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";

    static constexpr ULONGLONG kLookAgain = 1000; ///< milliseconds; nobody opens two dialogs in that time

    HKEY m_key = nullptr;
    HANDLE m_changed = nullptr; ///< set once the user's folders have changed
    bool m_watching = false;
    bool m_looking = false; ///< whether the folders are there is looked at this time
    ULONGLONG m_looked = 0; ///< when it was looked at last
    std::optional<DString> m_desktop;
    std::optional<DString> m_documents;
};

/// Makes real paths of the entries of a list.
class Translator
{
public:
    void operator()(DString& entry)
    {
        static ShellPlaces places;
        switch (const tavkit::Place place = tavkit::PlaceOf(entry.c_str()))
        {
        case tavkit::Place::Desktop:
        case tavkit::Place::Documents:
            if (!m_fresh)
            {
                places.Refresh();
                m_fresh = true;
            }
            places.Translate(place, entry);
            break;
        case tavkit::Place::InstallDir:
            entry = DfltFldrs::TranslateSpecialPath(entry);
            break;
        case tavkit::Place::None:
            break;
        }
    }

private:
    bool m_fresh = false; ///< one look is enough for all entries
};

[[nodiscard]] DUserCnfg OpenHistory() { return {DfltFldrs::kHistorySection, true, false}; }

/// The history of a category; a missing value and one that is no text are an empty list.
void AppendHistoryOf(DUserCnfg const& store, char const* key, DVectorSafe<DString>& folders)
{
    tavkit::AppendHistory(folders, store.ReadString(key, ""), Translator());
}

} // namespace

DfltFldrs* DfltFldrs::Instance()
{
    if (!m_pSingleInstance)
    {
        m_pSingleInstance = new DfltFldrs;
    }
    return m_pSingleInstance;
}

bool DfltFldrs::HasInstance() { return m_pSingleInstance != nullptr; }

void DfltFldrs::DeleteInstance()
{
    delete m_pSingleInstance;
    m_pSingleInstance = nullptr;
}

DfltFldrs::DfltFldrs()
{
    for (Category const& category : kCategories)
    {
        m_mapDflt[category.key] = CnfgLdr::Instance()->GetDfltFldr(category.key, category.folders);
    }
}

DfltFldrs::DfltFldrs(DfltFldrs const& other) = default;
DfltFldrs& DfltFldrs::operator=(DfltFldrs const& other) = default;
DfltFldrs::~DfltFldrs() = default;

bool DfltFldrs::Load(DFile const& file)
{
    XMLNode root(nullptr);
    if (file.GetMoniker().IsEmpty() || !root.Load(file, nullptr))
    {
        return false;
    }
    for (XMLNode const* child = root.m_pFrstChld; child; child = child->m_pNext)
    {
        DString folders = child->GetAttrStr(kPathAttribute);
        folders.Replace("/", "\\");
        m_mapDflt[child->GetName()] = folders;
    }
    return true;
}

void DfltFldrs::SetDfltFldrs(char const* key, char const* folders) { m_mapDflt[key] = folders; }

void DfltFldrs::GetDirHist(char const* key, DVectorSafe<DString>& folders, bool bDflts, bool bHist)
{
    folders.Clear();
    if (!key || !*key)
    {
        return;
    }
    if (bHist)
    {
        AppendHistoryOf(OpenHistory(), key, folders);
    }
    if (bDflts)
    {
        AppendDefaultsOf(key, folders);
    }
}

void DfltFldrs::SaveDirHist(char const* key, DString const& folder)
{
    if (!key || !*key || folder.IsEmpty())
    {
        return;
    }
    DUserCnfg store = OpenHistory();
    DVectorSafe<DString> history;
    AppendHistoryOf(store, key, history);
    const auto dflts = m_mapDflt.find(key);
    const int more = dflts == m_mapDflt.end() ? 0 : tavkit::CountDefaults(history, dflts->second, Translator());
    tavkit::PutToFront(history, history.GetCount() + more, folder);
    store.WriteString(key, tavkit::JoinFolders(history));
}

void DfltFldrs::AppendDefaultsOf(char const* key, DVectorSafe<DString>& folders) const
{
    if (const auto found = m_mapDflt.find(key); found != m_mapDflt.end())
    {
        tavkit::AppendDefaults(folders, found->second, Translator());
    }
}

bool DfltFldrs::GetSpecialFolder(unsigned int csidl, DString& path)
{
    char text[MAX_PATH] = "";
    if (FAILED(::SHGetFolderPathA(nullptr, static_cast<int>(csidl | CSIDL_FLAG_CREATE), nullptr, SHGFP_TYPE_CURRENT,
                                  text)))
    {
        return false;
    }
    path = text;
    if (!(path.Right(1) == "\\"))
    {
        path += "\\";
    }
    return true;
}

DString DfltFldrs::TranslateSpecialPath(DString path)
{
    switch (tavkit::PlaceOf(path.c_str()))
    {
    case tavkit::Place::InstallDir:
        return tavkit::InstalledPath(GetInstallDir(nullptr), path);
    case tavkit::Place::Desktop:
        GetSpecialFolder(CSIDL_DESKTOPDIRECTORY, path);
        break;
    case tavkit::Place::Documents:
        if (!GetSpecialFolder(kMyDocuments, path))
        {
            GetSpecialFolder(CSIDL_COMMON_DOCUMENTS, path);
        }
        break;
    case tavkit::Place::None:
        break;
    }
    return path;
}
