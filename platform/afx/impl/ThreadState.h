// ThreadState.h - what the framework keeps for each thread
#pragma once

#include "afxstat.h"
#include "impl/MessageCache.h"
#include <array>
#include <memory>
#include <vector>

class CFileDialog;
class CFrameWnd;
class CWinThread;
class CWnd;

/// Kinds of handles that have a map of their own on each thread.
enum class AfxMapKind
{
    Window,
    Menu,
    DeviceContext,
    GdiObject,
    ImageList,
    Count
};

/// What the maps of all kinds have in common.
class CHandleMapBase
{
public:
    virtual ~CHandleMapBase() = default;
    virtual void DeleteTemp() = 0;
};

/// State of one thread; made at the first use, deleted when the thread ends. That of a thread which is alive when the
/// process ends stays, so that objects with static life may still leave the maps.
struct AFX_THREAD_STATE
{
    AFX_MODULE_STATE* m_pModuleState = nullptr; // null: the application's
    CWinThread* m_pCurrentWinThread = nullptr;  // borrowed
    MSG m_lastSentMsg = {};                     // message that is being handled; saved and restored by dispatch
    bool m_bDefaultRan = false;                 // Default() has had that message; saved and restored with it
    MSG m_msgCur = {};                          // message that the pump took last
    CWnd* m_pWndInit = nullptr;                 // object that waits for its window
    CFileDialog* m_pFileDialogInit = nullptr;   // the same for the panel of a file dialog
    HHOOK m_hHookCreate = nullptr;              // creation hook, while m_pWndInit waits
    HHOOK m_hHookMsgFilter = nullptr;           // looks into the system's own modal loops
    HWND m_hLockoutNotifyWindow = nullptr;      // window whose controls' notifications are ignored at present
    std::vector<CFrameWnd*> m_frames;           // borrowed; looked at when idle
    AfxMessageCache m_messageCache;             // map entries found lately
    int m_nTempMapLock = 0;
    std::array<std::unique_ptr<CHandleMapBase>, static_cast<size_t>(AfxMapKind::Count)> m_maps;

    ~AFX_THREAD_STATE();
};

/// State of the calling thread; never null. Doesn't touch the last error.
AFX_THREAD_STATE* AfxGetThreadState();
/// Deletes the calling thread's state, if it has one.
void AfxFreeThreadState();
