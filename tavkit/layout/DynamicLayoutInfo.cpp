#include "tavkit/layout/DynamicLayoutInfo.h"

#include "tavkit/layout/DynamicWnd.h"
#include "tavkit/layout/Placement.h"

IMPLEMENT_DYNAMIC(cdxCDynamicLayoutInfo, CObject)

cdxCDynamicLayoutInfo::cdxCDynamicLayoutInfo(cdxCDynamicWnd* pWnd) { *this = pWnd; }

bool cdxCDynamicLayoutInfo::operator=(cdxCDynamicWnd* pWnd)
{
    if (pWnd == nullptr || !pWnd->IsUp())
    {
        return false;
    }
    m_szCurrent = pWnd->GetCurrentClientSize();
    m_szInitial = pWnd->m_szInitial;
    m_szDelta = CSize(tavkit::GrowthOf(m_szCurrent, m_szInitial));
    m_nCtrlCnt = pWnd->GetCtrlCount();
    m_bUseScrollPos = pWnd->m_bUseScrollPos;
    if (m_bUseScrollPos)
    {
        m_nScrollX = pWnd->Window()->GetScrollPos(SB_HORZ);
        m_nScrollY = pWnd->Window()->GetScrollPos(SB_VERT);
    }
    return true;
}

bool cdxCDynamicLayoutInfo::IsInitial() const
{
    if (m_szDelta.cx != 0 || m_szDelta.cy != 0)
    {
        return false;
    }
    return !m_bUseScrollPos || (m_nScrollX == 0 && m_nScrollY == 0);
}
