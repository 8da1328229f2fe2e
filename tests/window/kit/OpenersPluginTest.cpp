// OpenersPluginTest.cpp - the questions for pictures, thematic layers and tables in the formats of plug-ins
#include "PluginOpenerFixture.h"
#include "support/ScriptedDrvr.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

namespace
{

using namespace tavkit;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::Pair;

constexpr char kRasterKey[] = "Raster File Type";
constexpr char kThematicKey[] = "Labeled Raster File Type";
constexpr char kTableKey[] = "Labeled Attribute File Type";

class RasterOpener : public PluginOpenerTest
{
protected:
    /// Asks for one picture to load or save.
    bool Open(ScriptedDlg& dlg, int mode) { return dlg.OpenRasterData(&m_mngr, mode, false, true, nullptr); }
};
class GisOpener : public PluginOpenerTest
{
};
class AttrOpener : public PluginOpenerTest
{
};

} // namespace

// Pictures

TEST_F(RasterOpener, OffersAllFilesForLoadingAndNoAsciiGridForSaving)
{
    char const* const sorted[] = {"ASCII again", "CSV tables", "ESRI ASCII", "Imagine", "Imagine again", "TIF"};
    ScriptedDlg load;
    EXPECT_TRUE(Open(load, 0));
    EXPECT_THAT(Names(load.Last()),
                ElementsAre(sorted[0], "All Files", sorted[1], sorted[2], sorted[3], sorted[4], sorted[5]));
    ScriptedDlg save;
    EXPECT_TRUE(Open(save, 1));
    EXPECT_THAT(Names(save.Last()), ElementsAre(sorted[1], sorted[2], sorted[3], sorted[4], sorted[5]))
        << "only the first of that identifier goes";
    ScriptedDlg other;
    EXPECT_TRUE(Open(other, 2));
    EXPECT_THAT(Names(other.Last()), testing::ElementsAreArray(sorted));
    for (ScriptedDlg const* dlg : {&load, &save, &other})
    {
        EXPECT_EQ(dlg->Last().category, "ImageFolders");
        EXPECT_EQ(dlg->Last().nodeType, 2);
    }
    EXPECT_EQ(save.Last().mode, 1);
}

TEST_F(RasterOpener, AsksThePluginsWithItsModeTypeAndCheck)
{
    Refusing check({"TIF", "ASC"});
    ScriptedDlg dlg;
    dlg.SetDataType(2);
    EXPECT_TRUE(dlg.OpenRasterData(&m_mngr, 1, false, true, &check));
    EXPECT_EQ(m_plugin.m_mode, 1);
    EXPECT_EQ(m_plugin.m_dataType, 2u);
    EXPECT_EQ(m_plugin.m_check, &check);
    EXPECT_THAT(Names(dlg.Last()), ElementsAre("CSV tables", "Imagine", "Imagine again"));
}

TEST_F(RasterOpener, NothingThatWasOnOfferBeforeSurvives)
{
    ScriptedDlg dlg(CString("Mine"));
    dlg.SetInitFile("C:\\a.tif");
    dlg.AddDscr(&FileFrmtHTML, false);
    EXPECT_TRUE(Open(dlg, 1));
    EXPECT_TRUE(Open(dlg, 1));
    EXPECT_THAT(Names(dlg.Last()), ElementsAre("CSV tables", "ESRI ASCII", "Imagine", "Imagine again", "TIF"));
    EXPECT_EQ(dlg.Last().caption, "Mine");
    EXPECT_EQ(dlg.Last().initFile, "C:\\a.tif");
}

TEST_F(RasterOpener, CallsTheDialogByWhetherSeveralMayBePicked)
{
    struct Case
    {
        int mode;
        bool multi;
        bool setMultiple;
        char const* caption;
    };
    for (Case const& each :
         {Case{0, false, false, "Import Image Layer..."}, Case{0, true, false, "Import Image Layers..."},
          Case{0, false, true, "Import Image Layers..."}, Case{1, false, false, "Export Image Layer..."},
          Case{1, true, false, "Export Image Layer..."}, Case{2, true, false, ""}})
    {
        for (char const* before : {"", "Mine"})
        {
            ScriptedDlg dlg{CString(before)};
            if (each.setMultiple)
            {
                dlg.SetMultipleFiles();
            }
            EXPECT_TRUE(dlg.OpenRasterData(&m_mngr, each.mode, each.multi, true, nullptr));
            EXPECT_EQ(dlg.Last().caption, *before ? before : each.caption);
            EXPECT_EQ(dlg.Last().multiple, each.multi || each.setMultiple);
        }
    }
}

TEST_F(RasterOpener, BeginsWithTheFormatStoredByNameOrTheOneSetById)
{
    struct Case
    {
        char const* stored;
        char const* set;
        char const* begin;
    };
    for (Case const& each :
         {Case{nullptr, "", "TIF"}, Case{"Imagine", "", "Imagine"}, Case{"IMG", "", "(none)"},
          Case{"All Files", "", "All Files"}, Case{"Imagine", "ALL", "All Files"}, Case{"Imagine", "IMG", "Imagine"},
          Case{"Imagine", "Imagine", "(none)"}, Case{"", "", "(none)"}})
    {
        Store(kRasterKey, each.stored ? each.stored : "gone");
        if (!each.stored)
        {
            Store(kRasterKey, nullptr);
        }
        const Settings before = Stored();
        ScriptedDlg dlg;
        dlg.m_ok = false;
        dlg.SetInitFrmtId(each.set);
        EXPECT_FALSE(Open(dlg, 0));
        // Without one, the dialog takes the first on offer.
        const std::string expected = each.begin == std::string("(none)") ? "ASCII again" : each.begin;
        EXPECT_EQ(NameOf(dlg.Last().format), expected) << (each.stored ? each.stored : "") << each.set;
        EXPECT_EQ(Names(dlg.Last())[static_cast<std::size_t>(dlg.Last().index)], expected);
        EXPECT_EQ(Stored(), before) << "cancelled";
    }
}

TEST_F(RasterOpener, AnAsciiGridThatIsStoredIsNotBegunWithForSaving)
{
    Store(kRasterKey, "ASCII again");
    ScriptedDlg dlg;
    dlg.m_ok = false;
    EXPECT_FALSE(Open(dlg, 1));
    EXPECT_EQ(dlg.Last().index, 0);
    EXPECT_EQ(dlg.Last().defExt, "*.csv");
}

TEST_F(RasterOpener, BeginsInTheStoredFolderUnlessAFileIsSet)
{
    ScriptedDlg dlg;
    dlg.m_ok = false;
    EXPECT_FALSE(Open(dlg, 0));
    EXPECT_EQ(dlg.Last().initFile, ".");
    Store("Raster Files", "C:\\pictures");
    ScriptedDlg stored;
    stored.m_ok = false;
    EXPECT_FALSE(Open(stored, 0));
    EXPECT_EQ(stored.Last().initFile, "C:\\pictures");
    stored.SetInitFile("D:\\a.tif");
    EXPECT_FALSE(Open(stored, 0));
    EXPECT_EQ(stored.Last().initFile, "D:\\a.tif");
}

TEST_F(RasterOpener, StoresTheFormatByNameAndTheFolderIfAskedTo)
{
    for (const bool saveDir : {true, false})
    {
        for (auto const& [filter, name] : {std::pair(1, "All Files"), {2, "CSV tables"}})
        {
            AfxGetApp()->WriteProfileString(kSection, nullptr, nullptr);
            ScriptedDlg dlg;
            dlg.m_filter = filter;
            EXPECT_TRUE(dlg.OpenRasterData(&m_mngr, 0, true, saveDir, nullptr));
            Settings expected{{kRasterKey, name}};
            if (saveDir)
            {
                expected["Raster Files"] = "C:\\picked\\";
            }
            EXPECT_EQ(Stored(), expected);
        }
    }
}

TEST_F(RasterOpener, WithoutAChosenFormatStoresTheFolderAlone)
{
    ScriptedDlg dlg;
    dlg.m_filter = 99;
    EXPECT_TRUE(Open(dlg, 0));
    EXPECT_THAT(dlg.Chosen(), IsNull());
    EXPECT_THAT(Stored(), ElementsAre(Pair("Raster Files", "C:\\picked\\")));
}

TEST_F(RasterOpener, WithNothingOnOfferWarnsTwice)
{
    DIOPluginMngr empty;
    ScriptedDlg dlg;
    EXPECT_FALSE(dlg.OpenRasterData(&empty, 1, false, true, nullptr));
    EXPECT_THAT(dlg.m_asked, IsEmpty());
    EXPECT_THAT(TakeWarnings(), ElementsAre(kNoTypes, kNoTypes)) << "by the search for the format and by the dialog";
    EXPECT_THAT(Stored(), IsEmpty());
}

// Thematic layers

TEST_F(GisOpener, OffersThePluginsFormatsAndTheLibrarysVectorFormats)
{
    char const* const sorted[] = {"ASCII again", "CSV tables", "ESRI ASCII", "Imagine", "Imagine again", "TIF"};
    for (const int mode : {0, 1, 2})
    {
        for (const bool vector : {false, true})
        {
            std::vector<std::string> expected(std::begin(sorted), std::end(sorted));
            if (mode == 0)
            {
                expected.insert(expected.begin() + 1, "All Files");
            }
            if (vector)
            {
                expected.insert(expected.end(), {"Shape files", "Aperio annotation files"});
            }
            ScriptedDlg dlg;
            EXPECT_TRUE(dlg.OpenGisObjects(&m_mngr, mode, vector));
            EXPECT_EQ(Names(dlg.Last()), expected);
            EXPECT_EQ(dlg.Last().category, "ThematicFolders");
            EXPECT_EQ(dlg.Last().nodeType, 6);
            EXPECT_EQ(dlg.Last().mode, mode);
            EXPECT_EQ(m_plugin.m_mode, mode);
        }
    }
}

TEST_F(GisOpener, OffersConnectionsIfADriverOpensThem)
{
    support::ScriptedDrvr driver;
    const support::RegisteredDrvr registered("SDE", "ZRC", driver);
    ScriptedDlg dlg;
    EXPECT_TRUE(dlg.OpenGisObjects(&m_mngr, 1, true));
    EXPECT_EQ(Names(dlg.Last()).back(), "ArcSDE connection files");
    EXPECT_TRUE(dlg.OpenGisObjects(&m_mngr, 1, false));
    EXPECT_EQ(Names(dlg.Last()).back(), "TIF");
}

TEST_F(GisOpener, CallsTheDialogByItsModeUnlessItHasACaption)
{
    struct Case
    {
        int mode;
        bool multiple;
        char const* caption;
    };
    for (Case const& each :
         {Case{0, false, "Import Thematic Layer..."}, Case{0, true, "Add Thematic Layers..."},
          Case{1, false, "Export Thematic Layer..."}, Case{1, true, "Export Thematic Layer..."}, Case{2, true, ""}})
    {
        for (char const* before : {"", "Mine"})
        {
            ScriptedDlg dlg{CString(before)};
            if (each.multiple)
            {
                dlg.SetMultipleFiles();
            }
            EXPECT_TRUE(dlg.OpenGisObjects(&m_mngr, each.mode, true));
            EXPECT_EQ(dlg.Last().caption, *before ? before : each.caption);
            EXPECT_EQ(dlg.Last().multiple, each.multiple);
        }
    }
}

TEST_F(GisOpener, BeginsWithTheFormatAndTheFolderThatAreStoredOrSet)
{
    ScriptedDlg fresh;
    fresh.m_ok = false;
    EXPECT_FALSE(fresh.OpenGisObjects(&m_mngr, 0, true));
    EXPECT_EQ(NameOf(fresh.Last().format), "TIF");
    EXPECT_EQ(fresh.Last().initFile, ".");
    EXPECT_THAT(Stored(), IsEmpty());
    Store(kThematicKey, "IMG");
    Store("Projects", "C:\\layers");
    const Settings before = Stored();
    ScriptedDlg dlg;
    dlg.m_ok = false;
    EXPECT_FALSE(dlg.OpenGisObjects(&m_mngr, 0, true));
    EXPECT_EQ(NameOf(dlg.Last().format), "Imagine");
    EXPECT_EQ(dlg.Last().initFile, "C:\\layers");
    dlg.SetInitFrmtId("APERIO_VDI");
    dlg.SetInitFile("D:\\a.xml");
    EXPECT_FALSE(dlg.OpenGisObjects(&m_mngr, 0, true));
    EXPECT_EQ(dlg.Last().format, &FileFrmtAperio);
    EXPECT_EQ(dlg.Last().initFile, "D:\\a.xml");
    EXPECT_FALSE(dlg.OpenGisObjects(&m_mngr, 0, false));
    EXPECT_EQ(dlg.Last().index, 0) << "not on offer: the first";
    EXPECT_EQ(NameOf(dlg.Last().format), "ASCII again");
    EXPECT_EQ(Stored(), before);
}

TEST_F(GisOpener, StoresTheFormatByIdUnlessItIsThatOfAllFilesAndTheFolder)
{
    struct Case
    {
        int filter;
        char const* id; ///< null: not stored
    };
    for (Case const& each :
         {Case{1, nullptr}, Case{2, "CSV"}, Case{7, nullptr}, Case{8, "APERIO_VDI"}, Case{99, nullptr}})
    {
        AfxGetApp()->WriteProfileString(kSection, nullptr, nullptr);
        ScriptedDlg dlg;
        dlg.m_filter = each.filter;
        EXPECT_TRUE(dlg.OpenGisObjects(&m_mngr, 0, true));
        Settings expected{{"Projects", "C:\\picked\\"}};
        if (each.id)
        {
            expected[kThematicKey] = each.id;
        }
        EXPECT_EQ(Stored(), expected) << each.filter;
    }
}

TEST_F(GisOpener, AFormatWithoutAnIdentifierLeavesTheStoredOne)
{
    ScriptedDlg dlg;
    dlg.m_filter = 2;
    EXPECT_TRUE(dlg.OpenGisObjects(&m_mngr, 0, true));
    const Settings stored = Stored();
    EXPECT_EQ(stored.at(kThematicKey), "CSV");
    ScriptedDlg next;
    next.m_filter = 7; // shape files have no identifier
    EXPECT_TRUE(next.OpenGisObjects(&m_mngr, 0, true));
    EXPECT_EQ(Stored(), stored);
}

// Tables

TEST_F(AttrOpener, OffersTextForLoadingAndNeverAPicture)
{
    char const* const sorted[] = {"ASCII again", "CSV tables", "ESRI ASCII", "Imagine again", "TIF"};
    for (const int mode : {0, 1, 2})
    {
        std::vector<std::string> expected(std::begin(sorted), std::end(sorted));
        if (mode == 0)
        {
            expected.insert(expected.begin() + 1, "All Files");
            expected.emplace_back("Ascii text files");
        }
        ScriptedDlg dlg(CString("Mine"));
        EXPECT_TRUE(dlg.OpenAttrData(&m_mngr, mode, "Table"));
        EXPECT_EQ(Names(dlg.Last()), expected) << "only the first of that identifier goes";
        EXPECT_EQ(dlg.Last().category, "ThematicFolders");
        EXPECT_EQ(dlg.Last().nodeType, 8);
        EXPECT_EQ(dlg.Last().caption, mode == 0 ? "Load Table..." : mode == 1 ? "Save Table..." : "Mine");
    }
}

TEST_F(AttrOpener, BeginsWithTheFormatAndTheFolderThatAreStoredOrSet)
{
    ScriptedDlg fresh;
    fresh.m_ok = false;
    EXPECT_FALSE(fresh.OpenAttrData(&m_mngr, 0, "x"));
    EXPECT_EQ(NameOf(fresh.Last().format), "CSV tables");
    EXPECT_EQ(fresh.Last().initFile, ".");
    EXPECT_THAT(Stored(), IsEmpty());
    Store(kTableKey, "TIF");
    Store("ThematicFolders", "C:\\tables");
    const Settings before = Stored();
    ScriptedDlg dlg;
    dlg.m_ok = false;
    EXPECT_FALSE(dlg.OpenAttrData(&m_mngr, 0, "x"));
    EXPECT_EQ(NameOf(dlg.Last().format), "TIF");
    EXPECT_EQ(dlg.Last().initFile, "C:\\tables");
    dlg.SetInitFrmtId("ALL");
    dlg.SetInitFile("D:\\a.csv");
    EXPECT_FALSE(dlg.OpenAttrData(&m_mngr, 0, "x"));
    EXPECT_EQ(dlg.Last().format, &FileFrmtAll);
    EXPECT_EQ(dlg.Last().initFile, "D:\\a.csv");
    EXPECT_EQ(Stored(), before);
}

TEST_F(AttrOpener, StoresTheFormatByIdUnlessItIsThatOfAllFilesAndTheFolder)
{
    struct Case
    {
        int filter;
        char const* id; ///< null: not stored
    };
    for (Case const& each : {Case{1, nullptr}, Case{2, "CSV"}, Case{6, nullptr}, Case{99, nullptr}})
    {
        AfxGetApp()->WriteProfileString(kSection, nullptr, nullptr);
        ScriptedDlg dlg;
        dlg.m_filter = each.filter;
        EXPECT_TRUE(dlg.OpenAttrData(&m_mngr, 0, "x"));
        Settings expected{{"ThematicFolders", "C:\\picked\\"}};
        if (each.id)
        {
            expected[kTableKey] = each.id;
        }
        EXPECT_EQ(Stored(), expected) << each.filter;
    }
}

TEST_F(AttrOpener, WithNothingOnOfferWarnsTwice)
{
    DIOPluginMngr empty;
    ScriptedDlg dlg;
    EXPECT_FALSE(dlg.OpenAttrData(&empty, 1, "x"));
    EXPECT_THAT(TakeWarnings(), ElementsAre(kNoTypes, kNoTypes));
    EXPECT_FALSE(dlg.OpenGisObjects(&empty, 1, false));
    EXPECT_THAT(TakeWarnings(), ElementsAre(kNoTypes, kNoTypes));
    EXPECT_THAT(dlg.m_asked, IsEmpty());
    EXPECT_TRUE(dlg.OpenAttrData(&empty, 0, "x"));
    EXPECT_THAT(Names(dlg.Last()), ElementsAre("All Files", "Ascii text files"));
}
