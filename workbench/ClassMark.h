// ClassMark.h - the pixels of a picture whose values fall into one slot of its histogram
#pragma once

#include "tavkit/frame/WinTypes.h"
#include "tavkit/frame/services/DHstg.h"
#include "workbench/PictureInfo.h"

#include <memory>
#include <string>
#include <vector>

namespace workbench
{
/// One slot of the histogram of one channel.
struct ClassMark
{
    int channel = 0;
    std::shared_ptr<const DHstg> hstg; ///< never null
    int slot = 0;

    bool operator==(const ClassMark&) const = default;
};

/// "0 to 16": the limits of the slot.
[[nodiscard]] std::string MarkText(const ClassMark& mark);

/// The pixels that belong to the slot, as rectangles of one row each.
[[nodiscard]] std::vector<RECT> PixelsOf(const ClassMark& mark, const ChannelValues& values);
} // namespace workbench
