// FolderListTest.cpp - lists of folders as texts, and the bounded history
#include "tavkit/filedlg/FolderList.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{

using tavkit::Place;
using tavkit::PlaceOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StrEq;

using Folders = DVectorSafe<DString>;

Folders Of(std::vector<char const*> const& texts)
{
    Folders folders;
    for (char const* text : texts)
    {
        folders.Append(text);
    }
    return folders;
}

std::vector<std::string> Texts(Folders const& folders)
{
    std::vector<std::string> texts;
    for (DString const& folder : folders)
    {
        texts.emplace_back(folder.c_str());
    }
    return texts;
}

/// Tokens get brackets, "gone" becomes nothing.
void Mark(DString& entry)
{
    if (entry == "gone")
    {
        entry = "";
    }
    else if (PlaceOf(entry.c_str()) != Place::None)
    {
        entry = "<" + entry + ">";
    }
}

std::vector<std::string> History(char const* list)
{
    Folders folders;
    tavkit::AppendHistory(folders, list, Mark);
    return Texts(folders);
}

std::vector<std::string> Merged(std::vector<char const*> const& history, char const* defaults)
{
    Folders folders = Of(history);
    const int more = tavkit::CountDefaults(folders, defaults, Mark);
    tavkit::AppendDefaults(folders, defaults, Mark);
    EXPECT_EQ(folders.GetCount(), static_cast<int>(history.size()) + more);
    return Texts(folders);
}

} // namespace

TEST(FolderPlace, TheShellsTokensAreWholeEntriesWithoutRegardToCase)
{
    EXPECT_EQ(PlaceOf("Desktop"), Place::Desktop);
    EXPECT_EQ(PlaceOf("desktop"), Place::Desktop);
    EXPECT_EQ(PlaceOf("Desktop\\"), Place::None);
    EXPECT_EQ(PlaceOf("Desktop\\Work"), Place::None);
    EXPECT_EQ(PlaceOf("My Documents"), Place::Documents);
    EXPECT_EQ(PlaceOf("MY DOCUMENTS"), Place::Documents);
    EXPECT_EQ(PlaceOf("My Documents "), Place::None);
    EXPECT_EQ(PlaceOf(" Desktop"), Place::None);
    EXPECT_EQ(PlaceOf(""), Place::None);
    EXPECT_EQ(PlaceOf("C:\\Desktop"), Place::None);
}

TEST(FolderPlace, TheInstallationFolderIsKnownByItsFirstTenLettersWhateverFollows)
{
    EXPECT_EQ(PlaceOf("InstallDir"), Place::InstallDir);
    EXPECT_EQ(PlaceOf("INSTALLDIR\\x"), Place::InstallDir);
    EXPECT_EQ(PlaceOf("installdirectory"), Place::InstallDir);
    EXPECT_EQ(PlaceOf("InstallDi"), Place::None);
}

TEST(FolderPlace, TheTailStaysBehindTheInstallationFolderWithoutItsSeparators)
{
    EXPECT_THAT(tavkit::InstalledPath("C:\\App\\", "InstallDir\\Examples").c_str(), StrEq("C:\\App\\Examples"));
    EXPECT_THAT(tavkit::InstalledPath("C:\\App/\\//", "installdirectory").c_str(), StrEq("C:\\Appectory"));
    EXPECT_THAT(tavkit::InstalledPath("C:\\App\\", "InstallDir").c_str(), StrEq("C:\\App"));
    EXPECT_THAT(tavkit::InstalledPath("", "InstallDir\\x").c_str(), StrEq("\\x"));
}

TEST(FolderHistory, KeepsItsOrderAndItsDuplicatesAndDropsEmptyPieces)
{
    EXPECT_THAT(History("a;;b"), ElementsAre("a", "b"));
    EXPECT_THAT(History("a;a"), ElementsAre("a", "a"));
    EXPECT_THAT(History(";a;"), ElementsAre("a"));
    EXPECT_THAT(History(" a ;b"), ElementsAre(" a ", "b")) << "blanks belong to the name";
    EXPECT_THAT(History("Desktop;x;InstallDir\\y"), ElementsAre("<Desktop>", "x", "<InstallDir\\y>"));
    EXPECT_THAT(History(""), IsEmpty());
    EXPECT_THAT(History(";;;"), IsEmpty());
}

TEST(FolderHistory, AnEntryThatTranslatesToNothingStays) { EXPECT_THAT(History("a;gone"), ElementsAre("a", "")); }

TEST(FolderDefaults, ComeBehindTheHistoryAndOnlyOnce)
{
    EXPECT_THAT(Merged({}, "a;a"), ElementsAre("a"));
    EXPECT_THAT(Merged({}, "a;A"), ElementsAre("a"));
    EXPECT_THAT(Merged({"C:\\One", "C:\\Two"}, "c:\\two;C:\\Three;desktop"),
                ElementsAre("C:\\One", "C:\\Two", "C:\\Three", "<desktop>"));
    EXPECT_THAT(Merged({"b", "b"}, "a"), ElementsAre("b", "b", "a")) << "the history's own duplicates stay";
    EXPECT_THAT(Merged({"b"}, ""), ElementsAre("b"));
}

TEST(FolderDefaults, LettersOutsideSevenBitsAreComparedAsTheyAre)
{
    EXPECT_THAT(Merged({"\xC4pfel"}, "\xE4pfel"), ElementsAre("\xC4pfel", "\xE4pfel"));
}

TEST(FolderDefaults, AnEntryThatTranslatesToNothingIsLeftOut)
{
    EXPECT_THAT(Merged({}, "gone;a;;gone"), ElementsAre("a"));
}

TEST(FolderDefaults, AMegabyteOfEntriesIsMergedInNoTimeToSpeakOf)
{
    std::string list;
    int entries = 0;
    for (; list.size() < (1u << 20); ++entries)
    {
        list += "C:\\" + std::to_string(entries) + ";c:\\" + std::to_string(entries) + ";";
    }
    Folders folders;
    tavkit::AppendDefaults(folders, list.c_str(), Mark);
    EXPECT_EQ(folders.GetCount(), entries);
    const DString joined = tavkit::JoinFolders(folders);
    EXPECT_EQ(std::ranges::count(std::string_view(joined.c_str()), ';'), entries - 1);
}

TEST(FolderText, IsTheEntriesJoinedWithoutASeparatorAtTheEnd)
{
    EXPECT_THAT(tavkit::JoinFolders(Of({"a", "b", "c"})).c_str(), StrEq("a;b;c"));
    EXPECT_THAT(tavkit::JoinFolders(Of({"a"})).c_str(), StrEq("a"));
    EXPECT_THAT(tavkit::JoinFolders({}).c_str(), StrEq(""));
}

TEST(FolderHistory, ANewFolderGoesToTheFront)
{
    Folders history = Of({"a", "b"});
    tavkit::PutToFront(history, 4, "c");
    EXPECT_THAT(Texts(history), ElementsAre("c", "a", "b"));
}

TEST(FolderHistory, AnOldFolderMovesToTheFrontInItsNewLetterCase)
{
    Folders history = Of({"a", "b", "B"});
    tavkit::PutToFront(history, 9, "B");
    EXPECT_THAT(Texts(history), ElementsAre("B", "a", "B")) << "the first match alone goes";
}

TEST(FolderHistory, AFullListLosesItsOldestFolder)
{
    Folders history = Of({"a", "b"});
    tavkit::PutToFront(history, 10, "c");
    EXPECT_THAT(Texts(history), ElementsAre("c", "a"));
}

TEST(FolderHistory, AFullListWithoutHistoryLosesNothing)
{
    Folders history;
    tavkit::PutToFront(history, 12, "c");
    EXPECT_THAT(Texts(history), ElementsAre("c"));
}

TEST(FolderHistory, PickingAnOldFolderInAFullListShrinksIt)
{
    Folders history = Of({"1", "2", "3", "4", "5", "6", "7", "8"});
    tavkit::PutToFront(history, 10, "2");
    EXPECT_THAT(Texts(history), ElementsAre("2", "1", "3", "4", "5", "6", "7"));
}

TEST(FolderHistory, TheOldestFolderItselfGoesBeforeItIsLookedFor)
{
    Folders history = Of({"a", "b", "c"});
    tavkit::PutToFront(history, 10, "C");
    EXPECT_THAT(Texts(history), ElementsAre("C", "a", "b"));
}
