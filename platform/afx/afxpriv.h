// afxpriv.h - messages that the framework sends to its own windows
#pragma once

#include <afxdefs.h>

/// Asks every child of a frame to take its strip off the room that is left (lParam: AFX_SIZEPARENTPARAMS*).
constexpr UINT WM_SIZEPARENT = 0x0361;
/// Sets the text of a frame's message line (wParam: string id, or lParam: text).
constexpr UINT WM_SETMESSAGESTRING = 0x0362;
/// Asks bars to refresh their buttons at idle (wParam: disable buttons whose command has no handler).
constexpr UINT WM_IDLEUPDATECMDUI = 0x0363;
/// Asks a dialog in a modal loop for idle work (wParam: MSGF_DIALOGBOX, lParam: count); non-zero asks for more.
constexpr UINT WM_KICKIDLE = 0x036A;

/// What WM_SIZEPARENT carries from child to child.
struct AFX_SIZEPARENTPARAMS
{
    HDWP hDWP;      ///< positions are deferred into this; null only measures
    RECT rect;      ///< room that is left, in client coordinates of the parent
    SIZE sizeTotal; ///< room that was taken so far
    BOOL bStretch;  ///< bars stretch over the whole side
};
