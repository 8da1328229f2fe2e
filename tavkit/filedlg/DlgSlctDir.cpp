// DlgSlctDir.cpp
#include "tavkit/filedlg/DlgSlctDir.h"
#include "tavkit/filedlg/DfltFldrs.h"
#include "tavkit/filedlg/FolderSetting.h"

#include <shlobj.h>
#include <wrl/client.h>

#include <memory>

namespace
{

HWND g_hWndBrowser = nullptr; ///< the browser that is up; keeps it single

using Allocator = Microsoft::WRL::ComPtr<IMalloc>;

/// Gives an item list back to the shell.
struct Free
{
    IMalloc* allocator; ///< outlives the list
    void operator()(void* list) const { allocator->Free(list); }
};
using ItemList = std::unique_ptr<ITEMIDLIST, Free>;

/// Null if the shell has none.
[[nodiscard]] Allocator ShellAllocator()
{
    Allocator allocator;
    return SUCCEEDED(::SHGetMalloc(&allocator)) ? allocator : nullptr;
}

/// The item list of a folder; null for one that isn't there and for one with too long a name.
[[nodiscard]] ItemList Parse(IMalloc* allocator, char const* folder)
{
    wchar_t name[MAX_PATH];
    Microsoft::WRL::ComPtr<IShellFolder> desktop;
    ItemList list(nullptr, Free{allocator});
    if (::MultiByteToWideChar(CP_ACP, 0, folder, -1, name, MAX_PATH) == 0 || FAILED(::SHGetDesktopFolder(&desktop)))
    {
        return list;
    }
    // One system puts into a list when each folder was last looked into, and parsing looks into them: only the second
    // list is like those that the browser makes.
    for (int i = 0; i < 2; ++i)
    {
        ITEMIDLIST* parsed = nullptr;
        const HRESULT result = desktop->ParseDisplayName(nullptr, nullptr, name, nullptr, &parsed, nullptr);
        list.reset(SUCCEEDED(result) ? parsed : nullptr);
    }
    return list;
}

void OnBrowserUp(HWND browser, char const* folder)
{
    const Allocator allocator = ShellAllocator();
    const ItemList list = allocator ? Parse(allocator.Get(), folder) : nullptr;
    g_hWndBrowser = browser;
    ::SetWindowPos(browser, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    if (list)
    {
        ::SendMessageA(browser, BFFM_SETSELECTIONA, FALSE, reinterpret_cast<LPARAM>(list.get()));
    }
}

/// OK is for folders that hold a wanted file.
void OnBrowserSelection(HWND browser, ITEMIDLIST const* list, CString const& pattern)
{
    char path[MAX_PATH];
    if (!::SHGetPathFromIDListA(list, path))
    {
        return;
    }
    CString wanted(path);
    wanted.TrimRight("\\/");
    wanted += '\\' + pattern;
    WIN32_FIND_DATAA data;
    const HANDLE found = ::FindFirstFileA(wanted, &data);
    const LPARAM isThere = found != INVALID_HANDLE_VALUE;
    ::SendMessageA(browser, BFFM_ENABLEOK, 0, isThere);
    ::PostMessageA(browser, BFFM_ENABLEOK, 0, isThere); // one system enables OK itself after the notification
    if (found != INVALID_HANDLE_VALUE)
    {
        ::FindClose(found);
    }
}

int CALLBACK OnBrowser(HWND browser, UINT message, LPARAM lParam, LPARAM data)
{
    auto const& dialog = *reinterpret_cast<CDlgSlctDir const*>(data);
    // Without a folder to start in the window isn't kept, and a second browser can come up beside it: as it is meant.
    if (message == BFFM_INITIALIZED && !dialog.m_strInitDir.IsEmpty())
    {
        OnBrowserUp(browser, dialog.m_strInitDir);
    }
    else if (message == BFFM_SELCHANGED && !dialog.m_strFilePttr.IsEmpty())
    {
        OnBrowserSelection(browser, reinterpret_cast<ITEMIDLIST const*>(lParam), dialog.m_strFilePttr);
    }
    return 0;
}

} // namespace

CString CDlgSlctDir::strPrtclDir = "Protocol Operation Folder";

CDlgSlctDir::CDlgSlctDir(HWND owner) : m_hWndOwner(owner) {}
CDlgSlctDir::CDlgSlctDir(CDlgSlctDir const& other) = default;
CDlgSlctDir& CDlgSlctDir::operator=(CDlgSlctDir const& other) = default;
CDlgSlctDir::~CDlgSlctDir() = default;

int CDlgSlctDir::DoBrowse()
{
    if (g_hWndBrowser)
    {
        ::BringWindowToTop(g_hWndBrowser);
        return 0;
    }
    const Allocator allocator = ShellAllocator();
    if (!allocator)
    {
        return 0;
    }
    if (!m_strKey.IsEmpty() && m_strInitDir.IsEmpty())
    {
        m_strInitDir = tavkit::ReadFldrSttng(m_strKey, m_strInitDir);
    }
    if (m_strInitDir.IsEmpty())
    {
        DVectorSafe<DString> folders;
        DfltFldrs::Instance()->GetDirHist(m_strKey, folders, true, true);
        if (!folders.IsEmpty())
        {
            m_strInitDir = folders[0].c_str();
        }
    }

    const CString before = m_strPath;
    BROWSEINFOA info{};
    info.hwndOwner = m_hWndOwner;
    info.pszDisplayName = m_strPath.GetBuffer(MAX_PATH);
    info.lpszTitle = m_strTitle;
    info.ulFlags = BIF_RETURNONLYFSDIRS | BIF_RETURNFSANCESTORS | BIF_EDITBOX | BIF_NEWDIALOGSTYLE;
    if (!m_bNewFolder)
    {
        info.ulFlags |= BIF_NONEWFOLDERBUTTON;
    }
    info.lpfn = OnBrowser;
    info.lParam = reinterpret_cast<LPARAM>(this);
    info.iImage = -1;
    const ItemList list(::SHBrowseForFolderA(&info), Free{allocator.Get()});
    g_hWndBrowser = nullptr;
    if (!list)
    {
        m_strPath = before; // one system leaves anything in the buffer, even without an end
        return 0;
    }
    m_nImage = info.iImage;
    const bool isFolder = ::SHGetPathFromIDListA(list.get(), m_strPath.GetBuffer(MAX_PATH)) != FALSE;
    m_strPath.ReleaseBuffer();
    if (!isFolder)
    {
        m_strPath = before;
        return 0;
    }
    tavkit::WriteFldrSttng(m_strKey, m_strPath);
    return 1;
}
