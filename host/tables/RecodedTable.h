// RecodedTable.h - a table whose texts come in another code page than the system's
#pragma once

#include <memory>

#include "host/tables/ForwardTable.h"

namespace table
{

/// Hands a table on with its names and cells in the system's code page; a character that this lacks becomes "?".
class RecodedTable final : public IAttrData
{
public:
    explicit RecodedTable(std::unique_ptr<ForwardTable> table) noexcept : m_table(std::move(table)) {}

    int GetNumCol(int nReserved) override;
    bool ReadRow(int row, int nReserved) override;
    char const* GetColName(int col, int nReserved) override;
    ADIColType GetColType(int col, int nReserved) override;
    char const* GetCellText(int row, int col, int nReserved) override;

private:
    [[nodiscard]] char const* Recode(char const* text);

    std::unique_ptr<ForwardTable> m_table;
    std::wstring m_wide; ///< kept for their room
    std::string m_text;
};

} // namespace table
