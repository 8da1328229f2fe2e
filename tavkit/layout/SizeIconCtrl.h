// SizeIconCtrl.h - size grip in the corner of a dynamic window
#pragma once

#include <afxcmn.h>
#include <afxwin.h>

#include "tavkit/frame/Export.h"

/// The size grip: a scroll bar control of the size box kind, painted with the system's own grip picture.
class TAVKIT_API cdxCSizeIconCtrl : public CScrollBar
{
    DECLARE_DYNAMIC(cdxCSizeIconCtrl)

public:
    /// An image list with one image, a bitmap of the system.
    class TAVKIT_API AutoOEMImageList : public CImageList
    {
    public:
        /// @param nBitmapId  number of a system bitmap (OBM_...); an unknown one leaves the list without a handle
        /// @param crMask     the colour that counts as transparent
        AutoOEMImageList(UINT nBitmapId, COLORREF crMask);

        CSize m_szImage; ///< of the bitmap, in pixels
    };

    static AutoOEMImageList M_ilImage; ///< the system's size grip
    static HICON M_hcSize;             ///< the arrow from north-west to south-east; owned by the system

    /// @param bAutoHide  neither drawn nor answering the mouse while the parent is maximised
    explicit cdxCSizeIconCtrl(bool bAutoHide = true);
    ~cdxCSizeIconCtrl() override;

    /// Makes the grip in the lower right corner of a window's client area, hidden.
    /// @return 1, or 0 when the window couldn't be made
    virtual int Create(CWnd* pParent, UINT id);

protected:
    void OnPaint();
    BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT message);
    /// Sizes the parent from its lower right corner for as long as the button is down.
    void OnLButtonDown(UINT nFlags, CPoint point);
    /// A double click has no effect.
    void OnLButtonDblClk(UINT nFlags, CPoint point);

    DECLARE_MESSAGE_MAP()

private:
    bool IsHidden(const CWnd* parent) const;

    bool m_bReserved = false;
    bool m_bAutoHide;
};
