#include "afximgl.h"

#include "afxcount.h"
#include "afxstat.h"
#include "afxwnd.h"
#include "impl/CommonControls.h"
#include "impl/GdiMaps.h"

IMPLEMENT_DYNCREATE(CImageList, CObject)

CImageList::~CImageList() { DeleteImageList(); }

HIMAGELIST CImageList::GetSafeHandle() const { return this == nullptr ? nullptr : m_hImageList; }

CImageList* PASCAL CImageList::FromHandle(HIMAGELIST hImageList)
{
    CImageList* list = AfxImageListMap().FromHandle(hImageList);
    if (list != nullptr)
    {
        list->m_hImageList = hImageList; // a temporary one may have been detached since it was made
    }
    return list;
}

CImageList* PASCAL CImageList::FromHandlePermanent(HIMAGELIST hImageList)
{
    return hImageList == nullptr ? nullptr : AfxImageListMap().LookupPermanent(hImageList);
}

BOOL CImageList::Attach(HIMAGELIST hImageList)
{
    if (hImageList == nullptr)
    {
        return FALSE;
    }
    if (hImageList != m_hImageList)
    {
        DeleteImageList();
        m_hImageList = hImageList;
    }
    if (AfxEnterOwner(AfxImageListMap(), hImageList, this))
    {
        AfxCountCreated(AfxResource::ImageList);
    }
    return TRUE;
}

HIMAGELIST CImageList::Detach()
{
    const HIMAGELIST hImageList = m_hImageList;
    m_hImageList = nullptr;
    if (hImageList != nullptr && AfxLeaveOwner(AfxImageListMap(), hImageList, this))
    {
        AfxCountReleased(AfxResource::ImageList);
    }
    return hImageList;
}

BOOL CImageList::DeleteImageList()
{
    const HIMAGELIST hImageList = Detach();
    return hImageList != nullptr && ::ImageList_Destroy(hImageList);
}

BOOL CImageList::Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow)
{
    AfxInitCommonControls();
    return Attach(::ImageList_Create(cx, cy, nFlags, nInitial, nGrow));
}

BOOL CImageList::Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask)
{
    return Create(MAKEINTRESOURCE(nBitmapID), cx, nGrow, crMask);
}

BOOL CImageList::Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask)
{
    // Not ImageList_LoadBitmap(), which leaves a bitmap of any depth no more than sixteen colours.
    AfxInitCommonControls();
    CBitmap bitmap;
    BITMAP info{};
    if (!bitmap.Attach(::LoadImageA(AfxFindResourceHandle(lpszBitmapID, RT_BITMAP), lpszBitmapID, IMAGE_BITMAP, 0, 0,
                                    LR_CREATEDIBSECTION)) ||
        bitmap.GetBitmap(&info) == 0)
    {
        return FALSE;
    }
    const int width = cx > 0 ? cx : info.bmHeight;
    const UINT depth = info.bmBitsPixel > 24 ? ILC_COLOR32 : ILC_COLOR24;
    const bool masked = crMask != CLR_NONE;
    CImageList list;
    if (!list.Create(width, info.bmHeight, depth | (masked ? ILC_MASK : 0U), info.bmWidth / width, nGrow) ||
        (masked ? list.Add(&bitmap, crMask) : list.Add(&bitmap, static_cast<CBitmap*>(nullptr))) < 0)
    {
        return FALSE;
    }
    return Attach(list.Detach());
}

int CImageList::GetImageCount() const { return ::ImageList_GetImageCount(m_hImageList); }

namespace
{
HBITMAP HandleOf(CBitmap* bitmap) { return static_cast<HBITMAP>(bitmap->GetSafeHandle()); }
} // namespace

int CImageList::Add(CBitmap* pbmImage, CBitmap* pbmMask)
{
    return ::ImageList_Add(m_hImageList, HandleOf(pbmImage), HandleOf(pbmMask));
}

int CImageList::Add(CBitmap* pbmImage, COLORREF crMask)
{
    return ::ImageList_AddMasked(m_hImageList, HandleOf(pbmImage), crMask);
}

int CImageList::Add(HICON hIcon) { return ::ImageList_ReplaceIcon(m_hImageList, -1, hIcon); }

BOOL CImageList::Remove(int nImage) { return ::ImageList_Remove(m_hImageList, nImage); }

BOOL CImageList::Replace(int nImage, CBitmap* pbmImage, CBitmap* pbmMask)
{
    return ::ImageList_Replace(m_hImageList, nImage, HandleOf(pbmImage), HandleOf(pbmMask));
}

int CImageList::Replace(int nImage, HICON hIcon) { return ::ImageList_ReplaceIcon(m_hImageList, nImage, hIcon); }

COLORREF CImageList::SetBkColor(COLORREF cr) { return ::ImageList_SetBkColor(m_hImageList, cr); }

COLORREF CImageList::GetBkColor() const { return ::ImageList_GetBkColor(m_hImageList); }

BOOL CImageList::GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const
{
    return ::ImageList_GetImageInfo(m_hImageList, nImage, pImageInfo);
}

BOOL CImageList::Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle)
{
    return ::ImageList_Draw(m_hImageList, nImage, pDC->GetSafeHdc(), pt.x, pt.y, nStyle);
}

HICON CImageList::ExtractIcon(int nImage) { return ::ImageList_GetIcon(m_hImageList, nImage, ILD_NORMAL); }

BOOL CImageList::BeginDrag(int nImage, CPoint ptHotSpot)
{
    return ::ImageList_BeginDrag(m_hImageList, nImage, ptHotSpot.x, ptHotSpot.y);
}

BOOL PASCAL CImageList::DragEnter(CWnd* pWndLock, CPoint point)
{
    return ::ImageList_DragEnter(pWndLock->GetSafeHwnd(), point.x, point.y);
}

BOOL PASCAL CImageList::DragMove(CPoint pt) { return ::ImageList_DragMove(pt.x, pt.y); }

BOOL PASCAL CImageList::DragLeave(CWnd* pWndLock) { return ::ImageList_DragLeave(pWndLock->GetSafeHwnd()); }

BOOL PASCAL CImageList::DragShowNolock(BOOL bShow) { return ::ImageList_DragShowNolock(bShow); }

void PASCAL CImageList::EndDrag() { ::ImageList_EndDrag(); }
