#include "tavkit/drawing/DialogTmpl.h"

#include <afxwin.h>

#include <cstring>

#include "tavkit/frame/ModuleHandle.h"

namespace
{

using tavkit::CurrentMsgBox;

constexpr DWORD kDialogStyle = WS_POPUP | WS_VISIBLE | WS_CAPTION | WS_SYSMENU | DS_CENTER | DS_MODALFRAME;

// Words that stand for the classes of controls in a template.
constexpr WORD kButtonClass = 128;
constexpr WORD kStaticClass = 130;
constexpr WORD kCheckClass = 131; ///< our own mark; stored as a button

constexpr DWORD kButtonStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
constexpr DWORD kStaticStyle = WS_CHILD | WS_VISIBLE;
constexpr DWORD kCheckStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_AUTOCHECKBOX;

constexpr WORD kOrdinal = 0xFFFF; ///< says that a class word follows
constexpr int kLastButtonId = 10; ///< push buttons have the ids from 1 to this
constexpr int kNoAnswer = 8;      ///< the system's "Close"; ignored
constexpr int kNoButton = 0;      ///< result of a box that nobody has answered

tavkit::MsgBoxSystemCalls systemCalls{::LocalAlloc, ::WinHelpA};

/// The first so many bytes of a text; null counts as empty.
std::string Cut(const char* text)
{
    return text == nullptr ? std::string() : std::string(text, ::strnlen(text, CDialogTmpl::kLongestText));
}

/// Extent of the text in the box's font, at most as wide as half of the screen and a bit.
SIZE MeasureText(const std::string& text)
{
    constexpr int kBeyondHalf = 50;
    constexpr UINT kFormat = DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX;
    const int side = ::GetSystemMetrics(SM_CXSCREEN) / 2 + kBeyondHalf;
    RECT rect{0, 0, side, side};
    HDC dc = ::CreateDCA("DISPLAY", nullptr, nullptr, nullptr);
    HGDIOBJ old = ::SelectObject(dc, CurrentMsgBox().font);
    ::DrawTextA(dc, text.c_str(), -1, &rect, kFormat);
    ::SelectObject(dc, old);
    ::DeleteDC(dc);
    return {rect.right - rect.left, rect.bottom - rect.top};
}

SIZE DialogBase()
{
    const LONG units = ::GetDialogBaseUnits();
    return {LOWORD(units), HIWORD(units)};
}

// --- writing the template

void AppendDword(std::vector<WORD>& words, DWORD value)
{
    words.push_back(LOWORD(value));
    words.push_back(HIWORD(value));
}

/// UTF-16 with its terminator.
void AppendText(std::vector<WORD>& words, const std::string& text)
{
    const int count = ::MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, nullptr, 0);
    std::vector<WCHAR> wide(static_cast<size_t>(count));
    ::MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, wide.data(), count);
    words.insert(words.end(), wide.begin(), wide.end());
}

/// A template in memory of the kind that can move; frees it.
class TemplateMemory
{
public:
    /// Throws the framework's memory exception when there is none.
    explicit TemplateMemory(const std::vector<WORD>& words)
        : m_handle(systemCalls.localAlloc(LHND, words.size() * sizeof(WORD)))
    {
        m_data = m_handle != nullptr ? ::LocalLock(m_handle) : nullptr;
        if (m_data == nullptr)
        {
            ::LocalFree(m_handle);
            AfxThrowMemoryException();
        }
        std::memcpy(m_data, words.data(), words.size() * sizeof(WORD));
    }
    ~TemplateMemory()
    {
        ::LocalUnlock(m_handle);
        ::LocalFree(m_handle);
    }
    TemplateMemory(const TemplateMemory&) = delete;
    TemplateMemory& operator=(const TemplateMemory&) = delete;

    LPCDLGTEMPLATEA Get() const { return static_cast<LPCDLGTEMPLATEA>(m_data); }

private:
    HLOCAL m_handle;
    void* m_data = nullptr;
};

// --- the running box

WNDPROC iconProc = nullptr; ///< of the system's static control

/// The icon's control draws the icon and does nothing else of its own.
LRESULT CALLBACK IconWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_PAINT)
    {
        return ::CallWindowProcA(iconProc, window, message, wParam, lParam);
    }
    PAINTSTRUCT paint;
    HDC dc = ::BeginPaint(window, &paint);
    ::DrawIcon(dc, 0, 0, CurrentMsgBox().icon);
    ::EndPaint(window, &paint);
    return 0;
}

void OnInitDialog(HWND dialog)
{
    const tavkit::MsgBoxState& state = CurrentMsgBox();
    const auto setFont = [&](int id) {
        if (HWND control = ::GetDlgItem(dialog, id))
        {
            ::SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(state.font), TRUE);
        }
    };
    setFont(tavkit::kMsgBoxTextId);
    for (int id = 1; id <= kLastButtonId; ++id)
    {
        setFont(id);
    }
    setFont(tavkit::kMsgBoxHelpId);
    setFont(tavkit::kMsgBoxCheckId);
    ::CheckDlgButton(dialog, tavkit::kMsgBoxCheckId, BST_UNCHECKED);
    ::SetFocus(::GetDlgItem(dialog, state.focusId));
    if (!state.cancellable)
    {
        ::EnableMenuItem(::GetSystemMenu(dialog, FALSE), SC_CLOSE, MF_BYCOMMAND | MF_GRAYED);
    }
    if (HWND icon = ::GetDlgItem(dialog, tavkit::kMsgBoxIconId); icon != nullptr && state.icon != nullptr)
    {
        iconProc = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrA(icon, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(IconWindowProc)));
    }
}

/// The help file lies beside the library, with its name.
std::string HelpFile()
{
    char path[MAX_PATH] = "";
    ::GetModuleFileNameA(tavkit::ModuleInstance(), path, MAX_PATH);
    std::string file(path);
    if (const size_t dot = file.rfind('.'); dot != std::string::npos)
    {
        file.erase(dot);
    }
    return file + ".hlp";
}

void ShowHelp(HWND dialog)
{
    const unsigned int context = CurrentMsgBox().helpContext;
    systemCalls.winHelp(dialog, HelpFile().c_str(), context > 0 ? HELP_CONTEXT : HELP_PARTIALKEY, context);
}

void End(HWND dialog, int id)
{
    int result = id;
    if (CurrentMsgBox().checkAsked && ::SendDlgItemMessageA(dialog, tavkit::kMsgBoxCheckId, BM_GETCHECK, 0, 0) > 0)
    {
        result |= static_cast<int>(tavkit::kMsgBoxCheck);
    }
    ::EndDialog(dialog, result);
}

void OnCommand(HWND dialog, int id)
{
    switch (id)
    {
    case kNoAnswer:
    case tavkit::kMsgBoxCheckId: // only changes its own state
        break;
    case IDCANCEL:
        if (CurrentMsgBox().cancellable)
        {
            End(dialog, id);
        }
        break;
    case tavkit::kMsgBoxHelpId:
        ShowHelp(dialog);
        break;
    default:
        End(dialog, id);
        break;
    }
}

INT_PTR CALLBACK DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM)
{
    switch (message)
    {
    case WM_INITDIALOG:
        OnInitDialog(dialog);
        return FALSE; // the focus stands where it belongs
    case WM_COMMAND:
        OnCommand(dialog, LOWORD(wParam));
        return TRUE;
    default:
        return FALSE;
    }
}

} // namespace

namespace tavkit
{

MsgBoxSystemCalls ReplaceMsgBoxSystemCalls(const MsgBoxSystemCalls& calls) { return std::exchange(systemCalls, calls); }

MsgBoxState& CurrentMsgBox()
{
    static MsgBoxState state;
    return state;
}

} // namespace tavkit

CDialogTmpl::CDialogTmpl(const char* pszText, const char* pszCheckText, unsigned int nStyle)
    : m_style(kDialogStyle | ((nStyle & MB_SYSTEMMODAL) != 0 ? DS_SYSMODAL : 0))
{
    const std::string text = Cut(pszText);
    tavkit::MsgBoxInput input;
    input.style = nStyle;
    input.text = MeasureText(text);
    input.icon = {::GetSystemMetrics(SM_CXICON), ::GetSystemMetrics(SM_CYICON)};
    const tavkit::MsgBoxLayout layout = tavkit::LayOutMsgBox(input);

    const tavkit::DialogRect units = tavkit::ToDialogUnits({0, 0, layout.size.cx, layout.size.cy}, DialogBase());
    m_cx = units.cx;
    m_cy = units.cy;
    for (const tavkit::MsgBoxControl& control : layout.controls)
    {
        const auto id = static_cast<WORD>(control.id);
        switch (control.kind)
        {
        case tavkit::MsgBoxControlKind::icon:
            AddControl(kStaticClass, false, id, control.rect, "");
            break;
        case tavkit::MsgBoxControlKind::text:
            AddControl(kStaticClass, false, id, control.rect, text.c_str());
            break;
        case tavkit::MsgBoxControlKind::button:
            AddControl(kButtonClass, control.isDefault, id, control.rect, control.label);
            break;
        case tavkit::MsgBoxControlKind::check:
            AddControl(kCheckClass, false, id, control.rect, pszCheckText);
            break;
        }
    }
    tavkit::MsgBoxState& state = CurrentMsgBox();
    state.cancellable = layout.cancellable;
    state.focusId = layout.focusId;
}

CDialogTmpl::~CDialogTmpl() = default;

void CDialogTmpl::AddControl(WORD classWord, bool isDefault, WORD id, const RECT& pixels, const char* text)
{
    if (m_controls.size() >= kMostControls)
    {
        return;
    }
    const tavkit::DialogRect units = tavkit::ToDialogUnits(pixels, DialogBase());
    auto record =
        std::make_unique<Record>(Record{0, 0, units.x, units.y, units.cx, units.cy, id, classWord, Cut(text)});
    switch (classWord)
    {
    case kButtonClass:
        record->style = kButtonStyle | (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
        break;
    case kCheckClass:
        record->style = kCheckStyle;
        record->classWord = kButtonClass;
        break;
    default:
        record->style = kStaticStyle;
        break;
    }
    m_controls.push_back(std::move(record));
}

std::vector<WORD> CDialogTmpl::Template(const char* pszCaption) const
{
    std::vector<WORD> words;
    AppendDword(words, m_style);
    AppendDword(words, 0);
    words.push_back(static_cast<WORD>(m_controls.size()));
    words.push_back(0); // left and top: the dialog is centred
    words.push_back(0);
    words.push_back(static_cast<WORD>(m_cx));
    words.push_back(static_cast<WORD>(m_cy));
    words.push_back(0); // no menu
    words.push_back(0); // the class of dialogs
    AppendText(words, Cut(pszCaption));
    for (const auto& control : m_controls)
    {
        if (words.size() % 2 != 0)
        {
            words.push_back(0); // controls begin on a boundary of four bytes
        }
        AppendDword(words, control->style);
        AppendDword(words, control->exStyle);
        for (const short place : {control->x, control->y, control->cx, control->cy})
        {
            words.push_back(static_cast<WORD>(place));
        }
        words.push_back(control->id);
        words.push_back(kOrdinal);
        words.push_back(control->classWord);
        AppendText(words, control->text);
        words.push_back(0); // no creation data
    }
    return words;
}

int CDialogTmpl::RunTemplate(const char* pszCaption) const
{
    const TemplateMemory memory(Template(pszCaption));
    HWND const owner = CurrentMsgBox().parent;
    const bool ownerTakesInput = ::IsWindowEnabled(owner) != FALSE;
    const INT_PTR result = ::DialogBoxIndirectParamA(AfxGetInstanceHandle(), memory.Get(), owner, DialogProc, 0);
    if (ownerTakesInput && !::IsWindowEnabled(owner))
    {
        ::EnableWindow(owner, TRUE); // a box that was destroyed instead of answered leaves it disabled
    }
    return result > 0 ? static_cast<int>(result) : kNoButton;
}

int CDialogTmpl::DoModal(const char* pszCaption)
{
    try
    {
        return RunTemplate(pszCaption);
    }
    catch (CMemoryException* e)
    {
        e->Delete();
        ::MessageBoxA(nullptr, "Memory allocation for dialog template failed.", "Allocation Failure",
                      MB_ICONEXCLAMATION);
        return IDCANCEL;
    }
}
