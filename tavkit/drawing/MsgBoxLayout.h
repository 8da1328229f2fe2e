// MsgBoxLayout.h - what stands on a message box and where: sets of buttons, default button, rectangles in pixels
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/WinTypes.h"

#include <array>
#include <vector>

namespace tavkit
{

// Bits of the style word.
inline constexpr unsigned kMsgBoxSetMask = 0x0F;
inline constexpr unsigned kMsgBoxIconMask = 0xF0;
inline constexpr unsigned kMsgBoxDefaultMask = 0xF00;
inline constexpr unsigned kMsgBoxHelp = 0x4000;
inline constexpr unsigned kMsgBoxCheck = 0x1000000;

// Ids of the controls that aren't buttons of a set.
inline constexpr int kMsgBoxIconId = 1000;
inline constexpr int kMsgBoxTextId = 1001;
inline constexpr int kMsgBoxHelpId = 300;
inline constexpr int kMsgBoxCheckId = 5555;

/// Set of buttons for conflicts between files; the only one whose buttons differ in width.
inline constexpr unsigned kMsgBoxFileSet = 6;

enum class MsgBoxControlKind
{
    icon,
    text,
    button,
    check
};

/// One control of a message box.
struct MsgBoxControl
{
    MsgBoxControlKind kind;
    int id;
    const char* label; ///< null where the caller gives the text
    RECT rect;         ///< pixels, client coordinates
    bool isDefault = false;
};

struct MsgBoxLayout
{
    SIZE size{};                         ///< of the client area, pixels
    std::vector<MsgBoxControl> controls; ///< in tab order
    int focusId = 1;                     ///< id of the default button
    bool cancellable = false;            ///< Esc and the close box work
};

/// What the layout depends on.
struct MsgBoxInput
{
    unsigned style = 0;
    SIZE text{}; ///< extent of the text as measured, pixels
    SIZE icon{}; ///< size of an icon, pixels; counts only when the style asks for one
};

/// Whether the style asks for one of the four icons.
[[nodiscard]] TAVKIT_API bool MsgBoxHasIcon(unsigned style) noexcept;

[[nodiscard]] TAVKIT_API MsgBoxLayout LayOutMsgBox(const MsgBoxInput& input);

/// A rectangle in dialog units, truncated.
struct DialogRect
{
    short x;
    short y;
    short cx;
    short cy;
};

/// @param base  the system's dialog base units: width and height of an average character, pixels
[[nodiscard]] TAVKIT_API DialogRect ToDialogUnits(const RECT& pixels, SIZE base) noexcept;

} // namespace tavkit
