// resource.h - numbers of the resources of TavKit.dll; hosts create the library's dialogs through them
#pragma once

// dialogs
#define IDD_SELECT_PATH 134
#define IDD_BDI_SELECTOR 583
#define IDD_FILTER_FIND 6001
#define IDD_MSG_DETAILS 6101
#define IDD_FILE_PANEL 6102
#define IDD_FILE_PANEL_WORKSPACE 6103

// bitmaps
#define IDB_SELECT_PATH 134
#define IDB_BDI_SELECTOR 584 // closed and open container, raster, attribute table, vector: 16 pixels each
#define IDB_TMTC_ARROWS 669  // three arrows down, three up: normal, hot, pressed; 9 by 8 pixels each

// cursors
#define IDC_GRAB 104
#define IDC_MAGNIFIER 105
#define IDC_TMTC_HAND 6012

// strings
#define IDS_NO_ITEM_SELECTED 100
#define IDS_TRUE 101
#define IDS_FALSE 102
#define IDS_SELECT_AN_ITEM 103

// controls of IDD_SELECT_PATH and IDD_BDI_SELECTOR
#define IDC_PATH_TREE 1001
#define IDC_PATH_TEXT 1016
#define IDC_SELECTOR_LIST 6004

// controls of IDD_FILTER_FIND
#define IDC_FILTER 1980
#define IDC_FIND 1981
#define IDC_FOUND 1982
#define IDC_FOUND_LIST 1983
#define IDC_DESCRIPTION 1984
#define IDC_CLEAR 1985
#define IDC_DESCRIPTION_BOX 6003

// controls of IDD_MSG_DETAILS
#define IDC_DETAILS 6005
#define IDC_SHOW_DETAILS 6006
#define IDC_MESSAGE 6007

// controls of the panels in the system's file dialog
#define IDC_FOLDERS 6008
#define IDC_FOLDERS_LABEL 6009
#define IDC_PROJECT_EDIT 6010
#define IDC_OPTIONS_LABEL 6011 // IDD_FILE_PANEL
#define IDC_READ_ONLY 6011     // IDD_FILE_PANEL_WORKSPACE: the same number
#define IDC_OPTIONS 6012
