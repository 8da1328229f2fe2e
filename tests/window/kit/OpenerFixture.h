// OpenerFixture.h - FileDlg with a script in place of its dialog, and the stores that an opener reads and writes
#pragma once

#include "support/WindowTest.h"
#include "tavkit/TavKit.h"
#include "tavkit/filedlg/FormatCatalogue.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// What the dialog was asked.
struct Asked
{
    int mode = -1;
    std::optional<std::string> filter;
    int index = -1;
    std::optional<std::string> defExt;
    std::string category;
    std::string caption;
    std::string initFile;
    std::vector<DFileFrmt*> offer;
    DFileFrmt* format = nullptr;
    int nodeType = 0;
    int tmplId = 0;
    bool multiple = false;
};

/// Answers as the user would: by default by OK with one file, in the format that is preselected.
class ScriptedDlg : public FileDlg
{
public:
    using FileDlg::AddDscr;
    using FileDlg::AddIOPluginFilters;
    using FileDlg::FileDlg;
    using FileDlg::m_nDlgTmplId;
    using FileDlg::m_nNodeType;
    using FileDlg::m_pFrmt;
    using FileDlg::m_strCaption;
    using FileDlg::m_strInitFile;
    using FileDlg::m_vecDscr;
    using FileDlg::m_vecFiles;
    using FileDlg::SetFormat;
    using FileDlg::ShowFileDlg;

    bool m_ok = true;
    std::vector<std::string> m_picked = {"C:\\picked\\file.x"};
    std::optional<int> m_filter = {}; ///< the filter that the user leaves the dialog with
    std::function<void()> m_meanwhile = {};

    std::vector<Asked> m_asked;

    [[nodiscard]] Asked const& Last() const
    {
        static const Asked never;
        EXPECT_FALSE(m_asked.empty()) << "no dialog was shown";
        return m_asked.empty() ? never : m_asked.back();
    }
    [[nodiscard]] DFileFrmt* Chosen() const { return static_cast<FileDlg const&>(*this).GetFormat(); }
    void PickFormat(DFileFrmt* format) { static_cast<FileDlg&>(*this).SetFormat(format); }

protected:
    bool OpenMFCFileDlg(int mode, char const* filter, int index, char const* defExt, char const* key) override
    {
        EXPECT_TRUE(m_vecFiles.IsEmpty()) << "results of the question before";
        const auto text = [](char const* chars) { return chars ? std::optional<std::string>(chars) : std::nullopt; };
        m_asked.push_back({mode, text(filter), index, text(defExt), key ? key : "(null)",
                           static_cast<LPCTSTR>(m_strCaption), m_strInitFile.c_str(),
                           std::vector<DFileFrmt*>(m_vecDscr.begin(), m_vecDscr.end()), m_pFrmt, m_nNodeType,
                           m_nDlgTmplId, m_bMultiple});
        if (m_meanwhile)
        {
            m_meanwhile();
        }
        if (!m_ok)
        {
            return false;
        }
        const int chosen = m_filter.value_or(index);
        m_pFrmt = chosen < m_vecDscr.GetCount() ? m_vecDscr[chosen] : nullptr;
        for (std::string const& file : m_picked)
        {
            m_vecFiles.Append(new BDIMoniker(file.c_str(), nullptr));
        }
        return true;
    }
};

/// Notes what the user is told.
class WarningTexts : public Report::Receiver
{
public:
    void OnReport(Report::Kind kind, char const* text) override
    {
        EXPECT_EQ(kind, Report::Kind::Warning);
        m_texts.emplace_back(text);
    }
    std::vector<std::string> m_texts;
};

inline constexpr char kNoTypes[] = "FileDlg::ShowFileDlg: no file types available";

/// Begins and ends with an empty section of the profile and without any of the workbench's own formats.
class OpenerTest : public support::WindowTest
{
protected:
    using Settings = std::map<std::string, std::string>;

    static constexpr char kSection[] = "Settings";

    void SetUp() override
    {
        WindowTest::SetUp();
        Clean();
        m_historyBefore = History();
    }
    void TearDown() override
    {
        EXPECT_EQ(History(), m_historyBefore) << "only the dialog itself touches the history";
        EXPECT_THAT(m_warnings.m_texts, testing::IsEmpty()) << "warnings that no test expected";
        Clean();
        WindowTest::TearDown();
    }

    static void Store(char const* key, char const* value)
    {
        ASSERT_TRUE(AfxGetApp()->WriteProfileString(kSection, key, value));
    }
    static void StoreRaw(char const* key, DWORD type, std::string const& bytes)
    {
        const HKEY section = AfxGetApp()->GetSectionKey(kSection);
        EXPECT_EQ(::RegSetValueExA(section, key, 0, type, reinterpret_cast<BYTE const*>(bytes.data()),
                                   static_cast<DWORD>(bytes.size())),
                  ERROR_SUCCESS);
        ::RegCloseKey(section);
    }
    /// All that is stored in the section.
    static Settings Stored()
    {
        const HKEY section = AfxGetApp()->GetSectionKey(kSection);
        Settings settings = Values(section);
        ::RegCloseKey(section);
        return settings;
    }
    /// What the user is told, once: a second call tells only what came since.
    std::vector<std::string> TakeWarnings() { return std::exchange(m_warnings.m_texts, {}); }

    WarningTexts m_warnings;
    Report::ReceiverScope m_scope{m_warnings};

private:
    static Settings Values(HKEY key)
    {
        Settings settings;
        char name[256];
        std::string value(std::size_t{2} << 20, '\0');
        for (DWORD i = 0;; ++i)
        {
            DWORD nameSize = sizeof name;
            auto size = static_cast<DWORD>(value.size());
            if (::RegEnumValueA(key, i, name, &nameSize, nullptr, nullptr, reinterpret_cast<BYTE*>(value.data()),
                                &size) != ERROR_SUCCESS)
            {
                return settings;
            }
            settings[name] = std::string(value.c_str(), size > 0 ? size - 1 : 0);
        }
    }
    static Settings History()
    {
        HKEY key = nullptr;
        if (::RegOpenKeyExA(HKEY_CURRENT_USER, "Software\\TavKit\\Workbench\\DefaultFolders", 0, KEY_READ, &key) !=
            ERROR_SUCCESS)
        {
            return {};
        }
        Settings history = Values(key);
        ::RegCloseKey(key);
        return history;
    }
    static void Clean()
    {
        AfxGetApp()->WriteProfileString(kSection, nullptr, nullptr); // the whole section
        for (DFileFrmt** const format :
             {&FileDlg::pFrmt_workspace, &FileDlg::pFrmt_dm_dbfile, &FileDlg::pFrmt_prjct, &FileDlg::pFrmt_clss_hrchy,
              &FileDlg::pFrmt_clss_hrchy_user, &FileDlg::pFrmt_prtcl, &FileDlg::pFrmt_user_prop, &FileDlg::pFrmt_proc,
              &FileDlg::pFrmt_wzrd, &FileDlg::pFrmt_paramset, &FileDlg::pFrmt_anly, &FileDlg::pFrmt_jobsqnce,
              &FileDlg::pFrmt_platelayout, &FileDlg::pFrmt_TMAlayout, &FileDlg::pFrmt_TMAmatch,
              &FileDlg::pFrmt_dosedilutionsec, &FileDlg::pFrmt_actnlib, &FileDlg::pFrmt_textsttng})
        {
            *format = nullptr;
        }
    }

    Settings m_historyBefore;
};
