// afxstat.h - state of the module and of the thread, instance and resource handles, the chain of resources
#pragma once

#include "afx.h"

class CDynLinkLibrary;
class CWinApp;

/// What belongs to the application as a whole. Extension modules share the application's state.
struct TAVAFX_API AFX_MODULE_STATE
{
    CWinApp* m_pCurrentWinApp = nullptr;          ///< borrowed; null in a program without application object
    HINSTANCE m_hCurrentInstanceHandle = nullptr; ///< null until it is set: then the program's own
    HINSTANCE m_hCurrentResourceHandle = nullptr; ///< null until it is set: then the instance handle
    LPCTSTR m_lpszCurrentAppName = nullptr;

    CRuntimeClass* m_pClassList = nullptr;     ///< head of the class list; the newest class comes first
    CRuntimeClass* m_pClassInit = nullptr;     ///< head put aside while an extension module loads
    void* m_pFactoryList = nullptr;            ///< head of the factory list
    void* m_pFactoryInit = nullptr;            ///< head put aside while an extension module loads
    CDynLinkLibrary* m_pLibraryList = nullptr; ///< extension modules in the order of registration
    bool m_bListsAside = false;                ///< between the begin and the initialisation of an extension module
};

/// State in force on this thread: the one set last, else the application's.
TAVAFX_API AFX_MODULE_STATE* AFXAPI AfxGetModuleState() noexcept;
/// The application's state.
TAVAFX_API AFX_MODULE_STATE* AFXAPI AfxGetStaticModuleState() noexcept;
/// Puts a state in force on this thread; null means the application's.
/// @return the state that was in force.
TAVAFX_API AFX_MODULE_STATE* AFXAPI AfxSetModuleState(AFX_MODULE_STATE* pNewState) noexcept;

/// Keeps a module state in force to the end of the block.
class AFX_MODULE_STATE_SCOPE
{
public:
    explicit AFX_MODULE_STATE_SCOPE(AFX_MODULE_STATE* pNewState) noexcept : m_pPrevious(AfxSetModuleState(pNewState)) {}
    ~AFX_MODULE_STATE_SCOPE() { AfxSetModuleState(m_pPrevious); }
    AFX_MODULE_STATE_SCOPE(const AFX_MODULE_STATE_SCOPE&) = delete;
    void operator=(const AFX_MODULE_STATE_SCOPE&) = delete;

private:
    AFX_MODULE_STATE* m_pPrevious;
};

#define AFX_MANAGE_STATE(pNewState) const AFX_MODULE_STATE_SCOPE afxModuleStateScope(pNewState)

/// Instance of the application; the program's own when none was set.
TAVAFX_API HINSTANCE AFXAPI AfxGetInstanceHandle() noexcept;
/// Where the application's resources lie; the instance when none was set.
TAVAFX_API HINSTANCE AFXAPI AfxGetResourceHandle() noexcept;
/// @param hInstResource  borrowed; null returns to the instance
TAVAFX_API void AFXAPI AfxSetResourceHandle(HINSTANCE hInstResource) noexcept;

/// Module that holds a resource: the application, then the extension modules in the order of registration, then the
/// system's ones in the same order. So a host's resource of the same type and number wins.
/// @return the application's resource handle when no module has it.
TAVAFX_API HINSTANCE AFXAPI AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType) noexcept;
/// As AfxFindResourceHandle for one string: a module whose block of strings lacks just this one is passed over.
/// @return null when no module has it.
TAVAFX_API HINSTANCE AFXAPI AfxFindStringResourceHandle(UINT nID) noexcept;
/// Copies a string resource from the chain; a text that is too long is cut.
/// @param nMaxBuf  size of the buffer in characters, terminator included
/// @return length of the text copied; 0, and an empty text, when no module has it.
TAVAFX_API int AFXAPI AfxLoadString(UINT nID, LPTSTR lpszBuf, UINT nMaxBuf = 256) noexcept;

/// Loads a library with the system's own search and count. @return null when it fails (GetLastError says why).
TAVAFX_API HINSTANCE AFXAPI AfxLoadLibrary(LPCTSTR lpszModuleName) noexcept;
/// @return FALSE for null or a handle that isn't loaded.
TAVAFX_API BOOL AFXAPI AfxFreeLibrary(HINSTANCE hInstLib) noexcept;

/// Keeps the temporary objects of this thread alive until the matching AfxUnlockTempMaps; calls nest.
TAVAFX_API void AFXAPI AfxLockTempMaps() noexcept;
/// Frees this thread's temporary objects when the last lock is gone.
/// @param bDeleteTemps  FALSE to leave them for the next time
/// @return TRUE while further locks hold.
TAVAFX_API BOOL AFXAPI AfxUnlockTempMaps(BOOL bDeleteTemps = TRUE);
