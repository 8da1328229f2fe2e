// TavListCtrlVirtual.h - row list that holds no rows and asks for each cell when it shows it
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/DString.h"
#include "tavkit/lists/TavListCtrl.h"

/// An owner-data list: the host says how many rows there are and gives the texts. Rows and columns count from 0.
///
/// The control gets its style when it is created by Create(). One of a dialog template is not asked then, and the style
/// can't be added later: such a template has LVS_OWNERDATA and LVS_OWNERDRAWFIXED of its own.
class TAVKIT_API CTavListCtrlVirtual : public CTavListCtrl
{
public:
    CTavListCtrlVirtual();
    ~CTavListCtrlVirtual() override;

    /// The text of a cell. May destroy the list.
    virtual DString OnGetItemText(int row, int col) = 0;
    /// The image of a row, an index in the small image list; -1 for none. May destroy the list.
    virtual int OnGetItemImg(int row, int col);

    /// Does nothing: the order of the rows is the host's.
    void Sort(int col, bool ascending) override;

    /// Says how many rows there are; a negative number is taken as none. The list is painted anew.
    void SetNumRow(int rows);

protected:
    BOOL PreCreateWindow(CREATESTRUCT& cs) override;
    void OnGetdispinfo(NMHDR* pNMHDR, LRESULT* pResult);
    DECLARE_MESSAGE_MAP()

private:
    DString m_strText; ///< of the cell asked for last
};
