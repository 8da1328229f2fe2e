// EditCellParentTest.cpp - editing in place: parents that do the worst as they are told

#include "EditCellFixture.h"

#include <algorithm>

namespace
{

using flex_test::EditCell;
using flex_test::Ended;
using flex_test::kListId;
using flex_test::kListStyle;
using testing::ElementsAre;
using testing::IsEmpty;

enum class Blow
{
    Window,
    Object
};

class EditCellParent : public EditCell, public testing::WithParamInterface<Blow>
{
protected:
    // At the notification given, counted from 1, the parent does away with the list.
    void DestroyAt(UINT code, int count = 1)
    {
        m_countdown = count;
        m_frame->m_onLabel = [this, code](NMLVDISPINFO& info) {
            if (info.hdr.code == code && --m_countdown == 0)
            {
                m_frame->m_onLabel = nullptr;
                if (GetParam() == Blow::Object)
                {
                    m_list.reset();
                }
                else
                {
                    m_list->DestroyWindow();
                }
            }
            return LRESULT{0};
        };
    }

    void ExpectGone() const
    {
        support::Settle();
        EXPECT_TRUE(m_list == nullptr || m_list->m_hWnd == nullptr);
    }

    int m_countdown = 0;
};

TEST_P(EditCellParent, MayDestroyTheListWhenItIsAsked)
{
    DestroyAt(static_cast<UINT>(LVN_BEGINLABELEDIT));
    CListCtrlFlex* const list = m_list.get();
    list->OnEdit(1, 1, true);
    ExpectGone();
}

TEST_P(EditCellParent, MayDestroyTheListAtADoubleClick)
{
    DestroyAt(static_cast<UINT>(LVN_BEGINLABELEDIT));
    support::DoubleClick(CellPoint(1, 1));
    ExpectGone();
}

// Leaves nothing sensible behind in its memory, so that no use of it goes unnoticed.
class SpoiledList : public CListCtrlFlex
{
public:
    using CListCtrlFlex::OnDblClick;

    static void operator delete(void* memory, std::size_t size)
    {
        std::fill_n(static_cast<unsigned char volatile*>(memory), size, kSpoilt);
        CListCtrlFlex::operator delete(memory);
    }

private:
    static constexpr unsigned char kSpoilt = 0x7F; // no pointer is made of it
};

TEST_P(EditCellParent, MayDestroyTheListWhenADoubleClickTakesTheSelection)
{
    auto spoiled = std::make_unique<SpoiledList>();
    SpoiledList* const list = spoiled.get();
    m_list = std::move(spoiled);
    ASSERT_TRUE(m_list->Create(kListStyle, flex_test::kListPlace, m_frame.get(), kListId));
    AddColumns(3, true);
    AddNumberedRows(3, 3);
    m_list->SetItemState(1, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    NMITEMACTIVATE click{};
    click.ptAction = CellPoint(1, 1);
    m_list->ScreenToClient(&click.ptAction);
    m_frame->m_onNotify = [this](NMHDR& header) {
        if (header.code != static_cast<UINT>(LVN_ITEMCHANGED))
        {
            return;
        }
        if (GetParam() == Blow::Object)
        {
            m_list.reset();
        }
        else
        {
            m_list->DestroyWindow();
        }
    };
    LRESULT result = 0;
    list->OnDblClick(&click.hdr, &result); // not by a message: a window procedure may swallow the fault
    m_frame->m_onNotify = nullptr;
    ExpectGone();
    EXPECT_THAT(Labels(), IsEmpty());
}

TEST_P(EditCellParent, MayDestroyTheListAtTheFirstEndOfEnter)
{
    Edit(1, 1);
    DestroyAt(static_cast<UINT>(LVN_ENDLABELEDIT));
    Key(VK_RETURN);
    ExpectGone();
}

TEST_P(EditCellParent, MayDestroyTheListAtTheSecondEndOfEnter)
{
    Edit(1, 1);
    DestroyAt(static_cast<UINT>(LVN_ENDLABELEDIT), 2);
    Key(VK_RETURN);
    ExpectGone();
}

TEST_P(EditCellParent, MayDestroyTheListAtEscape)
{
    Edit(1, 1);
    DestroyAt(static_cast<UINT>(LVN_ENDLABELEDIT));
    Key(VK_ESCAPE);
    ExpectGone();
}

TEST_P(EditCellParent, MayDestroyTheListWhenTheBoxLosesTheFocus)
{
    Edit(1, 1);
    DestroyAt(static_cast<UINT>(LVN_ENDLABELEDIT));
    m_frame->SetFocus();
    ExpectGone();
}

TEST_P(EditCellParent, MayDestroyTheListWhenTheNextBoxIsAskedFor)
{
    Edit(1, 1);
    DestroyAt(static_cast<UINT>(LVN_BEGINLABELEDIT));
    Key(VK_DOWN);
    ExpectGone();
}

TEST_P(EditCellParent, MayDestroyTheListWhileTheNextBoxOpens)
{
    Edit(1, 1);
    DestroyAt(static_cast<UINT>(LVN_ENDLABELEDIT));
    Key(VK_TAB);
    ExpectGone();
}

TEST_P(EditCellParent, MayDestroyTheListBeforeItIsSorted)
{
    Edit(1, 1);
    DestroyAt(static_cast<UINT>(LVN_ENDLABELEDIT));
    CListCtrlFlex* const list = m_list.get();
    list->Sort(0, true);
    ExpectGone();
}

TEST_P(EditCellParent, MayDestroyTheListWhileTheBoxIsOpen)
{
    Edit(1, 1);
    Type("lost");
    if (GetParam() == Blow::Object)
    {
        m_list.reset();
    }
    else
    {
        m_list->DestroyWindow();
    }
    ExpectGone();
}

INSTANTIATE_TEST_SUITE_P(, EditCellParent, testing::Values(Blow::Window, Blow::Object),
                         [](auto const& info) { return info.param == Blow::Window ? "Window" : "Object"; });

TEST_F(EditCell, MayLoseTheFocusWhileItCommits)
{
    Edit(1, 1);
    Type("new");
    m_frame->m_onLabel = [&](NMLVDISPINFO&) {
        m_frame->SetFocus(); // as a message box would
        return LRESULT{0};
    };
    Key(VK_RETURN);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_THAT(Labels(), ElementsAre(Ended(1, 1, "new"))) << "the box was gone before its second end";
    EXPECT_EQ(Text(1, 1), "new");
    m_frame->m_onLabel = nullptr;
}

TEST_F(EditCell, EndsOnceWhenTheParentShowsAMessageBox)
{
    Edit(1, 1);
    Type("new");
    support::ModalHelper box("Objection", [](HWND dialog) { support::PressButton(dialog, IDOK); });
    m_frame->m_onLabel = [&](NMLVDISPINFO&) {
        m_frame->m_onLabel = nullptr;
        ::MessageBoxA(m_frame->m_hWnd, "Not this text", "Objection", MB_OK);
        return LRESULT{0};
    };
    Key(VK_RETURN);
    EXPECT_TRUE(box.Done());
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(Text(1, 1), "new");
}

TEST_F(EditCell, MayHaveItsRowDeletedWhileItCommits)
{
    Edit(4, 1);
    m_frame->m_onLabel = [&](NMLVDISPINFO&) {
        m_list->DeleteItem(4);
        return LRESULT{0};
    };
    Key(VK_RETURN);
    ExpectClosed();
    EXPECT_EQ(m_list->GetItemCount(), 4);
    m_frame->m_onLabel = nullptr;
}

TEST_F(EditCell, CommitsToItsRowBeforeTheListIsSorted)
{
    Edit(0, 0);
    Type("9");
    ClickHeader(0);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_THAT(Column(), ElementsAre("1.0", "2.0", "3.0", "4.0", "9"));
    EXPECT_EQ(Text(4, 1), "0.1") << "the row that was edited";
    EXPECT_THAT(Labels(), ElementsAre(Ended(0, 0, "9")));
}

} // namespace
