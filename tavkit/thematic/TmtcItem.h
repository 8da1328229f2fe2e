// TmtcItem.h - a card of the thematic list
#pragma once

#include "tavkit/frame/services/DString.h"
#include "tavkit/thematic/TmtcDrawElmt.h"

/// A card with an icon, a caption, and a second icon; an editable one has arrows and a remove button as well. It
/// belongs to the group or the list that it was added to, which deletes it. A copy shares the images, and its draw list
/// names the parts of the original: destroy the copy first.
class TAVKIT_API TmtcListCtrl::Item : public Elmt
{
public:
    static constexpr int kOutline = 1;     ///< width of the outline, in pixels
    static constexpr int kOutlineSlct = 2; ///< the same of the selected element
    static constexpr int kRadius = 3;      ///< of the corners, in pixels
    static constexpr COLORREF kColorOutline = RGB(160, 160, 160);
    static constexpr COLORREF kColorOutlineSlct = RGB(255, 215, 0);
    static constexpr COLORREF kColorTop =
        RGB(255, 255, 255); ///< of the card; without the 3D look it is all kColorBottom
    static constexpr COLORREF kColorBottom = RGB(192, 192, 192);

    /// @param nIconID    icon of the program, on the left; negative for none
    /// @param dwData     the host's value, wide enough for a pointer
    /// @param bEditable  false leaves out the arrows and the remove button
    static Item* Create(const DString& strText, int nIconID, DWORD_PTR dwData, bool bEditable);
    /// @param pszIconFile  picture on the left; null for none
    static Item* Create(const DString& strText, const char* pszIconFile, DWORD_PTR dwData, bool bEditable);

    Item(Item const&);
    Item& operator=(Item const&);
    ~Item() override;

    // See Bitmap::SetBitmap for what can't be loaded.
    void SetIconLeft(int nIconID) { m_bmpLeft.SetBitmap(nIconID); }
    void SetIconLeft(const char* pszFile) { m_bmpLeft.SetBitmap(pszFile); }
    void SetIconRight(int nIconID) { m_bmpRight.SetBitmap(nIconID); }

    /// The caption.
    const char* GetText() const override { return m_text.GetText(); }
    void SetText(const char* pszText) { m_text.SetText(pszText); }
    /// The group that it was last added to; null for none. It isn't cleared when the item leaves the group.
    [[nodiscard]] Group* GetGrp() const { return m_pGrp; }
    void SetGrp(Group* pGrp) { m_pGrp = pGrp; }
    [[nodiscard]] bool GetReadOnly() const { return m_bReadOnly; }

    void Draw(CDC* pDC, bool b3DLook) const override;
    bool HitTest(const POINT& pt, HITTEST* pHit) const override;
    /// Always tavkit::thematic::kCardHeight.
    int ComputeHeight() const override;
    void RepositionElmts() override;

private:
    Item(const char* pszText, DWORD_PTR dwData, bool bEditable);

    Bitmap m_bmpLeft;
    Bitmap m_bmpRight;
    BitmapButton m_btnUp;
    BitmapButton m_btnDown;
    Button m_btnRmv;
    Text m_text;
    Group* m_pGrp = nullptr; // not owned
    bool m_bReadOnly;
};
