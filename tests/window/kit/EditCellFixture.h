// EditCellFixture.h - a list of which every cell can be edited, and its edit box
#pragma once

#include "FlexFixture.h"

namespace flex_test
{

inline constexpr UINT kEditorId = 1001;

class EditCell : public FlexTest
{
protected:
    void SetUp() override
    {
        FlexTest::SetUp();
        AddColumns(3, true);
        AddNumberedRows(5, 3);
        m_list->SetFocus();
        support::Settle();
    }

    // Opens the box over a cell and forgets what led there.
    void Edit(int row, int col)
    {
        m_list->OnEdit(row, col, false);
        support::Settle();
        ASSERT_EQ(EditorText(), Text(row, col));
        m_frame->m_labels.clear();
    }

    // The box is open over that cell, whose text it shows.
    void ExpectOpenAt(int row, int col) const
    {
        ASSERT_NE(Editor(), nullptr);
        EXPECT_EQ(::GetFocus(), Editor());
        EXPECT_EQ(EditorText(), Text(row, col));
        CRect label;
        ASSERT_TRUE(m_list->GetSubItemRect(row, col, LVIR_LABEL, label));
        EXPECT_EQ(EditorPlace(), label);
    }

    void ExpectClosed() const
    {
        EXPECT_EQ(Editor(), nullptr);
        EXPECT_EQ(::GetFocus(), m_list->m_hWnd);
    }

    [[nodiscard]] CRect EditorPlace() const
    {
        CRect place;
        ::GetWindowRect(Editor(), place);
        m_list->ScreenToClient(place);
        return place;
    }

    [[nodiscard]] std::vector<Label> const& Labels() const { return m_frame->m_labels; }
};

} // namespace flex_test
