// ProductFormatsTest.cpp - plug-ins and custom imports out of the product configuration
#include "host/formats/ProductFormats.h"
#include "tavkit/frame/services/BDIDrvr.h"
#include "tavkit/frame/services/CnfgLdr.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StrEq;

constexpr int kLoad = 0;
constexpr int kSave = 1;
constexpr unsigned int kAllData = 0xFFFFFFFF;

constexpr char kProduct[] = R"(<Product>
  <Plugin name='Pictures'>
    <Format id='TIF' name='TIF files' pattern='*.tif;*.tiff' data='raster' access='load'/>
    <Format id='SHP' name='Shapes' pattern='*.shp' data='vector table'/>
    <Other/>
    <Format name='Any raster' pattern='RSTR_FRMT' access='save'/>
  </Plugin>
  <CustomImport name='Slides' description='d' format='TIFF'>
    <Param text='{1}_s.tif*'/><Param text='plate'/><Other/>
    <Layer name='Tissue' file='*.tif' driver='TIFF'/><Layer/>
  </CustomImport>
  <Plugin name='Empty'/>
  <CustomImport name='Bare'/>
</Product>)";

class ProductFormats : public testing::Test
{
protected:
    void SetUp() override { m_loader->Reset(); }
    void TearDown() override { m_loader->Reset(); }

    bool Load(std::string_view document) { return m_loader->Load(m_folder.Write("p.xml", document).c_str()); }

    static std::vector<std::string> Ids(DIOPluginMngr& mngr, int mode, unsigned int dataType,
                                        ICheck<DString>* check = nullptr)
    {
        DList<DFileFrmt*> list;
        mngr.BuildFrmtList(&list, mode, dataType, check);
        std::vector<std::string> ids;
        for (DFileFrmt const* format : list)
        {
            ids.push_back(std::string(format->m_strId.c_str()) + ":" + format->m_strName.c_str() + ":" +
                          format->m_strPattern.c_str());
            delete format;
        }
        return ids;
    }

    support::TempFolder m_folder;
    CnfgLdr* m_loader = CnfgLdr::Instance();
};

class OnlyTif : public ICheck<DString>
{
public:
    bool Check(DString const& value) override { return value == "TIF"; }
};

} // namespace

TEST_F(ProductFormats, PluginsAreRegisteredForAsLongAsTheyAreNeeded)
{
    ASSERT_TRUE(Load(kProduct));
    DIOPluginMngr mngr;
    {
        const formats::ProductPlugins plugins(mngr);
        std::vector<std::string> names;
        for (DIOPluginMngr::DriverItr itr(&mngr); itr.m_pCrnt; itr.Next())
        {
            names.emplace_back(itr.m_pCrnt->GetName());
        }
        EXPECT_THAT(names, ElementsAre("Pictures", "Empty"));
        m_loader->Reset();
        EXPECT_THAT(Ids(mngr, kLoad, bdiRaster), ElementsAre("TIF:TIF files:*.tif;*.tiff"))
            << "another configuration changes nothing";
    }
    EXPECT_EQ(DIOPluginMngr::DriverItr(&mngr).m_pCrnt, nullptr);
}

TEST_F(ProductFormats, AFormatIsListedForItsModesAndKindsOfData)
{
    ASSERT_TRUE(Load(kProduct));
    DIOPluginMngr mngr;
    const formats::ProductPlugins plugins(mngr);
    EXPECT_THAT(Ids(mngr, kLoad, kAllData), ElementsAre("TIF:TIF files:*.tif;*.tiff", "SHP:Shapes:*.shp"));
    EXPECT_THAT(Ids(mngr, kLoad, 0), ElementsAre("TIF:TIF files:*.tif;*.tiff", "SHP:Shapes:*.shp"));
    EXPECT_THAT(Ids(mngr, kSave, kAllData), ElementsAre("SHP:Shapes:*.shp", ":Any raster:RSTR_FRMT"));
    EXPECT_THAT(Ids(mngr, kSave, bdiTable), ElementsAre("SHP:Shapes:*.shp", ":Any raster:RSTR_FRMT"));
    EXPECT_THAT(Ids(mngr, kLoad, bdiVector), ElementsAre("SHP:Shapes:*.shp"));
    EXPECT_THAT(Ids(mngr, kLoad, bdiOther), IsEmpty());
    EXPECT_THAT(Ids(mngr, 2, kAllData), IsEmpty());
    OnlyTif check;
    EXPECT_THAT(Ids(mngr, kLoad, kAllData, &check), ElementsAre("TIF:TIF files:*.tif;*.tiff"));
}

TEST_F(ProductFormats, CustomImportsMakeASchema)
{
    ASSERT_TRUE(Load(kProduct));
    const std::unique_ptr<DataSchm> schema = formats::ProductSchema();
    m_loader->Reset();
    ASSERT_EQ(schema->GetNumCustImport(), 2);
    CustImport& slides = *schema->GetCustImport(0);
    EXPECT_THAT(slides.m_pDfntn->m_strName.c_str(), StrEq("Slides"));
    EXPECT_THAT(slides.m_pDfntn->m_strDscr.c_str(), StrEq("d"));
    EXPECT_THAT(slides.m_pDfntn->m_strFrmtId.c_str(), StrEq("TIFF"));
    EXPECT_THAT(slides.GetFilePttr(slides.m_pDfntn->m_vecParam, "").c_str(), StrEq("plate_s.tif*"));
    ASSERT_EQ(slides.m_pDfntn->m_vecLayer.GetCount(), 2);
    EXPECT_THAT(slides.m_pDfntn->m_vecLayer[0].m_strLayer.c_str(), StrEq("Tissue"));
    EXPECT_THAT(slides.m_pDfntn->m_vecLayer[0].m_strFile.c_str(), StrEq("*.tif"));
    EXPECT_THAT(slides.m_pDfntn->m_vecLayer[0].m_strDrvrId.c_str(), StrEq("TIFF"));
    CustImport& bare = *schema->GetCustImport(1);
    EXPECT_THAT(bare.GetFilePttr(bare.m_pDfntn->m_vecParam, "").c_str(), StrEq(""));
    EXPECT_EQ(formats::ProductSchema()->GetNumCustImport(), 0);
}

TEST_F(ProductFormats, AHostileConfigurationLeavesNone)
{
    for (char const* document :
         {"<Product><Plugin/></Product>", "<Product><Plugin name=''/></Product>",
          "<Product><Plugin name='p'><Format name='n'/></Plugin></Product>",
          "<Product><Plugin name='p'><Format pattern='*.x'/></Plugin></Product>",
          "<Product><Plugin name='p'><Format name='n' pattern=''/></Plugin></Product>",
          "<Product><Plugin name='p'><Format name='n' pattern='x' data=''/></Plugin></Product>",
          "<Product><Plugin name='p'><Format name='n' pattern='x' data='paint'/></Plugin></Product>",
          "<Product><Plugin name='p'><Format name='n' pattern='x' access='x'/></Plugin></Product>",
          "<Product><CustomImport/></Product>", "<Product><CustomImport name=''/></Product>"})
    {
        ASSERT_TRUE(Load(kProduct));
        EXPECT_FALSE(Load(document)) << document;
        EXPECT_TRUE(m_loader->GetPlugins().empty()) << document;
        EXPECT_TRUE(m_loader->GetCustImports().empty()) << document;
    }
}

TEST_F(ProductFormats, TheWorkbenchIsDeliveredWithFormatsOfItsOwn)
{
    ASSERT_TRUE(m_loader->Load((std::string("T:\\workbench\\") + CnfgLdr::kFileName).c_str()));
    DIOPluginMngr mngr;
    const formats::ProductPlugins plugins(mngr);
    EXPECT_THAT(Ids(mngr, kLoad, bdiRaster), testing::Contains("TIF:TIF:*.tif;*.tiff"));
    EXPECT_THAT(Ids(mngr, kLoad, bdiTable), testing::Contains("CSV:CSV:*.csv"));
    EXPECT_EQ(formats::ProductSchema()->GetNumCustImport(), 1);
}
