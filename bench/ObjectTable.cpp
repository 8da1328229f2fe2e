// ObjectTable.cpp
#include "bench/ObjectTable.h"

#include <cstdio>
#include <cstring>

namespace bench
{

ObjectTable::ObjectTable(int rows) : text("Nr,X,Y,Area,Mean,Peak,Eccentricity,Class,Remark,Measured")
{
    constexpr std::size_t kRowBytes = 80; // about
    constexpr double kSide = 4096;
    text.reserve(static_cast<std::size_t>(rows + 1) * kRowBytes);
    cells.reserve(static_cast<std::size_t>(rows) * kTableColumns);
    m_cellEnd = text.size();
    std::uint64_t random = 1;
    const auto fraction = [&random] {
        random = random * 6364136223846793005u + 1442695040888963407u;
        return static_cast<double>(random >> 33) / static_cast<double>(std::uint64_t{1} << 31);
    };
    constexpr const char* kClasses[] = {"Galaxy", "Star or round galaxy", "undefined", "Artefact"};
    for (int row = 0; row < rows; ++row)
    {
        text += "\r\n";
        Add("%.0f", row + 1);
        Add(",%.1f", fraction() * kSide);
        Add(",%.1f", fraction() * kSide);
        Add(",%.0f", fraction() * fraction() * 5000);
        Add(",%.4f", fraction());
        Add(",%.4f", fraction());
        Add(",%.4f", fraction());
        text += ',';
        Add(kClasses[row % 4]);
        text += row % 8 == 0 ? ",\"" : ",";
        Add(row % 8 == 0 ? "large, bright" : "");
        text += row % 8 == 0 ? "\"," : ",";
        Add("2024-02-29");
    }
    text += "\r\n";
}

void ObjectTable::Add(const char* format, double value)
{
    if (*format == ',')
    {
        text += ',';
        ++format;
    }
    char digits[32];
    std::snprintf(digits, sizeof digits, format, value);
    Add(std::string(digits));
}

void ObjectTable::Add(const std::string& cell)
{
    cells.push_back({static_cast<std::uint8_t>(text.size() - m_cellEnd), static_cast<std::uint8_t>(cell.size())});
    text += cell;
    m_cellEnd = text.size();
}

} // namespace bench
