#include "tavkit/drawing/XMessageBox.h"

#include <afxwin.h>

#include <string>

#include "tavkit/drawing/DialogTmpl.h"
#include "tavkit/drawing/MsgBoxLayout.h"

namespace
{

constexpr LONG kFontHeight = -12;
constexpr char kFontFace[] = "MS Sans Serif";
constexpr UINT kTitleString = 0xE000; ///< the application's title
constexpr char kNoTitle[] = "Error";
constexpr char kCheckText[] = "Don't ask me again";

HFONT CreateBoxFont()
{
    LOGFONTA font{};
    font.lfHeight = kFontHeight;
    font.lfWeight = FW_NORMAL;
    ::lstrcpynA(font.lfFaceName, kFontFace, LF_FACESIZE);
    return ::CreateFontIndirectA(&font);
}

std::string CaptionOf(const char* pszCaption)
{
    if (pszCaption != nullptr && *pszCaption != 0)
    {
        return std::string(pszCaption, ::strnlen(pszCaption, CDialogTmpl::kLongestText));
    }
    char title[CDialogTmpl::kLongestText + 1] = "";
    return ::LoadStringA(AfxGetResourceHandle(), kTitleString, title, sizeof title) > 0 ? title : kNoTitle;
}

HICON IconOf(unsigned int nStyle)
{
    switch (nStyle & tavkit::kMsgBoxIconMask)
    {
    case MB_ICONHAND:
        return ::LoadIconA(nullptr, reinterpret_cast<LPCSTR>(IDI_HAND));
    case MB_ICONQUESTION:
        return ::LoadIconA(nullptr, reinterpret_cast<LPCSTR>(IDI_QUESTION));
    case MB_ICONEXCLAMATION:
        return ::LoadIconA(nullptr, reinterpret_cast<LPCSTR>(IDI_EXCLAMATION));
    case MB_ICONASTERISK:
        return ::LoadIconA(nullptr, reinterpret_cast<LPCSTR>(IDI_ASTERISK));
    default:
        return nullptr;
    }
}

} // namespace

int XMessageBox(HWND hwnd, const char* pszText, const char* pszCaption, unsigned int nStyle, const char* pszCheckText,
                unsigned int nHelpID)
{
    tavkit::MsgBoxState& state = tavkit::CurrentMsgBox();
    state = {};
    state.helpContext = nHelpID;
    state.checkAsked = (nStyle & MB_DONOTASKAGAIN) != 0;
    state.font = CreateBoxFont();
    state.parent = hwnd != nullptr ? hwnd : ::GetDesktopWindow();
    const std::string caption = CaptionOf(pszCaption);
    if ((nStyle & MB_ICONHAND) != 0 && (nStyle & MB_SYSTEMMODAL) != 0)
    {
        // The system's own box has no use for the font, which stays: kept as it is.
        return ::MessageBoxA(state.parent, pszText, caption.c_str(), nStyle);
    }
    state.icon = IconOf(nStyle);
    int result = 0;
    {
        CDialogTmpl box(pszText, pszCheckText != nullptr ? pszCheckText : kCheckText, nStyle);
        result = box.DoModal(caption.c_str());
    }
    ::DeleteObject(state.font);
    state = {};
    return result;
}
