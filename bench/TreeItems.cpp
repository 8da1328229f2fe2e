#include "bench/TreeItems.h"

#include "bench/Bench.h"

#include <array>

namespace bench
{
namespace
{

constexpr DWORD kStyle = WS_CHILD | TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT;
constexpr RECT kPlace{0, 0, 300, 400};
constexpr const char* kRawFrame = "TavKitBenchTreeFrame";

/// A few names, so that neither side spends its time on making them.
const std::array<CString, 8>& Names()
{
    static const std::array<CString, 8> names{"nuclei",      "cytoplasm",   "membrane 01",   "background",
                                              "tissue core", "vessel wall", "artefact 0001", "unclassified"};
    return names;
}

const CString& NameOf(int number) { return Names()[static_cast<std::size_t>(number) % Names().size()]; }

/// Calls add(number, parent) for every item in walking order; add() gives the new item's handle.
template <class Add>
void ForEachItem(Add add)
{
    int number = 0;
    for (int root = 0; root < kTreeRoots; ++root)
    {
        const HTREEITEM top = add(++number, TVI_ROOT);
        for (int branch = 0; branch < kTreeBranches; ++branch)
        {
            const HTREEITEM middle = add(++number, top);
            for (int leaf = 0; leaf < kTreeLeaves; ++leaf)
            {
                add(++number, middle);
            }
        }
    }
}

HTREEITEM Next(HWND tree, WPARAM code, HTREEITEM item)
{
    return reinterpret_cast<HTREEITEM>(::SendMessageA(tree, TVM_GETNEXTITEM, code, reinterpret_cast<LPARAM>(item)));
}

} // namespace

TreeHost::TreeHost()
{
    m_frame.CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP, CRect(0, 0, 300, 400), nullptr, 0);
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = ::DefWindowProcA;
    windowClass.hInstance = ::GetModuleHandleA(nullptr);
    windowClass.lpszClassName = kRawFrame;
    ::RegisterClassA(&windowClass); // fails from the second time on
    m_rawFrame =
        ::CreateWindowExA(0, kRawFrame, "", WS_POPUP, 0, 0, 300, 400, nullptr, nullptr, windowClass.hInstance, nullptr);
    Require(m_frame.m_hWnd != nullptr && m_rawFrame != nullptr, "a window can't be made");
    m_images.SetWindow(&m_frame);
    m_images.Create();
}

TreeHost::~TreeHost()
{
    m_frame.DestroyWindow();
    ::DestroyWindow(m_rawFrame);
}

std::unique_ptr<CTavTreeCtrl> TreeHost::NewTree()
{
    auto tree = std::make_unique<CTavTreeCtrl>();
    Require(tree->Create(kStyle, kPlace, &m_frame, 1) != FALSE, "the tree can't be made");
    return tree;
}

HWND TreeHost::NewRaw()
{
    const HWND tree = ::CreateWindowExA(0, WC_TREEVIEWA, "", kStyle, kPlace.left, kPlace.top, kPlace.right,
                                        kPlace.bottom, m_rawFrame, nullptr, ::GetModuleHandleA(nullptr), nullptr);
    Require(tree != nullptr, "the control can't be made");
    return tree;
}

LPARAM TreeHost::Images() { return reinterpret_cast<LPARAM>(m_images.GetSafeHandle()); }

void FillTree(CTavTreeCtrl& tree)
{
    ForEachItem([&](int number, HTREEITEM parent) {
        return tree.AddItem(NameOf(number), static_cast<DWORD_PTR>(number), parent, TVI_LAST);
    });
}

void FillRaw(HWND tree)
{
    ForEachItem([&](int number, HTREEITEM parent) {
        TVINSERTSTRUCTA insert{};
        insert.hParent = parent;
        insert.hInsertAfter = TVI_LAST;
        insert.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
        insert.item.pszText = const_cast<char*>(static_cast<const char*>(NameOf(number)));
        insert.item.lParam = number;
        return reinterpret_cast<HTREEITEM>(::SendMessageA(tree, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&insert)));
    });
}

void CheckTree(HWND tree)
{
    Require(::SendMessageA(tree, TVM_GETCOUNT, 0, 0) == kTreeItems, "the tree has another number of items");
    const HTREEITEM first = Next(tree, TVGN_ROOT, nullptr);
    const HTREEITEM leaf = Next(tree, TVGN_CHILD, Next(tree, TVGN_CHILD, first));
    TVITEMA item{};
    item.mask = TVIF_PARAM | TVIF_TEXT;
    item.hItem = leaf;
    std::array<char, 64> text{};
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    ::SendMessageA(tree, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    Require(item.lParam == 3 && NameOf(3) == text.data(), "an item is wrong");
}

HTREEITEM WalkTo(HWND tree, LPARAM data)
{
    HTREEITEM item = Next(tree, TVGN_ROOT, nullptr);
    while (item != nullptr)
    {
        TVITEMA query{};
        query.mask = TVIF_PARAM;
        query.hItem = item;
        ::SendMessageA(tree, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&query));
        if (query.lParam == data)
        {
            return item;
        }
        HTREEITEM following = Next(tree, TVGN_CHILD, item);
        while (following == nullptr && item != nullptr)
        {
            following = Next(tree, TVGN_NEXT, item);
            if (following == nullptr)
            {
                item = Next(tree, TVGN_PARENT, item);
            }
        }
        item = following;
    }
    return nullptr;
}

} // namespace bench
