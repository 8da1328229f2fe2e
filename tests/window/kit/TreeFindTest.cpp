// TreeFindTest.cpp - items of a tree: finding and selecting them by place, data and text

#include "TreeItemsFixture.h"

#include "ImportHook.h"

#include <random>

using testing::ElementsAre;

namespace
{

/// The first item with that data, found message by message as any program could.
HTREEITEM WalkTo(HWND tree, DWORD_PTR data, HTREEITEM root = nullptr)
{
    auto const next = [&](WPARAM code, HTREEITEM item) {
        return reinterpret_cast<HTREEITEM>(::SendMessageA(tree, TVM_GETNEXTITEM, code, reinterpret_cast<LPARAM>(item)));
    };
    HTREEITEM item = root != nullptr ? root : next(TVGN_ROOT, nullptr);
    while (item != nullptr)
    {
        TVITEM query{};
        query.mask = TVIF_PARAM;
        query.hItem = item;
        ::SendMessageA(tree, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&query));
        if (static_cast<DWORD_PTR>(query.lParam) == data)
        {
            return item;
        }
        HTREEITEM following = next(TVGN_CHILD, item);
        while (following == nullptr && item != nullptr && item != root)
        {
            following = next(TVGN_NEXT, item);
            item = following == nullptr ? next(TVGN_PARENT, item) : item;
        }
        item = following;
    }
    return nullptr;
}

int g_questions = 0; // that the library asked a tree control about its items

LRESULT WINAPI CountQuestion(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    g_questions += message == TVM_GETITEMA || message == TVM_GETNEXTITEM;
    return ::CallWindowProcA(procedure, window, message, wParam, lParam);
}

class TreeItemsFound : public TreeItems
{
protected:
    /// Looks for what isn't there until the tree is surely learned.
    void Learn()
    {
        for (int i = 0; i < 3; ++i)
        {
            EXPECT_EQ(m_tree->FindItem(DWORD_PTR(0xDEAD)), nullptr);
        }
    }

    /// How much a search asks the control.
    template <class Search>
    int Cost(Search search)
    {
        ImportHook const hook("TavKit.dll", "user32.dll", "CallWindowProcA", reinterpret_cast<void*>(CountQuestion));
        g_questions = 0;
        search();
        return g_questions;
    }
};

// --- by place

TEST_F(TreeItemsFound, AreFoundByAPlaceOnTheScreen)
{
    Fill();
    support::Settle();
    EXPECT_EQ(m_tree->GetItem(CPoint(PlaceOf(m_e))), m_e);
    EXPECT_EQ(m_tree->GetItem(CPoint(EmptyPlace())), nullptr);
    EXPECT_EQ(m_tree->GetItem(CPoint(ScreenPlace(-1, ClientPlaceOf(m_e).y))), nullptr) << "left of the window";
    EXPECT_EQ(m_tree->GetItem(CPoint(0, 0)), nullptr);
    TVITEM item{};
    item.mask = TVIF_PARAM;
    item.hItem = m_d;
    EXPECT_TRUE(m_tree->GetItem(&item)) << "the framework's operation of that name stays";
    EXPECT_EQ(item.lParam, 4);
}

// --- by data

TEST_F(TreeItemsFound, AreFoundByTheirDataTheFirstInWalkingOrder)
{
    Fill();
    for (int round = 0; round < 3; ++round) // before and after the tree is learned
    {
        EXPECT_EQ(m_tree->FindItem(DWORD_PTR(1)), m_a);
        EXPECT_EQ(m_tree->FindItem(DWORD_PTR(4)), m_d);
        EXPECT_EQ(m_tree->FindItem(DWORD_PTR(3)), m_c) << "not the second one, higher up";
        EXPECT_EQ(m_tree->FindItem(DWORD_PTR(5)), nullptr);
        Learn();
    }
}

TEST_F(TreeItemsFound, AreFoundByDataFromAnItemDown)
{
    Fill();
    for (int round = 0; round < 3; ++round)
    {
        EXPECT_EQ(m_tree->FindItem(DWORD_PTR(2), m_b), m_b) << "itself included";
        EXPECT_EQ(m_tree->FindItem(DWORD_PTR(3), m_a), m_c);
        EXPECT_EQ(m_tree->FindItem(DWORD_PTR(4), m_b), nullptr) << "a later brother matches, but stands outside";
        EXPECT_EQ(m_tree->FindItem(DWORD_PTR(3), m_d), nullptr);
        EXPECT_EQ(m_tree->FindItem(DWORD_PTR(3), m_e), m_e);
        EXPECT_EQ(m_tree->FindItem(DWORD_PTR(4), m_e), nullptr);
        Learn();
    }
}

TEST_F(TreeItemsFound, TheRootAndNullStandForTheWholeTree)
{
    Fill();
    for (int round = 0; round < 3; ++round)
    {
        for (HTREEITEM const start : {static_cast<HTREEITEM>(TVI_ROOT), static_cast<HTREEITEM>(nullptr)})
        {
            EXPECT_EQ(m_tree->FindItem(DWORD_PTR(4), start), m_d);
            EXPECT_EQ(m_tree->FindItem(DWORD_PTR(5), start), nullptr);
        }
        Learn();
    }
}

TEST_F(TreeItemsFound, OfAnEmptyTreeOrOneWithoutAWindowAreNotFound)
{
    EXPECT_EQ(m_tree->FindItem(DWORD_PTR(0)), nullptr);
    EXPECT_EQ(m_tree->FindItem(CString("")), nullptr);
    Fill();
    Learn();
    m_tree->DestroyWindow();
    EXPECT_EQ(m_tree->FindItem(DWORD_PTR(1)), nullptr);
    EXPECT_EQ(m_tree->FindItem(CString("a")), nullptr);
    CTavTreeCtrl never;
    EXPECT_EQ(never.FindItem(DWORD_PTR(0)), nullptr);
    EXPECT_EQ(never.GetItemData(nullptr), 0U);
    EXPECT_EQ(never.GetCrntData(), 0U);
}

TEST_F(TreeItemsFound, ATreeThatWasSeenFromItsBeginningIsNeverWalked)
{
    for (DWORD_PTR i = 0; i < 500; ++i)
    {
        Add("x", TVI_ROOT, i);
    }
    EXPECT_EQ(Cost([&] { EXPECT_NE(m_tree->FindItem(DWORD_PTR(499)), nullptr); }), 0);
    EXPECT_EQ(Cost([&] { EXPECT_EQ(m_tree->FindItem(DWORD_PTR(1000)), nullptr); }), 0);
    HTREEITEM const more = Add("more", TVI_ROOT, 1000);
    HTREEITEM const below = Add("below", more, 1001);
    EXPECT_EQ(Cost([&] { EXPECT_EQ(m_tree->FindItem(DWORD_PTR(1000)), more); }), 0);
    m_tree->SetItemData(more, 2000);
    EXPECT_EQ(Cost([&] { EXPECT_EQ(m_tree->FindItem(DWORD_PTR(2000)), more); }), 0);
    EXPECT_EQ(Cost([&] { EXPECT_EQ(m_tree->FindItem(DWORD_PTR(1001), more), below); }), 0);
    m_tree->Expand(more, TVE_EXPAND);
    m_tree->Expand(more, TVE_COLLAPSE | TVE_COLLAPSERESET);
    EXPECT_EQ(Cost([&] { EXPECT_EQ(m_tree->FindItem(DWORD_PTR(1001)), nullptr); }), 0);
    m_tree->DeleteItem(more);
    EXPECT_EQ(Cost([&] { EXPECT_EQ(m_tree->FindItem(DWORD_PTR(2000)), nullptr); }), 0);
    m_tree->DeleteAllItems();
    EXPECT_EQ(Cost([&] { EXPECT_EQ(m_tree->FindItem(DWORD_PTR(499)), nullptr); }), 0);
}

TEST_F(TreeItemsFound, ATreeTakenOverWithItsItemsIsWalkedUntilThatHasCostAsMuchAsLearningIt)
{
    std::vector<HTREEITEM> items;
    for (DWORD_PTR i = 0; i < 100; ++i)
    {
        items.push_back(Add("x", TVI_ROOT, i));
    }
    HWND const window = m_tree->UnsubclassWindow();
    ASSERT_TRUE(m_tree->SubclassWindow(window));
    int const found = Cost([&] { EXPECT_EQ(m_tree->FindItem(DWORD_PTR(9)), items[9]); });
    EXPECT_GE(found, 10 * 2);
    EXPECT_LE(found, 10 * 3 + 1) << "it ends with the item";
    m_tree->SetItemData(items[9], 9);
    EXPECT_GT(Cost([&] { EXPECT_EQ(m_tree->FindItem(DWORD_PTR(99)), items[99]); }), 0);
    EXPECT_GT(Cost([&] { EXPECT_EQ(m_tree->FindItem(DWORD_PTR(98)), items[98]); }), 0) << "this one learns";
    EXPECT_EQ(Cost([&] { EXPECT_EQ(m_tree->FindItem(DWORD_PTR(97)), items[97]); }), 0);
    m_tree->SetItemData(items[97], 197);
    EXPECT_EQ(Cost([&] { EXPECT_EQ(m_tree->FindItem(DWORD_PTR(197)), items[97]); }), 0);
}

TEST_F(TreeItemsFound, TheFirstOfSeveralIsRememberedUntilAnythingChanges)
{
    for (DWORD_PTR i = 0; i < 500; ++i)
    {
        Add("x", TVI_ROOT, i);
    }
    HTREEITEM const upper = Add("z", TVI_ROOT, 1000);
    HTREEITEM const lower = Add("y", TVI_ROOT, 1000);
    Learn();
    EXPECT_EQ(m_tree->FindItem(DWORD_PTR(1000)), upper);
    EXPECT_EQ(Cost([&] { EXPECT_EQ(m_tree->FindItem(DWORD_PTR(1000)), upper); }), 0);
    EXPECT_EQ(m_tree->FindItem(DWORD_PTR(1000), lower), lower) << "the first below another start";
    m_tree->SetItemText(upper, "zz");
    EXPECT_EQ(Cost([&] { EXPECT_EQ(m_tree->FindItem(DWORD_PTR(1000)), upper); }), 0) << "a text is no such change";
    m_tree->SortChildren(TVI_ROOT);
    EXPECT_EQ(m_tree->FindItem(DWORD_PTR(1000)), lower);
    HTREEITEM const third = m_tree->AddItem("a", 1000, TVI_ROOT, TVI_FIRST);
    EXPECT_EQ(m_tree->FindItem(DWORD_PTR(1000)), third);
    m_tree->SetItemData(third, 1001);
    EXPECT_EQ(m_tree->FindItem(DWORD_PTR(1000)), lower);
    m_tree->DeleteItem(lower);
    EXPECT_EQ(m_tree->FindItem(DWORD_PTR(1000)), upper);
}

TEST_F(TreeItemsFound, AWindowThatIsOnlyAttachedIsSearchedAnewEachTime)
{
    HWND const raw =
        ::CreateWindowExA(0, WC_TREEVIEWA, "", WS_CHILD, 0, 0, 50, 50, *m_frame, nullptr, nullptr, nullptr);
    CTavTreeCtrl tree;
    ASSERT_TRUE(tree.Attach(raw));
    TVINSERTSTRUCT insert{};
    insert.hParent = TVI_ROOT;
    insert.item.mask = TVIF_PARAM;
    for (LPARAM data = 1; data <= 5; ++data)
    {
        insert.item.lParam = data;
        auto const item =
            reinterpret_cast<HTREEITEM>(::SendMessageA(raw, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&insert)));
        EXPECT_EQ(tree.FindItem(DWORD_PTR(99)), nullptr);
        EXPECT_EQ(tree.FindItem(static_cast<DWORD_PTR>(data)), item);
    }
    tree.DestroyWindow();
}

TEST_F(TreeItemsFound, OfASubclassedWindowAreFoundThoughTheyWereThereBefore)
{
    HWND const raw =
        ::CreateWindowExA(0, WC_TREEVIEWA, "", WS_CHILD, 0, 0, 50, 50, *m_frame, nullptr, nullptr, nullptr);
    TVINSERTSTRUCT insert{};
    insert.hParent = TVI_ROOT;
    insert.item.mask = TVIF_PARAM;
    auto const add = [&](LPARAM data) {
        insert.item.lParam = data;
        return reinterpret_cast<HTREEITEM>(::SendMessageA(raw, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&insert)));
    };
    HTREEITEM const before = add(1);
    CTavTreeCtrl tree;
    ASSERT_TRUE(tree.SubclassWindow(raw));
    for (int i = 0; i < 4; ++i)
    {
        EXPECT_EQ(tree.FindItem(DWORD_PTR(1)), before);
        EXPECT_EQ(tree.FindItem(DWORD_PTR(2)), nullptr);
    }
    tree.UnsubclassWindow();
    HTREEITEM const between = add(2); // unseen
    ASSERT_TRUE(tree.SubclassWindow(raw));
    EXPECT_EQ(tree.FindItem(DWORD_PTR(2)), between);
    tree.DestroyWindow();
}

/// A tree that is changed in every way a program can, and searched in between.
TEST_F(TreeItemsFound, AreFoundAsByAPlainWalkAfterAnyChanges)
{
    constexpr DWORD_PTR kValues = 40; // some shared, some with one item, some with none
    std::mt19937 random(23);
    auto const pick = [&](std::size_t below) {
        return std::uniform_int_distribution<std::size_t>(0, below - 1)(random);
    };
    HWND const window = m_tree->m_hWnd;
    std::vector<HTREEITEM> items;
    auto const collect = [&] {
        items.clear();
        CTreeCtrlItr itr(m_tree.get(), nullptr);
        for (itr.Frst(); itr.Cont(); itr.Next())
        {
            items.push_back(*itr);
        }
    };
    auto const any = [&] { return items[pick(items.size())]; };
    auto const send = [&](UINT message, WPARAM wParam, void const* data) {
        return ::SendMessageA(window, message, wParam, reinterpret_cast<LPARAM>(data));
    };
    for (int step = 0; step < 1500; ++step)
    {
        collect();
        switch (items.size() < 5 ? 0 : pick(14))
        {
        case 0:
        case 1:
        case 2:
        case 3:
        case 4: {
            TVINSERTSTRUCTW insert{};
            insert.hParent = items.empty() || pick(3) == 0 ? TVI_ROOT : any();
            HTREEITEM const places[] = {TVI_FIRST, TVI_LAST, TVI_SORT};
            insert.hInsertAfter = places[pick(3)];
            bool const hasData = pick(5) != 0;
            insert.item.mask = static_cast<UINT>(TVIF_TEXT | (hasData ? TVIF_PARAM : 0));
            insert.item.lParam = static_cast<LPARAM>(pick(kValues));
            std::string text(1, static_cast<char>('a' + pick(26)));
            std::wstring wide(text.begin(), text.end());
            bool const isWide = pick(2) == 0;
            insert.item.pszText = isWide ? wide.data() : reinterpret_cast<wchar_t*>(text.data());
            ASSERT_NE(send(isWide ? TVM_INSERTITEMW : TVM_INSERTITEMA, 0, &insert), 0);
            break;
        }
        case 5:
        case 6:
        case 7: {
            TVITEMW item{};
            item.mask = static_cast<UINT>(TVIF_STATE | (pick(4) != 0 ? TVIF_PARAM : 0));
            item.hItem = any();
            item.lParam = static_cast<LPARAM>(pick(kValues));
            send(pick(2) == 0 ? TVM_SETITEMW : TVM_SETITEMA, 0, &item);
            break;
        }
        case 8:
        case 9:
            m_tree->DeleteItem(any());
            break;
        case 10:
            send(TVM_SORTCHILDREN, 0, pick(2) == 0 ? TVI_ROOT : any());
            break;
        case 11: {
            TVSORTCB sort{};
            sort.hParent = pick(2) == 0 ? TVI_ROOT : any();
            sort.lpfnCompare = [](LPARAM left, LPARAM right, LPARAM) { return static_cast<int>(right - left); };
            send(TVM_SORTCHILDRENCB, 0, &sort);
            break;
        }
        case 12:
            send(TVM_EXPAND, pick(2) == 0 ? TVE_COLLAPSE | TVE_COLLAPSERESET : TVE_TOGGLE, any());
            break;
        default:
            if (pick(20) == 0)
            {
                send(TVM_DELETEITEM, 0, TVI_ROOT);
            }
            break;
        }
        collect();
        for (int search = 0; search < 3; ++search)
        {
            DWORD_PTR const data = pick(kValues);
            HTREEITEM const start = items.empty() || pick(2) == 0 ? nullptr : any();
            ASSERT_EQ(m_tree->FindItem(data, start), WalkTo(window, data, start)) << "step " << step;
        }
    }
}

TEST_F(TreeItemsFound, AreFoundWhileTheControlIsInTheMidstOfAChange)
{
    // The parent is asked for texts while an item is sorted in, and told of each deletion; it searches and changes.
    Fill();
    Learn();
    HWND const window = m_tree->m_hWnd;
    int asked = 0;
    m_frame->m_notified = [&](NMHDR* header) {
        if (header->code == static_cast<UINT>(TVN_GETDISPINFO))
        {
            auto& info = *reinterpret_cast<NMTVDISPINFO*>(header);
            if ((info.item.mask & TVIF_TEXT) != 0)
            {
                static char text[] = "m";
                info.item.pszText = text;
            }
            ++asked;
            EXPECT_EQ(m_tree->FindItem(DWORD_PTR(3)), WalkTo(window, 3));
            if (asked == 2)
            {
                m_tree->SetItemData(m_e, 77);
            }
        }
        else if (header->code == static_cast<UINT>(TVN_DELETEITEM) && asked < 1000)
        {
            asked = 1000; // once
            m_tree->SetItemData(m_e, 88);
            m_tree->AddItem("late", 99, TVI_ROOT, TVI_LAST);
        }
    };
    for (int i = 0; i < 4; ++i)
    {
        TVINSERTSTRUCT insert{};
        insert.hParent = m_a;
        insert.hInsertAfter = TVI_SORT;
        insert.item.mask = TVIF_TEXT | TVIF_PARAM;
        insert.item.pszText = LPSTR_TEXTCALLBACK;
        insert.item.lParam = 50 + i;
        HTREEITEM const item = m_tree->InsertItem(&insert);
        ASSERT_NE(item, nullptr);
        EXPECT_EQ(m_tree->FindItem(static_cast<DWORD_PTR>(50 + i)), item);
    }
    ASSERT_GE(asked, 2);
    EXPECT_EQ(m_tree->FindItem(DWORD_PTR(77)), m_e);
    m_tree->DeleteItem(m_b);
    EXPECT_EQ(asked, 1000);
    for (int round = 0; round < 4; ++round)
    {
        EXPECT_EQ(m_tree->FindItem(DWORD_PTR(88)), m_e);
        EXPECT_NE(m_tree->FindItem(DWORD_PTR(99)), nullptr);
        EXPECT_EQ(m_tree->FindItem(DWORD_PTR(3)), nullptr) << "it stood under the deleted one";
        EXPECT_EQ(m_tree->FindItem(DWORD_PTR(77)), nullptr);
    }
    m_frame->m_notified = nullptr;
}

// --- by text

TEST_F(TreeItemsFound, AreFoundByTheirWholeTextTheFirstInWalkingOrder)
{
    Fill();
    HTREEITEM const upper = Add("A");
    HTREEITEM const longer = Add("cc");
    HTREEITEM const again = Add("c");
    HTREEITEM const empty = Add("");
    EXPECT_NE(again, nullptr);
    EXPECT_EQ(m_tree->FindItem(CString("A")), upper) << "upper and lower case differ";
    EXPECT_EQ(m_tree->FindItem(CString("a")), m_a);
    EXPECT_EQ(m_tree->FindItem(CString("c")), m_c);
    EXPECT_EQ(m_tree->FindItem(CString("cc")), longer);
    EXPECT_EQ(m_tree->FindItem(CString("ccc")), nullptr);
    EXPECT_EQ(m_tree->FindItem(CString("")), empty);
    EXPECT_EQ(m_tree->FindItem(CString(static_cast<char const*>(nullptr))), empty) << "no text is an empty one";
}

TEST_F(TreeItemsFound, KeepTextsOf300CharactersAndOfEveryByte)
{
    std::string const longText(300, 'q');
    HTREEITEM const shorter = Add(longText.substr(0, 299).c_str());
    HTREEITEM const exact = Add(longText.c_str());
    Add((longText + "q").c_str());
    EXPECT_EQ(m_tree->FindItem(CString(longText.c_str())), exact) << "a text that is cut off isn't the same";
    EXPECT_EQ(m_tree->FindItem(CString(longText.substr(0, 299).c_str())), shorter);
    EXPECT_EQ(m_tree->GetItemText(exact).GetLength(), 300);
    m_tree->DeleteAllItems();
    std::string all;
    std::vector<HTREEITEM> single(256);
    for (int c = 1; c < 256; ++c)
    {
        std::string const text(1, static_cast<char>(c));
        all += text;
        single[static_cast<std::size_t>(c)] = Add(text.c_str());
    }
    HTREEITEM const whole = Add(all.c_str());
    EXPECT_STREQ(m_tree->GetItemText(whole), all.c_str());
    EXPECT_EQ(m_tree->FindItem(CString(all.c_str())), whole);
    for (int c = 1; c < 256; ++c)
    {
        EXPECT_EQ(m_tree->FindItem(CString(std::string(1, static_cast<char>(c)).c_str())),
                  single[static_cast<std::size_t>(c)])
            << c;
    }
}

TEST_F(TreeItemsFound, AreFoundByTextsThatTheParentSupplies)
{
    Fill();
    HTREEITEM const supplied = m_tree->InsertItem(LPSTR_TEXTCALLBACK, TVI_ROOT, TVI_LAST);
    HTREEITEM const pointed = m_tree->InsertItem(LPSTR_TEXTCALLBACK, TVI_ROOT, TVI_LAST);
    m_frame->m_notified = [&](NMHDR* header) {
        if (header->code == static_cast<UINT>(TVN_GETDISPINFO))
        {
            auto& item = reinterpret_cast<NMTVDISPINFO*>(header)->item;
            if ((item.mask & TVIF_TEXT) != 0)
            {
                static char own[] = "own";
                item.hItem == pointed ? void(item.pszText = own)
                                      : void(::lstrcpynA(item.pszText, "supplied", item.cchTextMax));
            }
        }
    };
    EXPECT_EQ(m_tree->FindItem(CString("supplied")), supplied);
    EXPECT_EQ(m_tree->FindItem(CString("own")), pointed);
    m_frame->m_notified = nullptr;
}

TEST_F(TreeItemsFound, TheParentMayDeleteTheItemWhoseTextItIsAskedFor)
{
    Fill();
    HTREEITEM const shy = m_tree->InsertItem(LPSTR_TEXTCALLBACK, m_b, TVI_LAST);
    Add("behind");
    m_frame->m_notified = [&](NMHDR* header) {
        if (header->code == static_cast<UINT>(TVN_GETDISPINFO) &&
            reinterpret_cast<NMTVDISPINFO*>(header)->item.hItem == shy)
        {
            m_frame->m_notified = nullptr;
            m_tree->DeleteItem(m_b);
        }
    };
    EXPECT_EQ(m_tree->FindItem(CString("behind")), nullptr);
    EXPECT_NE(m_tree->FindItem(CString("behind")), nullptr) << "the next search is undisturbed";
}

// --- selecting

TEST_F(TreeItemsFound, AreSelectedByDataAndByText)
{
    Fill();
    m_tree->SlctItem(DWORD_PTR(4));
    EXPECT_EQ(m_tree->GetSelectedItem(), m_d);
    m_tree->SlctItem(DWORD_PTR(3), m_e);
    EXPECT_EQ(m_tree->GetSelectedItem(), m_e);
    m_tree->SlctItem(CString("c"));
    EXPECT_EQ(m_tree->GetSelectedItem(), m_c);
}

TEST_F(TreeItemsFound, AFailedSearchSelectsNothing)
{
    Fill();
    for (int kind = 0; kind < 3; ++kind)
    {
        m_tree->SelectItem(m_d);
        switch (kind)
        {
        case 0:
            m_tree->SlctItem(DWORD_PTR(99));
            break;
        case 1:
            m_tree->SlctItem(DWORD_PTR(4), m_e);
            break;
        default:
            m_tree->SlctItem(CString("nowhere"));
            break;
        }
        EXPECT_EQ(m_tree->GetSelectedItem(), nullptr) << kind;
    }
}

} // namespace
