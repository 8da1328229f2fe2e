// FileQuestionTest.cpp - what the system's file dialog is asked, and what becomes of its answer
#include "tavkit/filedlg/FileQuestion.h"
#include "tavkit/filedlg/FormatCatalogue.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <string>
#include <vector>

namespace
{

using namespace tavkit;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StrEq;

DVectorSafe<DString> Folders(std::initializer_list<char const*> texts)
{
    DVectorSafe<DString> folders;
    for (char const* text : texts)
    {
        folders.Append(text);
    }
    return folders;
}

bool Grants(char const*, Access) { return true; }

/// The question for a file to begin with, every folder being accessible.
FileQuestion Asked(char const* initFile, std::initializer_list<char const*> folders = {}, int mode = 0)
{
    FileSetup setup;
    setup.mode = mode;
    setup.initFile = initFile;
    return MakeFileQuestion(setup, Folders(folders), Grants);
}

/// Plays the dialog and the stores, and writes down what happens.
class FileRoad
{
public:
    [[nodiscard]] bool Go()
    {
        FileServices services;
        services.folders = [&](char const* key) {
            m_steps.push_back(std::string("folders of ") + (key ? key : "nothing"));
            return m_folders;
        };
        services.access = [&](char const* path, Access right) {
            m_steps.push_back((right == Access::Write ? "write " : "read ") + std::string(path));
            return m_granted;
        };
        services.ask = [&](FileQuestion const& question, FileAnswer& answer) {
            m_steps.emplace_back("ask");
            m_question = question;
            answer = m_answer;
            return m_ok;
        };
        services.take = [&](FileAnswer const& answer) {
            m_steps.emplace_back("take");
            m_taken = answer;
            return m_taking;
        };
        services.remember = [&](char const* key) { m_steps.push_back("remember " + std::string(key)); };
        return AskForFiles(m_setup, services);
    }

    FileSetup m_setup;
    DVectorSafe<DString> m_folders;
    FileAnswer m_answer;
    bool m_granted = true;
    bool m_ok = true;
    bool m_taking = true;

    std::vector<std::string> m_steps;
    FileQuestion m_question;
    FileAnswer m_taken;
};

} // namespace

TEST(FileQuestion, LoadsInModeZeroAndSavesInEveryOther)
{
    EXPECT_TRUE(Asked("", {}, 0).open);
    EXPECT_FALSE(Asked("", {}, 1).open);
    EXPECT_FALSE(Asked("", {}, 2).open);
    EXPECT_FALSE(Asked("", {}, -1).open);
}

TEST(FileQuestion, HandsOnWhatTheCallerSet)
{
    FileSetup setup;
    setup.filter = "Pictures|*.tif||";
    setup.index = 2;
    setup.defExt = "*.tif";
    setup.caption = "Load Something...";
    setup.options = "page=1";
    setup.templateId = 6103;
    setup.several = true;
    setup.overwritePrompt = false;
    const FileQuestion question = MakeFileQuestion(setup, {}, Grants);
    EXPECT_THAT(question.filter, StrEq("Pictures|*.tif||"));
    EXPECT_EQ(question.filterIndex, 3U) << "the system counts from 1";
    EXPECT_THAT(question.extension.c_str(), StrEq("tif"));
    EXPECT_THAT(question.title.c_str(), StrEq("Load Something..."));
    EXPECT_THAT(question.options.c_str(), StrEq("page=1"));
    EXPECT_EQ(question.templateId, 6103);
    EXPECT_TRUE(question.several);
    EXPECT_FALSE(question.overwritePrompt);
    EXPECT_FALSE(question.locked);
}

TEST(FileQuestion, AsksBeforeOverwritingOneFileUnlessToldOtherwise)
{
    const FileQuestion question = Asked("");
    EXPECT_TRUE(question.overwritePrompt);
    EXPECT_FALSE(question.several);
    EXPECT_FALSE(question.locked);
}

TEST(FileQuestion, TakesNullTextsForEmptyOnes)
{
    FileSetup setup;
    setup.filter = setup.defExt = setup.key = setup.caption = setup.initFile = setup.options = nullptr;
    const FileQuestion question = MakeFileQuestion(setup, {}, Grants);
    EXPECT_EQ(question.filter, nullptr);
    EXPECT_TRUE(question.extension.IsEmpty());
    EXPECT_TRUE(question.title.IsEmpty());
    EXPECT_TRUE(question.options.IsEmpty());
    EXPECT_TRUE(question.startFolder.IsEmpty());
    EXPECT_TRUE(question.startName.IsEmpty());
    EXPECT_FALSE(question.showFolders);
}

TEST(FileQuestion, SplitsTheFileToBeginWith)
{
    struct Expected
    {
        char const* initFile;
        char const* folder;
        char const* name;
    };
    const Expected table[] = {
        {"C:\\a\\b.tif", "C:\\a\\", "b.tif"},
        {"C:\\a\\b.tif?page=2", "C:\\a\\", "b.tif"},
        {"C:/a/b.tif", "C:/a/", "b.tif"},
        {"b.tif", "", "b.tif"},
        {"C:\\a\\", "C:\\a\\", ""},
        {"", "", ""},
        {".", "", ""},
        {"..", "", ""},
        {"C:\\a\\.", "C:\\a\\", ""},
        {"C:\\a\\..", "C:\\a\\", ""},
        {"...", "", "..."},
    };
    for (Expected const& each : table)
    {
        const FileQuestion question = Asked(each.initFile);
        EXPECT_THAT(question.startFolder.c_str(), StrEq(each.folder)) << each.initFile;
        EXPECT_THAT(question.startName.c_str(), StrEq(each.name)) << each.initFile;
    }
}

TEST(FileQuestion, BeginsInTheFirstFolderOfTheCategoryWhenTheFileNamesNone)
{
    EXPECT_THAT(Asked("b.tif", {"C:\\new", "C:\\old"}).startFolder.c_str(), StrEq("C:\\new"));
    EXPECT_THAT(Asked(".", {"C:\\new"}).startFolder.c_str(), StrEq("C:\\new"));
    EXPECT_THAT(Asked("C:\\a\\b.tif", {"C:\\new"}).startFolder.c_str(), StrEq("C:\\a\\"));
    EXPECT_THAT(Asked("b.tif").startFolder.c_str(), StrEq(""));
}

TEST(FileQuestion, LeavesTheFolderToTheSystemIfTheFirstOneIsRefused)
{
    std::vector<std::string> tested;
    FileSetup setup;
    const AccessTest refuseFirst = [&](char const* path, Access right) {
        EXPECT_EQ(right, Access::Read);
        tested.emplace_back(path);
        return std::string(path) != "C:\\gone";
    };
    EXPECT_TRUE(MakeFileQuestion(setup, Folders({"C:\\gone", "C:\\there"}), refuseFirst).startFolder.IsEmpty());
    EXPECT_THAT(tested, ElementsAre("C:\\gone")) << "no further one is tried";
    setup.initFile = "C:\\gone\\b.tif";
    EXPECT_THAT(
        MakeFileQuestion(setup, Folders({"C:\\there"}), [](char const*, Access) { return false; }).startName.c_str(),
        StrEq("b.tif"))
        << "the name stands without its folder";
}

TEST(FileQuestion, AFolderThatCantBeWrittenIsNotWhereASaveBegins)
{
    const AccessTest readOnly = [](char const*, Access right) { return right == Access::Read; };
    for (const int mode : {0, 1, 2})
    {
        FileSetup setup;
        setup.mode = mode;
        const FileQuestion question = MakeFileQuestion(setup, Folders({"C:\\cd"}), readOnly);
        EXPECT_THAT(question.startFolder.c_str(), StrEq(mode == 0 ? "C:\\cd" : ""));
    }
}

TEST(FileQuestion, DoesntAskForRightsToNoFolder)
{
    const FileQuestion question = MakeFileQuestion(FileSetup(), {}, [](char const*, Access) {
        ADD_FAILURE() << "there is no folder to test";
        return true;
    });
    EXPECT_TRUE(question.startFolder.IsEmpty());
}

TEST(FileQuestion, ANameGetsTheExtensionOfTheFirstPatternUnlessThatIsOpen)
{
    struct Expected
    {
        char const* defExt;
        char const* extension;
    };
    const Expected table[] = {
        {"*.tif", "tif"},  {"tif", "tif"}, {".tif", "tif"}, {"*.dcp;*.dpr", "dcp"}, {"*.tar.gz", "tar.gz"},
        {"*.*", ""},       {"*", ""},      {"*.ti?", ""},   {"*.tif*", ""},         {"", ""},
        {"*.*;*.tif", ""}, {";", ""},      {"*.", ""},      {nullptr, ""},
    };
    for (Expected const& each : table)
    {
        EXPECT_THAT(DefaultExtension(each.defExt).c_str(), StrEq(each.extension)) << (each.defExt ? each.defExt : "");
    }
}

TEST(FileQuestion, BeginsInNoFolderThatHasNoRoomForAFileName)
{
    const std::string longest = "C:\\" + std::string(254, 'd');
    EXPECT_THAT(Asked((longest + "\\").c_str()).startFolder.c_str(), StrEq(longest + "\\"));
    EXPECT_THAT(Asked((longest + "d\\a.tif").c_str()).startFolder.c_str(), StrEq(""));
    EXPECT_THAT(Asked((longest + "d\\a.tif").c_str()).startName.c_str(), StrEq("a.tif"));
    EXPECT_THAT(Asked("", {longest.c_str()}).startFolder.c_str(), StrEq(longest));
    EXPECT_THAT(Asked("", {(longest + "d").c_str()}).startFolder.c_str(), StrEq(""));
}

TEST(FileQuestion, ASelectionThatIsCutIsNotWhole)
{
    char buffer[8] = {};
    EXPECT_TRUE(IsWholeSelection(buffer));
    for (const std::string& written : {std::string("C:\\\0a\0\0", 7), std::string("C:\\\0ab\0\0", 8)})
    {
        std::fill(std::begin(buffer), std::end(buffer), '\0');
        std::copy(written.begin(), written.end(), buffer);
        EXPECT_TRUE(IsWholeSelection(buffer));
    }
    for (const std::string& cut :
         {std::string("C:\\\0abc\0", 8), std::string("C:\\\0ab\0c", 8), std::string("C:\\\0abcd", 8)})
    {
        std::copy(cut.begin(), cut.end(), buffer);
        EXPECT_FALSE(IsWholeSelection(buffer));
    }
    EXPECT_TRUE(IsWholeSelection({}));
    EXPECT_FALSE(IsWholeSelection(std::span<char const>("a", 1)));
}

TEST(FileQuestion, OffersTheFoldersOfACategoryUnlessItIsLocked)
{
    FileSetup setup;
    const DVectorSafe<DString> folders = Folders({"C:\\a", "C:\\b\\"});
    EXPECT_FALSE(MakeFileQuestion(setup, folders, Grants).showFolders);
    EXPECT_TRUE(MakeFileQuestion(setup, folders, Grants).folders.IsEmpty());
    setup.key = "ImageFolders";
    const FileQuestion open = MakeFileQuestion(setup, folders, Grants);
    EXPECT_TRUE(open.showFolders);
    ASSERT_EQ(open.folders.GetCount(), 2);
    EXPECT_THAT(open.folders[1].c_str(), StrEq("C:\\b\\")) << "as they are stored";
    setup.locked = true;
    const FileQuestion locked = MakeFileQuestion(setup, folders, Grants);
    EXPECT_TRUE(locked.locked);
    EXPECT_FALSE(locked.showFolders);
    EXPECT_TRUE(locked.folders.IsEmpty());
    EXPECT_THAT(locked.startFolder.c_str(), StrEq("C:\\a")) << "it begins there all the same";
}

TEST(FileQuestion, AFilterStandsForTheFormatAtItsPlace)
{
    FormatOffer offer;
    EXPECT_EQ(FormatOfFilter(offer, 1), nullptr);
    offer.Append(&FileFrmtAll);
    offer.Append(&FileFrmtCSV);
    EXPECT_EQ(FormatOfFilter(offer, 0), nullptr);
    EXPECT_EQ(FormatOfFilter(offer, 1), &FileFrmtAll);
    EXPECT_EQ(FormatOfFilter(offer, 2), &FileFrmtCSV);
    EXPECT_EQ(FormatOfFilter(offer, 3), nullptr);
    EXPECT_EQ(FormatOfFilter(offer, 0x80000001U), nullptr);
}

TEST(FileQuestion, IsAskedTakenAndRememberedInThisOrder)
{
    FileRoad road;
    road.m_setup.key = "ImageFolders";
    road.m_folders = Folders({"C:\\a"});
    road.m_answer.filterIndex = 4;
    road.m_answer.options = "page=2";
    road.m_answer.files.Append(DFile("C:\\a\\b.tif"));
    road.m_answer.editOnly = true;
    EXPECT_TRUE(road.Go());
    EXPECT_THAT(road.m_steps,
                ElementsAre("folders of ImageFolders", "read C:\\a", "ask", "take", "remember ImageFolders"));
    EXPECT_EQ(road.m_taken.filterIndex, 4U);
    EXPECT_THAT(road.m_taken.options.c_str(), StrEq("page=2"));
    ASSERT_EQ(road.m_taken.files.GetCount(), 1);
    EXPECT_TRUE(road.m_taken.editOnly);
    EXPECT_FALSE(road.m_taken.readOnly);
}

TEST(FileQuestion, CancelledChangesNothing)
{
    FileRoad road;
    road.m_setup.key = "ImageFolders";
    road.m_ok = false;
    EXPECT_FALSE(road.Go());
    EXPECT_THAT(road.m_steps, ElementsAre("folders of ImageFolders", "ask"));
}

TEST(FileQuestion, AnAnswerThatComesToNothingIsNotRemembered)
{
    FileRoad road;
    road.m_setup.key = "ImageFolders";
    road.m_taking = false;
    EXPECT_FALSE(road.Go());
    EXPECT_THAT(road.m_steps, ElementsAre("folders of ImageFolders", "ask", "take"));
}

TEST(FileQuestion, RemembersNothingWithoutACategoryOrWhenLocked)
{
    for (char const* const key : {static_cast<char const*>(nullptr), ""})
    {
        FileRoad road;
        road.m_setup.key = key;
        EXPECT_TRUE(road.Go());
        EXPECT_THAT(road.m_steps, ElementsAre(key ? "folders of " : "folders of nothing", "ask", "take"));
    }
    FileRoad locked;
    locked.m_setup.key = "ImageFolders";
    locked.m_setup.locked = true;
    EXPECT_TRUE(locked.Go());
    EXPECT_THAT(locked.m_steps, ElementsAre("folders of ImageFolders", "ask", "take"));
}

TEST(FileQuestion, LeavesANameOutThatNoFileCanHave)
{
    for (char const* name : {"a<b", "a>b", "a|b", "a\"b", "a:b"})
    {
        EXPECT_TRUE(Asked((std::string("C:\\d\\") + name).c_str()).startName.IsEmpty()) << name;
    }
    const std::string longest(tavkit::kLongestStartName, 'n');
    EXPECT_EQ(Asked(("C:\\d\\" + longest).c_str()).startName.GetLength(), static_cast<int>(longest.size()));
    for (const std::size_t more : {std::size_t{1}, std::size_t{141}, std::size_t{40000}})
    {
        EXPECT_TRUE(Asked(("C:\\d\\" + longest + std::string(more, 'n')).c_str()).startName.IsEmpty()) << more;
    }
}
