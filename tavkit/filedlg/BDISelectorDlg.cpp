// BDISelectorDlg.cpp
#include "tavkit/filedlg/BDISelectorDlg.h"
#include "tavkit/filedlg/NodeCursor.h"

namespace
{

/// The image of a node; kinds that have none, and several at once, look like a container.
[[nodiscard]] int ImageOf(BDINode const& node) noexcept
{
    switch (node.m_nKind)
    {
    case bdiRaster:
        return CBDISelectorDlg::ImageRaster;
    case bdiVector:
        return CBDISelectorDlg::ImageVector;
    case bdiTable:
        return CBDISelectorDlg::ImageTable;
    default:
        return CBDISelectorDlg::ImageClosed;
    }
}

constexpr DWORD_PTR kLoaded = 1; ///< data of a tree item whose children are there

} // namespace

IMPLEMENT_DYNAMIC(CBDISelectorDlg, cdxCDynamicDialog)

BEGIN_MESSAGE_MAP(CBDISelectorDlg, cdxCDynamicDialog)
    ON_BN_CLICKED(IDOK, OnClickedOK)                             // picks what is selected
    ON_BN_CLICKED(IDCANCEL, OnClickedCancel)                     // picks nothing
    ON_NOTIFY(TVN_ITEMEXPANDING, IDC_PATH_TREE, OnItemExpanding) // a container opens or closes
    ON_NOTIFY(TVN_SELCHANGED, IDC_PATH_TREE, OnSelChanged)       // another container is to be listed
    ON_NOTIFY(NM_DBLCLK, IDC_PATH_TREE, OnDblClk)                // picks without the button
END_MESSAGE_MAP()

CBDISelectorDlg::CBDISelectorDlg(BDIDrvr* drvr, char const* root, unsigned int type, char const* caption, bool multi,
                                 CWnd* parent)
    : cdxCDynamicDialog(IDD_BDI_SELECTOR, parent, FreedomXY, DefaultFlags), m_strRoot(root), m_pDrvr(drvr),
      m_nType(type), m_strCaption(caption), m_bMulti(multi)
{
}

CBDISelectorDlg::~CBDISelectorDlg()
{
    if (m_pRootNode)
    {
        m_pDrvr->CloseNode(m_pRootNode);
    }
    if (m_hRepository)
    {
        m_pDrvr->CloseRepository(m_hRepository);
    }
}

void CBDISelectorDlg::DoDataExchange(CDataExchange* pDX)
{
    cdxCDynamicDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_PATH_TREE, m_tree);
    DDX_Control(pDX, IDC_SELECTOR_LIST, m_list);
    DDX_Control(pDX, IDCANCEL, m_btnCancel);
    DDX_Control(pDX, IDOK, m_btnOK);
}

BOOL CBDISelectorDlg::OnInitDialog()
{
    cdxCDynamicDialog::OnInitDialog();
    if (!m_strCaption.IsEmpty())
    {
        SetWindowText(m_strCaption);
    }
    m_hRepository = m_pDrvr->OpenRepository(m_strRoot, &m_pRootNode);
    m_list.AddCol("Name", adiString, false, ColWidth, 0);
    m_list.SetMultiSlct(m_bMulti);
    m_imgTree.Create(IDB_BDI_SELECTOR, ImageWidth, 1, ImageMask);
    m_tree.SetImageList(&m_imgTree, TVSIL_NORMAL);

    HTREEITEM root = nullptr;
    if (BDINode* const node = OpenNode(m_strRoot))
    {
        root = InsertNode(*node, TVI_ROOT);
        m_pDrvr->CloseNode(node);
    }
    m_btnOK.EnableWindow(FALSE);
    m_tree.SelectItem(root);
    if (m_list.GetNumRow() > 0 && m_list.GetNumSlct() == 0)
    {
        m_list.SetSlct(0, true);
    }
    RegisterControls();
    return TRUE;
}

void CBDISelectorDlg::RegisterControls()
{
    // All growth in width is the tree's; the list moves, the buttons stay at the corner.
    const CSize noMinimum(0, 0);
    AddSzControl(m_tree, 0, 0, 100, 100, noMinimum, true);
    AddSzControl(m_list, 100, 0, 100, 100, noMinimum, true);
    AddSzControl(m_btnOK, 100, 100, 100, 100, noMinimum, true);
    AddSzControl(m_btnCancel, 100, 100, 100, 100, noMinimum, true);
}

BDINode* CBDISelectorDlg::OpenNode(char const* id)
{
    return m_hRepository ? m_pDrvr->OpenNode(m_hRepository, id) : nullptr;
}

HTREEITEM CBDISelectorDlg::InsertNode(BDINode const& node, HTREEITEM parent)
{
    tavkit::NodeCursor child(m_pDrvr, &node, false, TreeTypes);
    child.First();
    TVINSERTSTRUCT insert{};
    insert.hParent = parent;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_CHILDREN;
    insert.item.pszText = const_cast<char*>(node.m_strDisplay.c_str()); // the control only reads it
    insert.item.iImage = insert.item.iSelectedImage = ImageOf(node);
    insert.item.cChildren = child.Crnt() ? 1 : 0;
    const HTREEITEM item = m_tree.InsertItem(&insert);
    if (item)
    {
        m_mapItems[item] = node.m_strId.c_str();
    }
    return item;
}

void CBDISelectorDlg::InsertChildren(HTREEITEM item)
{
    if (BDINode* const node = OpenNode(m_mapItems[item]))
    {
        {
            tavkit::NodeCursor child(m_pDrvr, node, false, TreeTypes);
            for (child.First(); child.Crnt(); child.Next())
            {
                InsertNode(*child.Crnt(), item);
            }
        }
        m_pDrvr->CloseNode(node);
    }
    m_tree.SetItemData(item, kLoaded);
}

void CBDISelectorDlg::OnItemExpanding(NMHDR* pNMHDR, LRESULT* pResult)
{
    auto const& change = *reinterpret_cast<NMTREEVIEW const*>(pNMHDR);
    const HTREEITEM item = change.itemNew.hItem;
    const bool expand = (change.action & TVE_EXPAND) != 0;
    if (expand && m_tree.ItemHasChildren(item) && m_tree.GetItemData(item) == 0)
    {
        InsertChildren(item);
    }
    if (expand || (change.action & TVE_COLLAPSE) != 0)
    {
        // Whatever image the item had: what opens is shown as a container.
        const int image = expand ? ImageOpen : ImageClosed;
        m_tree.SetItemImage(item, image, image);
    }
    *pResult = 0;
}

void CBDISelectorDlg::OnSelChanged(NMHDR* pNMHDR, LRESULT* pResult)
{
    *pResult = 0;
    if (!::IsWindow(m_list.GetSafeHwnd()) || !::IsWindow(m_btnOK.GetSafeHwnd()))
    {
        return; // the dialog goes, its tree is emptied
    }
    m_btnOK.EnableWindow(m_tree.GetSelectedItem() != nullptr);
    FillList(reinterpret_cast<NMTREEVIEW const*>(pNMHDR)->itemNew.hItem);
}

void CBDISelectorDlg::FillList(HTREEITEM item)
{
    m_list.RmvAllRow();
    m_vecItems.Clear();
    const auto found = m_mapItems.find(item);
    BDINode* const node = found == m_mapItems.end() ? nullptr : OpenNode(found->second);
    if (!node)
    {
        return;
    }
    m_list.SetRedraw(FALSE);
    {
        tavkit::NodeCursor child(m_pDrvr, node, false, m_nType);
        for (child.First(); child.Crnt(); child.Next())
        {
            m_list.AddRow();
            m_list.SetColText(0, CString(child.Crnt()->m_strDisplay.c_str()));
            m_list.SetData(static_cast<DWORD_PTR>(m_vecItems.GetCount())); // the user may sort the rows
            m_vecItems.Append(child.Crnt()->m_strId);
        }
    }
    m_list.SetRedraw(TRUE);
    m_list.Invalidate();
    m_pDrvr->CloseNode(node);
}

bool CBDISelectorDlg::Collect()
{
    m_vecSlct.Clear();
    for (int row = 0; row < m_list.GetNumRow(); ++row)
    {
        if (m_list.GetSlct(row))
        {
            m_vecSlct.Append(m_vecItems[static_cast<int>(m_list.GetItemData(row))]);
        }
    }
    const HTREEITEM item = m_tree.GetSelectedItem();
    if (m_vecSlct.IsEmpty() && item)
    {
        m_vecSlct.Append(static_cast<LPCTSTR>(m_mapItems[item]));
    }
    return !m_vecSlct.IsEmpty();
}

void CBDISelectorDlg::OnClickedOK()
{
    Collect(); // with nothing picked the dialog ends as well: its caller takes that for a failure
    OnOK();
}

void CBDISelectorDlg::OnClickedCancel() { OnCancel(); }

void CBDISelectorDlg::OnDblClk(NMHDR*, LRESULT* pResult)
{
    *pResult = 0;
    CPoint point(static_cast<LPARAM>(::GetMessagePos()));
    m_tree.ScreenToClient(&point);
    unsigned int flags = 0;
    const HTREEITEM item = m_tree.HitTest(point, &flags);
    if (item && (flags & TVHT_ONITEM) != 0) // its icon, its label or its state icon
    {
        m_tree.SelectItem(item);
        if (Collect())
        {
            EndDialog(IDOK);
        }
    }
}
