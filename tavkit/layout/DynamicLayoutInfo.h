// DynamicLayoutInfo.h - one snapshot of what a layout pass needs to know of its window
#pragma once

#include <afxwin.h>

#include "tavkit/frame/Export.h"

class cdxCDynamicWnd;

/// One snapshot of what a layout pass needs. Freely readable by overrides of cdxCDynamicWnd::DoMoveCtrl.
class TAVKIT_API cdxCDynamicLayoutInfo : public CObject
{
    DECLARE_DYNAMIC(cdxCDynamicLayoutInfo)

public:
    CSize m_szCurrent;            ///< client size now, pixels
    CSize m_szInitial;            ///< client size when the engine was attached
    CSize m_szDelta;              ///< current less initial
    UINT m_nCtrlCnt = 0;          ///< number of registered controls
    int m_nScrollX = 0;           ///< horizontal scroll position; 0 unless m_bUseScrollPos
    int m_nScrollY = 0;           ///< vertical scroll position; 0 unless m_bUseScrollPos
    bool m_bUseScrollPos = false; ///< children scroll with the window

    cdxCDynamicLayoutInfo() = default;
    explicit cdxCDynamicLayoutInfo(cdxCDynamicWnd* pWnd);
    ~cdxCDynamicLayoutInfo() override = default;

    /// Takes the snapshot.
    /// @return false, with nothing changed, when pWnd is null, has no window, or the window is minimised
    bool operator=(cdxCDynamicWnd* pWnd);

    /// True when every child is where it was registered: no growth and, if scrolling counts, nothing scrolled.
    bool IsInitial() const;
};
