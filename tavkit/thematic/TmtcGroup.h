// TmtcGroup.h - a group of cards in the thematic list
#pragma once

#include "tavkit/frame/services/DVector.h"
#include "tavkit/thematic/TmtcItem.h"

/// A coloured bar with a round add button, and the cards of the group beside it; without any card a link stands in
/// their place. The group owns its items. A copy names the same items and the draw elements of the original, and would
/// delete the items too: take them out of one of the two with MoveChldr() or RmvItem() first.
class TAVKIT_API TmtcListCtrl::Group : public Elmt
{
public:
    /// @param strText  the name
    /// @param strID    the host's key, see TmtcListCtrl::FindGroup()
    /// @param crStart  colour of the bar at its left; without the 3D look it is all crEnd
    /// @param dwData   the host's value, wide enough for a pointer
    /// @return null if there is no memory
    static Group* Create(const DString& strText, const DString& strID, unsigned long crStart, unsigned long crEnd,
                         DWORD_PTR dwData);
    /// @param pGroup  may be null
    static void Delete(Group* pGroup);

    Group(Group const&);
    Group& operator=(Group const&);
    /// Deletes the items.
    ~Group() override;

    /// The name. It isn't painted, but the link tells it.
    const char* GetText() const override { return m_text.GetText(); }
    void SetText(const char* pszText);
    [[nodiscard]] const DString& GetID() const { return m_strID; }
    /// @param pszID  null empties it
    void SetID(const char* pszID) { m_strID = pszID; }
    [[nodiscard]] unsigned long GetStartColor() const { return m_crStart; }
    [[nodiscard]] unsigned long GetEndColor() const { return m_crEnd; }
    void SetStartColor(unsigned long cr) { m_crStart = cr; }
    /// The shadow of the add button keeps the colour that the group was created with.
    void SetEndColor(unsigned long cr) { m_crEnd = cr; }
    [[nodiscard]] bool GetEnblAdd() const { return m_btnAdd.IsEnabled(); }
    /// Whether items can be added: otherwise there is no add button, and the link is a plain text.
    void SetEnblAdd(bool bEnabled);
    /// "Add %s..." or "No %s items", with the name.
    [[nodiscard]] DString GetHyperlinkText() const;

    // Items. Nothing is repainted.

    [[nodiscard]] int GetNumItem() const { return m_vecItem.GetCount(); }
    [[nodiscard]] int GetSize() const { return m_vecItem.GetCount(); }
    [[nodiscard]] int GetNumVsblItem() const;
    /// An index past the end raises the number of items and gives null; so does every new entry, which the group then
    /// skips. A negative one gives null.
    Item* Get(int nIndex);
    [[nodiscard]] bool HasItem(Item* pItem) const { return IndexOf(pItem) >= 0; }
    /// Takes ownership and becomes the item's group. Null is ignored.
    void AddTail(Item* pItem);
    /// The same in front of the item at `nPos`; a position outside is taken to the nearer end.
    void Insert(Item* pItem, int nPos);
    /// Takes an item out; with `bDelete` deletes it, even if it wasn't in the group.
    void RmvItem(Item* pItem, bool bDelete);
    /// The item that takes the place of another when that goes: the one behind it, null behind the last. For null and
    /// for an item of another group the first.
    Item* FindRplcItem(Item* pItem);
    /// Lets an item change places with its neighbour. @return false if it isn't there or has no such neighbour
    bool MoveItem(Item* pItem, bool bUp);
    /// Takes over all items of another group. They aren't told: GetGrp() goes on naming the other. The items that this
    /// group had are forgotten without being deleted. Itself is ignored.
    void MoveChldr(Group& other);

    void Draw(CDC* pDC, bool b3DLook) const override;
    bool HitTest(const POINT& pt, HITTEST* pHit) const override;
    int ComputeHeight() const override;
    bool MouseEvent(EMouseEvnt evnt, const POINT& pt) override;
    void RepositionElmts() override;

private:
    friend class TmtcListCtrl;

    Group(const char* pszText, DString const& strID, unsigned long crStart, unsigned long crEnd, DWORD_PTR dwData);

    [[nodiscard]] int IndexOf(Item const* pItem) const;
    void PlaceLink();

    unsigned long m_crStart;
    unsigned long m_crEnd;
    DVector<Item*> m_vecItem; // owned, in display order; null where Get() grew it
    DString m_strID;
    Button m_btnAdd;
    Text m_text; // not in the draw list
    Hyperlink m_lnkAdd;
};
