// ADIFile.h - writes an attribute table to a file
#pragma once

#include <memory>

#include "tavkit/frame/services/DFile.h"
#include "tavkit/frame/services/IAttrData.h"

class DIOPlugin;

/// How a file is opened.
enum tdFormatAccessType
{
    fmtRead = 0,
    fmtWrite = 1
};

/// An attribute table in a file. Writing goes: InitTable, AddCol for every column, then for every row AddRow and one
/// Write call per column, then Finish. After a failure every further call is harmless and gives false.
class TAVHOST_API ADIFile : public IAttrData
{
public:
    /// @param file    options behind "?" in its name are no part of the file's name.
    /// @param frmtId  identifier of the format; null or "" goes by the file's extension.
    /// @param access  read or write.
    /// @param plugin  borrowed; the plug-in that knows the format, null for a built-in one.
    /// @param options options of the format, "" for none.
    ADIFile(DFile const& file, char const* frmtId, tdFormatAccessType access, DIOPlugin* plugin, char const* options);
    ~ADIFile() override;

    int GetNumCol(int nReserved) override;
    bool ReadRow(int row, int nReserved) override;
    char const* GetColName(int col, int nReserved) override;
    ADIColType GetColType(int col, int nReserved) override;
    char const* GetCellText(int row, int col, int nReserved) override;

    /// Begins a table of the given size.
    virtual bool InitTable(int rows, int cols);
    /// Begins the next row.
    virtual void AddRow();
    // Writes the next cell of the row; a text is taken in a column of any type.
    virtual bool WriteInt(int value);
    virtual bool WriteDouble(double value);
    virtual bool WriteString(char const* value);
    /// Ends the table and writes what is left.
    virtual void Finish();

protected:
    bool OnAddCol(char const* name, ADIColType type) override;

private:
    struct Impl;
    std::unique_ptr<Impl> m_pImpl;
};
