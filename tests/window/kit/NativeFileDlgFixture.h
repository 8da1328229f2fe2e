// NativeFileDlgFixture.h - puts questions through the system's file dialog and answers them inside its loop
#pragma once

#include "support/SystemFileDialog.h"
#include "support/TempFolder.h"
#include "support/WindowTest.h"
#include "tavkit/TavKit.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

/// Reaches what is meant for derived classes.
class NativeQuestion : public FileDlg
{
public:
    using FileDlg::AddDscr;
    using FileDlg::m_bChckEditOnly;
    using FileDlg::m_bChckReadOnly;
    using FileDlg::m_nNodeType;
    using FileDlg::m_pFrmt;
    using FileDlg::m_vecDscr;
    using FileDlg::m_vecFiles;
    using FileDlg::OpenMFCFileDlg;

    /// Texts of the result.
    [[nodiscard]] std::vector<std::string> Files() const
    {
        std::vector<std::string> texts;
        for (BDIMoniker const* moniker : m_vecFiles)
        {
            texts.emplace_back(moniker->GetMoniker().c_str());
        }
        return texts;
    }
};

/// Takes down what the user is told.
class ToldTexts : public Report::Receiver
{
public:
    void OnReport(Report::Kind kind, char const* text) override
    {
        m_texts.emplace_back((kind == Report::Kind::Warning ? "warning: " : "notice: ") + std::string(text));
    }
    std::vector<std::string> m_texts;
};

/// A folder with two pictures, a table and a sub-folder, and a question that begins there.
class NativeFileDlg : public support::WindowTest
{
protected:
    static constexpr char kKey[] = "TestFolders";
    static constexpr char kTitle[] = "Which file?";
    static constexpr char kFilter[] = "Pictures|*.tif|Tables|*.csv||";
    static constexpr int kFolders = 6008;
    static constexpr int kFoldersLabel = 6009;
    static constexpr int kProjectEdit = 6010;
    static constexpr int kOptionsLabel = 6011;
    static constexpr int kReadOnly = 6011;
    static constexpr int kOptions = 6012;
    static constexpr int kLookIn = 1137;

    void SetUp() override
    {
        support::WarmUpFileDialogs();
        ForgetHistory();
        for (char const* name : {"a.tif", "b.tif", "c.csv"})
        {
            m_folder.Write(name, "x");
        }
        m_sub = m_folder.MakeFolder("sub");
        m_dlg.SetCaption(kTitle);
        m_dlg.SetInitFile(m_folder.Path().c_str());
        m_dlg.AddDscr(&m_pictures, false);
        m_dlg.AddDscr(&m_tables, false);
        static bool s_warm = false;
        if (!std::exchange(s_warm, true))
        {
            LookAt([](HWND) { support::Settle(); }); // what the panel and the list of pictures keep
        }
        WindowTest::SetUp();
    }
    void TearDown() override
    {
        ForgetHistory();
        WindowTest::TearDown();
    }

    static void ForgetHistory()
    {
        DfltFldrs::DeleteInstance();
        ::RegDeleteKeyA(HKEY_CURRENT_USER, "Software\\TavKit\\Workbench\\DefaultFolders");
    }
    [[nodiscard]] static std::string History()
    {
        return DUserCnfg("DefaultFolders", true, false).ReadString(kKey, "(nothing)").c_str();
    }
    static void SetFolders(std::string const& folders) { DfltFldrs::Instance()->SetDfltFldrs(kKey, folders.c_str()); }

    bool Open(int mode = FileDlg::kLoad, char const* key = kKey, int index = 0)
    {
        return m_dlg.OpenMFCFileDlg(mode, kFilter, index, "*.tif", key);
    }
    /// Shows the dialog, acts in it and presses the button.
    bool Ask(support::ModalHelper::Act const& act, int mode = FileDlg::kLoad, char const* key = kKey, int index = 0,
             int button = IDOK)
    {
        support::ModalScript script;
        script
            .Then(support::FindFileDialog,
                  [&](HWND dialog) {
                      act(dialog);
                      support::PressButton(dialog, button);
                  })
            .Start();
        const bool result = Open(mode, key, index);
        EXPECT_TRUE(script.Done());
        return result;
    }
    /// Only looks at the dialog.
    void LookAt(support::ModalHelper::Act const& act, char const* key = kKey)
    {
        EXPECT_FALSE(Ask(act, FileDlg::kLoad, key, 0, IDCANCEL));
    }

    /// The library's part of the dialog.
    [[nodiscard]] static HWND PanelOf(HWND dialog)
    {
        for (HWND child = ::GetWindow(dialog, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
        {
            if (::GetDlgItem(child, kFolders))
            {
                return child;
            }
        }
        return nullptr;
    }
    [[nodiscard]] static HWND ControlOf(HWND dialog, int id) { return ::GetDlgItem(PanelOf(dialog), id); }
    [[nodiscard]] static std::string TextOf(HWND window)
    {
        char text[1024] = "";
        ::GetWindowTextA(window, text, sizeof text);
        return text;
    }
    /// A control's place in its parent.
    [[nodiscard]] static CRect PlaceOf(HWND control)
    {
        CRect place;
        ::GetWindowRect(control, place);
        ::MapWindowPoints(nullptr, ::GetParent(control), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }
    [[nodiscard]] static bool IsShown(HWND control)
    {
        return (::GetWindowLongPtrA(control, GWL_STYLE) & WS_VISIBLE) != 0;
    }

    /// Picks a row of the folders as the user does.
    static void PickFolder(HWND dialog, int row)
    {
        const HWND combo = ControlOf(dialog, kFolders);
        ::SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
        ::SendMessageA(PanelOf(dialog), WM_COMMAND, MAKEWPARAM(kFolders, CBN_SELENDOK),
                       reinterpret_cast<LPARAM>(combo));
    }
    [[nodiscard]] static int PickedFolder(HWND dialog)
    {
        return static_cast<int>(::SendMessageA(ControlOf(dialog, kFolders), CB_GETCURSEL, 0, 0));
    }
    [[nodiscard]] static std::vector<std::string> FolderTexts(HWND dialog)
    {
        std::vector<std::string> texts;
        const HWND combo = ControlOf(dialog, kFolders);
        const LRESULT count = ::SendMessageA(combo, CB_GETCOUNT, 0, 0);
        for (WPARAM row = 0; row < static_cast<WPARAM>(count); ++row)
        {
            char text[1024] = "";
            ::SendMessageA(combo, CB_GETLBTEXT, row, reinterpret_cast<LPARAM>(text));
            texts.emplace_back(text);
        }
        return texts;
    }

    support::TempFolder m_folder;
    support::CurrentFolderScope m_current; // back before the folder goes
    std::string m_sub;                     ///< its sub-folder, without a closing separator
    DFileFrmt m_pictures{"TestPictures", "Pictures", "*.tif"};
    DFileFrmt m_tables{"TestTables", "Tables", "*.csv"};
    ToldTexts m_told;
    Report::ReceiverScope m_receiver{m_told};
    NativeQuestion m_dlg;
};
