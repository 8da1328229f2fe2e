// NativeFileDlgTroubleTest.cpp - a question for files under bad conditions
#include "NativeFileDlgFixture.h"

#include <functional>

namespace
{

using support::FindFileDialog;
using support::ModalScript;
using support::PressButton;
using support::SetFileName;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// Acts when the user is told something, and takes the text down.
class ActingReceiver : public Report::Receiver
{
public:
    explicit ActingReceiver(std::function<void()> act) : m_act(std::move(act)) {}
    void OnReport(Report::Kind, char const* text) override
    {
        m_texts.emplace_back(text);
        m_act();
    }
    std::vector<std::string> m_texts;

private:
    std::function<void()> m_act;
};

/// Folders inside one another whose path has that length, without a closing separator.
class DeepFolder
{
public:
    DeepFolder(std::string const& base, size_t length)
    {
        std::string path = base; // ends with a separator
        while (path.size() < length)
        {
            const size_t rest = length - path.size();
            const size_t part = rest <= 100 ? rest : (rest == 101 ? 50 : 100);
            path += std::string(part, 'd');
            if (::CreateDirectoryW(Long(path).c_str(), nullptr))
            {
                m_made.push_back(path);
            }
            if (path.size() < length)
            {
                path += '\\';
            }
        }
        m_path = path;
    }
    ~DeepFolder()
    {
        for (auto made = m_made.rbegin(); made != m_made.rend(); ++made)
        {
            ::RemoveDirectoryW(Long(*made).c_str());
        }
    }
    DeepFolder(DeepFolder const&) = delete;
    DeepFolder& operator=(DeepFolder const&) = delete;

    [[nodiscard]] std::string const& Path() const { return m_path; }

private:
    static std::wstring Long(std::string const& path) { return L"\\\\?\\" + std::wstring(path.begin(), path.end()); }

    std::string m_path;
    std::vector<std::string> m_made;
};

} // namespace

TEST_F(NativeFileDlg, ASelectionThatDoesNotFitIsReportedAndGivesNothing)
{
    m_dlg.SetMultipleFiles();
    m_dlg.SetFormat(&m_tables);
    std::string names;
    int bytes = 0;
    for (int i = 0; bytes <= FileDlg::kSelectionSize; ++i)
    {
        const std::string name = std::string(196, 'n') + std::to_string(1000 + i) + ".tif";
        bytes += static_cast<int>(name.size()) + 1;
        m_folder.Write(name, "");
        names += '"' + name + "\" ";
    }
    EXPECT_FALSE(Ask([&](HWND dialog) { SetFileName(dialog, names); }));
    EXPECT_THAT(m_told.m_texts,
                ElementsAre("warning: FileDlg::OpenMFCFileDlg: too many files, their names take more than 32768 "
                            "characters"));
    EXPECT_THAT(m_dlg.Files(), IsEmpty());
    EXPECT_EQ(m_dlg.GetFormat(), &m_tables);
    EXPECT_EQ(History(), "(nothing)");
    EXPECT_TRUE(Ask([&](HWND dialog) { SetFileName(dialog, "a.tif"); })) << "it can be asked again";
}

TEST_F(NativeFileDlg, AFewHundredFilesFit)
{
    m_dlg.SetMultipleFiles();
    std::string names;
    for (int i = 0; i < 300; ++i)
    {
        const std::string name = std::string(80, 'n') + std::to_string(1000 + i) + ".tif";
        m_folder.Write(name, "");
        names += '"' + name + "\" ";
    }
    EXPECT_TRUE(Ask([&](HWND dialog) { SetFileName(dialog, names); }));
    EXPECT_THAT(m_dlg.Files(), SizeIs(300));
    EXPECT_EQ(m_dlg.Files().back(), m_folder.Path(std::string(80, 'n') + "1299.tif"));
    EXPECT_THAT(m_told.m_texts, IsEmpty());
}

TEST_F(NativeFileDlg, APanelThatIsNotThereIsReported)
{
    m_dlg.SetDlgTmplId(9999);
    EXPECT_FALSE(Open());
    EXPECT_THAT(m_told.m_texts, ElementsAre("warning: FileDlg::OpenMFCFileDlg: the dialog template is not there"));
}

TEST_F(NativeFileDlg, AFilterThatIsABarAloneIsTaken)
{
    ModalScript script;
    script
        .Then(FindFileDialog,
              [](HWND dialog) {
                  SetFileName(dialog, "c.csv");
                  PressButton(dialog, IDOK);
              })
        .Start();
    EXPECT_TRUE(m_dlg.OpenMFCFileDlg(FileDlg::kLoad, "|", 0, nullptr, kKey));
    EXPECT_TRUE(script.Done());
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("c.csv")));
}

TEST_F(NativeFileDlg, AFileWithAPathAsLongAsOneMayBeIsChosen)
{
    constexpr size_t kLongest = 259;
    const std::string name = "\\f.tif";
    const DeepFolder deep(m_folder.Path(), kLongest - name.size());
    const std::string path = deep.Path() + name;
    const HANDLE file = ::CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    ::CloseHandle(file);
    EXPECT_TRUE(Ask([&](HWND dialog) { SetFileName(dialog, path); }));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(path));
    EXPECT_EQ(History(), deep.Path() + "\\");
    ::SetCurrentDirectoryA(m_folder.Path().c_str());
    ::DeleteFileA(path.c_str());
}

TEST_F(NativeFileDlg, ThePanelShowsAHistoryOfAMegabyte)
{
    constexpr size_t kMegabyte = 1 << 20;
    std::vector<std::string> folders;
    std::string history;
    while (history.size() < kMegabyte)
    {
        folders.push_back("C:\\" + std::string(200, 'd') + std::to_string(folders.size()));
        history += folders.back() + ";";
    }
    SetFolders(history);
    LookAt([&](HWND dialog) { EXPECT_EQ(FolderTexts(dialog), folders); });
    EXPECT_THAT(m_told.m_texts, IsEmpty());
}

TEST_F(NativeFileDlg, AFileInPlaceOfAFolderIsNotWhereItBegins)
{
    m_dlg.SetInitFile((m_folder.Path("a.tif") + "\\b.tif").c_str());
    SetFolders(m_folder.Path("a.tif"));
    const std::string target = m_folder.Path("c.csv");
    EXPECT_TRUE(Ask([&](HWND dialog) {
        EXPECT_EQ(support::FileName(dialog), "b.tif");
        SetFileName(dialog, target);
    }));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(target));
}

TEST_F(NativeFileDlg, AFolderThatGoesWhileTheDialogIsUpLeavesItUp)
{
    SetFolders(m_sub + ";" + m_folder.Path());
    m_dlg.SetInitFile((m_sub + "\\").c_str());
    const std::string target = m_folder.Path("a.tif");
    EXPECT_TRUE(Ask([&](HWND dialog) {
        ::SetCurrentDirectoryA(m_folder.Path().c_str());
        EXPECT_TRUE(::RemoveDirectoryA(m_sub.c_str()));
        PickFolder(dialog, 0);
        EXPECT_THAT(m_told.m_texts, ElementsAre("notice: Folder '" + m_sub + "' not found"));
        SetFileName(dialog, target);
    }));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(target));
}

TEST_F(NativeFileDlg, BeginsInTheLongestFolderThatHasRoomForAFile)
{
    const DeepFolder deep(m_folder.Path(), 257);
    m_dlg.SetInitFile((deep.Path() + "\\").c_str());
    SetFolders(deep.Path());
    LookAt([&](HWND dialog) {
        EXPECT_EQ(support::ShownFolder(dialog), deep.Path());
        EXPECT_EQ(PickedFolder(dialog), 0);
    });
    ::SetCurrentDirectoryA(m_folder.Path().c_str());
}

TEST_F(NativeFileDlg, AFolderAsLongAsAPathMayBeIsNotWhereItBeginsButCanBeGoneTo)
{
    const DeepFolder deep(m_folder.Path(), 259);
    m_dlg.SetInitFile((deep.Path() + "\\").c_str());
    SetFolders(deep.Path());
    const std::string target = m_folder.Path("a.tif");
    EXPECT_TRUE(Ask([&](HWND dialog) {
        EXPECT_NE(support::ShownFolder(dialog), deep.Path());
        PickFolder(dialog, 0);
        EXPECT_EQ(support::ShownFolder(dialog), deep.Path());
        SetFileName(dialog, target);
    }));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(target));
    ::SetCurrentDirectoryA(m_folder.Path().c_str());
}

TEST_F(NativeFileDlg, AFolderLongerThanAPathMayBeIsNotWhereItBegins)
{
    const DeepFolder deep(m_folder.Path(), 400);
    m_dlg.SetInitFile((deep.Path() + "\\").c_str());
    SetFolders(deep.Path());
    const std::string target = m_folder.Path("a.tif");
    EXPECT_TRUE(Ask([&](HWND dialog) {
        EXPECT_THAT(FolderTexts(dialog), ElementsAre(deep.Path()));
        PickFolder(dialog, 0);
        EXPECT_THAT(m_told.m_texts, ElementsAre("notice: Folder '" + deep.Path() + "' not found"));
        SetFileName(dialog, target);
    }));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(target));
}

TEST_F(NativeFileDlg, ANameLongerThanTheSelectionMayBeIsLeftOut)
{
    m_dlg.SetInitFile((m_folder.Path() + std::string(40000, 'n')).c_str());
    LookAt([](HWND dialog) { EXPECT_EQ(support::FileName(dialog), ""); });
}

TEST_F(NativeFileDlg, ATypedNameOfAnyLengthSurvivesGoingToAFolder)
{
    SetFolders(m_sub);
    LookAt([&](HWND dialog) {
        SetFileName(dialog, std::string(2000, 'n'));
        PickFolder(dialog, 0);
        EXPECT_EQ(support::ShownFolder(dialog), m_sub);
        EXPECT_EQ(support::FileName(dialog), std::string(519, 'n')) << "the rest isn't kept";
    });
}

TEST_F(NativeFileDlg, AFolderOfTheCategoryThatIsAFileIsChosen)
{
    SetFolders(m_folder.Path("b.tif"));
    ModalScript script;
    script.Then(FindFileDialog, [](HWND dialog) { PickFolder(dialog, 0); }).Start();
    EXPECT_TRUE(Open());
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("b.tif")));
}

TEST_F(NativeFileDlg, ADialogDestroyedFromOutsideGivesNothing)
{
    ModalScript script;
    script.Then(FindFileDialog, [](HWND dialog) { ::DestroyWindow(dialog); }).Start();
    EXPECT_FALSE(Open());
    EXPECT_TRUE(script.Done());
    EXPECT_THAT(m_dlg.Files(), IsEmpty());
    EXPECT_THAT(m_told.m_texts, IsEmpty());
    EXPECT_TRUE(Ask([](HWND dialog) { SetFileName(dialog, "a.tif"); }));
}

TEST_F(NativeFileDlg, ADialogDestroyedWhileTheUserIsToldGivesNothing)
{
    SetFolders("C:\\tavkit gone");
    ActingReceiver receiver([] { ::DestroyWindow(FindFileDialog()); });
    const Report::ReceiverScope scope(receiver);
    ModalScript script;
    script.Then(FindFileDialog, [](HWND dialog) { PickFolder(dialog, 0); }).Start();
    EXPECT_FALSE(Open());
    EXPECT_TRUE(script.Done());
    EXPECT_THAT(receiver.m_texts, ElementsAre("Folder 'C:\\tavkit gone' not found"));
}

TEST_F(NativeFileDlg, APanelThatIsDestroyedLeavesTheOptionsAsTheyWere)
{
    DString options("page=1");
    m_dlg.SetOptions(options);
    EXPECT_TRUE(Ask([](HWND dialog) {
        ::DestroyWindow(PanelOf(dialog));
        SetFileName(dialog, "a.tif");
    }));
    EXPECT_THAT(m_dlg.Files(), ElementsAre(m_folder.Path("a.tif?page=1")));
}

TEST_F(NativeFileDlg, ALockedDialogThatIsDestroyedUnlocksTheThread)
{
    m_dlg.SetNoChangeDir();
    ModalScript script;
    script.Then(FindFileDialog, [](HWND dialog) { ::DestroyWindow(dialog); }).Start();
    EXPECT_FALSE(Open());
    NativeQuestion open;
    open.SetInitFile(m_folder.Path().c_str());
    ModalScript second;
    second
        .Then(FindFileDialog,
              [](HWND dialog) {
                  ::SendMessageA(support::FileListOf(dialog), LVM_GETSELECTEDCOUNT, 0, 0);
                  EXPECT_THAT(support::FileListTexts(dialog), testing::Contains("sub"));
                  PressButton(dialog, IDCANCEL);
              })
        .Start();
    EXPECT_FALSE(open.OpenMFCFileDlg(FileDlg::kLoad, kFilter, 0, nullptr, ""));
    EXPECT_TRUE(second.Done());
}
