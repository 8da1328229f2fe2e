// DbaseTable.h - a table in a dBase file
#pragma once

#include "host/tables/ByteWindow.h"
#include "host/tables/ForwardTable.h"

namespace table
{

/// Reads dBase III files and later ones of the same form. Deleted records are passed over. The file ends with the last
/// record that is there whole, whatever its header claims.
///
/// Cells read as: text without the blanks behind it; numbers as they stand, without blanks; dates as "2024-02-29";
/// truth values as "True" and "False", "" for an unknown one; memos by the number of their block in the memo file, ""
/// for none. A field of a kind that the format doesn't have is an empty text.
class DbaseTable final : public ForwardTable
{
public:
    /// True if the source begins like a dBase file.
    [[nodiscard]] static bool IsDbase(host::ByteSource& source);

    /// @return null if the header is cut off or contradicts itself.
    [[nodiscard]] static std::unique_ptr<DbaseTable> Open(std::unique_ptr<host::ByteSource> source,
                                                          WindowSizes sizes = kTableWindow);

protected:
    bool ReadNextRow() override;

private:
    struct Header;
    struct Field
    {
        char kind;         ///< letter of the field's kind
        std::size_t at;    ///< in the record
        std::size_t width; ///< bytes
    };

    DbaseTable(std::unique_ptr<host::ByteSource> source, const Header& header, WindowSizes sizes);

    [[nodiscard]] bool ReadFields(const Header& header);
    void TakeRecord(const char* record);

    std::unique_ptr<host::ByteSource> m_source;
    ByteWindow m_window;
    std::uint64_t m_recordsLeft;
    std::size_t m_recordBytes;
    std::vector<Field> m_fields;
    std::vector<std::string> m_texts; ///< of the record's cells
};

} // namespace table
