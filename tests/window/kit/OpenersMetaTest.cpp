// OpenersMetaTest.cpp - the question for metadata, and plug-in formats that the product or the workspace declares
#include "PluginOpenerFixture.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace
{

using namespace tavkit;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::Pair;

constexpr char kKey[] = "MetaData File Type";

class MetaOpener : public PluginOpenerTest
{
protected:
    void SetUp() override
    {
        PluginOpenerTest::SetUp();
        m_mngr.Unregister(&m_plugin);
        m_mngr.Register(&m_notes);
        m_mngr.Register(&m_heads);
    }

    /// Name of the format that a question begins with.
    std::string Begins(char const* plugin, char const* extn, ICheck<DString>* check = nullptr, char const* set = "")
    {
        ScriptedDlg dlg;
        dlg.m_ok = false;
        dlg.SetInitFrmtId(set);
        EXPECT_FALSE(dlg.OpenMetaData(&m_mngr, check, plugin, extn));
        return NameOf(dlg.Last().format);
    }

    TestPlugin m_notes{"Notes", {{"INI", "Settings", "*.ini"}, {"TXT", "Notes", "*.txt"}}};
    TestPlugin m_heads{"Heads", {{"HDR", "Headers", "*.hdr"}, {"XMP", "Packets", "*.xmp"}, {"XM2", "More", "*.xmp"}}};
};

} // namespace

TEST_F(MetaOpener, OffersWhatThePluginsReadAndNothingElse)
{
    Refusing check({"TXT"});
    ScriptedDlg dlg;
    dlg.SetDataType(16);
    dlg.AddDscr(&FileFrmtHTML, false);
    EXPECT_TRUE(dlg.OpenMetaData(&m_mngr, &check, nullptr, nullptr));
    EXPECT_THAT(Names(dlg.Last()), ElementsAre("Headers", "More", "Packets", "Settings"));
    EXPECT_EQ(m_notes.m_mode, 0);
    EXPECT_EQ(m_notes.m_dataType, 16u);
    EXPECT_EQ(m_notes.m_check, &check);
    EXPECT_EQ(dlg.Last().mode, 0);
    EXPECT_EQ(dlg.Last().category, "ImageFolders");
    EXPECT_EQ(dlg.Last().nodeType, 8);
    EXPECT_EQ(dlg.Last().initFile, "");
    EXPECT_EQ(dlg.Last().caption, "Import MetaData...");
    ScriptedDlg titled(CString("Mine"));
    EXPECT_TRUE(titled.OpenMetaData(&m_mngr, nullptr, nullptr, nullptr));
    EXPECT_EQ(titled.Last().caption, "Mine");
}

TEST_F(MetaOpener, BeginsWithTheStoredFormatOrTheOneSet)
{
    EXPECT_EQ(Begins(nullptr, nullptr), "Settings");
    Store(kKey, "XMP");
    EXPECT_EQ(Begins(nullptr, nullptr), "Packets");
    EXPECT_EQ(Begins("", "hdr"), "Packets");
    EXPECT_EQ(Begins(nullptr, "hdr"), "Packets") << "an extension says nothing without a plug-in";
    EXPECT_EQ(Begins(nullptr, nullptr, nullptr, "TXT"), "Notes");
    Store(kKey, "GONE");
    EXPECT_EQ(Begins(nullptr, nullptr), "Headers") << "no longer on offer: the first";
    EXPECT_THAT(Stored(), ElementsAre(Pair(kKey, "GONE"))) << "cancelled";
}

TEST_F(MetaOpener, ThePluginsFormatDecidesIfItHasAny)
{
    EXPECT_EQ(Begins("Heads", nullptr), "Headers");
    EXPECT_EQ(Begins("Heads", ""), "Headers");
    EXPECT_EQ(Begins("Heads", "xmp"), "Packets") << "the first of several";
    EXPECT_EQ(Begins("Heads", "XMP"), "Headers") << "extensions are exact";
    EXPECT_EQ(Begins("Heads", ".xmp"), "Headers");
    EXPECT_EQ(Begins("Heads", "ini"), "Headers") << "not of this plug-in";
    EXPECT_EQ(Begins("Heads", nullptr, nullptr, "TXT"), "Headers") << "even over the one set";
    EXPECT_EQ(m_heads.m_mode, 0);
    EXPECT_EQ(m_heads.m_dataType, 0xFFFFFFFFu);
    Refusing check({"HDR"});
    EXPECT_EQ(Begins("Heads", nullptr, &check), "Packets");
    EXPECT_EQ(m_heads.m_check, &check);
    Refusing all({"HDR", "XMP", "XM2"});
    EXPECT_EQ(Begins("Heads", "xmp", &all), "Settings") << "it has none: as without a plug-in";
}

TEST_F(MetaOpener, WithoutAnExtensionAFormatForFilesWithoutOneIsNotPreferred)
{
    m_heads.m_formats.emplace_back("RDM", "Read me", "README");
    EXPECT_EQ(Begins("Heads", ""), "Headers");
    EXPECT_EQ(Begins("Heads", nullptr), "Headers");
}

TEST_F(MetaOpener, APluginThatIsntThereIsAsNone)
{
    EXPECT_EQ(Begins("heads", "xmp"), "Settings") << "names are exact";
    EXPECT_EQ(Begins("Nobody", nullptr), "Settings");
    EXPECT_EQ(Begins("Nobody", nullptr, nullptr, "XMP"), "Packets");
}

TEST_F(MetaOpener, OnlyTheFirstPluginOfANameIsAsked)
{
    TestPlugin again("Heads", {{"TXT", "Notes", "*.txt"}});
    m_mngr.Register(&again);
    m_heads.m_calls = 0;
    EXPECT_EQ(Begins("Heads", "txt"), "Headers");
    EXPECT_EQ(m_heads.m_calls, 2) << "for the offer and for its own list";
    EXPECT_EQ(again.m_calls, 1) << "for the offer alone";
    m_heads.m_formats.clear();
    EXPECT_EQ(Begins("Heads", nullptr), "Settings");
}

TEST_F(MetaOpener, APluginWithoutANameIsPassedOver)
{
    TestPlugin nameless(nullptr, {{"X", "Nameless", "*.x"}});
    DIOPluginMngr mngr;
    mngr.Register(&nameless);
    mngr.Register(&m_heads);
    ScriptedDlg dlg;
    EXPECT_TRUE(dlg.OpenMetaData(&mngr, nullptr, "Heads", "xmp"));
    EXPECT_EQ(NameOf(dlg.Last().format), "Packets");
}

TEST_F(MetaOpener, NothingInThePlaceOfAFormatIsPassedOver)
{
    m_heads.m_nulls = 2;
    EXPECT_EQ(Begins("Heads", "xmp"), "Packets");
    EXPECT_EQ(Begins("Heads", nullptr), "Headers");
    m_heads.m_formats.clear();
    EXPECT_EQ(Begins("Heads", nullptr), "Settings");
}

TEST_F(MetaOpener, WithoutAnIdTheFormatSetBeforeIsKept)
{
    Store(kKey, "");
    DFileFrmt other("", "More", "*.other");
    ScriptedDlg dlg;
    dlg.PickFormat(&other);
    EXPECT_TRUE(dlg.OpenMetaData(&m_mngr, nullptr, nullptr, nullptr));
    EXPECT_EQ(dlg.Last().format, &other);
    EXPECT_EQ(dlg.Last().index, 1) << "the one of that name";
    // A format of the offer before has gone with it.
    Store(kKey, "");
    EXPECT_TRUE(dlg.OpenMetaData(&m_mngr, nullptr, nullptr, nullptr));
    EXPECT_EQ(NameOf(dlg.Last().format), "Headers");
    EXPECT_EQ(dlg.Last().index, 0);
}

TEST_F(MetaOpener, StoresTheFormatByIdAndNoFolder)
{
    ScriptedDlg dlg;
    dlg.m_filter = 2;
    EXPECT_TRUE(dlg.OpenMetaData(&m_mngr, nullptr, nullptr, nullptr));
    EXPECT_THAT(Stored(), ElementsAre(Pair(kKey, "TXT")));
    ScriptedDlg none;
    none.m_filter = 99;
    EXPECT_TRUE(none.OpenMetaData(&m_mngr, nullptr, nullptr, nullptr));
    EXPECT_THAT(none.Chosen(), IsNull());
    EXPECT_THAT(Stored(), ElementsAre(Pair(kKey, "TXT")));
}

TEST_F(MetaOpener, WithNothingOnOfferWarnsTwiceUnlessThereIsNothingToLookFor)
{
    DIOPluginMngr empty;
    ScriptedDlg dlg;
    EXPECT_FALSE(dlg.OpenMetaData(&empty, nullptr, "Heads", "xmp"));
    EXPECT_THAT(TakeWarnings(), ElementsAre(kNoTypes, kNoTypes));
    Store(kKey, "");
    EXPECT_FALSE(dlg.OpenMetaData(&empty, nullptr, nullptr, nullptr));
    EXPECT_THAT(TakeWarnings(), ElementsAre(kNoTypes));
    EXPECT_FALSE(dlg.OpenMetaData(nullptr, nullptr, "Heads", nullptr));
    EXPECT_THAT(TakeWarnings(), ElementsAre(kNoTypes)) << "no manager, no workspace";
    EXPECT_THAT(dlg.m_asked, IsEmpty());
}

// Where the formats come from

TEST_F(MetaOpener, WithoutAManagerTheCustomImportsOfTheWorkspaceAreOffered)
{
    OpenWorkspaceWithImport("Slides", "SLD", "*_slides.tif*");
    ScriptedDlg raster;
    EXPECT_TRUE(raster.OpenRasterData(nullptr, 0, false, false, nullptr));
    EXPECT_EQ(raster.Last().filter, "All Files|*.*|Slides|*.tif||");
    ScriptedDlg gis;
    EXPECT_TRUE(gis.OpenGisObjects(nullptr, 1, false));
    EXPECT_EQ(gis.Last().filter, "Slides|*.tif||");
    ScriptedDlg attr;
    EXPECT_TRUE(attr.OpenAttrData(nullptr, 0, "x"));
    EXPECT_EQ(attr.Last().filter, "All Files|*.*|Slides|*.tif|Ascii text files|*.txt||");
    ScriptedDlg meta;
    EXPECT_TRUE(meta.OpenMetaData(nullptr, nullptr, "Slides", nullptr));
    EXPECT_EQ(meta.Last().filter, "Slides|*.tif||");
    EXPECT_EQ(Stored()[kKey], "SLD");
}

TEST_F(MetaOpener, ThePluginsOfTheProductAreOffered)
{
    const support::TempFolder folder;
    const std::string file = folder.Write("Product.xml", R"(<Product>
  <Plugin name="Pictures">
    <Format id="TIF" name="TIF" pattern="*.tif;*.tiff" data="raster" access="both"/>
    <Format id="BMP" name="Bitmaps" pattern="*.bmp" data="raster" access="load"/>
  </Plugin>
  <Plugin name="Notes">
    <Format id="INI" name="Settings" pattern="*.ini" data="metadata"/>
  </Plugin>
</Product>)");
    ASSERT_TRUE(CnfgLdr::Instance()->Load(file.c_str()));
    DIOPluginMngr mngr;
    const formats::ProductPlugins plugins(mngr);
    ScriptedDlg load;
    load.SetDataType(bdiRaster);
    EXPECT_TRUE(load.OpenRasterData(&mngr, 0, false, false, nullptr));
    EXPECT_EQ(load.Last().filter, "All Files|*.*|Bitmaps|*.bmp|TIF|*.tif;*.tiff||");
    EXPECT_EQ(load.Last().index, 2);
    EXPECT_EQ(load.Last().defExt, "*.tif;*.tiff");
    ScriptedDlg save;
    save.SetDataType(bdiRaster);
    EXPECT_TRUE(save.OpenRasterData(&mngr, 1, false, false, nullptr));
    EXPECT_EQ(save.Last().filter, "TIF|*.tif;*.tiff||");
    ScriptedDlg meta;
    EXPECT_TRUE(meta.OpenMetaData(&mngr, nullptr, "Pictures", "bmp"));
    EXPECT_EQ(meta.Last().filter, "Bitmaps|*.bmp|Settings|*.ini|TIF|*.tif;*.tiff||");
    EXPECT_EQ(NameOf(meta.Chosen()), "Bitmaps");
}
