// OpenerRulesTest.cpp - the titles of file dialogs and the path that they begin with
#include "tavkit/filedlg/OpenerRules.h"

#include <gmock/gmock.h>

#include <string>

using namespace tavkit;
using testing::IsNull;
using testing::StrEq;

namespace
{

constexpr Titles kTitles = {"load", "save"};
constexpr int kOtherModes[] = {2, 17, -1};

} // namespace

TEST(OpenerTitle, AlwaysReplacesAndTakesEveryModeButLoadingForSaving)
{
    for (const bool isTitled : {false, true})
    {
        EXPECT_THAT(TitleFor(kTitles, TitleRule::Always, 0, isTitled), StrEq("load"));
        EXPECT_THAT(TitleFor(kTitles, TitleRule::Always, 1, isTitled), StrEq("save"));
        for (const int mode : kOtherModes)
        {
            EXPECT_THAT(TitleFor(kTitles, TitleRule::Always, mode, isTitled), StrEq("save"));
        }
    }
}

TEST(OpenerTitle, ReplacesForLoadingAndSavingAlone)
{
    for (const bool isTitled : {false, true})
    {
        EXPECT_THAT(TitleFor(kTitles, TitleRule::LoadAndSave, 0, isTitled), StrEq("load"));
        EXPECT_THAT(TitleFor(kTitles, TitleRule::LoadAndSave, 1, isTitled), StrEq("save"));
        for (const int mode : kOtherModes)
        {
            EXPECT_THAT(TitleFor(kTitles, TitleRule::LoadAndSave, mode, isTitled), IsNull());
        }
    }
}

TEST(OpenerTitle, LeavesATitleThatIsThere)
{
    EXPECT_THAT(TitleFor(kTitles, TitleRule::IfEmpty, 0, false), StrEq("load"));
    EXPECT_THAT(TitleFor(kTitles, TitleRule::IfEmpty, 1, false), StrEq("save"));
    for (const int mode : {0, 1, 2, -1})
    {
        EXPECT_THAT(TitleFor(kTitles, TitleRule::IfEmpty, mode, true), IsNull());
    }
    for (const int mode : kOtherModes)
    {
        EXPECT_THAT(TitleFor(kTitles, TitleRule::IfEmpty, mode, false), IsNull());
    }
}

TEST(StartPath, ClosesTheFolderUnlessABackslashDoes)
{
    struct Case
    {
        char const* folder;
        char const* file;
        char const* path;
    };
    for (Case const& each :
         {Case{"C:\\a", "f", "C:\\a\\f"}, Case{"C:\\a\\", "f", "C:\\a\\f"}, Case{"a/", "f", "a/\\f"},
          Case{"C:", "f", "C:\\f"}, Case{".", "f", ".\\f"}, Case{"", "f", "f"}, Case{nullptr, "f", "f"},
          Case{"C:\\a", nullptr, "C:\\a\\"}, Case{"C:\\a", "", "C:\\a\\"}, Case{nullptr, nullptr, ""}})
    {
        EXPECT_THAT(PathIn(each.folder, each.file).c_str(), StrEq(each.path));
    }
}

TEST(StartPath, TakesFoldersOfAnyLength)
{
    const std::string folder(100000, 'x');
    EXPECT_EQ(PathIn(folder.c_str(), "f").c_str(), folder + "\\f");
}
