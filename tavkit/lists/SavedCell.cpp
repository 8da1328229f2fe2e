// SavedCell.cpp
#include "tavkit/lists/SavedCell.h"
#include "tavkit/frame/NoCase.h"
#include "tavkit/lists/ScanDouble.h"

namespace tavkit
{
namespace
{

[[nodiscard]] bool StandsForNoValue(char const* text) noexcept
{
    return CompareNoCase(text, "---") == 0 || CompareNoCase(text, "undefined") == 0;
}

} // namespace

SavedCell CellToSave(char const* text, ADIColType type) noexcept
{
    if (text == nullptr)
    {
        text = "";
    }
    if (!StandsForNoValue(text))
    {
        switch (type)
        {
        case adiInt:
            return ToInt(text);
        case adiDouble:
            return ToDouble(text);
        default:
            break;
        }
    }
    return text;
}

} // namespace tavkit
