// TavListSaveTest.cpp - the contents of a row list as a table file, through the system's dialog
#include "TavListFixture.h"

#include "support/SystemFileDialog.h"
#include "support/TempFolder.h"

#include <initializer_list>

namespace
{

using support::FindBoxOver;
using support::FindFileDialog;
using support::ModalScript;
using support::PressButton;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kHistory[] = "Software\\TavKit\\Workbench\\DefaultFolders";

// Places of the formats in the dialog.
constexpr int kCsv = 0;
constexpr int kAscii = 1;
constexpr int kTransposed = 2;

/// Texts that are asked for; asking may be an event.
class AskedList : public CTavListCtrlVirtual
{
public:
    std::function<void()> m_onAsked = {};

    DString OnGetItemText(int row, int col) override
    {
        const std::string text = std::to_string(row) + "/" + std::to_string(col);
        if (m_onAsked)
        {
            std::exchange(m_onAsked, nullptr)();
        }
        return text.c_str();
    }
};

class TavListSave : public TavListTest
{
protected:
    void SetUp() override
    {
        support::WarmUpFileDialogs();
        TavListTest::SetUp();
        Clean();
    }
    void TearDown() override
    {
        Clean();
        TavListTest::TearDown();
    }
    static void Clean()
    {
        DfltFldrs::DeleteInstance();
        ::RegDeleteKeyA(HKEY_CURRENT_USER, kHistory);
    }

    void AddTypedColumns()
    {
        m_list->AddCol("Name", adiString, false, 80, LVCFMT_LEFT);
        m_list->AddCol("Count", adiInt, false, 80, LVCFMT_LEFT);
        m_list->AddCol("Area", adiDouble, false, 80, LVCFMT_LEFT);
    }
    void AddRows(std::initializer_list<char const*> rows)
    {
        for (char const* const row : rows)
        {
            m_list->AddRow(row, nullptr);
        }
    }

    /// Saves as the user does.
    /// @param filter  the format's place in the dialog
    void Save(CTavListCtrl& list, std::string const& name, int filter = kCsv)
    {
        ModalScript script;
        script
            .Then(FindFileDialog,
                  [&](HWND dialog) {
                      support::ChooseFilter(dialog, filter);
                      support::SetFileName(dialog, m_folder.Path(name));
                      PressButton(dialog, IDOK);
                  })
            .Start();
        list.SaveToFile();
        EXPECT_TRUE(script.Done());
    }
    /// Saves over a file, with a yes to the question about it.
    void SaveOver(std::string const& name)
    {
        ModalScript script;
        script
            .Then(FindFileDialog,
                  [&](HWND dialog) {
                      support::SetFileName(dialog, m_folder.Path(name));
                      PressButton(dialog, IDOK);
                  })
            .Then([] { return FindBoxOver(FindFileDialog()); }, [](HWND box) { PressButton(box, IDYES); })
            .Start();
        m_list->SaveToFile();
        EXPECT_TRUE(script.Done());
        AllowGdiGrowth("the system keeps the icon of its question");
    }

    support::TempFolder m_folder;
};

TEST_F(TavListSave, WritesTheCaptionsAndThenTheRowsWithNumbersInColumnsOfNumbers)
{
    AddTypedColumns();
    AddRows({"one|1|2.50", "two, \"2\"|+7 pieces|1e3 um", "three|many|wide", "|12.9|"});
    Save(*m_list, "out.csv");
    EXPECT_EQ(m_folder.Read("out.csv"), "Name,Count,Area\r\n"
                                        "one,1,2.5\r\n"
                                        "\"two, \"\"2\"\"\",7,1000\r\n"
                                        "three,0,0\r\n"
                                        ",12,0\r\n");
    EXPECT_THAT(m_folder.Names(), ElementsAre("out.csv")) << "nothing is left beside it";
}

TEST_F(TavListSave, TheWordsForNoValueStandAmongTheNumbers)
{
    AddTypedColumns();
    AddRows({"a|---|Undefined", "b|5|UNDEFINED", "---|undefined|0x10"});
    Save(*m_list, "out.csv");
    EXPECT_EQ(m_folder.Read("out.csv"), "Name,Count,Area\r\n"
                                        "a,---,Undefined\r\n"
                                        "b,5,UNDEFINED\r\n"
                                        "---,undefined,0\r\n");
}

TEST_F(TavListSave, ASortedListSavesSorted)
{
    AddTypedColumns();
    AddRows({"b|2|", "c|30|", "a|1|"});
    m_list->Sort(1, false);
    Save(*m_list, "out.csv");
    EXPECT_EQ(m_folder.Read("out.csv"), "Name,Count,Area\r\n"
                                        "c,30,0\r\n"
                                        "b,2,0\r\n"
                                        "a,1,0\r\n");
}

TEST_F(TavListSave, TheTransposedFormatWritesAColumnInALine)
{
    AddTypedColumns();
    AddRows({"a|1|0.5", "b|2|1.5"});
    Save(*m_list, "out.tcsv", kTransposed);
    EXPECT_EQ(m_folder.Read("out.tcsv"), "Name,a,b\r\n"
                                         "Count,1,2\r\n"
                                         "Area,0.5,1.5\r\n");
}

TEST_F(TavListSave, ATextFileIsWrittenAsCsvSinceItsFormatHasNoIdentifier)
{
    AddTypedColumns();
    AddRows({"a|1|0.5"});
    Save(*m_list, "out.txt", kAscii);
    EXPECT_EQ(m_folder.Read("out.txt"), "Name,Count,Area\r\na,1,0.5\r\n");
}

TEST_F(TavListSave, AListWithoutRowsSavesItsCaptions)
{
    AddTypedColumns();
    Save(*m_list, "out.csv");
    EXPECT_EQ(m_folder.Read("out.csv"), "Name,Count,Area\r\n");
}

TEST_F(TavListSave, AListWithoutColumnsWritesNoFile)
{
    Save(*m_list, "out.csv");
    EXPECT_THAT(m_folder.Names(), IsEmpty());
}

TEST_F(TavListSave, ALongCaptionIsCutAndALongCellIsnt)
{
    const std::string caption(600, 'c');
    const std::string cell(3000, 'x');
    m_list->AddCol(caption.c_str(), adiString, false, 80, LVCFMT_LEFT);
    m_list->AddRow();
    m_list->SetColText(0, cell.c_str());
    Save(*m_list, "out.csv");
    EXPECT_EQ(m_folder.Read("out.csv"), caption.substr(0, 511) + "\r\n" + cell + "\r\n");
}

TEST_F(TavListSave, TheDialogOffersTheThreeFormatsUnderItsTitle)
{
    AddTypedColumns();
    std::vector<std::string> formats;
    ModalScript script;
    script
        .Then(FindFileDialog,
              [&](HWND dialog) {
                  formats = support::FilterTexts(dialog);
                  char title[64] = "";
                  ::GetWindowTextA(dialog, title, sizeof title);
                  EXPECT_STREQ(title, "Save contents");
                  EXPECT_EQ(support::ChosenFilter(dialog), kCsv);
                  PressButton(dialog, IDCANCEL);
              })
        .Start();
    m_list->SaveToFile();
    ASSERT_TRUE(script.Done());
    EXPECT_THAT(formats, ElementsAre("Comma separated list files", "Ascii text files",
                                     "Comma separated list files (Transposed)"));
}

TEST_F(TavListSave, ACancelledDialogWritesNothing)
{
    AddTypedColumns();
    AddRows({"a|1|0.5"});
    m_folder.Write("out.csv", "old");
    ModalScript script;
    script
        .Then(FindFileDialog,
              [&](HWND dialog) {
                  support::SetFileName(dialog, m_folder.Path("out.csv"));
                  PressButton(dialog, IDCANCEL);
              })
        .Start();
    m_list->SaveToFile();
    EXPECT_TRUE(script.Done());
    EXPECT_THAT(m_folder.Names(), ElementsAre("out.csv"));
    EXPECT_EQ(m_folder.Read("out.csv"), "old");
}

TEST_F(TavListSave, AnOldFileIsReplaced)
{
    AddTypedColumns();
    AddRows({"a|1|0.5"});
    m_folder.Write("out.csv", std::string(10'000, 'o'));
    SaveOver("out.csv");
    EXPECT_EQ(m_folder.Read("out.csv"), "Name,Count,Area\r\na,1,0.5\r\n");
    EXPECT_THAT(m_folder.Names(), ElementsAre("out.csv"));
}

TEST_F(TavListSave, AnOldFileThatCantBeReplacedStaysWhole)
{
    AddTypedColumns();
    AddRows({"a|1|0.5"});
    const std::string path = m_folder.Write("out.csv", "old");
    const HANDLE held = ::CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    SaveOver("out.csv");
    ::CloseHandle(held);
    EXPECT_EQ(m_folder.Read("out.csv"), "old");
    EXPECT_THAT(m_folder.Names(), ElementsAre("out.csv"));
}

TEST_F(TavListSave, AListThatIsDestroyedWhileTheDialogIsUpWritesNothing)
{
    AddTypedColumns();
    AddRows({"a|1|0.5"});
    WatchedTavList& list = *m_list;
    ModalScript script;
    script
        .Then(FindFileDialog,
              [&](HWND dialog) {
                  m_list.reset();
                  support::SetFileName(dialog, m_folder.Path("out.csv"));
                  PressButton(dialog, IDOK);
              })
        .Start();
    list.SaveToFile();
    EXPECT_TRUE(script.Done());
    EXPECT_THAT(m_folder.Names(), IsEmpty());
}

TEST_F(TavListSave, AListWhoseWindowGoesWhileTheDialogIsUpLeavesTheOldFile)
{
    AddTypedColumns();
    AddRows({"a|1|0.5"});
    m_folder.Write("out.csv", "old");
    ModalScript script;
    script
        .Then(FindFileDialog,
              [&](HWND dialog) {
                  m_list->DestroyWindow();
                  support::SetFileName(dialog, m_folder.Path("out.csv"));
                  PressButton(dialog, IDOK);
              })
        .Then([] { return FindBoxOver(FindFileDialog()); }, [](HWND box) { PressButton(box, IDYES); })
        .Start();
    m_list->SaveToFile();
    EXPECT_TRUE(script.Done());
    EXPECT_EQ(m_folder.Read("out.csv"), "old");
    AllowGdiGrowth("the system keeps the icon of its question");
}

TEST_F(TavListSave, AListThatAsksForItsTextsSavesThem)
{
    AskedList list;
    ASSERT_TRUE(list.Create(kStyle | LVS_OWNERDATA, CRect(0, 0, kWidth, kHeight), m_frame.get(), kId + 1));
    list.AddCol("A", adiString, false, 80, LVCFMT_LEFT);
    list.AddCol("B", adiInt, false, 80, LVCFMT_LEFT);
    list.SetNumRow(3);
    Save(list, "out.csv");
    EXPECT_EQ(m_folder.Read("out.csv"), "A,B\r\n0/0,0\r\n1/0,1\r\n2/0,2\r\n");
}

TEST_F(TavListSave, AListThatIsDestroyedByTheAskingWritesNothing)
{
    auto list = std::make_unique<AskedList>();
    ASSERT_TRUE(
        list->Create((kStyle & ~WS_VISIBLE) | LVS_OWNERDATA, CRect(0, 0, kWidth, kHeight), m_frame.get(), kId + 1));
    list->AddCol("A", adiString, false, 80, LVCFMT_LEFT);
    list->AddCol("B", adiString, false, 80, LVCFMT_LEFT);
    list->SetNumRow(3);
    list->m_onAsked = [&] { list.reset(); };
    Save(*list, "out.csv");
    EXPECT_EQ(list, nullptr) << "it was asked";
    EXPECT_THAT(m_folder.Names(), IsEmpty());
}

TEST_F(TavListSave, AListWhoseWindowGoesWithTheAskingWritesNothing)
{
    AskedList list;
    ASSERT_TRUE(
        list.Create((kStyle & ~WS_VISIBLE) | LVS_OWNERDATA, CRect(0, 0, kWidth, kHeight), m_frame.get(), kId + 1));
    list.AddCol("A", adiString, false, 80, LVCFMT_LEFT);
    list.SetNumRow(3);
    list.m_onAsked = [&] { list.DestroyWindow(); };
    Save(list, "out.csv");
    EXPECT_EQ(list.m_hWnd, nullptr) << "it was asked";
    EXPECT_THAT(m_folder.Names(), IsEmpty());
}

} // namespace
