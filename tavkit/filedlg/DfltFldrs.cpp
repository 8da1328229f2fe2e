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

/// Translates entries of a list; the shell is asked once for each place, however often the list names it.
class Translator
{
public:
    DString operator()(DString const& entry)
    {
        switch (tavkit::PlaceOf(entry.c_str()))
        {
        case tavkit::Place::Desktop:
            return Once(m_desktop, entry);
        case tavkit::Place::Documents:
            return Once(m_documents, entry);
        default:
            return DfltFldrs::TranslateSpecialPath(entry);
        }
    }

private:
    static DString Once(std::optional<DString>& path, DString const& entry)
    {
        if (!path)
        {
            path = DfltFldrs::TranslateSpecialPath(entry);
        }
        return *path;
    }

    std::optional<DString> m_desktop;
    std::optional<DString> m_documents;
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
    DVectorSafe<DString> merged = history;
    AppendDefaultsOf(key, merged);
    tavkit::PutToFront(history, merged.GetCount(), folder);
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
