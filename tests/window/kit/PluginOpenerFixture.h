// PluginOpenerFixture.h - openers over plug-ins that a test writes down or that a product configuration declares
#pragma once

#include "OpenerFixture.h"
#include "host/formats/ProductFormats.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

/// A plug-in with formats that a test writes down; notes what it was asked.
class TestPlugin : public DIOPlugin
{
public:
    explicit TestPlugin(char const* name, std::vector<DFileFrmt> formats = {})
        : m_formats(std::move(formats)), m_name(name)
    {
    }
    char const* GetName() const override { return m_name; }

    std::vector<DFileFrmt> m_formats;
    int m_nulls = 0; ///< so many null pointers come ahead of the formats
    int m_calls = 0;
    int m_mode = -1;
    unsigned int m_dataType = 0;
    ICheck<DString>* m_check = nullptr;

protected:
    void OnBuildFrmtList(DList<DFileFrmt*>& list, int mode, unsigned int dataType, ICheck<DString>* check) override
    {
        ++m_calls;
        m_mode = mode;
        m_dataType = dataType;
        m_check = check;
        for (int i = 0; i < m_nulls; ++i)
        {
            list.AddTail(nullptr);
        }
        for (DFileFrmt const& format : m_formats)
        {
            if (!check || check->Check(format.m_strId))
            {
                list.AddTail(new DFileFrmt(format));
            }
        }
    }

private:
    char const* m_name;
};

/// Refuses formats by their identifier.
class Refusing : public ICheck<DString>
{
public:
    explicit Refusing(std::vector<std::string> ids) : m_ids(std::move(ids)) {}
    bool Check(DString const& id) override { return std::ranges::find(m_ids, id.c_str()) == m_ids.end(); }

private:
    std::vector<std::string> m_ids;
};

/// Closes the workspace that a test opened.
class PluginOpenerTest : public OpenerTest
{
protected:
    void SetUp() override
    {
        OpenerTest::SetUp();
        m_mngr.Register(&m_plugin);
    }
    void TearDown() override
    {
        Wksp::Close();
        CnfgLdr::Instance()->Reset();
        OpenerTest::TearDown();
    }

    /// Opens a workspace with one custom import.
    static void OpenWorkspaceWithImport(char const* name, char const* id, char const* pattern)
    {
        CustImport::Dfntn definition;
        definition.m_strName = name;
        definition.m_strFrmtId = id;
        definition.m_vecParam.Append(pattern);
        auto schema = std::make_unique<DataSchm>();
        schema->AddCustImport(definition);
        Wksp::Open(std::move(schema));
    }

    /// Names of what a dialog offered.
    static std::vector<std::string> Names(Asked const& asked)
    {
        // The formats of plug-ins live as long as the question that asked: the filter text has their names in any case.
        std::vector<std::string> names;
        std::string text = asked.filter.value_or("");
        for (bool isName = true; !text.empty(); isName = !isName)
        {
            const std::size_t bar = text.find('|');
            if (isName && bar > 0)
            {
                names.push_back(text.substr(0, bar));
            }
            text.erase(0, bar + 1);
        }
        return names;
    }
    static std::string NameOf(DFileFrmt const* format) { return format ? format->m_strName.c_str() : "(none)"; }

    TestPlugin m_plugin{"Pictures",
                        {{"TIF", "TIF", "*.tif"},
                         {"ASC", "ESRI ASCII", "*.asc"},
                         {"IMG", "Imagine", "*.img"},
                         {"ASC", "ASCII again", "*.asc2"},
                         {"IMG", "Imagine again", "*.img2"},
                         {"CSV", "CSV tables", "*.csv"}}};
    DIOPluginMngr m_mngr;
};
