// afxcmn.h - the common controls: image list, list, tree, tool tip, slider, tabs, status bar
#pragma once

#include "afxwin.h"

#include "afximgl.h"
#include "afxlist.h"
#include "afxtree.h"
#include "afxbars.h"
