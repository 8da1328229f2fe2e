// DynamicDialog.h - the library's dialog: resizable, its controls placed, its place remembered
#pragma once

#include <bcgcb.h>

#include "tavkit/layout/DynamicWndEx.h"

/// A dialog whose children keep their place as it is resized, and which comes back where the user left it.
/// A derived class registers its controls in OnInitDialog, after the base's, with bReposNow true.
/// The layout belongs to one showing: make one object for each.
class TAVKIT_API cdxCDynamicDialog : public CBCGDialog, public cdxCDynamicWndEx
{
    DECLARE_DYNAMIC(cdxCDynamicDialog)

public:
    static constexpr UINT DefaultFlags = FlagSizeIcon | FlagAntiFlicker;

    /// @param id  template, and name of the remembered place; 0 for a template given later and no remembered place
    explicit cdxCDynamicDialog(UINT id = 0, CWnd* pParent = nullptr, Freedom freedom = FreedomXY,
                               UINT nFlags = DefaultFlags);
    /// @param name  template, and name of the remembered place; null or empty for none
    explicit cdxCDynamicDialog(char const* name, CWnd* pParent = nullptr, Freedom freedom = FreedomXY,
                               UINT nFlags = DefaultFlags);
    ~cdxCDynamicDialog() override;

    BOOL OnInitDialog() override;
    BOOL DestroyWindow() override;

    // Both bases know the window.
    using CBCGDialog::operator HWND;

protected:
    /// FALSE: the remembered place decides, and without one the dialog stays where its template puts it.
    BOOL CheckAutoCenter() override;

    void OnDestroy();
    void OnParentNotify(UINT message, LPARAM lParam);
    void OnGetMinMaxInfo(MINMAXINFO* pMMI);
    void OnSize(UINT nType, int cx, int cy);
    void OnSizing(UINT fwSide, RECT* pRect);
    void OnTimer(UINT_PTR nID);

    DECLARE_MESSAGE_MAP()
};
