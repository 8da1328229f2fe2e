#include "workbench/ClassMark.h"

#include <cstdint>
#include <cstdio>
#include <cstring>

namespace workbench
{
namespace
{
template <class T>
std::vector<RECT> Runs(const ClassMark& mark, const ChannelValues& values)
{
    std::vector<RECT> runs;
    for (LONG y = 0; y < values.size.cy; ++y)
    {
        bool inside = false;
        for (LONG x = 0; x < values.size.cx; ++x)
        {
            T value{};
            const size_t pixel = static_cast<size_t>(y) * static_cast<size_t>(values.size.cx) + static_cast<size_t>(x);
            std::memcpy(&value, values.bytes.data() + pixel * sizeof(T), sizeof(T));
            const bool belongs = mark.hstg->GetSlotIndx(static_cast<double>(value)) == mark.slot;
            if (belongs && !inside)
            {
                runs.push_back({x, y, x, y + 1});
            }
            if (belongs)
            {
                runs.back().right = x + 1;
            }
            inside = belongs;
        }
    }
    return runs;
}
} // namespace

std::string MarkText(const ClassMark& mark)
{
    char text[80];
    std::snprintf(text, sizeof text, "%g to %g", mark.hstg->GetSlotClss(mark.slot),
                  mark.hstg->GetSlotClss(mark.slot + 1));
    return text;
}

std::vector<RECT> PixelsOf(const ClassMark& mark, const ChannelValues& values)
{
    switch (values.type)
    {
    case DMITypes::rdiUInt8:
        return Runs<std::uint8_t>(mark, values);
    case DMITypes::rdiUInt16:
        return Runs<std::uint16_t>(mark, values);
    case DMITypes::rdiInt16:
        return Runs<std::int16_t>(mark, values);
    case DMITypes::rdiUInt32:
        return Runs<std::uint32_t>(mark, values);
    case DMITypes::rdiInt32:
        return Runs<std::int32_t>(mark, values);
    case DMITypes::rdiFloat32:
        return Runs<float>(mark, values);
    }
    return {};
}
} // namespace workbench
