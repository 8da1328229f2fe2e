// DialogTmpl.h - the message box as a dialog template in memory; private to the library
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "tavkit/drawing/MsgBoxLayout.h"
#include "tavkit/frame/Export.h"

/// Builds the template of a message box and runs it.
class TAVKIT_API CDialogTmpl
{
public:
    static constexpr size_t kMostControls = 20;
    static constexpr size_t kLongestText = 1023; ///< bytes of a control's text and of the caption

    /// Lays the box out around the text. Null texts count as empty.
    CDialogTmpl(const char* pszText, const char* pszCheckText, unsigned int nStyle);
    ~CDialogTmpl();
    CDialogTmpl(const CDialogTmpl&) = delete;
    CDialogTmpl& operator=(const CDialogTmpl&) = delete;

    /// Shows the box and waits.
    /// @return id of the button, with the check box's bit; 2 when there was no memory for the template; 0 when the
    ///         owner is no window, or the box was destroyed
    int DoModal(const char* pszCaption);

private:
    /// One control, in dialog units.
    struct Record
    {
        DWORD style;
        DWORD exStyle;
        short x;
        short y;
        short cx;
        short cy;
        WORD id;
        WORD classWord;
        std::string text;
    };

    void AddControl(WORD classWord, bool isDefault, WORD id, const RECT& pixels, const char* text);
    std::vector<WORD> Template(const char* pszCaption) const;
    int RunTemplate(const char* pszCaption) const;

    DWORD m_style;
    short m_cx = 0; ///< dialog units
    short m_cy = 0;
    std::vector<std::unique_ptr<Record>> m_controls;
};

namespace tavkit
{

/// The calls of the system that a message box makes and a test has to watch or to fail.
struct MsgBoxSystemCalls
{
    HLOCAL(WINAPI* localAlloc)(UINT, SIZE_T);
    BOOL(WINAPI* winHelp)(HWND, LPCSTR, UINT, ULONG_PTR);
};

/// Puts other calls in place.
/// @return those that stood there
TAVKIT_API MsgBoxSystemCalls ReplaceMsgBoxSystemCalls(const MsgBoxSystemCalls& calls);

/// What one message box knows between its start and its end; there is one at a time.
struct MsgBoxState
{
    unsigned int helpContext = 0;
    bool cancellable = false;
    bool checkAsked = false;
    int focusId = IDOK;
    HFONT font = nullptr;
    HWND parent = nullptr;
    HICON icon = nullptr;
};

MsgBoxState& CurrentMsgBox();

} // namespace tavkit
