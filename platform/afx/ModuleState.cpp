// ModuleState.cpp - module state, thread state, temporary maps; the DLL's entry point
#include "impl/ThreadState.h"
#include <atomic>
#include <utility>

namespace
{
// State of one thread without a call into the system: nearly all questions come from the thread of the user interface.
// (Reading a thread slot would also reset the last error.)
std::atomic<DWORD> g_fastThread{0};
AFX_THREAD_STATE* g_fastState = nullptr;

DWORD ThreadSlot() noexcept
{
    static const DWORD slot = ::TlsAlloc();
    return slot;
}

AFX_THREAD_STATE* MakeThreadState()
{
    auto* pState = new AFX_THREAD_STATE;
    ::TlsSetValue(ThreadSlot(), pState);
    DWORD nobody = 0;
    constexpr DWORD kBeingSet = static_cast<DWORD>(-1); // no thread has this id
    if (g_fastThread.compare_exchange_strong(nobody, kBeingSet))
    {
        g_fastState = pState;
        g_fastThread = ::GetCurrentThreadId();
    }
    return pState;
}
} // namespace

AFX_THREAD_STATE::~AFX_THREAD_STATE()
{
    // Destructors of temporary objects ask for the maps: they are emptied while all still stand.
    for (const auto& pMap : m_maps)
    {
        if (pMap != nullptr)
        {
            pMap->DeleteTemp();
        }
    }
}

AFX_THREAD_STATE* AfxGetThreadState()
{
    if (g_fastThread.load(std::memory_order_relaxed) == ::GetCurrentThreadId())
    {
        return g_fastState;
    }
    const DWORD lastError = ::GetLastError();
    auto* pState = static_cast<AFX_THREAD_STATE*>(::TlsGetValue(ThreadSlot()));
    if (pState == nullptr)
    {
        pState = MakeThreadState();
    }
    ::SetLastError(lastError);
    return pState;
}

void AfxFreeThreadState()
{
    auto* pState = static_cast<AFX_THREAD_STATE*>(::TlsGetValue(ThreadSlot()));
    delete pState;
    ::TlsSetValue(ThreadSlot(), nullptr);
    if (g_fastThread == ::GetCurrentThreadId())
    {
        g_fastState = nullptr;
        g_fastThread = 0;
    }
}

AFX_MODULE_STATE* AfxGetStaticModuleState() noexcept
{
    // Asked for by the constructors of other modules' globals: made at the first question, and there to the end.
    static constinit AFX_MODULE_STATE state;
    return &state;
}

AFX_MODULE_STATE* AfxGetModuleState() noexcept
{
    AFX_MODULE_STATE* pState = AfxGetThreadState()->m_pModuleState;
    return pState != nullptr ? pState : AfxGetStaticModuleState();
}

AFX_MODULE_STATE* AfxSetModuleState(AFX_MODULE_STATE* pNewState) noexcept
{
    AFX_MODULE_STATE* pOldState = AfxGetModuleState();
    AfxGetThreadState()->m_pModuleState = pNewState;
    return pOldState;
}

void AfxLockTempMaps() noexcept { AfxGetThreadState()->m_nTempMapLock++; }

BOOL AfxUnlockTempMaps(BOOL bDeleteTemps)
{
    AFX_THREAD_STATE* pState = AfxGetThreadState();
    ASSERT(pState->m_nTempMapLock > 0);
    if (pState->m_nTempMapLock == 0)
    {
        return FALSE;
    }
    if (pState->m_nTempMapLock == 1 && bDeleteTemps)
    {
        for (const auto& pMap : pState->m_maps) // still locked: a destructor that unlocks must not come here again
        {
            if (pMap != nullptr)
            {
                pMap->DeleteTemp();
            }
        }
    }
    pState->m_nTempMapLock--;
    return pState->m_nTempMapLock != 0;
}

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD dwReason, LPVOID)
{
    if (dwReason == DLL_THREAD_DETACH)
    {
        AfxFreeThreadState();
    }
    return TRUE;
}
