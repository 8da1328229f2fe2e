// LayoutProc.h - what the helper program of the layout tests and the tests agree on
#pragma once

// Also read by the resource compiler: macros, not constants.
#define IDD_LAYOUT 4201       // a resizable dialog with two controls
#define IDD_LAYOUT_CHILD 4202 // a dialog to embed, with scroll bars
#define IDC_LAYOUT_TEXT 4211
#define IDC_LAYOUT_BUTTON 4212

#define LAYOUT_TITLE "Layout dialog"
#define LAYOUT_PROC_TITLE "Layout program" // the helper program's own title, its string 0xE000

/// What the helper program does; its first argument.
#define LAYOUT_MODE_OPEN "open"   // shows the dialog and leaves it to the other process; ends when it is closed
#define LAYOUT_MODE_STORE "store" // stores a position and stops after a number of writes, its second argument

/// Event that the helper program sets when it has stopped.
#define LAYOUT_STOPPED_EVENT "TavKit.Tests.LayoutProc.Stopped"
