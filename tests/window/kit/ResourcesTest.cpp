// ResourcesTest.cpp - every resource of the library, loaded the way a host loads it

#include "Picture.h"

#include "support/WindowTest.h"
#include "tavkit/TavKit.h"
#include "tavkit/resources/resource.h"

#include <afxcmn.h>

#include <algorithm>
#include <array>
#include <set>
#include <vector>

namespace
{

constexpr COLORREF kMagenta = RGB(255, 0, 255);

struct ControlRow
{
    int id;
    const char* className;
    const char* text;
    RECT place; // left, top, width, height in dialog units
    DWORD style;
    DWORD noStyle;
};

struct DialogRow
{
    const char* name;
    int id;
    const char* title;
    SIZE size; // dialog units; 0 where it isn't fixed
    std::vector<ControlRow> controls;
};

const DialogRow kSelectPath{"SelectPath",
                            134,
                            "Select Path",
                            {0, 0},
                            {{1001, "SysTreeView32", "", {}, WS_VISIBLE | WS_TABSTOP, 0},
                             {1016, "Static", "", {}, WS_VISIBLE, 0},
                             {IDOK, "Button", "OK", {}, WS_VISIBLE | BS_DEFPUSHBUTTON, 0},
                             {IDCANCEL, "Button", "Cancel", {}, WS_VISIBLE, 0}}};
const DialogRow kSelector{
    "BdiSelector",
    583,
    "BDI Selector Dialog",
    {353, 159},
    {{1001, "SysTreeView32", "", {7, 7, 144, 124}, WS_VISIBLE | WS_TABSTOP, 0},
     {6004, "SysListView32", "", {152, 7, 194, 124}, WS_VISIBLE | WS_TABSTOP | LVS_REPORT, LVS_LIST & ~LVS_REPORT},
     {IDOK, "Button", "OK", {118, 138, 50, 14}, WS_VISIBLE | BS_DEFPUSHBUTTON, 0},
     {IDCANCEL, "Button", "Cancel", {184, 138, 50, 14}, WS_VISIBLE, 0}}};
const DialogRow kFilterFind{
    "FilterFind",
    6001,
    "Filter & Find",
    {250, 236},
    {{1980, "ComboBox", "", {31, 7, 92, 74}, WS_VISIBLE | CBS_DROPDOWNLIST, 0},
     {1981, "Edit", "", {159, 7, 65, 13}, WS_VISIBLE | WS_TABSTOP, 0},
     {1985, "Button", "X", {231, 8, 12, 11}, WS_VISIBLE, 0},
     {-1, "Static", "Filter:", {7, 9, 20, 8}, WS_VISIBLE, 0},
     {-1, "Static", "Find:", {138, 9, 17, 8}, WS_VISIBLE, 0},
     {1982, "Static", "Found:", {7, 29, 24, 8}, WS_VISIBLE, 0},
     {1983, "ListBox", "", {7, 41, 236, 108}, WS_VISIBLE | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, 0},
     {6003, "Button", "Description", {7, 156, 236, 51}, WS_VISIBLE | BS_GROUPBOX, 0},
     {1984, "Static", "...", {15, 170, 220, 28}, WS_VISIBLE, 0},
     {IDOK, "Button", "OK", {133, 215, 50, 14}, WS_VISIBLE | BS_DEFPUSHBUTTON, 0},
     {IDCANCEL, "Button", "Cancel", {193, 215, 50, 14}, WS_VISIBLE, 0}}};
const DialogRow kMsgDetails{
    "MsgDetails",
    6101,
    "Dialog",
    {284, 170},
    {{6007, "Static", "Static", {7, 7, 211, 55}, WS_VISIBLE, 0},
     {IDOK, "Button", "OK", {227, 7, 50, 14}, WS_VISIBLE | BS_DEFPUSHBUTTON, 0},
     {6006, "Button", "Details...", {227, 31, 50, 14}, WS_VISIBLE, 0},
     {6005, "Edit", "", {7, 67, 270, 96}, WS_VISIBLE | ES_MULTILINE | ES_READONLY | WS_VSCROLL | WS_HSCROLL, 0}}};
const DialogRow kFilePanel{"FilePanel",
                           6102,
                           "",
                           {407, 35},
                           {{6008, "ComboBox", "", {130, 0, 164, 184}, WS_VISIBLE | CBS_DROPDOWNLIST, 0},
                            {6009, "Static", "Go to folder:", {68, 2, 44, 9}, WS_VISIBLE, 0},
                            {6011, "Static", "Options:", {68, 18, 44, 9}, WS_VISIBLE, 0},
                            {6012, "Edit", "", {130, 16, 164, 14}, WS_VISIBLE, 0}}};
const DialogRow kFilePanelWorkspace{
    "FilePanelWorkspace",
    6103,
    "",
    {407, 27},
    {{6008, "ComboBox", "", {130, 0, 164, 184}, WS_VISIBLE | CBS_DROPDOWNLIST, 0},
     {6009, "Static", "Go to folder:", {68, 2, 44, 9}, WS_VISIBLE, 0},
     {6010, "Button", "Project-Edit", {305, 0, 53, 10}, WS_VISIBLE | BS_AUTOCHECKBOX, 0},
     {6011, "Button", "Read-Only", {305, 11, 50, 10}, WS_VISIBLE | BS_AUTOCHECKBOX, 0}}};

void PrintTo(const DialogRow& row, std::ostream* out) { *out << row.name; }

class DialogResource : public support::WindowTest, public testing::WithParamInterface<DialogRow>
{
};

CWnd* FindControl(CDialog& dialog, const ControlRow& row)
{
    for (CWnd* child = dialog.GetWindow(GW_CHILD); child; child = child->GetWindow(GW_HWNDNEXT))
    {
        CString text;
        child->GetWindowText(text);
        if (static_cast<short>(child->GetDlgCtrlID()) == row.id && (row.id != -1 || text == row.text))
        {
            return child;
        }
    }
    return nullptr;
}

// Dialog units count from the dialog's corner, and sizes are turned into pixels by themselves.
CRect PixelsOf(CDialog& dialog, const RECT& place)
{
    CRect corner(0, 0, place.left, place.top);
    CRect size(0, 0, place.right, place.bottom);
    dialog.MapDialogRect(corner);
    dialog.MapDialogRect(size);
    return {corner.BottomRight(), size.Size()};
}

TEST_P(DialogResource, OpensWithItsControlsAtTheirPlaces)
{
    const DialogRow& row = GetParam();
    support::TestFrame frame;
    CDialog dialog;
    ASSERT_TRUE(dialog.Create(static_cast<UINT>(row.id), &frame));
    CString title;
    dialog.GetWindowText(title);
    EXPECT_STREQ(title, row.title);
    if (row.size.cx != 0)
    {
        CRect client;
        dialog.GetClientRect(client);
        EXPECT_EQ(client.Size(), PixelsOf(dialog, {0, 0, row.size.cx, row.size.cy}).Size());
    }
    std::size_t count = 0;
    for (CWnd* child = dialog.GetWindow(GW_CHILD); child; child = child->GetWindow(GW_HWNDNEXT))
    {
        ++count;
    }
    EXPECT_EQ(count, row.controls.size());
    for (const ControlRow& expected : row.controls)
    {
        SCOPED_TRACE(expected.id);
        CWnd* const control = FindControl(dialog, expected);
        ASSERT_NE(control, nullptr);
        char className[64] = "";
        ::GetClassNameA(control->m_hWnd, className, sizeof className);
        EXPECT_STREQ(className, expected.className);
        CString text;
        control->GetWindowText(text);
        EXPECT_STREQ(text, expected.text);
        EXPECT_EQ(control->GetStyle() & expected.style, expected.style);
        EXPECT_EQ(control->GetStyle() & expected.noStyle, 0U);
        if (expected.place.right != 0)
        {
            CRect place;
            control->GetWindowRect(place);
            dialog.ScreenToClient(place);
            CRect told = PixelsOf(dialog, expected.place);
            if (expected.style & CBS_DROPDOWNLIST && std::string_view(className) == "ComboBox")
            {
                told.bottom = place.bottom; // a closed combo box is as high as its font asks
            }
            EXPECT_EQ(place, told) << place.left << " " << place.top << " " << place.right << " " << place.bottom;
        }
    }
    EXPECT_EQ((dialog.GetStyle() & WS_CHILD) != 0, row.title[0] == '\0') << "panels are children";
}

INSTANTIATE_TEST_SUITE_P(Table, DialogResource,
                         testing::Values(kSelectPath, kSelector, kFilterFind, kMsgDetails, kFilePanel,
                                         kFilePanelWorkspace),
                         [](const auto& info) { return info.param.name; });

// A list box takes its scroll bar away while everything fits.
TEST(DialogTemplates, OfFilterAndFindHasAListThatScrolls)
{
    support::TestFrame frame;
    CDialog dialog;
    ASSERT_TRUE(dialog.Create(6001, &frame));
    for (int i = 0; i < 100; ++i)
    {
        dialog.SendDlgItemMessage(1983, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>("item"));
    }
    EXPECT_TRUE(dialog.GetDlgItem(1983)->GetStyle() & WS_VSCROLL);
}

TEST(DialogTemplates, OfTheResizableDialogsHaveASizingBorder)
{
    for (const int id : {583, 6001})
    {
        support::TestFrame frame;
        CDialog dialog;
        ASSERT_TRUE(dialog.Create(static_cast<UINT>(id), &frame));
        EXPECT_TRUE(dialog.GetStyle() & WS_THICKFRAME) << id;
    }
}

class BitmapResource : public support::WindowTest
{
protected:
    // Pixels of a bitmap resource, the upper row first.
    static std::vector<std::vector<COLORREF>> Pixels(CBitmap& bitmap)
    {
        BITMAP info{};
        bitmap.GetBitmap(&info);
        CDC dc;
        dc.CreateCompatibleDC(nullptr);
        HGDIOBJ const old = ::SelectObject(dc.m_hDC, bitmap.m_hObject);
        std::vector<std::vector<COLORREF>> rows(static_cast<std::size_t>(info.bmHeight));
        for (int y = 0; y < info.bmHeight; ++y)
        {
            for (int x = 0; x < info.bmWidth; ++x)
            {
                rows[static_cast<std::size_t>(y)].push_back(::GetPixel(dc.m_hDC, x, y));
            }
        }
        ::SelectObject(dc.m_hDC, old);
        return rows;
    }

    // One image of a strip.
    static std::vector<COLORREF> Cell(const std::vector<std::vector<COLORREF>>& rows, std::size_t width,
                                      std::size_t index)
    {
        std::vector<COLORREF> cell;
        for (const auto& row : rows)
        {
            auto const first = row.begin() + static_cast<std::ptrdiff_t>(index * width);
            cell.insert(cell.end(), first, first + static_cast<std::ptrdiff_t>(width));
        }
        return cell;
    }
};

TEST_F(BitmapResource, OfThePathDialogIsAPicture)
{
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.LoadBitmap(134));
    const auto rows = Pixels(bitmap);
    std::set<COLORREF> colors;
    for (const auto& row : rows)
    {
        colors.insert(row.begin(), row.end());
    }
    EXPECT_GT(colors.size(), 16U);
    EXPECT_FALSE(colors.contains(kMagenta));
}

TEST_F(BitmapResource, OfTheSelectorHasFiveDifferentImagesOnMagenta)
{
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.LoadBitmap(584));
    const auto rows = Pixels(bitmap);
    ASSERT_EQ(rows.size(), 16U);
    ASSERT_EQ(rows[0].size(), 80U);
    std::set<std::vector<COLORREF>> images;
    for (std::size_t i = 0; i < 5; ++i)
    {
        const auto image = Cell(rows, 16, i);
        EXPECT_EQ(image.front(), kMagenta) << "corner of image " << i;
        EXPECT_GT(std::ranges::count_if(image, [](COLORREF cr) { return cr != kMagenta; }), 40) << i;
        images.insert(image);
    }
    EXPECT_EQ(images.size(), 5U);
}

TEST_F(BitmapResource, OfTheSelectorMakesAnImageListWithTransparentParts)
{
    CImageList list;
    ASSERT_TRUE(list.Create(584, 16, 1, kMagenta));
    ASSERT_EQ(list.GetImageCount(), 5);
    constexpr COLORREF kBehind = RGB(1, 2, 3);
    for (int i = 0; i < 5; ++i)
    {
        Picture picture(16, 16, kBehind);
        ::ImageList_Draw(list.GetSafeHandle(), i, picture.Handle(), 0, 0, ILD_TRANSPARENT);
        EXPECT_EQ(picture.At(0, 0), kBehind);
        EXPECT_FALSE(picture.Painted().IsRectEmpty());
    }
}

TEST_F(BitmapResource, OfTheThematicButtonsHasSixArrowsIn256Colours)
{
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.LoadBitmap(669));
    const auto rows = Pixels(bitmap);
    ASSERT_EQ(rows.size(), 8U);
    ASSERT_EQ(rows[0].size(), 54U);
    const auto image = [&](std::size_t index) { return Cell(rows, 9, index); };
    EXPECT_EQ(image(0), image(1)) << "hovering shows nothing";
    EXPECT_EQ(image(3), image(4)) << "hovering shows nothing";
    EXPECT_NE(image(0), image(2));
    EXPECT_NE(image(3), image(5));
    EXPECT_NE(image(0), image(3));
    for (std::size_t i = 0; i < 6; ++i)
    {
        const auto pixels = image(i);
        std::set<COLORREF> colors(pixels.begin(), pixels.end());
        const COLORREF last = i % 3 == 2 ? RGB(204, 204, 204) : RGB(192, 192, 192);
        EXPECT_EQ(colors, (std::set<COLORREF>{kMagenta, RGB(102, 102, 102), RGB(227, 227, 227), last})) << i;
    }
    HRSRC const found = ::FindResourceA(AfxFindResourceHandle(MAKEINTRESOURCE(669), RT_BITMAP), MAKEINTRESOURCEA(669),
                                        reinterpret_cast<LPCSTR>(RT_BITMAP));
    ASSERT_NE(found, nullptr);
    auto const* header = static_cast<BITMAPINFOHEADER const*>(
        ::LockResource(::LoadResource(AfxFindResourceHandle(MAKEINTRESOURCE(669), RT_BITMAP), found)));
    EXPECT_EQ(header->biBitCount, 8);
}

TEST_F(BitmapResource, OfTheThematicButtonsPointsDownAndThenUp)
{
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.LoadBitmap(669));
    const auto rows = Pixels(bitmap);
    const auto painted = [&](std::size_t row, std::size_t index) {
        auto const first = rows[row].begin() + static_cast<std::ptrdiff_t>(9 * index);
        return std::count_if(first, first + 9, [](COLORREF cr) { return cr != kMagenta; });
    };
    for (std::size_t i = 0; i < 3; ++i)
    {
        EXPECT_GT(painted(1, i), painted(5, i));
        EXPECT_LT(painted(2, i + 3), painted(6, i + 3));
    }
}

struct CursorRow
{
    const char* name;
    UINT id;
    POINT hotSpot;
};

void PrintTo(const CursorRow& row, std::ostream* out) { *out << row.name; }

class CursorResource : public support::WindowTest, public testing::WithParamInterface<CursorRow>
{
};

TEST_P(CursorResource, IsThirtyTwoPixelsSquareWithItsHotSpot)
{
    HINSTANCE const module = AfxFindResourceHandle(MAKEINTRESOURCE(GetParam().id), RT_GROUP_CURSOR);
    EXPECT_EQ(module, ::GetModuleHandleA("TavKit.dll"));
    HCURSOR const cursor = ::LoadCursorA(module, MAKEINTRESOURCEA(GetParam().id));
    ASSERT_NE(cursor, nullptr);
    ICONINFO info{};
    ASSERT_TRUE(::GetIconInfo(cursor, &info));
    EXPECT_FALSE(info.fIcon);
    if (GetParam().hotSpot.x >= 0)
    {
        EXPECT_EQ(info.xHotspot, static_cast<DWORD>(GetParam().hotSpot.x));
        EXPECT_EQ(info.yHotspot, static_cast<DWORD>(GetParam().hotSpot.y));
    }
    BITMAP mask{};
    ::GetObjectA(info.hbmMask, sizeof mask, &mask);
    EXPECT_EQ(mask.bmWidth, 32);
    EXPECT_EQ(info.hbmColor != nullptr ? mask.bmHeight : mask.bmHeight / 2, 32);
    constexpr COLORREF kBehind = RGB(90, 120, 200);
    Picture picture(32, 32, kBehind);
    ::DrawIconEx(picture.Handle(), 0, 0, cursor, 32, 32, 0, nullptr, DI_NORMAL);
    EXPECT_FALSE(picture.Painted().IsRectEmpty());
    EXPECT_EQ(picture.At(31, 0), kBehind) << "transparent around the shape";
    ::DeleteObject(info.hbmMask);
    ::DeleteObject(info.hbmColor);
    AllowGdiGrowth("a cursor that was loaded from a module is kept for the life of the process");
}

INSTANTIATE_TEST_SUITE_P(Table, CursorResource,
                         testing::Values(CursorRow{"Grab", 104, {12, 14}}, CursorRow{"Magnifier", 105, {9, 10}},
                                         CursorRow{"ThematicHand", 6012, {-1, -1}}), // its hot spot isn't fixed
                         [](const auto& info) { return info.param.name; });

TEST(StringResources, AreFoundByNumber)
{
    const std::array<std::pair<UINT, const char*>, 4> rows{
        {{100, "No Item Selected"}, {101, "True"}, {102, "False"}, {103, "Select an item to see its description"}}};
    for (const auto& [id, expected] : rows)
    {
        CString text;
        EXPECT_TRUE(text.LoadString(id));
        EXPECT_STREQ(text, expected);
    }
}

TEST(StringResources, OfAnUnknownNumberAreRefused)
{
    CString text;
    EXPECT_FALSE(text.LoadString(104));
}

} // namespace
