// ResourceChain.cpp - extension modules and the search for resources through them
#include "afxdll_.h"
#include "impl/MessageCache.h"
#include "impl/StringResource.h"
#include <algorithm>
#include <climits>
#include <utility>

IMPLEMENT_DYNAMIC(CDynLinkLibrary, CCmdTarget)

namespace
{
// Calls visit(module) along the chain until it answers true. @return the module it answered true for, or null.
template <class TVisit>
HINSTANCE WalkChain(TVisit&& visit)
{
    const HINSTANCE hApplication = AfxGetResourceHandle();
    if (visit(hApplication))
    {
        return hApplication;
    }
    for (const bool system : {false, true})
    {
        for (auto* pDLL = AfxGetModuleState()->m_pLibraryList; pDLL != nullptr; pDLL = pDLL->m_pNextDLL)
        {
            if ((pDLL->m_bSystem != FALSE) == system && pDLL->m_hResource != nullptr && visit(pDLL->m_hResource))
            {
                return pDLL->m_hResource;
            }
        }
    }
    return nullptr;
}
} // namespace

HINSTANCE AfxGetInstanceHandle() noexcept
{
    const HINSTANCE hInstance = AfxGetModuleState()->m_hCurrentInstanceHandle;
    return hInstance != nullptr ? hInstance : ::GetModuleHandleA(nullptr);
}

HINSTANCE AfxGetResourceHandle() noexcept
{
    const HINSTANCE hResource = AfxGetModuleState()->m_hCurrentResourceHandle;
    return hResource != nullptr ? hResource : AfxGetInstanceHandle();
}

void AfxSetResourceHandle(HINSTANCE hInstResource) noexcept
{
    AfxGetModuleState()->m_hCurrentResourceHandle = hInstResource;
}

HINSTANCE AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType) noexcept
{
    const HINSTANCE hFound =
        WalkChain([&](HINSTANCE hModule) { return ::FindResourceA(hModule, lpszName, lpszType) != nullptr; });
    return hFound != nullptr ? hFound : AfxGetResourceHandle();
}

HINSTANCE AfxFindStringResource(UINT nID, std::wstring_view& text) noexcept
{
    return WalkChain([&](HINSTANCE hModule) {
        LPCWSTR lpszText = nullptr; // a size of 0 asks for the place of the text in the module
        const int nLength = ::LoadStringW(hModule, nID, reinterpret_cast<LPWSTR>(&lpszText), 0);
        if (nLength <= 0)
        {
            return false;
        }
        text = {lpszText, static_cast<size_t>(nLength)};
        return true;
    });
}

HINSTANCE AfxFindStringResourceHandle(UINT nID) noexcept
{
    std::wstring_view text;
    return AfxFindStringResource(nID, text);
}

int AfxLoadString(UINT nID, LPTSTR lpszBuf, UINT nMaxBuf) noexcept
{
    if (lpszBuf == nullptr || nMaxBuf == 0)
    {
        return 0;
    }
    lpszBuf[0] = '\0';
    const HINSTANCE hModule = AfxFindStringResourceHandle(nID);
    return hModule == nullptr
               ? 0
               : ::LoadStringA(hModule, nID, lpszBuf, static_cast<int>(std::min<UINT>(nMaxBuf, INT_MAX)));
}

HINSTANCE AfxLoadLibrary(LPCTSTR lpszModuleName) noexcept
{
    return lpszModuleName == nullptr ? nullptr : ::LoadLibraryA(lpszModuleName);
}

BOOL AfxFreeLibrary(HINSTANCE hInstLib) noexcept { return hInstLib != nullptr && ::FreeLibrary(hInstLib); }

void AfxBeginExtensionModule() noexcept
{
    AFX_MODULE_STATE* pState = AfxGetModuleState();
    pState->m_pClassInit = pState->m_pClassList;
    pState->m_pFactoryInit = pState->m_pFactoryList;
    pState->m_pClassList = nullptr;
    pState->m_pFactoryList = nullptr;
    pState->m_bListsAside = true;
}

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule)
{
    if (state.bInitialized)
    {
        return TRUE;
    }
    AFX_MODULE_STATE* pState = AfxGetModuleState();
    if (pState->m_bListsAside)
    {
        // Also when the load fails: the application's lists come back, and the module's own are forgotten with it.
        state.pFirstSharedClass = std::exchange(pState->m_pClassList, std::exchange(pState->m_pClassInit, nullptr));
        state.pFirstSharedFactory =
            std::exchange(pState->m_pFactoryList, std::exchange(pState->m_pFactoryInit, nullptr));
        pState->m_bListsAside = false;
    }
    if (hModule == nullptr)
    {
        return FALSE;
    }
    state.bInitialized = TRUE;
    state.hModule = hModule;
    state.hResource = hModule;
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll)
{
    CDynLinkLibrary* pNext = nullptr;
    for (CDynLinkLibrary* pDLL = AfxGetModuleState()->m_pLibraryList; pDLL != nullptr; pDLL = pNext)
    {
        pNext = pDLL->m_pNextDLL;
        if (bAll || (state.hModule != nullptr && pDLL->m_hModule == state.hModule))
        {
            delete pDLL;
        }
    }
    AfxMessageCache::Invalidate(); // the module's message maps go with it
    state.bInitialized = FALSE;
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem)
    : m_hModule(state.hModule), m_hResource(state.hResource), m_pClassList(state.pFirstSharedClass),
      m_pFactoryList(state.pFirstSharedFactory), m_bSystem(bSystem), m_pNextDLL(nullptr)
{
    ASSERT(state.hModule != nullptr); // AfxInitExtensionModule comes first
    Register();
}

CDynLinkLibrary::CDynLinkLibrary(HINSTANCE hModule, HINSTANCE hResource)
    : m_hModule(hModule), m_hResource(hResource), m_pClassList(nullptr), m_pFactoryList(nullptr), m_bSystem(FALSE),
      m_pNextDLL(nullptr)
{
    Register();
}

CDynLinkLibrary::~CDynLinkLibrary()
{
    CDynLinkLibrary** ppLink = &AfxGetModuleState()->m_pLibraryList;
    while (*ppLink != nullptr && *ppLink != this)
    {
        ppLink = &(*ppLink)->m_pNextDLL;
    }
    if (*ppLink == this)
    {
        *ppLink = m_pNextDLL;
    }
}

void CDynLinkLibrary::Register()
{
    CDynLinkLibrary** ppLink = &AfxGetModuleState()->m_pLibraryList;
    while (*ppLink != nullptr)
    {
        ppLink = &(*ppLink)->m_pNextDLL;
    }
    *ppLink = this;
}
