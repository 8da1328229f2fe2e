// The objects that live as long as the module. Their order can be seen: a host's constructors read the message numbers,
// and at unload the objects go in reverse. The compiler keeps an order only within one source, so they stand in this
// one. They are built under the loader's lock: only the window system and the framework may be called here.
#include "tavkit/docking/TavDockBar.h"
#include "tavkit/docking/TavPropList.h"
#include "tavkit/filedlg/DfltFldrs.h"
#include "tavkit/layout/DynamicWndEx.h"
#include "tavkit/layout/SizeIconCtrl.h"
#include "tavkit/thematic/CardLayout.h"
#include "tavkit/thematic/TmtcDrawElmt.h"
#include "tavkit/widgets/HyperLink.h"

#include <afxwin.h>

#ifndef OBM_SIZE
#    define OBM_SIZE 32766 // windows.h shows the numbers of the system's bitmaps only to those who define OEMRESOURCE
#endif

constinit char const* const cdxCDynamicWndEx::M_lpszAutoPosProfileSection = "WindowPositions";

cdxCSizeIconCtrl::AutoOEMImageList cdxCSizeIconCtrl::M_ilImage(OBM_SIZE, ::GetSysColor(COLOR_BTNFACE));
HICON cdxCSizeIconCtrl::M_hcSize = ::LoadCursor(nullptr, IDC_SIZENWSE);

DfltFldrs* DfltFldrs::m_pSingleInstance = nullptr;
DfltFldrs::CAutoDel DfltFldrs::m_autoDelete;

DList<CTavDockBar*> CTavDockBar::glAllDockBars;
unsigned int const CTavDockBar::wm_TavDockBarRepaintChld = ::RegisterWindowMessage("WM_TAV_DOCKBAR_REPAINT_CHILD");
unsigned int const CTavPropList::wm_PropChanged = ::RegisterWindowMessage("WM_TAV_CTRL_PROPLIST_PROPCHANGED");

unsigned int WM_XHYPERLINK_CLICKED = ::RegisterWindowMessage("WM_XHYPERLINK_CLICKED");

constinit SIZE const TmtcListCtrl::Elmt::BitmapButton::sizeImage{tavkit::thematic::kArrowWidth,
                                                                 tavkit::thematic::kArrowHeight};
CImageList TmtcListCtrl::Elmt::BitmapButton::m_lstImg;
CFont TmtcListCtrl::Elmt::Hyperlink::fontHyper;
CFont TmtcListCtrl::Elmt::Hyperlink::fontText;
