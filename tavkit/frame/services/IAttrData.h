// IAttrData.h - reads an attribute table
#pragma once

#include "tavkit/frame/services/HostApi.h"

/// Type of a table column; a value that isn't listed counts as text.
enum ADIColType
{
    adiNone = 0,
    adiInt = 1,
    adiDouble = 2,
    adiString = 3
};

/// Reader of an attribute table. Rows and columns count from 0. The order of the virtual operations is part of the
/// interface. A text that is handed out is valid until the next call; the caller copies it at once.
class TAVHOST_API IAttrData
{
public:
    IAttrData();
    IAttrData(IAttrData const&) = delete;
    IAttrData& operator=(IAttrData const&) = delete;
    virtual ~IAttrData();

    /// Number of columns. The argument is 0.
    virtual int GetNumCol(int nReserved) = 0;
    /// Moves to a row; rows are asked for in ascending order. False past the last row, and when it can't be read.
    virtual bool ReadRow(int row, int nReserved) = 0;
    /// Name of a column.
    virtual char const* GetColName(int col, int nReserved) = 0;
    /// Type of a column; the default is adiNone, which reads as text.
    virtual ADIColType GetColType(int col, int nReserved);
    /// Text of a cell of the row moved to last.
    virtual char const* GetCellText(int row, int col, int nReserved) = 0;

    /// Declares the next column of a table that is written. False if no further column is expected, or @p name is null.
    bool AddCol(char const* name, ADIColType type);

protected:
    /// Takes a column that AddCol declares; a reader refuses it.
    virtual bool OnAddCol(char const* name, ADIColType type);
};
