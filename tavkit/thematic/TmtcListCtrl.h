// TmtcListCtrl.h - list of cards in groups
#pragma once

#include <afxwin.h>

#include "tavkit/frame/Export.h"
#include "tavkit/frame/LifePtr.h"
#include "tavkit/frame/services/DString.h"
#include "tavkit/frame/services/DVector.h"
#include "tavkit/thematic/ButtonState.h"

/// A stack of items and groups of items on a plain background. It has no scroll bar: what doesn't fit into the client
/// area isn't seen. The host derives from it and overrides the hooks to hear of a selection, and to add, move and
/// remove; the parent is told nothing. The list owns its elements.
///
/// A hook may change the list at will, remove the element that it is called for, and destroy the window or the object.
/// An element that is deleted while it is selected is no longer selected. All of it belongs on the thread of the
/// window.
class TAVKIT_API TmtcListCtrl : public CWnd
{
public:
    class Elmt;
    class Item;
    class Group;
    struct HITTEST;
    using EMouseEvnt = tavkit::thematic::EMouseEvnt;
    using ECommand = tavkit::thematic::ECommand;
    using enum tavkit::thematic::EMouseEvnt;
    using enum tavkit::thematic::ECommand;

    static constexpr const char* kTitle = "Thematic List Control"; ///< title of the window

    TmtcListCtrl();
    /// Deletes the elements; the selection isn't reported.
    ~TmtcListCtrl() override;

    // Elements at the top level, in display order. Nothing is repainted: invalidate the window.

    /// Takes ownership of an element; null is ignored. If nothing is selected, an item becomes selected.
    void AddTail(Elmt* pElmt);
    /// The same in front of the element at `nPos`; a position outside is taken to the nearer end.
    void AddPos(int nPos, Elmt* pElmt);
    /// Removes and deletes an element. One that isn't at the top level is left alone.
    void Rmv(Elmt* pElmt);
    /// Null for an index outside.
    Elmt* Get(int nIndex);
    [[nodiscard]] int GetNumElmt() const { return m_vecElmt.GetCount(); }
    bool IsGroup(Elmt* pElmt);
    bool IsItem(Elmt* pElmt);
    /// The selected element; null if none is.
    [[nodiscard]] Elmt* GetSlctElmt() const;
    /// The selected item; null if none is, or a group.
    [[nodiscard]] Item* GetSlctItem() const;
    /// The first group with that key, upper and lower case being different; null if there is none.
    Group* FindGroup(const DString& strID);
    /// The neighbour of an item among all items in display order.
    /// @param pItem      null stands in front of the first item
    /// @param bVisible   hidden items don't count; forward from a hidden item there is then no neighbour
    /// @return null if there is none, or the item isn't in the list
    Item* GetNextItem(Item* pItem, bool bVisible, bool bBackward);
    /// Places the elements in the client area, as every repaint does.
    void RepositionItems();
    /// Does nothing, whatever the arguments.
    void ShowElement(Elmt* pElmt, bool bShow);
    [[nodiscard]] bool GetEnblGrpSlct() const { return m_bEnblGrpSlct; }
    /// Whether groups can be selected; off at first.
    void SetEnblGrpSlct(bool bEnabled) { m_bEnblGrpSlct = bEnabled; }

    // An addition: selection with the keyboard. Off at first, and then nothing is any different.

    [[nodiscard]] bool GetEnblKeySlct() const { return m_bEnblKeySlct; }
    /// Whether a click gives the list the focus, and the arrows up and down, Home and End select visible items while it
    /// has it. Groups are passed over, and a selected one counts as no selection: the arrow down then goes to the first
    /// item. The selection is told to OnSlctChng() as that with the mouse is.
    void SetEnblKeySlct(bool bEnabled) { m_bEnblKeySlct = bEnabled; }

    using CWnd::Create;
    /// Makes the window. @return FALSE if the system refused
    virtual int Create(unsigned long dwStyle, const RECT& rect, CWnd* pParent, unsigned int nID);

    // Hooks

    /// Changes the selection; either element may be null. An override must call it, or the selection stays. Nothing is
    /// repainted.
    virtual void OnSlctChng(Elmt* pOld, Elmt* pNew);
    /// The user clicked a remove button: removes and deletes the item. The item that moves up into its place shows at
    /// once that the mouse is over its remove button. If the removed one was selected, nothing is afterwards.
    /// @param pGrp  null for an item at the top level
    virtual void OnRmvItem(Group* pGrp, Item* pItem);
    /// The user clicked the add button or the link of a group. Does nothing; the result isn't used.
    virtual Item* OnAddToGroup(Group* pGrp);
    /// Whether items and bars are shaded; asked for each element that is painted.
    virtual bool Get3DLook() const;

protected:
    /// The user clicked an arrow: lets the item change places with its neighbour in the group.
    /// @param pGrp  null for an item at the top level, which can't be moved this way
    /// @return whether it moved
    virtual bool OnMoveItem(Group* pGrp, Item* pItem, bool bUp);

    /// First and last element; null if there is none.
    Elmt* GetHead();
    Elmt* GetTail();
    /// Take an element out without deleting it; the selection stays as it is. Not to be called on an empty list.
    Elmt* RmvHead();
    Elmt* RmvTail();
    /// Lets a group change places with the group above or below it. @return false unless both are groups
    bool MoveElmnt(Elmt* pElmt, bool bUp);
    /// What lies at a place in client coordinates. @return whether anything does
    bool HitTest(const POINT& pt, HITTEST* pHit) const;
    /// Tells all elements of an event. @return true if one looks different; the window is then invalid
    bool ProcessMouseEvent(EMouseEvnt evnt, const POINT& pt);
    /// Selects what lies at a place; a place where nothing can be selected changes nothing.
    void SlctItem(CPoint pt);

    void OnPaint();
    BOOL OnEraseBkgnd(CDC* pDC);
    BOOL OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT nMessage);
    void OnMouseMove(UINT nFlags, CPoint point);
    LRESULT OnMouseLeave(WPARAM wParam, LPARAM lParam);
    void OnLButtonDown(UINT nFlags, CPoint point);
    void OnLButtonUp(UINT nFlags, CPoint point);
    void OnRButtonDown(UINT nFlags, CPoint point);
    UINT OnGetDlgCode();
    void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    DECLARE_MESSAGE_MAP()

private:
    class Handled;

    /// The first group that holds an item; null if there is none.
    Group* FindGroup(Item* pItem);
    [[nodiscard]] int IndexOf(Elmt const* pElmt) const;
    /// Whether an argument of a hook was deleted by the hook before it passed it on.
    [[nodiscard]] bool IsLost(Elmt const* pElmt) const;
    [[nodiscard]] bool Holds(Elmt const* pElmt) const;
    /// Shows a search all items in display order, until it ends.
    template <class Search>
    void ShowItems(Search& search);
    /// @return false if the object was destroyed meanwhile
    bool ChangeSlct(Elmt* pNew);
    /// The visible item that a key goes to; null for another key, and where there is none.
    Item* FindItemByKey(UINT nKey);
    /// Takes the focus if the keyboard selects. @return whether the window still is there
    bool TakeFocus();
    Item* FindRplcItem(Group& group, Item* pItem);
    void ShowRplcItem(Item* pRplc, Item const* pRmvd);

    DVector<Elmt*> m_vecElmt; // owned, in display order
    LifePtr<Elmt> m_pSlct;
    Item* m_pRplcItem = nullptr; // only compared, never looked into
    bool m_bTrackMouse = false;
    CFont m_font;
    bool m_bEnblGrpSlct = false;
    bool m_bEnblKeySlct = false;
    LifeToken m_life;
    Handled* m_pHandled = nullptr; // the innermost hook that runs
};
