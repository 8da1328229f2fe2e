// TavTreeCtrlItems.cpp - CTavTreeCtrl: items, lookups, glyphs
#include "tavkit/trees/TavTreeCtrl.h"

#include <vector>
#include "tavkit/frame/services/BaseFuncs.h"
#include "tavkit/frame/services/DFile.h"
#include "tavkit/trees/ItemWatch.h"
#include "tavkit/trees/TreeCtrlItr.h"
#include "tavkit/trees/TreeDrag.h"
#include "tavkit/trees/TreeFinder.h"
#include "tavkit/trees/TreeViewMend.h"

namespace
{

// Places of the glyphs in an image.
constexpr RECT kCircle{1, 1, 16, 15};
constexpr RECT kRect{2, 2, 14, 14};

constexpr char kPluginFolder[] = "plugins\\";

/// The file itself, or one of its name among the plug-ins if it doesn't exist.
DString FindPlugin(char const* file)
{
    DString const name(file);
    if (name.IsEmpty() || DFile(name.c_str()).Exist())
    {
        return name;
    }
    DString folder = GetInstallDir(nullptr);
    if (DString const last = folder.Right(1); !last.IsEmpty() && last != "\\" && last != "/")
    {
        folder += "\\"; // a host may give the folder without one
    }
    return folder + kPluginFolder + StripPath(name);
}

} // namespace

HTREEITEM CTavTreeCtrl::AddItem(CString const& text, DWORD_PTR data, HTREEITEM parent, HTREEITEM after)
{
    UINT mask = TVIF_TEXT | TVIF_PARAM;
    if (HasImages())
    {
        mask |= TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    }
    int const image = m_imgList.GetDefaultImage();
    return InsertItem(mask, text, image, image, 0, 0, static_cast<LPARAM>(data), parent, after);
}

DWORD_PTR CTavTreeCtrl::GetItemData(HTREEITEM item) const { return item != nullptr ? CTreeCtrl::GetItemData(item) : 0; }

DWORD_PTR CTavTreeCtrl::GetCrntData() const { return GetItemData(GetSelectedItem()); }

HTREEITEM CTavTreeCtrl::GetItem(CPoint const& screenPoint)
{
    CRect window;
    GetWindowRect(window);
    if (!window.PtInRect(screenPoint))
    {
        return nullptr;
    }
    CPoint point = screenPoint;
    ScreenToClient(&point);
    return HitTest(point);
}

// Lookups

HTREEITEM CTavTreeCtrl::FindItem(DWORD_PTR data) { return FindItem(data, nullptr); }

HTREEITEM CTavTreeCtrl::FindItem(DWORD_PTR data, HTREEITEM start)
{
    // A window that was only attached has no procedure under ours, and its messages go past us.
    return m_pFinder->Find(tavkit::WindowTree(m_hWnd, m_pfnSuper), data, start == TVI_ROOT ? nullptr : start,
                           m_pfnSuper != nullptr);
}

HTREEITEM CTavTreeCtrl::FindItem(CString const& text)
{
    // With room for one character more than is wanted, a text that was cut can't be taken for the wanted one.
    std::vector<char> buffer(static_cast<std::size_t>(text.GetLength()) + 2);
    CTreeCtrlItr itr(this, nullptr);
    for (itr.Frst(); itr.Cont(); itr.Next())
    {
        ItemWatch const item(*this, *itr);
        TVITEM query{};
        query.mask = TVIF_TEXT;
        query.hItem = item.Item();
        query.pszText = buffer.data();
        query.cchTextMax = static_cast<int>(buffer.size());
        buffer[0] = '\0';
        bool const known = CTreeCtrl::GetItem(&query) != FALSE; // the parent may be asked for the text
        if (!item.ItemIsThere())
        {
            return nullptr; // and may have deleted the item meanwhile
        }
        if (known && text == (query.pszText == LPSTR_TEXTCALLBACK ? nullptr : query.pszText))
        {
            return item.Item();
        }
    }
    return nullptr;
}

void CTavTreeCtrl::PreSubclassWindow()
{
    m_pFinder->Restart(); // what was changed before wasn't seen
    CTreeCtrl::PreSubclassWindow();
}

void CTavTreeCtrl::SlctItem(DWORD_PTR data) { SelectItem(FindItem(data)); }

void CTavTreeCtrl::SlctItem(DWORD_PTR data, HTREEITEM start) { SelectItem(FindItem(data, start)); }

void CTavTreeCtrl::SlctItem(CString const& text) { SelectItem(FindItem(text)); }

void CTavTreeCtrl::ForgetItems(HTREEITEM root, bool rootToo)
{
    bool const all = rootToo && (root == nullptr || root == TVI_ROOT);
    auto const goes = [&](HTREEITEM item) {
        if (item == nullptr || all)
        {
            return item != nullptr;
        }
        HTREEITEM above = rootToo ? item : GetParentItem(item);
        while (above != nullptr && above != root)
        {
            above = GetParentItem(above);
        }
        return above != nullptr;
    };
    for (ItemWatch* watch = m_pTopWatch; watch != nullptr; watch = watch->m_pBelow)
    {
        if (goes(watch->m_hItem))
        {
            watch->m_hItem = nullptr;
            watch->m_bDeleted = true;
        }
    }
    if (goes(m_pMend->OwnHilight()))
    {
        m_pMend->ForgetHilight();
    }
    if (goes(m_hClickItem))
    {
        m_hClickItem = nullptr;
    }
    if (goes(m_hDragItem))
    {
        AbandonDrag();
        m_hDragItem = nullptr; // in a drop, whose hooks go on without it
    }
}

// Glyphs

// Asks the control behind the message maps: every item that is added asks.
bool CTavTreeCtrl::HasImages() { return CTreeCtrl::DefWindowProc(TVM_GETIMAGELIST, TVSIL_NORMAL, 0) != 0; }

void CTavTreeCtrl::InitImages()
{
    if (m_imgList.GetSafeHandle() == nullptr)
    {
        m_imgList.SetWindow(this);
        m_imgList.Create();
    }
    SetImageList(&m_imgList, TVSIL_NORMAL);
}

void CTavTreeCtrl::InitImages(unsigned int bitmapId, int width, int grow, COLORREF mask)
{
    if (m_imgList.GetSafeHandle() == nullptr)
    {
        m_imgList.SetWindow(this);
        m_imgList.CImageList::Create(bitmapId, width, grow, mask);
    }
    SetImageList(&m_imgList, TVSIL_NORMAL);
}

void CTavTreeCtrl::ClearImages() { m_imgList.Clear(); }

void CTavTreeCtrl::SetGlyph(HTREEITEM item, int image) { SetItemImage(item, image, image); }

void CTavTreeCtrl::DrawCircle(HTREEITEM item, COLORREF color, COLORREF border, bool barred)
{
    if (HasImages())
    {
        SetGlyph(item, m_imgList.GetCircle(color, border, kCircle, barred));
    }
}

void CTavTreeCtrl::DrawCircleSmall(HTREEITEM item, COLORREF color, COLORREF border)
{
    if (HasImages())
    {
        SetGlyph(item, m_imgList.GetCircleSmall(color, border));
    }
}

void CTavTreeCtrl::DrawRect(HTREEITEM item, COLORREF color, COLORREF border)
{
    if (HasImages())
    {
        SetGlyph(item, m_imgList.GetRect(color, border, kRect));
    }
}

bool CTavTreeCtrl::DrawIcon(HTREEITEM item, unsigned int iconId, char const* file)
{
    if (!HasImages())
    {
        return true;
    }
    int const image = m_imgList.GetIcon(iconId, file);
    if (image == -1)
    {
        return false;
    }
    SetGlyph(item, image);
    return true;
}

bool CTavTreeCtrl::DrawPluginIcon(HTREEITEM item, unsigned int iconId, char const* file)
{
    return DrawIcon(item, iconId, FindPlugin(file).c_str());
}
