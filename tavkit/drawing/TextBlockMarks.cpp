#include "tavkit/drawing/TextBlockMarks.h"

#include <algorithm>

namespace tavkit
{
namespace
{

constexpr int kSmallestSign = 13;       // height, in the units of the block's font
constexpr int kSmallestFullWeight = 15; // a lower sign is thin, or it would run together
constexpr int kThin = 100;

} // namespace

std::vector<TextMark> FindTextMarks(char const* text)
{
    std::vector<TextMark> marks;
    if (text == nullptr)
    {
        return marks;
    }
    std::string_view const all = text;
    int line = 0;
    std::size_t lineStart = 0;
    std::size_t counted = 0; // line feeds are counted up to here
    for (std::size_t at = all.find(kMarkerWord); at != std::string_view::npos;
         at = all.find(kMarkerWord, at + kMarkerWord.size()))
    {
        for (; counted < at; ++counted)
        {
            if (all[counted] == '\n')
            {
                ++line;
                lineStart = counted + 1;
            }
        }
        marks.push_back({line, lineStart, at + kMarkerWord.size()});
    }
    return marks;
}

SignFont SignFontOf(int blockHeight, int blockWeight) noexcept
{
    int const height = std::max(blockHeight / 2, kSmallestSign);
    return {height, height < kSmallestFullWeight ? kThin : blockWeight};
}

} // namespace tavkit
