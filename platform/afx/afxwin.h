// afxwin.h - the framework's classes for windows, drawing and programs
#pragma once

#include <afx.h>
#include <afxcoll.h>
#include <afxgeom.h>
#include <afxres.h>
#include <afxstat.h>

#include <afxcmdtgt.h>
#include <afxmenu.h>
#include <afxmsg_.h>
#include <afxwnd.h>

#include <afxgdi.h>
#include <afxdc.h>
#include <afxapp.h>
#include <afxctl.h>
#include <afxddx.h>
#include <afxdlg.h>
#include <afxfrm.h>
