#include "impl/CommonControls.h"

#include "afxdefs.h"

void AfxInitCommonControls()
{
    static const BOOL registered = [] {
        const INITCOMMONCONTROLSEX classes = {sizeof(INITCOMMONCONTROLSEX),
                                              ICC_LISTVIEW_CLASSES | ICC_TREEVIEW_CLASSES | ICC_BAR_CLASSES |
                                                  ICC_UPDOWN_CLASS | ICC_TAB_CLASSES | ICC_PROGRESS_CLASS |
                                                  ICC_USEREX_CLASSES | ICC_STANDARD_CLASSES};
        return ::InitCommonControlsEx(&classes);
    }();
    static_cast<void>(registered);
}
