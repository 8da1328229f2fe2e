// BDISelectorDlg.h - lets the user pick items inside a repository
#pragma once

#include "tavkit/frame/services/BDIDrvr.h"
#include "tavkit/frame/services/DString.h"
#include "tavkit/frame/services/DVector.h"
#include "tavkit/layout/DynamicDialog.h"
#include "tavkit/lists/TavListCtrl.h"
#include "tavkit/resources/resource.h"
#include "tavkit/trees/TavTreeCtrlEx.h"

#include <map>

/// The containers of a repository as a tree, and beside it the items of the wanted kinds in the container that is
/// selected. OK picks the selected items, or the container itself if none is. A container is opened when it is expanded
/// for the first time. Nothing is reported: what can't be opened shows as empty.
class CBDISelectorDlg : public cdxCDynamicDialog
{
    DECLARE_DYNAMIC(CBDISelectorDlg)

public:
    static constexpr unsigned int TreeTypes = bdiContainer | bdiOther; ///< what the tree shows
    static constexpr int ColWidth = 200;                               ///< pixels, of the list's column
    static constexpr int ImageWidth = 16;                              ///< pixels, of a tree image
    static constexpr COLORREF ImageMask = RGB(255, 0, 255);            ///< becomes transparent

    /// Places in the strip of tree images.
    enum Image
    {
        ImageClosed,
        ImageOpen,
        ImageRaster,
        ImageTable,
        ImageVector
    };

    /// @param drvr     borrowed
    /// @param root     moniker text of the repository
    /// @param type     kinds of the items to pick from, bits of BDINodeKind
    /// @param caption  title; null or empty keeps the template's
    /// @param multi    several items may be picked
    CBDISelectorDlg(BDIDrvr* drvr, char const* root, unsigned int type, char const* caption, bool multi, CWnd* parent);
    /// Closes the repository.
    ~CBDISelectorDlg() override;

    BOOL OnInitDialog() override;

    /// The moniker texts of what was picked, after DoModal() gave IDOK; items in the order of the list.
    [[nodiscard]] DVectorSafe<DString> const& GetPicked() const { return m_vecSlct; }

protected:
    void DoDataExchange(CDataExchange* pDX) override;

    void OnClickedOK();
    void OnClickedCancel();
    void OnItemExpanding(NMHDR* pNMHDR, LRESULT* pResult);
    void OnSelChanged(NMHDR* pNMHDR, LRESULT* pResult);
    void OnDblClk(NMHDR* pNMHDR, LRESULT* pResult);

    DECLARE_MESSAGE_MAP()

private:
    BDINode* OpenNode(char const* id);
    HTREEITEM InsertNode(BDINode const& node, HTREEITEM parent);
    void InsertChildren(HTREEITEM item);
    void FillList(HTREEITEM item);
    void RegisterControls();
    bool Collect();

    CString m_strRoot;
    DVectorSafe<DString> m_vecSlct;  ///< the result
    DVectorSafe<DString> m_vecItems; ///< moniker texts of the list's rows, by the rows' data
    CTavTreeCtrlEx m_tree;
    CTavListCtrl m_list;
    CButton m_btnCancel;
    CButton m_btnOK;
    BDIDrvr* m_pDrvr; ///< borrowed
    unsigned int m_nType;
    CImageList m_imgTree;
    CString m_strCaption;
    std::map<HTREEITEM, CString> m_mapItems; ///< moniker text by tree item
    bool m_bMulti;
    void* m_hRepository = nullptr;  ///< open while the dialog lives
    BDINode* m_pRootNode = nullptr; ///< of the repository, closed before it
};
