// ADIListCtrl.h - shows an attribute table, read forward only and on demand
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/DString.h"
#include "tavkit/frame/services/IAttrData.h"
#include "tavkit/lists/AttrCache.h"
#include "tavkit/lists/TavListCtrlVirtual.h"

#include <memory>

/// A list over an attribute table. What was read is kept, row by row, until the list is destroyed; the table is read
/// once at most. Its length isn't known beforehand: the host declares a first one by SetNumRow, which doubles as the
/// user comes to its end and becomes exact when the reader runs out.
///
/// Column 0 of the list is "ID", the number of a row in order of reading; column c + 1 shows cached column c.
///
/// The hooks, and the reader, may destroy the list. A hook that asks for rows while rows are being read gets those that
/// are there.
class TAVKIT_API CADIListCtrl : public CTavListCtrlVirtual
{
public:
    static constexpr int IDColWidth = 50; ///< pixels
    static constexpr int ColWidth = 100;  ///< pixels, of every column of the table

    /// @param reader  owned from now on, and deleted when the table is exhausted; may be null
    explicit CADIListCtrl(IAttrData* reader);
    ~CADIListCtrl() override;

    /// Asked for each row of the table as it is read; false skips it for good, and it takes no number.
    virtual bool OnFilterRow(int tableRow);
    /// Asked for each column of the table by AddAllColumns; false hides it.
    /// @param name  the caption, which may be changed
    virtual bool OnFilterCol(int tableCol, DString& name);
    /// Called for each column of a row that was accepted, hidden ones too, before its cell is copied.
    virtual void OnValue(int tableRow, int tableCol, int cacheRow);

    /// Adds the column "ID" and one for each column of the table. Without a reader it adds the first alone.
    void AddAllColumns();
    /// Reads what is left of the table.
    void ReadAllRows();
    /// Number of rows read so far.
    int GetCacheRows() const;
    /// Where the text of a cell lies: a block of malloc that the list frees, or null. A cell past the last row is made.
    /// @param cacheRow, cachedCol  not negative
    const char*& GetCacheItem(int cacheRow, int cachedCol);
    /// The cached row that a row of the list shows; -1 if it isn't read yet.
    int GetID(int row) const;

    /// Reads the whole table and orders the rows: numbers and IDs from high to low if @p ascending, texts from A to Z;
    /// see tavkit::SortByCell. The first selected row is deselected. EnblSort has no part in it.
    void Sort(int col, bool ascending) override;
    DString OnGetItemText(int row, int col) override;

protected:
    /// Reads rows until @p count have been accepted; 0 or less reads all.
    /// @return false when the table has come to its end: the number of rows is exact then, and the reader gone
    bool ReadRows(int count);

private:
    enum class RowRead
    {
        Taken,
        Refused,
        End,
        ListGone
    };
    class ReadingScope;

    RowRead ReadRow(IAttrData& reader);

    std::shared_ptr<IAttrData> m_pReader; // shared with the read under way alone, which may outlive the list
    tavkit::AttrCache m_cache;
    int m_nLastTableRow = -1; // the row of the table that was read last
    bool m_bReading = false;
};
