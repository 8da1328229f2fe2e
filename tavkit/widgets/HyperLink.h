// HyperLink.h - links in dialogs: the message that a link sends to its parent
#pragma once

#include "tavkit/frame/Export.h"

/// The registered message "WM_XHYPERLINK_CLICKED".
extern TAVKIT_API unsigned int WM_XHYPERLINK_CLICKED;
