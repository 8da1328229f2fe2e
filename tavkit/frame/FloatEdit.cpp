#include "tavkit/frame/FloatEdit.h"

#include <afxole.h>
#include <algorithm>
#include <string_view>

namespace
{

constexpr char kPoint = '.';
constexpr std::string_view kFloatChars = "0123456789.";

constexpr char kBackspace = 8;
constexpr char kLineFeed = 10;
constexpr char kReturn = 13;

// What the Ctrl key makes of C, V, X and Z.
constexpr UINT kCtrlC = 3;
constexpr UINT kCtrlV = 22;
constexpr UINT kCtrlX = 24;
constexpr UINT kCtrlZ = 26;

constexpr UINT kSimpleBeep = 0xFFFFFFFF;

// The text in a handle from the clipboard; locked and owned to the end of the block.
class ClipboardText
{
public:
    explicit ClipboardText(HGLOBAL data)
        : m_data(data), m_text(static_cast<char const*>(::GlobalLock(data))), m_size(m_text ? ::GlobalSize(data) : 0)
    {
    }
    ~ClipboardText()
    {
        ::GlobalUnlock(m_data);
        ::GlobalFree(m_data);
    }
    ClipboardText(ClipboardText const&) = delete;
    ClipboardText& operator=(ClipboardText const&) = delete;

    // Up to the terminator, or to the end of the block when there is none.
    [[nodiscard]] std::string_view Text() const
    {
        std::string_view const block(m_text, m_size);
        return block.substr(0, block.find('\0'));
    }

private:
    HGLOBAL m_data;
    char const* m_text;
    std::size_t m_size;
};

} // namespace

BaseFormat::BaseFormat() = default;
BaseFormat::~BaseFormat() = default;

bool BaseFormat::IsValidChar(char c) { return std::find(m_vecValid.begin(), m_vecValid.end(), c) != m_vecValid.end(); }

void BaseFormat::SetValidChars(char const* chars, int count)
{
    m_vecValid.Clear();
    if (chars != nullptr && count > 0)
    {
        m_vecValid.SetSize(count);
        std::copy_n(chars, count, m_vecValid.begin());
    }
}

FloatFormat::FloatFormat() { SetValidChars(kFloatChars.data(), static_cast<int>(kFloatChars.size())); }

BEGIN_MESSAGE_MAP(CFloatEdit, CEdit)
    ON_WM_CHAR() // a key was typed
END_MESSAGE_MAP()

CFloatEdit::CFloatEdit() : m_pFormat(std::make_unique<FloatFormat>()) {}
CFloatEdit::~CFloatEdit() = default;

bool CFloatEdit::IsCharAllowed(char c)
{
    if (c == kBackspace || c == kLineFeed || c == kReturn)
    {
        return true;
    }
    if (!m_pFormat->IsValidChar(c))
    {
        return false;
    }
    if (c != kPoint)
    {
        return true;
    }
    // The selection isn't looked at: a selected point that the new one would replace still blocks it, on purpose.
    CString text;
    if (m_hWnd != nullptr)
    {
        GetWindowText(text);
    }
    return text.Find(kPoint) < 0;
}

void CFloatEdit::OnChar(UINT nChar, UINT nRepCnt, UINT nFlags)
{
    if (::GetKeyState(VK_CONTROL) < 0)
    {
        switch (nChar)
        {
        case kCtrlC:
            SendMessage(WM_COPY);
            return;
        case kCtrlV:
            SendMessage(WM_PASTE);
            return;
        case kCtrlX:
            SendMessage(WM_CUT);
            return;
        case kCtrlZ:
            SendMessage(EM_UNDO);
            return;
        default:
            break;
        }
    }
    if (IsCharAllowed(static_cast<char>(nChar)))
    {
        CEdit::OnChar(nChar, nRepCnt, nFlags);
    }
    else
    {
        ::MessageBeep(kSimpleBeep);
    }
}

LRESULT CFloatEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_PASTE && !IsClipboardOK())
    {
        return 0;
    }
    return CEdit::WindowProc(message, wParam, lParam);
}

bool CFloatEdit::IsClipboardOK()
{
    COleDataObject clipboard;
    if (!clipboard.AttachClipboard())
    {
        return true; // the paste is left to fail by itself
    }
    HGLOBAL const data = clipboard.IsDataAvailable(CF_TEXT) ? clipboard.GetGlobalData(CF_TEXT) : nullptr;
    if (data == nullptr)
    {
        return false;
    }
    ClipboardText const clip(data);
    // The control's text stays the same meanwhile, so two points pass into a control that has none; kept as it is.
    return std::ranges::all_of(clip.Text(), [this](char c) { return IsCharAllowed(c); });
}
