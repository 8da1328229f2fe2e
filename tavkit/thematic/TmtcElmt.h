// TmtcElmt.h - what items and groups of the thematic list have in common, and what they are drawn from
#pragma once

#include "tavkit/frame/LifeWatch.h"
#include "tavkit/frame/services/DList.h"
#include "tavkit/thematic/TmtcListCtrl.h"

/// A card or a group of cards. Its parts that look like controls are draw elements: members of the object, listed in
/// paint order. A copy takes over that list as it stands, so it goes on naming the parts of the original.
class TmtcListCtrl::Elmt
{
public:
    using EMouseEvnt = tavkit::thematic::EMouseEvnt;
    using ECommand = tavkit::thematic::ECommand;
    using enum tavkit::thematic::EMouseEvnt;
    using enum tavkit::thematic::ECommand;

    class DrawElmt;
    class Bitmap;
    class Text;
    class ButtonBase;
    class BitmapButton;
    class Hyperlink;
    class Button;

    virtual ~Elmt() = default;
    virtual const char* GetText() const = 0;
    /// Paints inside the rectangle and tavkit::thematic::kPaintReach pixels above and below it. The list doesn't call
    /// it for what lies farther outside its client area.
    virtual void Draw(CDC* pDC, bool b3DLook) const = 0;
    /// Fills in what of this element is at a place in client coordinates.
    /// @param pHit  the fields that nothing was found for are left alone
    virtual bool HitTest(const POINT& pt, HITTEST* pHit) const = 0;
    /// Pixels.
    virtual int ComputeHeight() const = 0;
    /// Offers the event to every draw element. @return true if anything looks different now
    inline virtual bool MouseEvent(EMouseEvnt evnt, const POINT& pt);
    /// Places what is inside the rectangle.
    virtual void RepositionElmts() = 0;

    /// The host's value, given at creation; the library never reads it.
    [[nodiscard]] DWORD_PTR GetData() const { return m_dwData; }
    /// Whether it is the selected one of its list.
    [[nodiscard]] bool IsSlct() const { return m_bSlct; }
    [[nodiscard]] bool IsVisible() const { return m_bVisible; }
    /// A hidden element takes no place, isn't painted and can't be hit. Nothing is repainted: invalidate the list.
    void SetVisible(bool bVisible) { m_bVisible = bVisible; }

protected:
    explicit Elmt(DWORD_PTR dwData) : m_dwData(dwData) {}
    Elmt(Elmt const&) = default;
    Elmt& operator=(Elmt const&) = default;

    DWORD_PTR m_dwData;
    RECT m_rect{}; // client coordinates
    bool m_bVisible = true;
    bool m_bSlct = false;
    DList<DrawElmt*> m_lstDraw; // in paint order; members of this object, or of the one that it was copied from

private:
    friend class TmtcListCtrl;
    template <class T>
    friend class LifePtr;

    /// The button of the draw list with that command; null if there is none.
    ButtonBase* FindButton(ECommand id) const;

    LifeToken m_life;
};

/// A light stand-in for a control: a rectangle that paints itself and may answer to the mouse. It has no virtual
/// destructor on purpose, since it is a member of its item or group and never deleted through a base pointer.
class TAVKIT_API TmtcListCtrl::Elmt::DrawElmt
{
public:
    using EMouseEvnt = tavkit::thematic::EMouseEvnt;
    using enum tavkit::thematic::EMouseEvnt;

    /// An empty rectangle, enabled.
    DrawElmt() = default;

    /// Paints with the font, pen and text colour that the list selected into the context. Nothing is painted unless
    /// the element is available; see Hyperlink for the exception.
    /// @param b3DLook  no draw element looks at it
    virtual void Draw(CDC* pDC, bool b3DLook) const = 0;
    /// Whether there is anything to show.
    virtual bool IsValid() const { return false; }
    /// @return true if it looks different now
    virtual bool MouseEvent(EMouseEvnt, const POINT&) { return false; }

    /// An element that isn't enabled isn't there: neither painted nor hit, and it takes no hover and no press.
    [[nodiscard]] bool IsEnabled() const { return m_bEnabled; }
    /// Nothing is repainted.
    void SetEnabled(bool bEnabled) { m_bEnabled = bEnabled; }
    [[nodiscard]] bool IsAvailable() const { return m_bEnabled && IsValid(); }
    /// Client coordinates of the list.
    void GetRect(RECT& rect) const { rect = m_rect; }
    void SetRect(const RECT& rect) { m_rect = rect; }
    /// Whether it is enabled and the point lies inside; it needn't have anything to show.
    [[nodiscard]] bool HitTest(const POINT& pt) const { return m_bEnabled && tavkit::thematic::Contains(m_rect, pt); }

protected:
    RECT m_rect{};
    bool m_bEnabled = true;
};

inline bool TmtcListCtrl::Elmt::MouseEvent(EMouseEvnt evnt, const POINT& pt)
{
    bool changed = false;
    for (DrawElmt* const element : m_lstDraw)
    {
        changed = element->MouseEvent(evnt, pt) || changed;
    }
    return changed;
}

/// What lies at a point: all null when a test begins.
struct TmtcListCtrl::HITTEST
{
    Group* pGroup = nullptr;
    Item* pItem = nullptr;
    Elmt::DrawElmt* pDrawElmt = nullptr;
};
