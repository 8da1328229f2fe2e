// FloatEdit.h - edit control that accepts only what can become an unsigned decimal number
#pragma once

#include <memory>
#include <afxwin.h>
#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/DVector.h"

/// A set of characters that an edit control may hold.
class TAVKIT_API BaseFormat
{
public:
    BaseFormat();
    virtual ~BaseFormat();

    /// True when `c` is in the set.
    virtual bool IsValidChar(char c);
    /// Replaces the set by the first `count` characters of `chars`; null or a count below 1 leaves the set empty.
    void SetValidChars(char const* chars, int count);

private:
    DVector<char> m_vecValid;
};

/// The digits and the decimal point. There is no sign and no exponent: the numbers are not negative, by design.
class TAVKIT_API FloatFormat : public BaseFormat
{
public:
    FloatFormat();
};

/// Edit control that filters what is typed and pasted. It never reads a value: the text of the control is the state.
class TAVKIT_API CFloatEdit : public CEdit
{
public:
    /// Starts with a FloatFormat.
    CFloatEdit();
    ~CFloatEdit() override;
    CFloatEdit(CFloatEdit const&) = delete;
    CFloatEdit& operator=(CFloatEdit const&) = delete;

    /// True when `c` may enter the control as it is now: backspace and line ends always, a character of the format, and
    /// the point only while the control's text has none.
    bool IsCharAllowed(char c);
    /// True when every character of the clipboard's text may enter the control as it is now, and when the clipboard
    /// can't be reached at all; false when it holds no text.
    bool IsClipboardOK();

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    afx_msg void OnChar(UINT nChar, UINT nRepCnt, UINT nFlags);

protected:
    DECLARE_MESSAGE_MAP()

private:
    std::unique_ptr<BaseFormat> m_pFormat;
};
