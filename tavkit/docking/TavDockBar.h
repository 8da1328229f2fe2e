// TavDockBar.h - dock bars: what all of them share
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/DList.h"

class TAVKIT_API CTavDockBar
{
public:
    /// The registered message "WM_TAV_DOCKBAR_REPAINT_CHILD", which a host sends to a bar.
    static unsigned int const wm_TavDockBarRepaintChld;
    /// Every dock bar alive; the bars are not owned.
    static DList<CTavDockBar*> glAllDockBars;
};
