#include "tavkit/trees/TreeCursor.h"

#include "tavkit/trees/TavTreeCtrlEx.h"

namespace
{

/// The control copies texts; that it takes them without const is a slip of its structures.
char* TextOf(char const* text) { return const_cast<char*>(text != nullptr ? text : ""); }

} // namespace

/// The answer of the tree; without a tree that of an empty value.
template <class Question>
auto CTreeCursor::Ask(Question question) const
{
    using Answer = decltype(question(*m_pTree));
    return m_pTree != nullptr ? question(*m_pTree) : Answer();
}

CTreeCursor CTreeCursor::GetNext(unsigned int code) const
{
    return Ask([&](auto& tree) { return tree.GetNextItem(m_hItem, code); });
}

CTreeCursor CTreeCursor::GetChild() const
{
    return Ask([&](auto& tree) { return tree.GetChildItem(m_hItem); });
}

CTreeCursor CTreeCursor::GetNextSibling() const
{
    return Ask([&](auto& tree) { return tree.GetNextSiblingItem(m_hItem); });
}

CTreeCursor CTreeCursor::GetPrevSibling() const
{
    return Ask([&](auto& tree) { return tree.GetPrevSiblingItem(m_hItem); });
}

CTreeCursor CTreeCursor::GetParent() const
{
    return Ask([&](auto& tree) { return tree.GetParentItem(m_hItem); });
}

CTreeCursor CTreeCursor::GetNextVisible() const
{
    return Ask([&](auto& tree) { return tree.GetNextVisibleItem(m_hItem); });
}

CTreeCursor CTreeCursor::GetPrevVisible() const
{
    return Ask([&](auto& tree) { return tree.GetPrevVisibleItem(m_hItem); });
}

CTreeCursor CTreeCursor::GetFirstVisible() const
{
    return Ask([](auto& tree) { return tree.GetFirstVisibleItem(); });
}

CTreeCursor CTreeCursor::GetSelected() const
{
    return Ask([](auto& tree) { return tree.GetSelectedItem(); });
}

CTreeCursor CTreeCursor::GetDropHilight() const
{
    return Ask([](auto& tree) { return tree.GetDropHilightItem(); });
}

CTreeCursor CTreeCursor::GetRoot() const
{
    return Ask([](auto& tree) { return tree.GetRootItem(); });
}

CTreeCursor CTreeCursor::InsertAfter(char const* text, HTREEITEM after, int image)
{
    return _Insert(text, image, after);
}

CTreeCursor CTreeCursor::AddHead(char const* text, int image) { return _Insert(text, image, TVI_FIRST); }

CTreeCursor CTreeCursor::AddTail(char const* text, int image) { return _Insert(text, image, TVI_LAST); }

CTreeCursor CTreeCursor::_Insert(char const* text, int image, HTREEITEM after)
{
    TVINSERTSTRUCT insert{};
    insert.hParent = m_hItem;
    insert.hInsertAfter = after;
    insert.item.mask = TVIF_TEXT;
    insert.item.pszText = TextOf(text);
    if (image != kNoImage)
    {
        insert.item.mask |= TVIF_IMAGE | TVIF_SELECTEDIMAGE;
        insert.item.iImage = image;
        insert.item.iSelectedImage = image;
    }
    return Ask([&](auto& tree) { return tree.InsertItem(&insert); });
}

int CTreeCursor::GetRect(RECT* rect, int textOnly) const
{
    return Ask([&](auto& tree) { return tree.GetItemRect(m_hItem, rect, textOnly); });
}

CString CTreeCursor::GetText() const
{
    return Ask([&](auto& tree) { return tree.GetItemText(m_hItem); });
}

int CTreeCursor::GetImage(int& image, int& selectedImage) const
{
    return Ask([&](auto& tree) { return tree.GetItemImage(m_hItem, image, selectedImage); });
}

int CTreeCursor::GetImageID() const
{
    TVITEM item{};
    item.mask = TVIF_HANDLE | TVIF_IMAGE;
    item.hItem = m_hItem;
    Ask([&](auto& tree) { return tree.CTreeCtrl::GetItem(&item); });
    return item.iImage;
}

unsigned int CTreeCursor::GetState(unsigned int mask) const
{
    return Ask([&](auto& tree) { return tree.GetItemState(m_hItem, mask); });
}

DWORD_PTR CTreeCursor::GetData() const
{
    return Ask([&](auto& tree) { return tree.GetItemData(m_hItem); }); // which is 0 for a null item
}

int CTreeCursor::HasChildren() const
{
    return Ask([&](auto& tree) { return tree.ItemHasChildren(m_hItem); });
}

int CTreeCursor::IsExpanded() const { return static_cast<int>(GetState(TVIS_EXPANDED) & TVIS_EXPANDED); }

CImageList* CTreeCursor::CreateDragImage() const
{
    return Ask([&](auto& tree) { return tree.CreateDragImage(m_hItem); });
}

int CTreeCursor::SetText(char const* text)
{
    return Ask([&](auto& tree) { return tree.SetItem(m_hItem, TVIF_TEXT, TextOf(text), 0, 0, 0, 0, 0); });
}

int CTreeCursor::SetImage(int image, int selectedImage)
{
    return Ask([&](auto& tree) {
        return tree.SetItem(m_hItem, TVIF_IMAGE | TVIF_SELECTEDIMAGE, nullptr, image, selectedImage, 0, 0, 0);
    });
}

int CTreeCursor::SetState(unsigned int state, unsigned int mask)
{
    return Ask([&](auto& tree) { return tree.SetItem(m_hItem, TVIF_STATE, nullptr, 0, 0, state, mask, 0); });
}

int CTreeCursor::SetData(DWORD_PTR data)
{
    return Ask(
        [&](auto& tree) { return tree.SetItem(m_hItem, TVIF_PARAM, nullptr, 0, 0, 0, 0, static_cast<LPARAM>(data)); });
}

int CTreeCursor::Delete()
{
    return Ask([&](auto& tree) { return m_hItem != nullptr && tree.DeleteItem(m_hItem) ? 1 : 0; });
}

int CTreeCursor::Expand(unsigned int code)
{
    return Ask([&](auto& tree) { return tree.Expand(m_hItem, code); });
}

int CTreeCursor::Select(unsigned int code)
{
    return Ask([&](auto& tree) { return tree.CTreeCtrl::Select(m_hItem, code); });
}

int CTreeCursor::Select() { return Select(TVGN_CARET); }

int CTreeCursor::SelectDropTarget() { return Select(TVGN_DROPHILITE); }

int CTreeCursor::SelectSetFirstVisible() { return Select(TVGN_FIRSTVISIBLE); }

CEdit* CTreeCursor::EditLabel()
{
    return Ask([&](auto& tree) { return tree.CTreeCtrl::EditLabel(m_hItem); });
}

int CTreeCursor::SortChildren()
{
    return Ask([&](auto& tree) { return tree.CTreeCtrl::SortChildren(m_hItem); });
}

int CTreeCursor::EnsureVisible()
{
    return Ask([&](auto& tree) { return tree.CTreeCtrl::EnsureVisible(m_hItem); });
}
