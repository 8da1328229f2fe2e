// ADIListCtrl.cpp - shows an attribute table
#include "tavkit/lists/ADIListCtrl.h"

#include <limits>

namespace
{
constexpr int kAllRows = std::numeric_limits<int>::max();
}

/// Says that rows are being read, until the end of the block or of the list.
class CADIListCtrl::ReadingScope
{
public:
    explicit ReadingScope(CADIListCtrl& list) : m_list(list), m_watch(list.m_life) { m_list.m_bReading = true; }
    ~ReadingScope()
    {
        if (!m_watch.IsGone())
        {
            m_list.m_bReading = false;
        }
    }
    ReadingScope(ReadingScope const&) = delete;
    ReadingScope& operator=(ReadingScope const&) = delete;

private:
    CADIListCtrl& m_list;
    LifeWatch m_watch;
};

CADIListCtrl::CADIListCtrl(IAttrData* reader) : m_pReader(reader) {}

CADIListCtrl::~CADIListCtrl() = default;

bool CADIListCtrl::OnFilterRow(int) { return true; }

bool CADIListCtrl::OnFilterCol(int, DString&) { return true; }

void CADIListCtrl::OnValue(int, int, int) {}

void CADIListCtrl::AddAllColumns()
{
    const LifeWatch watch(m_life);
    const std::shared_ptr<IAttrData> reader = m_pReader;
    AddCol("ID", adiString, false, IDColWidth, LVCFMT_LEFT);
    for (int col = 0; !watch.IsGone() && reader && col < reader->GetNumCol(0); ++col)
    {
        DString name = reader->GetColName(col, 0);
        if (OnFilterCol(col, name) && !watch.IsGone())
        {
            m_cache.AddCol(col);
            AddCol(name, adiString, false, ColWidth, LVCFMT_LEFT);
        }
    }
}

void CADIListCtrl::ReadAllRows() { ReadRows(kAllRows); }

bool CADIListCtrl::ReadRows(int count)
{
    if (m_bReading)
    {
        return true;
    }
    const CWaitCursor wait;
    const std::shared_ptr<IAttrData> reader = m_pReader;
    const LifeWatch watch(m_life);
    const ReadingScope reading(*this);
    RowRead row = reader ? RowRead::Refused : RowRead::End;
    for (long long left = count; row != RowRead::End;)
    {
        row = ReadRow(*reader);
        if (row == RowRead::ListGone)
        {
            return false;
        }
        if (row == RowRead::Taken && --left == 0)
        {
            return true;
        }
    }
    SetNumRow(m_cache.GetNumRow());
    if (!watch.IsGone())
    {
        m_pReader.reset();
    }
    return false;
}

CADIListCtrl::RowRead CADIListCtrl::ReadRow(IAttrData& reader)
{
    if (m_nLastTableRow == std::numeric_limits<int>::max())
    {
        return RowRead::End;
    }
    const LifeWatch watch(m_life);
    const int tableRow = ++m_nLastTableRow;
    if (!reader.ReadRow(tableRow, 0))
    {
        return watch.IsGone() ? RowRead::ListGone : RowRead::End;
    }
    if (watch.IsGone())
    {
        return RowRead::ListGone;
    }
    const bool accepted = OnFilterRow(tableRow);
    if (watch.IsGone())
    {
        return RowRead::ListGone;
    }
    if (!accepted)
    {
        return RowRead::Refused;
    }
    const int row = m_cache.AddRow();
    if (row < 0)
    {
        return RowRead::End;
    }
    const int cols = reader.GetNumCol(0);
    for (int col = 0, cached = 0; !watch.IsGone() && col < cols; ++col)
    {
        OnValue(tableRow, col, row);
        if (!watch.IsGone() && m_cache.GetTableCol(cached) == col)
        {
            const char* const text = reader.GetCellText(tableRow, col, 0);
            if (!watch.IsGone() && !m_cache.Store(row, cached++, text))
            {
                return RowRead::End;
            }
        }
    }
    return watch.IsGone() ? RowRead::ListGone : RowRead::Taken;
}

int CADIListCtrl::GetCacheRows() const { return m_cache.GetNumRow(); }

const char*& CADIListCtrl::GetCacheItem(int cacheRow, int cachedCol) { return m_cache.GetSlot(cacheRow, cachedCol); }

int CADIListCtrl::GetID(int row) const { return m_cache.GetId(row); }

DString CADIListCtrl::OnGetItemText(int row, int col)
{
    if (row >= m_cache.GetNumRow() && m_pReader && !m_bReading)
    {
        const LifeWatch watch(m_life);
        if (ReadRows(tavkit::RowsToRead(GetNumRow(), row)))
        {
            SetNumRow(tavkit::GrownLength(m_cache.GetNumRow())); // there is more
        }
        if (watch.IsGone())
        {
            return DString();
        }
    }
    const int id = GetID(row);
    if (id < 0)
    {
        return DString();
    }
    return col == 0 ? DString::Format("%d", id) : DString(col > 0 ? m_cache.GetText(id, col - 1) : "");
}

void CADIListCtrl::Sort(int col, bool ascending)
{
    const CWaitCursor wait;
    const LifeWatch watch(m_life);
    ReadAllRows();
    if (watch.IsGone())
    {
        return;
    }
    if (col == 0)
    {
        m_cache.SortByRow(ascending);
    }
    else if (col > 0)
    {
        m_cache.SortByCol(col - 1, ascending);
    }
    SetSlct(GetFrstSlct(), false); // another row stands there now
    if (!watch.IsGone() && m_hWnd)
    {
        Invalidate(TRUE);
    }
}
