// HandleMapTest.cpp - objects by handle
#include <afxwin.h>
#include "impl/HandleMap.h"
#include <gmock/gmock.h>

#include <memory>
#include <vector>

namespace
{
struct CWidget;
using Handle = HGLOBAL;

// Tells what became of its handle when it was deleted.
struct CWidget
{
    Handle handle = nullptr;
    std::vector<Handle>* destroyed = nullptr;
    CWidget() = default;
    CWidget(const CWidget&) = delete;
    void operator=(const CWidget&) = delete;
    virtual ~CWidget()
    {
        if (destroyed != nullptr)
        {
            destroyed->push_back(handle);
        }
    }
};
struct CSpecialWidget : CWidget
{
};

Handle HandleOf(UINT_PTR value) { return reinterpret_cast<Handle>(value); }
} // namespace

template <>
struct AfxHandleTraits<CWidget, Handle>
{
    static std::unique_ptr<CWidget> MakeTemporary() { return std::make_unique<CWidget>(); }
    static void SetHandle(CWidget& widget, Handle handle) { widget.handle = handle; }
};

using WidgetMap = CHandleMap<CWidget, Handle>;

TEST(HandleMap, GivesTheSameTemporaryObjectUntilIdle)
{
    WidgetMap map;
    CWidget* const first = map.FromHandle(HandleOf(8));
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->handle, HandleOf(8));
    EXPECT_EQ(map.FromHandle(HandleOf(8)), first);
    EXPECT_EQ(map.LookupTemporary(HandleOf(8)), first);
    EXPECT_EQ(map.LookupPermanent(HandleOf(8)), nullptr);
    EXPECT_EQ(map.GetTemporaryCount(), 1U);
}

TEST(HandleMap, NullHasNoObject)
{
    WidgetMap map;
    EXPECT_EQ(map.FromHandle(nullptr), nullptr);
    EXPECT_EQ(map.LookupPermanent(nullptr), nullptr);
    EXPECT_EQ(map.LookupTemporary(nullptr), nullptr);
    EXPECT_EQ(map.GetTemporaryCount(), 0U);
}

TEST(HandleMap, ThePermanentObjectComesFirst)
{
    WidgetMap map;
    CWidget widget;
    const CWidget* const temporary = map.FromHandle(HandleOf(8));
    map.SetPermanent(HandleOf(8), &widget);
    EXPECT_EQ(map.FromHandle(HandleOf(8)), &widget);
    map.RemoveHandle(HandleOf(8));
    EXPECT_EQ(map.LookupPermanent(HandleOf(8)), nullptr);
    EXPECT_EQ(map.FromHandle(HandleOf(8)), temporary) << "somebody may still hold it";
}

TEST(HandleMap, TemporaryObjectsLoseTheirHandleBeforeTheyDie)
{
    WidgetMap map;
    std::vector<Handle> destroyed;
    map.FromHandle(HandleOf(8))->destroyed = &destroyed;
    map.FromHandle(HandleOf(16))->destroyed = &destroyed;
    map.DeleteTemp();
    EXPECT_THAT(destroyed, testing::ElementsAre(nullptr, nullptr));
    EXPECT_EQ(map.LookupTemporary(HandleOf(8)), nullptr);
    EXPECT_NE(map.FromHandle(HandleOf(8)), nullptr) << "a new one is made";
}

TEST(HandleMap, ATemporaryObjectMayAskTheMapWhileItDies)
{
    struct CAskingWidget : CWidget
    {
        WidgetMap* map = nullptr;
        ~CAskingWidget() override { map->FromHandle(HandleOf(24)); }
    };
    WidgetMap map;
    map.FromHandle(HandleOf(8), [&] {
        auto widget = std::make_unique<CAskingWidget>();
        widget->map = &map;
        return std::unique_ptr<CWidget>(std::move(widget));
    });
    map.DeleteTemp();
    EXPECT_EQ(map.GetTemporaryCount(), 1U);
}

TEST(HandleMap, PermanentObjectsAreBorrowed)
{
    std::vector<Handle> destroyed;
    CWidget widget;
    widget.destroyed = &destroyed;
    {
        WidgetMap map;
        map.SetPermanent(HandleOf(8), &widget);
        map.DeleteTemp();
        EXPECT_EQ(map.LookupPermanent(HandleOf(8)), &widget);
    }
    EXPECT_TRUE(destroyed.empty());
}

TEST(HandleMap, ALaterPermanentObjectReplacesTheFirst)
{
    WidgetMap map;
    CWidget first, second;
    map.SetPermanent(HandleOf(8), &first);
    EXPECT_EQ(map.LookupPermanent(HandleOf(8)), &first);
    map.SetPermanent(HandleOf(8), &second);
    EXPECT_EQ(map.LookupPermanent(HandleOf(8)), &second);
    EXPECT_EQ(map.GetPermanentCount(), 1U);
}

TEST(HandleMap, MakesTheKindOfObjectAskedFor)
{
    WidgetMap map;
    CWidget* const widget = map.FromHandle(HandleOf(8), [] { return std::make_unique<CSpecialWidget>(); });
    EXPECT_NE(dynamic_cast<CSpecialWidget*>(widget), nullptr);
}

TEST(HandleMap, FindsEachOfManyHandlesBeforeAndAfterRemovals)
{
    constexpr size_t kCount = 5000; // many more than the cache has slots
    WidgetMap map;
    std::vector<std::unique_ptr<CWidget>> widgets;
    for (size_t n = 0; n < kCount; n++)
    {
        widgets.push_back(std::make_unique<CWidget>());
        map.SetPermanent(HandleOf(0x10000 + 2 * n), widgets[n].get());
    }
    for (size_t n = 0; n < kCount; n += 2)
    {
        EXPECT_EQ(map.LookupPermanent(HandleOf(0x10000 + 2 * n)), widgets[n].get());
        map.RemoveHandle(HandleOf(0x10000 + 2 * n));
    }
    for (size_t n = 0; n < kCount; n++)
    {
        EXPECT_EQ(map.LookupPermanent(HandleOf(0x10000 + 2 * n)), n % 2 == 0 ? nullptr : widgets[n].get());
    }
}

TEST(TemporaryMaps, AreFreedWhenTheLastLockIsGone)
{
    const HWND desktop = ::GetDesktopWindow();
    AfxLockTempMaps();
    AfxLockTempMaps();
    CWnd* const window = CWnd::FromHandle(desktop);
    EXPECT_TRUE(AfxUnlockTempMaps());
    EXPECT_EQ(window->m_hWnd, desktop);
    EXPECT_EQ(CWnd::FromHandle(desktop), window);
    EXPECT_FALSE(AfxUnlockTempMaps(FALSE)) << "asked to leave them";
    EXPECT_EQ(window->m_hWnd, desktop);
    EXPECT_EQ(CWnd::FromHandle(desktop), window);
    AfxLockTempMaps();
    EXPECT_FALSE(AfxUnlockTempMaps());
    EXPECT_TRUE(::IsWindow(desktop));
}
