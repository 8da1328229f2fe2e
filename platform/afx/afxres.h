// afxres.h - identifiers of the framework's own windows, controls and texts (also read by the resource compiler)
#ifndef AFXRES_H
#define AFXRES_H

// Child windows of frames
#define AFX_IDW_CONTROLBAR_FIRST 0xE800
#define AFX_IDW_CONTROLBAR_LAST 0xE8FF
#define AFX_IDW_TOOLBAR 0xE800
#define AFX_IDW_STATUS_BAR 0xE801
#define AFX_IDW_DOCKBAR_TOP 0xE81B
#define AFX_IDW_DOCKBAR_LEFT 0xE81C
#define AFX_IDW_DOCKBAR_RIGHT 0xE81D
#define AFX_IDW_DOCKBAR_BOTTOM 0xE81E
#define AFX_IDW_DOCKBAR_FLOAT 0xE81F
#define AFX_IDW_PANE_FIRST 0xE900
#define AFX_IDW_PANE_LAST 0xE9FF
#define AFX_IDW_SIZE_BOX 0xEA20

// Controls
#define AFX_IDC_TAB_CONTROL 0x3020

// Texts
#define AFX_IDS_APP_TITLE 0xE000
#define AFX_IDS_IDLEMESSAGE 0xE001

// Commands
#define ID_APP_ABOUT 0xE140
#define ID_APP_EXIT 0xE141

#ifndef IDC_STATIC
#    define IDC_STATIC (-1)
#endif

#endif
