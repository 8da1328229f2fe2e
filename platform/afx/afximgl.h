// afximgl.h - CImageList: a row of pictures of one size
#pragma once

#include "afxgdi.h"

class CWnd;

/// Owner of an image list. The destructor destroys the list; Detach() hands it to the caller instead. A control that is
/// given the list only borrows it.
class TAVAFX_API CImageList : public CObject
{
    DECLARE_DYNCREATE(CImageList)
public:
    HIMAGELIST m_hImageList = nullptr; ///< the list owned, null when empty

    CImageList() = default;
    ~CImageList() override;

    /// The list, or null; may be asked of a null object.
    HIMAGELIST GetSafeHandle() const;
    operator HIMAGELIST() const { return GetSafeHandle(); }

    /// The permanent object that owns a list, or a temporary one that dies at idle and destroys nothing; null for null.
    static CImageList* PASCAL FromHandle(HIMAGELIST hImageList);
    /// The permanent object that owns a list; null if none does.
    static CImageList* PASCAL FromHandlePermanent(HIMAGELIST hImageList);

    /// Takes over a list, which the object owns from now on.
    /// @return FALSE for a null handle
    BOOL Attach(HIMAGELIST hImageList);
    /// Hands the list back; the caller owns it.
    HIMAGELIST Detach();
    /// Destroys the list. @return FALSE if there was none
    BOOL DeleteImageList();

    /// An empty list. What the object held before is destroyed; on failure it stays, and the answer is FALSE.
    /// @param cx, cy    size of a picture in pixels
    /// @param nFlags    ILC_COLOR32, ILC_MASK ...
    /// @param nInitial  pictures there is room for; @param nGrow  pictures by which it grows
    BOOL Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow);
    /// A list cut from a bitmap resource, which is searched in the application first, then in the extension modules.
    /// @param cx      width of a picture; the height is that of the bitmap
    /// @param crMask  colour that becomes transparent; CLR_NONE for no mask
    BOOL Create(UINT nBitmapID, int cx, int nGrow, COLORREF crMask);
    BOOL Create(LPCTSTR lpszBitmapID, int cx, int nGrow, COLORREF crMask);

    int GetImageCount() const;
    /// Adds copies of as many pictures as the bitmap is wide.
    /// @param pbmMask  null for none
    /// @return index of the first one; -1 on failure
    int Add(CBitmap* pbmImage, CBitmap* pbmMask);
    int Add(CBitmap* pbmImage, COLORREF crMask);
    int Add(HICON hIcon);
    /// @param nImage  -1 for all
    BOOL Remove(int nImage);
    BOOL Replace(int nImage, CBitmap* pbmImage, CBitmap* pbmMask);
    /// @return the index; -1 on failure
    int Replace(int nImage, HICON hIcon);

    /// @param cr  CLR_NONE draws transparently. @return the colour before
    COLORREF SetBkColor(COLORREF cr);
    COLORREF GetBkColor() const;
    BOOL GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const;
    /// @param nStyle  ILD_NORMAL, ILD_TRANSPARENT ...
    BOOL Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle);
    /// @return an icon that the caller destroys; null for a wrong index
    HICON ExtractIcon(int nImage);

    /// Begins to drag a picture; there is one drag at a time in a process.
    /// @param ptHotSpot  place in the picture that the pointer holds
    BOOL BeginDrag(int nImage, CPoint ptHotSpot);
    /// Shows the picture in a window, in coordinates of the whole window; a null window is the screen.
    static BOOL PASCAL DragEnter(CWnd* pWndLock, CPoint point);
    static BOOL PASCAL DragMove(CPoint pt);
    static BOOL PASCAL DragLeave(CWnd* pWndLock);
    /// Hides or shows the picture, so that the window under it may draw.
    static BOOL PASCAL DragShowNolock(BOOL bShow);
    static void PASCAL EndDrag();
};
