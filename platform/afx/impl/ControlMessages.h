// ControlMessages.h - how the classes of the controls talk to their windows
#pragma once

#include "afxwnd.h"

/// Sends a control its message. Pointers and handles may stand for either parameter.
template <class W = WPARAM, class L = LPARAM>
LRESULT Ask(const CWnd& control, UINT message, W wParam = W(), L lParam = L())
{
    return ::SendMessageA(control.m_hWnd, message, (WPARAM)wParam, (LPARAM)lParam);
}

/// As Ask, for messages that answer with a number of 32 bits.
template <class W = WPARAM, class L = LPARAM>
int AskInt(const CWnd& control, UINT message, W wParam = W(), L lParam = L())
{
    return static_cast<int>(Ask(control, message, wParam, lParam));
}

/// Makes the child window of a control.
/// @return false if the parent has no window or the creation was refused
inline BOOL CreateControl(CWnd& control, LPCTSTR className, LPCTSTR text, DWORD style, const RECT& rect, CWnd* parent,
                          UINT id)
{
    return parent->GetSafeHwnd() != nullptr && control.CWnd::Create(className, text, style, rect, parent, id);
}

constexpr int kFirstTextRoom = 256;    // characters tried first
constexpr int kMostTextRoom = 1 << 24; // beyond that a text is cut: something keeps filling every buffer

/// Reads a text whose length can't be asked beforehand, with more room each time until it fits.
/// @param read  (LPTSTR buffer, int size) -> LPCTSTR: the text, in the buffer or elsewhere; null if there is none
template <class TRead>
CString ReadText(TRead read)
{
    CString text;
    for (int room = kFirstTextRoom;; room *= 2)
    {
        const LPTSTR buffer = text.GetBuffer(room);
        buffer[0] = '\0';
        const LPCTSTR found = read(buffer, room);
        if (found == buffer)
        {
            buffer[room - 1] = '\0'; // a text that is cut need not come with its zero
            text.ReleaseBuffer();
            if (text.GetLength() < room - 1 || room >= kMostTextRoom)
            {
                return text;
            }
        }
        else
        {
            return CString(found == LPSTR_TEXTCALLBACK ? nullptr : found);
        }
    }
}
