// ADIFile.cpp - a table that is written to a file, or read from one
#include "tavkit/frame/services/ADIFile.h"

#include <windows.h>

#include "host/FileBytes.h"
#include "host/tables/TableBytes.h"
#include "tavkit/frame/services/OpenAttrData.h"

namespace
{
[[nodiscard]] std::optional<table::TableFormat> FormatOf(DFile const& file, char const* frmtId)
{
    return frmtId && *frmtId ? table::FormatOfId(frmtId) : table::FormatOfExtension(file.GetPhysFileExtn().c_str());
}

[[nodiscard]] table::Day Today()
{
    SYSTEMTIME now;
    ::GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay};
}
} // namespace

/// Either a reader or a table that grows in memory until Finish writes it in one step.
struct ADIFile::Impl
{
    DFile file;
    std::unique_ptr<IAttrData> reader;        ///< null unless the file is read
    std::optional<table::TableFormat> format; ///< of the file that is written; nothing after a failure
    std::size_t columns = 0;                  ///< that are expected
    bool begun = false;
    table::WrittenTable written;

    [[nodiscard]] bool IsWriting() const { return begun && format.has_value(); }
    bool Write(table::WrittenCell cell)
    {
        if (!IsWriting() || written.rows.empty() || written.rows.back().size() >= written.columns.size())
        {
            return false;
        }
        written.rows.back().push_back(std::move(cell));
        return true;
    }
};

ADIFile::ADIFile(DFile const& file, char const* frmtId, tdFormatAccessType access, DIOPlugin* /*plugin*/,
                 char const* /*options*/)
    : m_pImpl(std::make_unique<Impl>())
{
    m_pImpl->file = file;
    if (access == fmtWrite)
    {
        m_pImpl->format = FormatOf(file, frmtId);
    }
    else
    {
        m_pImpl->reader = OpenAttrData(BDIMoniker(file.GetMoniker().c_str(), nullptr), frmtId, nullptr);
    }
}

ADIFile::~ADIFile() = default;

int ADIFile::GetNumCol(int nReserved)
{
    return m_pImpl->reader ? m_pImpl->reader->GetNumCol(nReserved) : static_cast<int>(m_pImpl->written.columns.size());
}

bool ADIFile::ReadRow(int row, int nReserved) { return m_pImpl->reader && m_pImpl->reader->ReadRow(row, nReserved); }

char const* ADIFile::GetColName(int col, int nReserved)
{
    if (m_pImpl->reader)
    {
        return m_pImpl->reader->GetColName(col, nReserved);
    }
    auto const& columns = m_pImpl->written.columns;
    return col >= 0 && static_cast<std::size_t>(col) < columns.size()
               ? columns[static_cast<std::size_t>(col)].name.c_str()
               : "";
}

ADIColType ADIFile::GetColType(int col, int nReserved)
{
    if (m_pImpl->reader)
    {
        return m_pImpl->reader->GetColType(col, nReserved);
    }
    auto const& columns = m_pImpl->written.columns;
    return col >= 0 && static_cast<std::size_t>(col) < columns.size() ? columns[static_cast<std::size_t>(col)].type
                                                                      : adiNone;
}

char const* ADIFile::GetCellText(int row, int col, int nReserved)
{
    return m_pImpl->reader ? m_pImpl->reader->GetCellText(row, col, nReserved) : "";
}

bool ADIFile::InitTable(int /*rows*/, int cols)
{
    Impl& impl = *m_pImpl;
    impl.written = {};
    impl.begun = cols > 0;
    impl.columns = static_cast<std::size_t>(cols > 0 ? cols : 0);
    return impl.IsWriting();
}

bool ADIFile::OnAddCol(char const* name, ADIColType type)
{
    Impl& impl = *m_pImpl;
    if (!impl.IsWriting() || impl.written.columns.size() >= impl.columns || !impl.written.rows.empty())
    {
        return false;
    }
    impl.written.columns.push_back({name, type});
    return true;
}

void ADIFile::AddRow()
{
    if (m_pImpl->IsWriting())
    {
        m_pImpl->written.rows.emplace_back();
    }
}

bool ADIFile::WriteInt(int value) { return m_pImpl->Write(table::NumberCell(value)); }

bool ADIFile::WriteDouble(double value) { return m_pImpl->Write(table::NumberCell(value)); }

bool ADIFile::WriteString(char const* value) { return m_pImpl->Write({value ? value : "", false}); }

void ADIFile::Finish()
{
    Impl& impl = *m_pImpl;
    if (!impl.IsWriting())
    {
        return;
    }
    if (const auto bytes = table::TableBytes(impl.written, *impl.format, Today()))
    {
        static_cast<void>(host::ReplaceFileContent(impl.file, *bytes)); // a failure leaves the old file; nobody is told
    }
    impl.format.reset(); // whatever follows is no part of the table
    impl.written = {};
}
