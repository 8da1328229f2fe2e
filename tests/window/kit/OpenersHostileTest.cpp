// OpenersHostileTest.cpp - openers with null texts, damaged profiles, endless paths and offers that are too long
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
using testing::Pair;
using testing::SizeIs;

constexpr std::size_t kMegabyte = std::size_t{1} << 20;

class HostileOpener : public PluginOpenerTest
{
protected:
    void SetUp() override
    {
        PluginOpenerTest::SetUp();
        FileDlg::pFrmt_prjct = &m_format;
        FileDlg::pFrmt_paramset = &m_format;
        FileDlg::pFrmt_wzrd = &m_format;
    }

    DFileFrmt m_format{"OWN", "Own files", "*.own"};
};

} // namespace

TEST_F(HostileOpener, NullTextsAreEmpty)
{
    ScriptedDlg dlg;
    dlg.SetInitFile(nullptr);
    dlg.SetInitFrmtId(nullptr);
    dlg.SetCaption(nullptr);
    EXPECT_TRUE(dlg.Open(0, FileDlg::frmtCSV, nullptr, nullptr, nullptr));
    EXPECT_EQ(dlg.Last().initFile, "");
    EXPECT_TRUE(dlg.Open(0, nullptr, nullptr, nullptr));
    EXPECT_EQ(dlg.Last().initFile, "");
    EXPECT_TRUE(dlg.OpenFileDlg(0, nullptr, nullptr));
    EXPECT_TRUE(dlg.OpenParamSet(0, nullptr));
    EXPECT_TRUE(dlg.OpenMetaData(&m_mngr, nullptr, nullptr, nullptr));
    EXPECT_TRUE(dlg.ShowFileDlg(0, nullptr));
}

TEST_F(HostileOpener, AFormatOfNothingButNullsIsOffered)
{
    DFileFrmt empty(nullptr, nullptr, nullptr);
    FileDlg::pFrmt_prjct = &empty;
    ScriptedDlg dlg;
    EXPECT_TRUE(dlg.OpenPrjct(0));
    EXPECT_EQ(dlg.Last().filter, "|||");
    EXPECT_EQ(dlg.Last().defExt, "");
    FileDlg::pFrmt_proc = &empty;
    ScriptedDlg rules;
    EXPECT_TRUE(rules.OpenAllRuleset(0, true));
    EXPECT_EQ(rules.Last().filter, "All rule sets|||||");
}

TEST_F(HostileOpener, ValuesOfAnotherTypeAreAsNone)
{
    for (char const* key : {"Project", "ParamSetDir", "WizardCurrentDir", "Raster Files", "Raster File Type",
                            "MetaData File Type", "Key"})
    {
        StoreRaw(key, REG_DWORD, std::string(4, '\1'));
    }
    const auto begins = [&](auto const& open) {
        ScriptedDlg dlg;
        dlg.m_ok = false;
        EXPECT_FALSE(open(dlg));
        return dlg.Last();
    };
    EXPECT_EQ(begins([](auto& dlg) { return dlg.OpenPrjct(0); }).initFile, ".");
    EXPECT_EQ(begins([](auto& dlg) { return dlg.OpenParamSet(0, nullptr); }).initFile, "");
    EXPECT_EQ(begins([](auto& dlg) { return dlg.OpenWzrd(); }).initFile, ".");
    EXPECT_EQ(begins([](auto& dlg) { return dlg.Open(0, FileDlg::frmtCSV, "f", "C:\\a", "Key"); }).initFile,
              "C:\\a\\f");
    ScriptedDlg raster;
    EXPECT_TRUE(raster.OpenRasterData(&m_mngr, 0, false, true, nullptr));
    EXPECT_EQ(raster.Last().initFile, ".");
    EXPECT_EQ(NameOf(raster.Chosen()), "TIF");
    EXPECT_EQ(Stored()["Raster File Type"], "TIF") << "written over";
    EXPECT_EQ(Stored()["Raster Files"], "C:\\picked\\");
}

TEST_F(HostileOpener, ValuesOfAMegabyteAndWithoutAnEndAreTakenAsTheyAre)
{
    const std::string longText(kMegabyte, 'x');
    StoreRaw("Project", REG_SZ, longText); // no NUL
    StoreRaw("ParamSetDir", REG_SZ, longText + '\0');
    StoreRaw("Raster File Type", REG_SZ, longText + '\0');
    StoreRaw("MetaData File Type", REG_SZ, longText + '\0');
    ScriptedDlg dlg;
    dlg.m_ok = false;
    EXPECT_FALSE(dlg.OpenPrjct(0));
    EXPECT_EQ(dlg.Last().initFile, longText);
    dlg.SetInitFile("a.own");
    EXPECT_FALSE(dlg.OpenParamSet(0, nullptr));
    EXPECT_EQ(dlg.Last().initFile, longText + "\\a.own");
    EXPECT_FALSE(dlg.OpenRasterData(&m_mngr, 0, false, true, nullptr));
    EXPECT_EQ(dlg.Last().index, 0);
    EXPECT_FALSE(dlg.OpenMetaData(&m_mngr, nullptr, longText.c_str(), longText.c_str()));
    EXPECT_EQ(dlg.Last().index, 0);
}

TEST_F(HostileOpener, AStoredFolderThatVanishedIsHandedToTheDialogAsItIs)
{
    std::string gone;
    {
        const support::TempFolder folder;
        gone = folder.Path();
    }
    Store("Project", gone.c_str());
    ScriptedDlg dlg;
    dlg.m_ok = false;
    EXPECT_FALSE(dlg.OpenPrjct(0));
    EXPECT_EQ(dlg.Last().initFile, gone);
    EXPECT_THAT(Stored(), ElementsAre(Pair("Project", gone)));
}

TEST_F(HostileOpener, PathsThatAreTooLongForTheSystemAreStoredWhole)
{
    for (const std::size_t length : {259u, 400u, 40000u})
    {
        std::string folder = "C:\\";
        while (folder.size() + 7 < length)
        {
            folder += folder.size() % 200 == 199 ? '\\' : 'd';
        }
        folder += '\\';
        const std::string file = folder + std::string(length - folder.size() - 4, 'f') + ".own";
        ASSERT_EQ(file.size(), length);
        ScriptedDlg dlg;
        dlg.m_picked = {file};
        EXPECT_TRUE(dlg.OpenPrjct(0));
        EXPECT_EQ(Stored()["Project"], folder);
        EXPECT_STREQ(dlg.GetPhysFile(), file.c_str());
        ScriptedDlg next;
        next.SetInitFile(file.c_str());
        EXPECT_TRUE(next.OpenPrjct(1));
        EXPECT_EQ(next.Last().initFile, file);
        EXPECT_TRUE(next.Open(1, "f.own", folder.c_str(), ""));
        EXPECT_EQ(next.Last().initFile, folder + "f.own");
    }
}

TEST_F(HostileOpener, AnOfferThatIsTooLongIsCutAtAWholeFormatAndTheUserIsToldOnce)
{
    const std::string name(95, 'n');
    for (int i = 0; i < 100; ++i)
    {
        const std::string id = std::to_string(i);
        m_plugin.m_formats.emplace_back(id.c_str(), (name + (i == 99 ? "z" : "")).c_str(), "*.x");
    }
    ScriptedDlg dlg;
    dlg.SetInitFrmtId("99");
    EXPECT_TRUE(dlg.OpenGisObjects(&m_mngr, 0, true));
    const std::vector<std::string> warnings = TakeWarnings();
    ASSERT_THAT(warnings, SizeIs(1));
    const std::size_t offered = dlg.Last().offer.size();
    const std::size_t inFilter = Names(dlg.Last()).size();
    EXPECT_EQ(warnings[0], "FileDlg::ShowFileDlg: too many file types, the last " + std::to_string(offered - inFilter) +
                               " are not offered");
    EXPECT_LT(dlg.Last().filter->size(), std::size_t{FileDlg::kFilterSize});
    EXPECT_TRUE(dlg.Last().filter->ends_with("|*.x||"));
    EXPECT_EQ(NameOf(dlg.Last().format), name + "z");
    EXPECT_EQ(dlg.Last().index, 0) << "a filter that isn't there can't be preselected";
}

TEST_F(HostileOpener, AnAnswerWithoutFilesStoresNoFolder)
{
    ScriptedDlg dlg;
    dlg.m_picked.clear();
    EXPECT_TRUE(dlg.Open(0, FileDlg::frmtCSV, "f", "C:\\a", "Key"));
    EXPECT_TRUE(dlg.Open(0, "f", "C:\\a", "Key"));
    EXPECT_TRUE(dlg.OpenParamSet(0, nullptr));
    EXPECT_TRUE(dlg.OpenWzrd());
    EXPECT_TRUE(dlg.OpenAllRuleset(0, true));
    EXPECT_THAT(Stored(), IsEmpty());
    EXPECT_TRUE(dlg.OpenRasterData(&m_mngr, 0, false, true, nullptr));
    EXPECT_TRUE(dlg.OpenGisObjects(&m_mngr, 0, false));
    EXPECT_TRUE(dlg.OpenAttrData(&m_mngr, 0, "x"));
    EXPECT_TRUE(dlg.OpenMetaData(&m_mngr, nullptr, nullptr, nullptr));
    EXPECT_EQ(dlg.GetNumSlctFiles(), 0);
    for (auto const& [key, value] : Stored())
    {
        EXPECT_TRUE(key.ends_with("File Type")) << key << " = " << value;
    }
}

TEST_F(HostileOpener, PluginsMayChangeTheirFormatsWhileTheDialogIsUp)
{
    ScriptedDlg dlg;
    dlg.m_filter = 2;
    dlg.m_meanwhile = [&] {
        m_plugin.m_formats.clear();
        m_mngr.Unregister(&m_plugin);
    };
    EXPECT_TRUE(dlg.OpenRasterData(&m_mngr, 0, false, false, nullptr));
    EXPECT_THAT(Stored(), ElementsAre(Pair("Raster File Type", "CSV tables")));
}

TEST_F(HostileOpener, ALabelOfAMegabyteAndTheDialogsOwnTextsAreCopied)
{
    const CString label('x', static_cast<int>(kMegabyte));
    ScriptedDlg dlg;
    EXPECT_TRUE(dlg.OpenTiffData(0, label));
    EXPECT_EQ(dlg.Last().caption.size(), kMegabyte + 8);
    dlg.m_strCaption = "Mine";
    EXPECT_TRUE(dlg.OpenSaveCSV(dlg.m_strCaption));
    EXPECT_EQ(dlg.Last().caption, "Mine");
    EXPECT_TRUE(dlg.OpenParamSet(0, dlg.m_strCaption));
    EXPECT_EQ(dlg.Last().caption, "Mine");
    dlg.SetInitFile("a.own");
    EXPECT_TRUE(dlg.Open(0, FileDlg::frmtCSV, dlg.m_strInitFile.c_str(), "C:\\a", nullptr));
    EXPECT_EQ(dlg.Last().initFile, "C:\\a\\a.own");
    EXPECT_TRUE(dlg.Open(0, "b", dlg.m_strInitFile.c_str(), nullptr));
    EXPECT_EQ(dlg.Last().initFile, "C:\\a\\a.own\\b");
}
