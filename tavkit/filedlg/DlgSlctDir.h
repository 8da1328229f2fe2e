// DlgSlctDir.h - asks for a folder through the shell's folder browser
#pragma once

#include <afxwin.h>

#include "tavkit/frame/Export.h"

/// One question for a folder: set the members, call DoBrowse(), read m_strPath. The shell wants the thread's object
/// services started (AfxOleInit). Nothing is reported to the user.
class TAVKIT_API CDlgSlctDir
{
public:
    static CString strPrtclDir; ///< a settings key of the host's, for m_strKey; the library doesn't read it

    /// @param owner  of the browser; may be null
    CDlgSlctDir(HWND owner);
    CDlgSlctDir(CDlgSlctDir const& other);
    CDlgSlctDir& operator=(CDlgSlctDir const& other);
    virtual ~CDlgSlctDir();

    CString m_strPath;           ///< the folder chosen
    CString m_strInitDir;        ///< folder to start in; empty for the one that m_strKey remembers
    CString m_strTitle = "Open"; ///< text above the tree
    CString m_strKey;            ///< key of the folder in the profile's section "Settings", and its folder category
    CString m_strFilePttr;       ///< a file that the folder must hold for OK ("*.alx"); empty for any folder
    int m_nImage = 0;            ///< of the folder chosen, in the system's image list
    int m_bNewFolder = 1;        ///< offer a button for a new folder
    HWND m_hWndOwner;

    /// Shows the browser. It starts in m_strInitDir, or else in the folder stored under m_strKey, or else in the first
    /// one of the category's history and defaults, which m_strInitDir holds afterwards; without any of them, or if it
    /// is gone, the browser starts where it likes. A folder that was chosen is stored under m_strKey; the history stays
    /// as it is.
    ///
    /// While a browser is up that started in a folder, a second call shows no other: it brings that one to the top.
    /// @return 1 when a folder was chosen, 0 otherwise
    int DoBrowse();
};
