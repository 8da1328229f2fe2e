// PluginTest.cpp - plug-in managers, and custom imports of a workspace
#include "tavkit/frame/services/DIOPlugin.h"
#include "tavkit/frame/services/Wksp.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsNull;
using testing::NotNull;
using testing::StrEq;

class NamedPlugin : public DIOPlugin
{
public:
    explicit NamedPlugin(char const* name) : m_name(name) {}
    char const* GetName() const override { return m_name; }

    int m_mode = -1;
    unsigned int m_dataType = 0;

protected:
    void OnBuildFrmtList(DList<DFileFrmt*>& list, int mode, unsigned int dataType, ICheck<DString>* check) override
    {
        m_mode = mode;
        m_dataType = dataType;
        if (!check || check->Check(m_name))
        {
            list.AddTail(new DFileFrmt(m_name, m_name, "*.x"));
        }
    }

private:
    char const* m_name;
};

class OnlyB : public ICheck<DString>
{
public:
    bool Check(DString const& value) override { return value == "b"; }
};

std::vector<std::string> Formats(DIOPluginMngr& mngr, ICheck<DString>* check)
{
    DList<DFileFrmt*> list;
    mngr.BuildFrmtList(&list, 1, 6, check);
    std::vector<std::string> ids;
    for (DFileFrmt const* format : list)
    {
        ids.emplace_back(format->m_strId.c_str());
        delete format;
    }
    return ids;
}

std::vector<std::string> Walk(DAddinMngr* mngr)
{
    std::vector<std::string> names;
    for (DIOPluginMngr::DriverItr itr(mngr); itr.m_pCrnt; itr.Next())
    {
        names.emplace_back(itr.m_pCrnt->GetName());
    }
    return names;
}

DString Pattern(std::vector<char const*> const& params, char const* folder = "")
{
    DVectorSafe<DString> texts;
    for (char const* param : params)
    {
        texts.Append(param);
    }
    CustImport::Dfntn definition;
    return CustImport(&definition).GetFilePttr(texts, folder);
}

} // namespace

TEST(PluginManager, ListsTheFormatsOfAllPluginsInTheOrderOfRegistration)
{
    NamedPlugin b("b");
    NamedPlugin a("a");
    DIOPluginMngr mngr;
    EXPECT_THAT(Formats(mngr, nullptr), IsEmpty());
    mngr.Register(&b);
    mngr.Register(&a);
    mngr.Register(nullptr);
    EXPECT_THAT(Formats(mngr, nullptr), ElementsAre("b", "a"));
    EXPECT_EQ(a.m_mode, 1);
    EXPECT_EQ(a.m_dataType, 6u);
    OnlyB check;
    EXPECT_THAT(Formats(mngr, &check), ElementsAre("b"));
    mngr.Unregister(&b);
    EXPECT_THAT(Formats(mngr, nullptr), ElementsAre("a"));
    mngr.BuildFrmtList(nullptr, 0, 0, nullptr); // nowhere to put them
}

TEST(PluginManager, IsWalkedPluginByPlugin)
{
    NamedPlugin b("b");
    NamedPlugin a("a");
    DIOPluginMngr mngr;
    EXPECT_THAT(Walk(&mngr), IsEmpty());
    mngr.Register(&b);
    mngr.Register(&a);
    EXPECT_THAT(Walk(&mngr), ElementsAre("b", "a"));
    EXPECT_THAT(Walk(nullptr), IsEmpty());
    DAddinMngr other;
    EXPECT_THAT(Walk(&other), IsEmpty());
    DIOPluginMngr::DriverItr itr(&mngr);
    mngr.Unregister(&a);
    itr.Next();
    EXPECT_THAT(itr.m_pCrnt, IsNull()) << "a plug-in that has gone isn't walked to";
}

TEST(CustomImport, FillsThePlacesOfItsPattern)
{
    EXPECT_THAT(Pattern({"a.tif"}).c_str(), StrEq("a.tif"));
    EXPECT_THAT(Pattern({"{1}_{2}.tif", "plate", "well"}).c_str(), StrEq("plate_well.tif"));
    EXPECT_THAT(Pattern({"{2}{1}{1}", "a", "b"}).c_str(), StrEq("baa"));
    EXPECT_THAT(Pattern({"{1}_{3}.tif", "plate"}).c_str(), StrEq("plate_*.tif"));
    EXPECT_THAT(Pattern({"{0}{x}{}{-1}{99999999999}.t"}).c_str(), StrEq("*****.t"));
    EXPECT_THAT(Pattern({"a{1"}).c_str(), StrEq("a{1"));
    EXPECT_THAT(Pattern({}).c_str(), StrEq(""));
    EXPECT_THAT(Pattern({"a"}, "C:\\x\\").c_str(), StrEq("C:\\x\\a"));
    EXPECT_THAT(Pattern({"a"}, nullptr).c_str(), StrEq("a"));
}

TEST(Workspace, IsThereWhileItIsOpen)
{
    Wksp::Close();
    EXPECT_THAT(Wksp::Instance(), IsNull());
    Wksp::Open(nullptr);
    ASSERT_THAT(Wksp::Instance(), NotNull());
    EXPECT_THAT(Wksp::Instance()->GetDataSchm(), IsNull());
    auto schema = std::make_unique<DataSchm>();
    {
        CustImport::Dfntn definition;
        definition.m_strName = "Slides";
        definition.m_vecLayer.Append(ImportImgLayerData());
        schema->AddCustImport(definition);
    }
    Wksp::Open(std::move(schema));
    DataSchm* const opened = Wksp::Instance()->GetDataSchm();
    ASSERT_THAT(opened, NotNull());
    EXPECT_EQ(opened->GetNumCustImport(), 1);
    EXPECT_THAT(opened->GetCustImport(0)->m_pDfntn->m_strName.c_str(), StrEq("Slides"));
    EXPECT_THAT(opened->GetCustImport(1), IsNull());
    EXPECT_THAT(opened->GetCustImport(-1), IsNull());
    Wksp::Close();
    Wksp::Close();
    EXPECT_THAT(Wksp::Instance(), IsNull());
}
