// TmtcDrawElmt.h - the draw elements of the thematic list: icon, text, arrow, link, round button
#pragma once

#include "tavkit/thematic/TmtcElmt.h"

#include <afxcmn.h>
#include <memory>

namespace Gdiplus
{
class Bitmap;
}

/// An image, scaled into the rectangle. A copy shares the image with its source; the last one that holds it deletes it.
class TAVKIT_API TmtcListCtrl::Elmt::Bitmap : public DrawElmt
{
public:
    static constexpr int kIconSize = 32;      ///< pixels at which icons are loaded, both ways
    static constexpr int kMaxFileName = 1024; ///< longest name of a file, in wide characters with its end

    /// Without an image.
    Bitmap();

    /// Gives the image held away and takes ownership of another; null leaves none.
    void SetBitmap(Gdiplus::Bitmap* pBitmap);
    /// Loads the image from a file; the one held goes even if that fails. Null, "", a name that is too long and a file
    /// that can't be read leave no image. A file that isn't a picture leaves one that counts as valid and shows
    /// nothing.
    void SetBitmap(const char* pszFile);
    /// Loads an icon of the program by its number, of which the low 16 bits count; negative leaves no image. Otherwise
    /// as for a file. GDI+ must have been started.
    void SetBitmap(int nIconID);

    void Draw(CDC* pDC, bool b3DLook) const override;
    bool IsValid() const override { return m_pBitmap != nullptr; }
    virtual ~Bitmap();

private:
    std::shared_ptr<Gdiplus::Bitmap> m_pBitmap; // shared by copies
};

/// A line of text, cut with an ellipsis where it is too long.
class TAVKIT_API TmtcListCtrl::Elmt::Text : public DrawElmt
{
public:
    /// @param pszText  copied; null counts as ""
    explicit Text(const char* pszText);

    void SetText(const char* pszText) { m_strText = pszText; }
    [[nodiscard]] const char* GetText() const { return m_strText; }

    void Draw(CDC* pDC, bool b3DLook) const override;
    bool IsValid() const override { return !m_strText.IsEmpty(); }
    virtual ~Text();

private:
    CString m_strText;
};

/// What can be clicked: a command, and a look that follows the mouse.
class TAVKIT_API TmtcListCtrl::Elmt::ButtonBase : public DrawElmt
{
public:
    using enum tavkit::thematic::EButtonState;

    /// Command 0, state 0.
    ButtonBase() = default;

    [[nodiscard]] unsigned long GetID() const { return m_dwID; }
    void SetID(unsigned long dwID) { m_dwID = dwID; }
    /// Bits `stateHot` and `statePressed`.
    [[nodiscard]] int GetState() const { return m_nState; }
    /// Written as given.
    void SetState(int nState) { m_nState = nState; }

    bool MouseEvent(EMouseEvnt evnt, const POINT& pt) override;

protected:
    explicit ButtonBase(unsigned long dwID) : m_dwID(dwID) {}

    unsigned long m_dwID = 0;
    int m_nState = 0;
};

/// A small arrow, one of a strip of images that all share.
class TAVKIT_API TmtcListCtrl::Elmt::BitmapButton : public ButtonBase
{
public:
    static const SIZE sizeImage; ///< of one image, in pixels
    static CImageList m_lstImg;  ///< the strip, of bitmap 669; created on first need and kept for the process's life

    static constexpr int kImageDown = 0; ///< first image of the arrow down: normal, hot, pressed
    static constexpr int kImageUp = 3;   ///< the same of the arrow up

    /// @param nBitmapIndex  first of its three images; negative shows nothing
    BitmapButton(unsigned long dwID, int nBitmapIndex);

    [[nodiscard]] int GetBitmapIndex() const { return m_nBitmapIndex; }
    void SetBitmapIndex(int nBitmapIndex) { m_nBitmapIndex = nBitmapIndex; }
    [[nodiscard]] int GetWidth() const { return sizeImage.cx; }
    [[nodiscard]] int GetHeight() const { return sizeImage.cy; }

    void Draw(CDC* pDC, bool b3DLook) const override;
    bool IsValid() const override { return m_nBitmapIndex >= 0; }
    virtual ~BitmapButton();

private:
    static constexpr int kStripGrowth = 10;
    static constexpr COLORREF kStripMask = RGB(255, 0, 255);

    int m_nBitmapIndex;
};

/// A text that looks like a link while it is enabled. One that isn't enabled is painted all the same, in the plain
/// font, and leaves the context's text colour black, whatever it was.
class TAVKIT_API TmtcListCtrl::Elmt::Hyperlink : public ButtonBase
{
public:
    static CFont fontHyper; ///< underlined; created on first need and kept for the process's life
    static CFont fontText;  ///< the same without the underline

    static constexpr COLORREF kLinkColor = RGB(0, 0, 255);

    /// Without a text.
    explicit Hyperlink(unsigned long dwID);

    /// @param pszText  copied; null counts as ""
    void SetText(const char* pszText) { m_strText = pszText; }
    [[nodiscard]] const CString& GetText() const { return m_strText; }
    /// The font that it is painted in.
    [[nodiscard]] CFont* GetFont() const { return m_bEnabled ? &fontHyper : &fontText; }

    void Draw(CDC* pDC, bool b3DLook) const override;
    bool IsValid() const override { return m_strText.GetLength() > 0; }

protected:
    /// Makes each of the two fonts unless it is there.
    static void CreateHyperlinkFonts();

private:
    CString m_strText;
};

/// A round button with a plus or a minus.
class TAVKIT_API TmtcListCtrl::Elmt::Button : public ButtonBase
{
public:
    /// Command 0, a plus, the shadow in the colour of windows.
    Button();
    /// @param crShadow  of the disc under a button that the mouse is over
    Button(unsigned long dwID, bool bAdd, unsigned long crShadow);

    [[nodiscard]] unsigned long GetShadowColor() const { return m_crShadow; }
    void SetShadowColor(unsigned long crShadow) { m_crShadow = crShadow; }
    /// Whether it shows a plus.
    [[nodiscard]] bool IsAddButton() const { return m_bAdd; }
    void SetAddButton(bool bAdd) { m_bAdd = bAdd; }

    /// The outline is drawn with the pen that the context has.
    void Draw(CDC* pDC, bool b3DLook) const override;
    bool IsValid() const override { return true; }
    virtual ~Button();

private:
    unsigned long m_crShadow;
    bool m_bAdd;
};
