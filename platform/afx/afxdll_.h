// afxdll_.h - extension modules: DLLs whose classes and resources join those of the application
#pragma once

#include "afxcmdtgt.h"
#include "afxstat.h"

/// What an extension module keeps of itself; one static record in the module, zero before the first use.
struct AFX_EXTENSION_MODULE
{
    BOOL bInitialized;
    HMODULE hModule;
    HMODULE hResource;
    CRuntimeClass* pFirstSharedClass; ///< head of the classes that the module's constructors registered
    void* pFirstSharedFactory;
};

/// Puts the application's class and factory lists aside, so that what registers next belongs to the module that is
/// being loaded. Must run before the module's first constructor: see AFX_EXTENSION_MODULE_BEGIN.
/// AfxInitExtensionModule puts the lists back.
TAVAFX_API void AFXAPI AfxBeginExtensionModule() noexcept;

/// Takes over the classes that the module's constructors registered and puts the application's lists back. To be called
/// in the module's entry point at process attach; a second call changes nothing.
/// @return FALSE for a null module: the load must fail then.
TAVAFX_API BOOL AFXAPI AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule);

/// Takes the module's libraries out of the chain. To be called in the module's entry point at process detach.
/// @param bAll  TRUE takes out the libraries of all modules
TAVAFX_API void AFXAPI AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);

/// Calls AfxBeginExtensionModule when it is constructed.
struct AFX_EXTENSION_MODULE_START
{
    AFX_EXTENSION_MODULE_START() noexcept { AfxBeginExtensionModule(); }
};

/// To stand once, at namespace scope, in any source of an extension module: runs before all constructors of the module
/// that have no priority of their own, or a later one.
#define AFX_EXTENSION_MODULE_BEGIN()                                                                                   \
    [[gnu::init_priority(101)]] static const AFX_EXTENSION_MODULE_START afxExtensionModuleStart;

/// A module in the chain of resources and classes. Made with new in the module's entry point and owned by the
/// framework, which deletes it at AfxTermExtensionModule.
class TAVAFX_API CDynLinkLibrary : public CCmdTarget
{
    DECLARE_DYNAMIC(CDynLinkLibrary)
public:
    /// @param bSystem  TRUE: searched behind all modules that aren't the system's
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem = FALSE);
    /// A module with resources only.
    explicit CDynLinkLibrary(HINSTANCE hModule, HINSTANCE hResource);
    ~CDynLinkLibrary() override;

    HMODULE m_hModule;
    HINSTANCE m_hResource; ///< null: the module has no resources
    CRuntimeClass* m_pClassList;
    void* m_pFactoryList;
    BOOL m_bSystem;
    CDynLinkLibrary* m_pNextDLL;

private:
    void Register();
};
