#include "tavkit/drawing/MsgBoxLayout.h"

#include <algorithm>
#include <limits>
#include <span>

namespace tavkit
{

namespace
{

// Everything in pixels.
constexpr int kTextPadX = 12; ///< added to the measured text
constexpr int kTextPadY = 5;
constexpr int kTextLeft = 16;
constexpr int kTextTop = 16;
constexpr int kIconLeft = 8;
constexpr int kIconTop = 8;
constexpr int kIconRoom = 10; ///< right and bottom of the icon's control lie here plus the icon's size
constexpr int kIconGap = 8;
constexpr int kRowGap = 8; ///< above the row of buttons
constexpr int kRowHeight = 23;
constexpr int kRowBelow = 10;
constexpr int kRowSides = 32; ///< the box is at least this much wider than the row
constexpr int kButtonWidth = 70;
constexpr int kWideButton = 100;
constexpr int kButtonPitch = 76;
constexpr int kWidePitch = 106;
constexpr int kPitchGap = 6;
constexpr int kFileSetExtra = 54;       ///< what the row of the file set is longer than its pitches
constexpr RECT kCheck{17, 35, 137, 51}; ///< vertically from the top of the row
constexpr int kCheckBelow = 59;
constexpr int kLastBelow = 16;

struct Button
{
    const char* label;
    int id;
};

constexpr Button kOk[] = {{"OK", 1}};
constexpr Button kOkCancel[] = {{"OK", 1}, {"Cancel", 2}};
constexpr Button kAbortRetryIgnore[] = {{"&Abort", 3}, {"&Retry", 4}, {"&Ignore", 5}};
constexpr Button kYesNoCancel[] = {{"&Yes", 6}, {"&No", 7}, {"Cancel", 2}};
constexpr Button kYesNo[] = {{"&Yes", 6}, {"&No", 7}};
constexpr Button kRetryCancel[] = {{"&Retry", 4}, {"Cancel", 2}};
constexpr Button kFiles[] = {{"Keep existing", 2}, {"Override existing", 3}, {"Keep both", 1}, {"Keep recent", 4}};
constexpr Button kContinueAbort[] = {{"&Continue", 10}, {"&Abort", 3}};
constexpr Button kHelp{"&Help", kMsgBoxHelpId};

struct ButtonSet
{
    std::span<const Button> buttons;
    int counted; ///< what the row's width and the default button count
    bool cancellable;
};

ButtonSet SetOf(unsigned style)
{
    switch (style & kMsgBoxSetMask)
    {
    case 0:
        return {kOk, 1, false};
    case 1:
        return {kOkCancel, 2, true};
    case 2:
        return {kAbortRetryIgnore, 3, false};
    case 3:
        return {kYesNoCancel, 3, true};
    case 4:
        return {kYesNo, 2, false};
    case 5:
        return {kRetryCancel, 2, true};
    case kMsgBoxFileSet:
        return {kFiles, 4, true};
    case 8:
        return {kContinueAbort, 2, false};
    default:
        // The single button of an unknown set stands outside the count.
        return {kOk, 0, false};
    }
}

int DefaultIndex(unsigned style, int counted)
{
    constexpr unsigned kShift = 8;
    const unsigned field = (style & kMsgBoxDefaultMask) >> kShift;
    const int index = field >= 1 && field <= 3 ? static_cast<int>(field) + 1 : 1;
    return index > counted ? 1 : index;
}

/// Left side of a button of the set, from the row's left side.
int ButtonOffset(bool files, int index)
{
    // Two wide buttons, then plain ones; help stands one pitch behind the last in any case.
    return files ? std::min(index, 2) * kWidePitch + std::max(index - 2, 0) * kButtonPitch : index * kButtonPitch;
}

short Short(long long value)
{
    return static_cast<short>(
        std::clamp<long long>(value, std::numeric_limits<short>::min(), std::numeric_limits<short>::max()));
}

} // namespace

bool MsgBoxHasIcon(unsigned style) noexcept
{
    constexpr unsigned kStep = 0x10;
    constexpr unsigned kLast = 0x40;
    const unsigned icon = style & kMsgBoxIconMask;
    return icon >= kStep && icon <= kLast;
}

MsgBoxLayout LayOutMsgBox(const MsgBoxInput& input)
{
    const ButtonSet set = SetOf(input.style);
    const bool files = (input.style & kMsgBoxSetMask) == kMsgBoxFileSet;
    const bool help = (input.style & kMsgBoxHelp) != 0;
    const int counted = set.counted + (help ? 1 : 0);

    MsgBoxLayout layout;
    layout.cancellable = set.cancellable;
    RECT text{kTextLeft, kTextTop, kTextLeft + input.text.cx + kTextPadX, kTextTop + input.text.cy + kTextPadY};
    int right = text.right;
    LONG iconBottom = 0;
    if (MsgBoxHasIcon(input.style))
    {
        text.left += input.icon.cx + kIconGap;
        text.right += input.icon.cx + kIconGap;
        right = text.right + kIconGap;
        iconBottom = input.icon.cy + kIconRoom;
        layout.controls.push_back(
            {MsgBoxControlKind::icon, kMsgBoxIconId, "", {kIconLeft, kIconTop, input.icon.cx + kIconRoom, iconBottom}});
    }
    layout.controls.push_back({MsgBoxControlKind::text, kMsgBoxTextId, nullptr, text});

    const int top = std::max(text.bottom, iconBottom) + kRowGap;
    const int width = kButtonPitch * counted + (files ? kFileSetExtra : -kPitchGap);
    int bottom = top + kRowHeight + kRowBelow;
    right = std::max(right, width + kRowSides);
    const int left = (right - width) / 2;

    const int defaultIndex = DefaultIndex(input.style, counted);
    int number = 0;
    const auto addButton = [&](const Button& button, int offset, int buttonWidth) {
        const bool isDefault = ++number == defaultIndex;
        if (isDefault)
        {
            layout.focusId = button.id;
        }
        layout.controls.push_back({MsgBoxControlKind::button,
                                   button.id,
                                   button.label,
                                   {left + offset, top, left + offset + buttonWidth, top + kRowHeight},
                                   isDefault});
    };
    const int count = static_cast<int>(set.buttons.size());
    for (int i = 0; i < count; ++i)
    {
        addButton(set.buttons[i], ButtonOffset(files, i), files && i < 2 ? kWideButton : kButtonWidth);
    }
    if (help)
    {
        addButton(kHelp, ButtonOffset(files, count - 1) + kButtonPitch, kButtonWidth);
    }
    if ((input.style & kMsgBoxCheck) != 0)
    {
        layout.controls.push_back({MsgBoxControlKind::check,
                                   kMsgBoxCheckId,
                                   nullptr,
                                   {kCheck.left, top + kCheck.top, kCheck.right, top + kCheck.bottom}});
        bottom = top + kCheckBelow;
        right = std::max<int>(right, kCheck.right);
    }
    if (layout.controls.back().rect.bottom >= bottom)
    {
        bottom = layout.controls.back().rect.bottom + kLastBelow;
    }
    layout.size = {std::max(right, width + kLastBelow), bottom};
    return layout;
}

DialogRect ToDialogUnits(const RECT& pixels, SIZE base) noexcept
{
    constexpr int kUnitsX = 4;
    constexpr int kUnitsY = 8;
    const long long baseX = std::max<LONG>(base.cx, 1);
    const long long baseY = std::max<LONG>(base.cy, 1);
    return {Short(static_cast<long long>(pixels.left) * kUnitsX / baseX),
            Short(static_cast<long long>(pixels.top) * kUnitsY / baseY),
            Short((static_cast<long long>(pixels.right) - pixels.left) * kUnitsX / baseX),
            Short((static_cast<long long>(pixels.bottom) - pixels.top) * kUnitsY / baseY)};
}

} // namespace tavkit
