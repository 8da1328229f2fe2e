// TreeFind.cpp - [tree_find] items found by their data against a walk written out by hand
#include "bench/Bench.h"
#include "bench/TreeItems.h"

namespace bench
{
namespace
{

constexpr double kTarget = 1.0;
constexpr int kFindRounds = 5; // a walk over the whole tree takes seconds

constexpr LPARAM kMiddle = kTreeItems / 2;
constexpr LPARAM kLast = kTreeItems;
constexpr LPARAM kNowhere = kTreeItems + 1;
constexpr LPARAM kShared = kTreeItems + 2; ///< of two items, near the end

/// Both trees, filled alike.
struct Trees
{
    TreeHost host;
    std::unique_ptr<CTavTreeCtrl> ours = host.NewTree();
    HWND raw = host.NewRaw();

    Trees()
    {
        FillTree(*ours);
        FillRaw(raw);
        for (const LPARAM data : {kLast - 50, kLast - 25})
        {
            ours->SetItemData(ours->FindItem(static_cast<DWORD_PTR>(data)), static_cast<DWORD_PTR>(kShared));
            TVITEMA item{};
            item.mask = TVIF_PARAM;
            item.hItem = WalkTo(raw, data);
            item.lParam = kShared;
            ::SendMessageA(raw, TVM_SETITEMA, 0, reinterpret_cast<LPARAM>(&item));
        }
    }

    /// Takes our tree over anew, with items that it hasn't seen coming.
    void TakeOver()
    {
        Require(ours->SubclassWindow(ours->UnsubclassWindow()) != FALSE, "the tree can't be taken over");
    }

    /// The same searches on both sides.
    [[nodiscard]] Row Measure(const char* name, const std::vector<LPARAM>& wanted, bool takenOver,
                              std::optional<double> target)
    {
        std::vector<HTREEITEM> found(wanted.size());
        const auto check = [&](HWND tree) {
            for (std::size_t i = 0; i < wanted.size(); ++i)
            {
                TVITEMA item{};
                item.mask = TVIF_PARAM;
                item.hItem = found[i];
                const bool is = found[i] != nullptr;
                Require(is == (wanted[i] != kNowhere), "an item was found or missed wrongly");
                Require(!is || ::SendMessageA(tree, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item)) != 0,
                        "what was found is no item");
                Require(!is || item.lParam == wanted[i], "another item was found");
            }
        };
        const Medians medians = Interleave({.run =
                                                [&] {
                                                    for (std::size_t i = 0; i < wanted.size(); ++i)
                                                    {
                                                        found[i] = ours->FindItem(static_cast<DWORD_PTR>(wanted[i]));
                                                    }
                                                },
                                            .prepare =
                                                [&] {
                                                    if (takenOver)
                                                    {
                                                        TakeOver();
                                                    }
                                                },
                                            .check = [&] { check(*ours); }},
                                           {.run =
                                                [&] {
                                                    for (std::size_t i = 0; i < wanted.size(); ++i)
                                                    {
                                                        found[i] = WalkTo(raw, wanted[i]);
                                                    }
                                                },
                                            .check = [&] { check(raw); }},
                                           kFindRounds);
        return {name, kTreeItems, medians.ours, medians.reference, target};
    }
};

std::vector<Row> RunFind()
{
    Trees trees;
    return {trees.Measure("tree_find", {kMiddle, kLast, kNowhere}, false, kTarget),
            trees.Measure("tree_find.shared", {kShared}, false, kTarget),
            // What a tree costs that came with its items: our walk against the same walk.
            trees.Measure("tree_find.takeover", {kLast}, true, std::nullopt)};
}

const Registration find("tree_find", RunFind);

} // namespace
} // namespace bench
