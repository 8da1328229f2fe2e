// TavPropList.h - property list: the message that it sends
#pragma once

#include "tavkit/frame/Export.h"

class TAVKIT_API CTavPropList
{
public:
    /// The registered message "WM_TAV_CTRL_PROPLIST_PROPCHANGED", sent to the list's parent with the property as the
    /// word parameter and the list as the long parameter.
    static unsigned int const wm_PropChanged;
};
