// TavListCtrlVirtual.cpp - row list that holds no rows
#include "tavkit/lists/TavListCtrlVirtual.h"

#include <algorithm>

BEGIN_MESSAGE_MAP(CTavListCtrlVirtual, CTavListCtrl)
    ON_NOTIFY_REFLECT(LVN_GETDISPINFO, OnGetdispinfo) // a cell is about to be shown
END_MESSAGE_MAP()

CTavListCtrlVirtual::CTavListCtrlVirtual() = default;

// The window is destroyed by a base: by then nobody asks for a text that this class has not.
CTavListCtrlVirtual::~CTavListCtrlVirtual() = default;

int CTavListCtrlVirtual::OnGetItemImg(int, int) { return -1; }

void CTavListCtrlVirtual::Sort(int, bool) {}

BOOL CTavListCtrlVirtual::PreCreateWindow(CREATESTRUCT& cs)
{
    cs.style |= LVS_OWNERDATA;
    return CTavListCtrl::PreCreateWindow(cs);
}

void CTavListCtrlVirtual::SetNumRow(int rows)
{
    rows = std::max(rows, 0);
    CountRows(rows);
    SetItemCountEx(rows, 0);
}

void CTavListCtrlVirtual::OnGetdispinfo(NMHDR* pNMHDR, LRESULT* pResult)
{
    *pResult = 0;
    LVITEM& item = reinterpret_cast<NMLVDISPINFO*>(pNMHDR)->item;
    const LifeWatch watch(m_life);
    if ((item.mask & LVIF_TEXT) != 0)
    {
        DString text = OnGetItemText(item.iItem, item.iSubItem);
        if (item.pszText && item.cchTextMax > 0)
        {
            ::lstrcpyn(item.pszText, text.c_str(), item.cchTextMax);
        }
        if (watch.IsGone())
        {
            return;
        }
        m_strText = std::move(text);
    }
    if ((item.mask & LVIF_IMAGE) != 0)
    {
        item.iImage = OnGetItemImg(item.iItem, item.iSubItem);
    }
}
