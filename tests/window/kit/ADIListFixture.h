// ADIListFixture.h - attribute tables in memory and the list over them, for its tests
#pragma once

#include "support/WindowTest.h"
#include "tavkit/TavKit.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// A table in memory that notes what is done with it.
class MemoryTable : public IAttrData
{
public:
    /// What a test looks at, and changes, after the table itself is gone.
    struct Notes
    {
        int m_alive = 0;
        std::vector<int> m_rowsRead;       ///< every row moved to, in order
        std::vector<int> m_cellsRead;      ///< the column of every cell read
        std::function<void(int)> m_atRow;  ///< inside the move to a row; may be empty
        std::function<void(int)> m_atCell; ///< inside the reading of a cell of a column; may be empty
    };

    MemoryTable(Notes& notes, std::vector<std::string> names, std::vector<std::vector<std::string>> rows)
        : m_notes(notes), m_names(std::move(names)), m_rows(std::move(rows))
    {
        ++m_notes.m_alive;
    }
    ~MemoryTable() override { --m_notes.m_alive; }

    int GetNumCol(int) override { return static_cast<int>(m_names.size()); }
    bool ReadRow(int row, int) override
    {
        m_notes.m_rowsRead.push_back(row);
        if (m_notes.m_atRow)
        {
            m_notes.m_atRow(row);
        }
        m_row = row;
        return row < static_cast<int>(m_rows.size());
    }
    char const* GetColName(int col, int) override { return m_names[static_cast<std::size_t>(col)].c_str(); }
    char const* GetCellText(int row, int col, int) override
    {
        EXPECT_EQ(row, m_row) << "a cell of another row than the one moved to";
        m_notes.m_cellsRead.push_back(col);
        if (m_notes.m_atCell)
        {
            m_notes.m_atCell(col);
        }
        m_text = m_rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)]; // good until the next call
        return m_text.c_str();
    }

private:
    Notes& m_notes;
    std::vector<std::string> m_names;
    std::vector<std::vector<std::string>> m_rows;
    std::string m_text;
    int m_row = -1;
};

/// The list, with hooks that a test sets and what they were called with.
class HookedADIList : public CADIListCtrl
{
public:
    /// A call of OnValue.
    struct Value
    {
        int tableRow;
        int tableCol;
        int cacheRow;

        bool operator==(const Value&) const = default;
    };

    using CADIListCtrl::CADIListCtrl;
    using CADIListCtrl::ReadRows;

    std::function<bool(int)> m_filterRow;
    std::function<bool(int, DString&)> m_filterCol;
    std::function<void(Value)> m_value;
    std::vector<Value> m_values;

    bool OnFilterRow(int tableRow) override
    {
        return m_filterRow ? m_filterRow(tableRow) : CADIListCtrl::OnFilterRow(tableRow);
    }
    bool OnFilterCol(int tableCol, DString& name) override
    {
        return m_filterCol ? m_filterCol(tableCol, name) : CADIListCtrl::OnFilterCol(tableCol, name);
    }
    void OnValue(int tableRow, int tableCol, int cacheRow) override
    {
        m_values.push_back({tableRow, tableCol, cacheRow});
        if (m_value)
        {
            m_value({tableRow, tableCol, cacheRow});
        }
    }
};

class ADIListTest : public support::WindowTest
{
protected:
    static constexpr UINT kId = 33;
    using Rows = std::vector<std::vector<std::string>>;

    void SetUp() override
    {
        ::LoadCursor(nullptr, IDC_WAIT); // stays in the process from its first use on, which is any test's
        WindowTest::SetUp();
        m_frame = std::make_unique<support::TestFrame>();
    }
    void TearDown() override
    {
        m_list.reset();
        m_frame.reset();
        EXPECT_EQ(m_notes.m_alive, 0) << "a reader was left behind";
        WindowTest::TearDown();
    }

    /// A list over a reader, without columns yet, hidden so that nobody but the test asks for cells.
    void OpenOver(IAttrData* reader)
    {
        m_list = std::make_unique<HookedADIList>(reader);
        ASSERT_TRUE(m_list->Create(WS_CHILD | LVS_REPORT | LVS_OWNERDRAWFIXED | LVS_SHOWSELALWAYS,
                                   CRect(0, 0, 500, 200), m_frame.get(), kId));
    }
    void Open(std::vector<std::string> names, Rows rows)
    {
        OpenOver(new MemoryTable(m_notes, std::move(names), std::move(rows)));
    }
    /// A table of two columns whose cells tell their place: "0a", "0b", "1a" ...
    void OpenCounted(int count)
    {
        Rows rows;
        for (int row = 0; row < count; ++row)
        {
            rows.push_back({std::to_string(row) + "a", std::to_string(row) + "b"});
        }
        Open({"A", "B"}, std::move(rows));
        m_list->AddAllColumns();
    }
    std::string Text(int row, int col) const { return m_list->OnGetItemText(row, col).c_str(); }
    /// The texts of a column, from the first row to the last cached.
    [[nodiscard]] std::vector<std::string> Column(int col) const
    {
        std::vector<std::string> texts;
        for (int row = 0; row < m_list->GetCacheRows(); ++row)
        {
            texts.push_back(Text(row, col));
        }
        return texts;
    }

    MemoryTable::Notes m_notes;
    std::unique_ptr<support::TestFrame> m_frame;
    std::unique_ptr<HookedADIList> m_list;
};
