// CmdTarget.cpp - CCmdTarget: commands and notifications through message maps

#include <afxwin.h>

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

CCmdTarget::CCmdTarget() = default;
CCmdTarget::~CCmdTarget() = default;

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const { return GetThisMessageMap(); }

const AFX_MSGMAP* PASCAL CCmdTarget::GetThisMessageMap()
{
    static constexpr AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, nullptr, nullptr}};
    static constexpr AFX_MSGMAP map = {nullptr, entries};
    return &map;
}

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    UINT message = WM_COMMAND;
    UINT code = static_cast<UINT>(nCode);
    if (nCode != CN_UPDATE_COMMAND_UI)
    {
        message = HIWORD(nCode) == 0 ? WM_COMMAND : HIWORD(nCode);
        code = LOWORD(nCode);
    }
    for (const AFX_MSGMAP* map = GetMessageMap(); map != nullptr;
         map = map->pfnGetBaseMap == nullptr ? nullptr : map->pfnGetBaseMap())
    {
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->pfn != nullptr; ++entry)
        {
            if (entry->nMessage != message || entry->nCode != code || nID < entry->nID || nID > entry->nLastID)
            {
                continue;
            }
            if (pHandlerInfo != nullptr)
            {
                pHandlerInfo->pTarget = this;
                pHandlerInfo->pmf = entry->pfn;
                return TRUE;
            }
            AfxMsg msg;
            msg.message = message;
            msg.nID = nID;
            msg.nCode = nCode;
            msg.pExtra = pExtra;
            // The search ends at the first entry: a handler that declines passes the command to the next target of
            // the route, not to its base class.
            return entry->pfn(this, msg);
        }
    }
    return FALSE;
}

void CCmdTarget::BeginWaitCursor()
{
    if (CWinApp* const app = AfxGetApp())
    {
        app->DoWaitCursor(1);
    }
}

void CCmdTarget::EndWaitCursor()
{
    if (CWinApp* const app = AfxGetApp())
    {
        app->DoWaitCursor(-1);
    }
}

void CCmdTarget::RestoreWaitCursor()
{
    if (CWinApp* const app = AfxGetApp())
    {
        app->DoWaitCursor(0);
    }
}

CWaitCursor::CWaitCursor()
{
    if (CWinApp* const app = AfxGetApp())
    {
        app->DoWaitCursor(1);
    }
}

CWaitCursor::~CWaitCursor()
{
    if (CWinApp* const app = AfxGetApp())
    {
        app->DoWaitCursor(-1);
    }
}

void CWaitCursor::Restore()
{
    if (CWinApp* const app = AfxGetApp())
    {
        app->DoWaitCursor(0);
    }
}
