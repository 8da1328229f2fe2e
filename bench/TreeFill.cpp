// TreeFill.cpp - [tree_fill] a tree filled item by item against the control's own message
#include "bench/Bench.h"
#include "bench/TreeItems.h"

namespace bench
{
namespace
{

constexpr double kTarget = 1.15;
constexpr int kFillRounds = 5; // a fill takes seconds: the control looks every parent up

std::vector<Row> RunFill()
{
    TreeHost host;
    std::unique_ptr<CTavTreeCtrl> ours;
    HWND raw = nullptr;
    const Medians medians = Interleave({.run = [&] { FillTree(*ours); },
                                        .prepare =
                                            [&] {
                                                ours = host.NewTree();
                                                ours->InitImages();
                                            },
                                        .check =
                                            [&] {
                                                CheckTree(ours->m_hWnd);
                                                ours.reset();
                                            }},
                                       {.run = [&] { FillRaw(raw); },
                                        .prepare =
                                            [&] {
                                                raw = host.NewRaw();
                                                ::SendMessageA(raw, TVM_SETIMAGELIST, TVSIL_NORMAL, host.Images());
                                            },
                                        .check =
                                            [&] {
                                                CheckTree(raw);
                                                ::DestroyWindow(raw);
                                            }},
                                       kFillRounds);
    return {{"tree_fill", kTreeItems, medians.ours, medians.reference, kTarget}};
}

const Registration fill("tree_fill", RunFill);

} // namespace
} // namespace bench
