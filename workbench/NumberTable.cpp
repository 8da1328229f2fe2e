#include "workbench/NumberTable.h"

#include "tavkit/lists/ScanDouble.h"
#include "workbench/ObjectPlace.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace workbench
{
namespace
{
constexpr char kNumberName[] = "Nr"; // the column that only counts
} // namespace

std::vector<NumberColumn> ReadNumbers(IAttrData& table, int mostRows)
{
    std::vector<NumberColumn> columns;
    for (int col = 0; col < table.GetNumCol(0); ++col)
    {
        columns.push_back({table.GetColName(col, 0), {}});
    }
    for (int row = 0; row < mostRows && table.ReadRow(row, 0); ++row)
    {
        for (int col = 0; col < static_cast<int>(columns.size()); ++col)
        {
            const auto number = tavkit::ScanDouble(table.GetCellText(row, col, 0));
            columns[static_cast<size_t>(col)].values.push_back(
                number.value_or(std::numeric_limits<double>::quiet_NaN()));
        }
    }
    std::erase_if(columns, [](const NumberColumn& column) {
        const auto numbers = std::count_if(column.values.begin(), column.values.end(),
                                           [](double value) { return std::isfinite(value); });
        return numbers == 0 || 2 * numbers < static_cast<std::ptrdiff_t>(column.values.size());
    });
    return columns;
}

ColumnPair FirstPair(const std::vector<NumberColumn>& columns)
{
    std::vector<std::string> names;
    for (const NumberColumn& column : columns)
    {
        names.push_back(column.name);
    }
    const ObjectColumns place = FindObjectColumns(names);
    std::vector<int> order; // measures first
    std::vector<int> others;
    for (int i = 0; i < static_cast<int>(columns.size()); ++i)
    {
        const bool isOther = i == place.x || i == place.y || names[static_cast<size_t>(i)] == kNumberName;
        (isOther ? others : order).push_back(i);
    }
    order.insert(order.end(), others.begin(), others.end());
    ColumnPair pair;
    if (!order.empty())
    {
        pair.x = order.front();
        pair.y = order.size() > 1 ? order[1] : order.front();
    }
    return pair;
}
} // namespace workbench
