// TreeExpand.cpp - [tree_expand] a folder of 10,000 files unfolded in the project tree, up to the first painted page
#include "bench/Bench.h"
#include "bench/Painted.h"
#include "host/repository/StandardDrivers.h"
#include "tests/support/ManyFiles.h"
#include "tests/support/TempFolder.h"
#include "workbench/ProjectTree.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace bench
{
namespace
{

constexpr int kFiles = 10'000;
constexpr char kFolder[] = "many";
constexpr CRect kPlace{0, 0, 300, 400};
constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT;

/// The folder, in one that holds nothing else.
class ManyFiles
{
public:
    ManyFiles() : m_folder(m_temp.MakeFolder(kFolder)) { support::MakeManyFiles(m_folder, kFiles); }
    ~ManyFiles()
    {
        std::error_code error;
        std::filesystem::remove_all(m_folder, error);
    }
    ManyFiles(const ManyFiles&) = delete;
    ManyFiles& operator=(const ManyFiles&) = delete;

    [[nodiscard]] std::string Outer() const { return m_temp.Path(); }
    [[nodiscard]] const std::string& Folder() const noexcept { return m_folder; }

private:
    support::TempFolder m_temp;
    std::string m_folder;
};

/// The names of the files, by the system's own calls and in its order.
[[nodiscard]] std::vector<std::string> List(const std::string& folder)
{
    std::vector<std::string> names;
    WIN32_FIND_DATAA found;
    const HANDLE find = ::FindFirstFileA((folder + "\\*").c_str(), &found);
    Require(find != INVALID_HANDLE_VALUE, "the folder can't be listed");
    do
    {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
        {
            names.emplace_back(found.cFileName);
        }
    } while (::FindNextFileA(find, &found));
    ::FindClose(find);
    return names;
}

[[nodiscard]] HTREEITEM Next(HWND tree, WPARAM relation, HTREEITEM item)
{
    return reinterpret_cast<HTREEITEM>(::SendMessageA(tree, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

/// The row of the folder, under the first.
[[nodiscard]] HTREEITEM FolderRow(HWND tree)
{
    const HTREEITEM row = Next(tree, TVGN_CHILD, Next(tree, TVGN_ROOT, nullptr));
    Require(row != nullptr, "the tree shows no folder");
    return row;
}

[[nodiscard]] HTREEITEM Insert(HWND tree, HTREEITEM parent, const std::string& text, int children)
{
    TVINSERTSTRUCTA insert{};
    insert.hParent = parent;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_CHILDREN;
    insert.item.pszText = const_cast<char*>(text.c_str());
    insert.item.cChildren = children;
    return reinterpret_cast<HTREEITEM>(::SendMessageA(tree, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&insert)));
}

void Unfold(HWND tree, HTREEITEM row)
{
    ::SendMessageA(tree, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(row));
    ::UpdateWindow(tree);
    ::GdiFlush();
}

/// The control used without any class: the folder listed, its names sorted and inserted.
void UnfoldBare(HWND tree, const std::string& folder)
{
    const HTREEITEM row = FolderRow(tree);
    std::vector<std::string> names = List(folder);
    std::ranges::sort(names);
    ::SendMessageA(tree, WM_SETREDRAW, FALSE, 0);
    for (const std::string& name : names)
    {
        (void)Insert(tree, row, name, 0);
    }
    ::SendMessageA(tree, WM_SETREDRAW, TRUE, 0);
    Unfold(tree, row);
}

void CheckUnfolded(HWND tree)
{
    int count = 0;
    for (HTREEITEM row = Next(tree, TVGN_CHILD, FolderRow(tree)); row != nullptr; row = Next(tree, TVGN_NEXT, row))
    {
        ++count;
    }
    Require(count == kFiles, "the tree shows another number of files");
    RequirePainted(tree, kPlace.right / 2);
}

std::vector<Row> Run()
{
    const ManyFiles files;
    const repository::StandardDrivers drivers;
    CWnd frame;
    Require(frame.CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE, kPlace, nullptr, 0) != FALSE,
            "a window can't be made");
    CFont font;
    font.CreatePointFont(80, "MS Shell Dlg");

    std::unique_ptr<workbench::ProjectTree> ours;
    HWND bare = nullptr;
    std::vector<std::string> names;
    const Side unfold{.run = [&] { Unfold(ours->m_hWnd, FolderRow(ours->m_hWnd)); },
                      .prepare =
                          [&] {
                              ours = std::make_unique<workbench::ProjectTree>();
                              Require(ours->Create(kPlace, &frame, 1, &font) && ours->OpenFolder(files.Outer()),
                                      "the tree can't be made");
                              ours->UpdateWindow();
                          },
                      .check =
                          [&] {
                              CheckUnfolded(ours->m_hWnd);
                              ours.reset();
                          }};
    const Medians listing =
        Interleave(unfold, {.run = [&] { names = List(files.Folder()); },
                            .check = [&] { Require(names.size() == kFiles, "another number of files was listed"); }});
    const Medians control = Interleave(
        unfold, {.run = [&] { UnfoldBare(bare, files.Folder()); },
                 .prepare =
                     [&] {
                         bare = ::CreateWindowExA(WS_EX_CLIENTEDGE, WC_TREEVIEWA, "", kStyle, kPlace.left, kPlace.top,
                                                  kPlace.right, kPlace.bottom, frame.m_hWnd, nullptr,
                                                  ::GetModuleHandleA(nullptr), nullptr);
                         Require(bare != nullptr, "the control can't be made");
                         ::SendMessageA(bare, WM_SETFONT, reinterpret_cast<WPARAM>(font.GetSafeHandle()), FALSE);
                         const HTREEITEM root = Insert(bare, TVI_ROOT, "outer", 1);
                         (void)Insert(bare, root, kFolder, 1);
                         Unfold(bare, root);
                     },
                 .check =
                     [&] {
                         CheckUnfolded(bare);
                         ::DestroyWindow(bare);
                     }});
    frame.DestroyWindow();
    return {{"tree_expand", kFiles, listing.ours, listing.reference, std::nullopt},
            {"tree_expand.control", kFiles, control.ours, control.reference, std::nullopt}};
}

const Registration registration("tree_expand", Run);

} // namespace
} // namespace bench
