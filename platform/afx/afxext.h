// afxext.h - extensions of the framework: extension modules, buttons that show bitmaps
// Classes in this file: CBitmapButton
#pragma once

#include "afxdll_.h"
#include "afxwin.h"

/// An owner-drawn button that shows up to four bitmaps.
class TAVAFX_API CBitmapButton : public CButton
{
    DECLARE_DYNAMIC(CBitmapButton)
public:
    /// Loads the bitmaps for "normal, selected, focused, disabled" from resources, in place of those there were.
    /// @param nIDBitmapResource  must be there; the others may be 0, the normal bitmap is then shown
    /// @return FALSE if one that was asked for is missing
    BOOL LoadBitmaps(UINT nIDBitmapResource, UINT nIDBitmapResourceSel = 0, UINT nIDBitmapResourceFocus = 0,
                     UINT nIDBitmapResourceDisabled = 0);
    BOOL LoadBitmaps(LPCTSTR lpszBitmapResource, LPCTSTR lpszBitmapResourceSel = nullptr,
                     LPCTSTR lpszBitmapResourceFocus = nullptr, LPCTSTR lpszBitmapResourceDisabled = nullptr);

    /// Takes over a button of a dialog, loads the bitmaps that its caption names with "U", "D", "F" and "X" behind it,
    /// and fits the button to them. The last three bitmaps may be missing.
    /// @return FALSE if the button or its first bitmap is missing
    BOOL AutoLoad(UINT nID, CWnd* pParent);

    /// Gives the window the size of the normal bitmap.
    void SizeToContent();

    /// Copies the bitmap of the state into the upper left corner of the item; without the normal one nothing is drawn.
    void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct) override;

protected:
    CBitmap m_bitmap;         ///< normal
    CBitmap m_bitmapSel;      ///< pressed
    CBitmap m_bitmapFocus;    ///< with the focus
    CBitmap m_bitmapDisabled; ///< disabled
};
