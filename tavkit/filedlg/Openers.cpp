// Openers.cpp - FileDlg's questions for the workbench's own data, for tables and reports, and for files of any kind
#include "tavkit/filedlg/DlgSlctDir.h"
#include "tavkit/filedlg/FileDlg.h"
#include "tavkit/filedlg/FolderSetting.h"
#include "tavkit/filedlg/FormatCatalogue.h"
#include "tavkit/filedlg/FormatOffer.h"
#include "tavkit/filedlg/OpenerRules.h"
#include "tavkit/resources/resource.h"

#include "tavkit/frame/services/BDIDrvrMngr.h"
#include "tavkit/frame/services/BaseFuncs.h"

using tavkit::ReadFldrSttng;
using tavkit::TitleRule;

static_assert(FileDlg::kLoad == tavkit::kLoadMode && FileDlg::kSave == tavkit::kSaveMode);

namespace
{

/// Name of the first file that a pattern finds in a folder; "" if it finds none.
[[nodiscard]] CString FirstFileIn(char const* folder, char const* pattern)
{
    WIN32_FIND_DATAA data;
    const HANDLE found = ::FindFirstFileA(tavkit::PathIn(folder, pattern).c_str(), &data);
    if (found == INVALID_HANDLE_VALUE)
    {
        return CString();
    }
    ::FindClose(found);
    return data.cFileName;
}

} // namespace

// Steps that several openers take

void FileDlg::SetTitle(tavkit::Titles const& titles, TitleRule rule, int mode)
{
    if (char const* const title = tavkit::TitleFor(titles, rule, mode, !m_strCaption.IsEmpty()))
    {
        m_strCaption = title;
    }
}

void FileDlg::SetLabelledTitle(int mode, CString const& label)
{
    const CString load = "Load " + label + "...";
    const CString save = "Save " + label + "...";
    SetTitle({load, save}, TitleRule::LoadAndSave, mode);
}

void FileDlg::BeginInStoredFolder(char const* key)
{
    if (m_strInitFile.IsEmpty())
    {
        m_strInitFile = ReadFldrSttng(key, tavkit::kNoFolder);
    }
}

void FileDlg::BeginWithFileIn(char const* file, char const* dir, char const* key)
{
    const CString folder = key && *key ? ReadFldrSttng(key, dir) : CString(dir);
    m_strInitFile = tavkit::PathIn(folder, file);
}

void FileDlg::StoreFolder(char const* key) const
{
    if (BDIMoniker const* const first = GetFile(0))
    {
        const DFile file(first->GetPathOnDisk().c_str());
        tavkit::WriteFldrSttng(key, file.GetPhysFilePath().c_str());
    }
}

bool FileDlg::AskAndStore(int mode, char const* category, char const* folderKey)
{
    if (!ShowFileDlg(mode, category))
    {
        return false;
    }
    StoreFolder(folderKey);
    return true;
}

// Files of any kind

bool FileDlg::OpenFileDlg(int mode, char const* filter, char const* defExt)
{
    const DString extension = defExt ? DString(defExt) : StripExtn(m_strInitFile);
    const int index = tavkit::FilterIndexOf(filter, extension.c_str());
    DeleteFiles();
    if (!OpenMFCFileDlg(mode, filter, index, defExt, ""))
    {
        return false;
    }
    SortData();
    return true;
}

bool FileDlg::Open(int mode, FileDlg::EFormat format, char const* file, char const* dir, char const* key)
{
    SetFormat(format, mode);
    BeginWithFileIn(file, dir, key);
    OfferAll({&tavkit::FileFrmtAll});
    SetTitle(tavkit::kDataTitles, TitleRule::LoadAndSave, mode);
    return AskAndStore(mode, "", key);
}

bool FileDlg::Open(int mode, char const* file, char const* dir, char const* key)
{
    BeginWithFileIn(file, dir, key);
    const DString extension = BDIMoniker(m_strInitFile.c_str(), nullptr).GetFrmtExtn();
    *m_frmtForOnce = DFileFrmt(nullptr, "", ("*." + extension).c_str());
    OfferAll({m_frmtForOnce.get(), &tavkit::FileFrmtAll});
    SetTitle(tavkit::kDataTitles, TitleRule::LoadAndSave, mode);
    const bool answered = AskAndStore(mode, "", key);
    RmvDscr(m_frmtForOnce.get());
    return answered;
}

bool FileDlg::OpenAll(int mode)
{
    OfferAll({&tavkit::FileFrmtAll});
    SetTitle(tavkit::kDataTitles, TitleRule::LoadAndSave, mode);
    return ShowFileDlg(mode, "");
}

// The workbench's own data

bool FileDlg::OpenOwnData(tavkit::OwnData const& data, DFileFrmt* format, int mode)
{
    if (!format)
    {
        return false;
    }
    OfferAll({format});
    if (data.folderKey)
    {
        BeginInStoredFolder(data.folderKey);
    }
    SetTitle(data.titles, data.rule, mode);
    return AskAndStore(mode, data.category, data.folderKey);
}

bool FileDlg::OpenAnlySltn(int mode) { return OpenOwnData(tavkit::kAnlySltn, pFrmt_anly, mode); }
bool FileDlg::OpenDMDatabase(int mode) { return OpenOwnData(tavkit::kDMDatabase, pFrmt_dm_dbfile, mode); }
bool FileDlg::OpenTMAMatch(int mode) { return OpenOwnData(tavkit::kTMAMatch, pFrmt_TMAmatch, mode); }
bool FileDlg::OpenTMAGridLayt(int mode) { return OpenOwnData(tavkit::kTMAGridLayt, pFrmt_TMAlayout, mode); }
bool FileDlg::OpenPltLayt(int mode) { return OpenOwnData(tavkit::kPltLayt, pFrmt_platelayout, mode); }
bool FileDlg::OpenTextSttng(int mode) { return OpenOwnData(tavkit::kTextSttng, pFrmt_textsttng, mode); }
bool FileDlg::OpenPrjct(int mode) { return OpenOwnData(tavkit::kPrjct, pFrmt_prjct, mode); }
bool FileDlg::OpenClssHrchy(int mode) { return OpenOwnData(tavkit::kClssHrchy, pFrmt_clss_hrchy, mode); }
bool FileDlg::OpenClssHrchyUser(int mode) { return OpenOwnData(tavkit::kClssHrchy, pFrmt_clss_hrchy_user, mode); }
bool FileDlg::OpenProcess(int mode) { return OpenOwnData(tavkit::kProcess, pFrmt_proc, mode); }
bool FileDlg::OpenJobSqnce(int mode) { return OpenOwnData(tavkit::kJobSqnce, pFrmt_jobsqnce, mode); }
bool FileDlg::OpenPrtcl(int mode) { return OpenOwnData(tavkit::kPrtcl, pFrmt_prtcl, mode); }
bool FileDlg::OpenUserProps(int mode) { return OpenOwnData(tavkit::kUserProps, pFrmt_user_prop, mode); }

bool FileDlg::OpenDoseDilutionSec(int mode)
{
    return OpenOwnData(tavkit::kDoseDilutionSec, pFrmt_dosedilutionsec, mode);
}

bool FileDlg::OpenWorkspace(int mode)
{
    if (pFrmt_workspace && mode == kLoad)
    {
        m_nDlgTmplId = IDD_FILE_PANEL_WORKSPACE;
    }
    return OpenOwnData(tavkit::kWorkspace, pFrmt_workspace, mode);
}

bool FileDlg::OpenParamSet(int mode, char const* caption)
{
    constexpr char kFolderKey[] = "ParamSetDir";
    constexpr tavkit::Titles kTitles = {"Load Parameter Set...", "Save Parameter Set..."};
    if (!pFrmt_paramset)
    {
        return false;
    }
    OfferAll({pFrmt_paramset});
    SetTitle(caption ? tavkit::Titles{caption, caption} : kTitles, TitleRule::Always, mode);
    DFile file(m_strInitFile.c_str());
    if (file.GetPhysFilePath().IsEmpty())
    {
        file.ChngDir(ReadFldrSttng(kFolderKey, tavkit::kNoFolder));
        m_strInitFile = file.GetMoniker();
    }
    return AskAndStore(mode, "RulesetFolders", kFolderKey);
}

bool FileDlg::OpenWzrd()
{
    constexpr char kFolderKey[] = "WizardCurrentDir";
    constexpr char kDefaultKey[] = "WizardDefaultDir"; // read only: whoever installs the wizards sets it
    if (!pFrmt_wzrd)
    {
        return false;
    }
    OfferAll({pFrmt_wzrd});
    if (m_strInitFile.IsEmpty())
    {
        m_strInitFile = ReadFldrSttng(kFolderKey, tavkit::kNoFolder);
        if (m_strInitFile == tavkit::kNoFolder)
        {
            m_strInitFile = ReadFldrSttng(kDefaultKey, tavkit::kNoFolder);
        }
    }
    m_strCaption = "Load Wizard Definition ..."; // the blank before the dots is wanted
    return AskAndStore(kLoad, "RulesetFolders", kFolderKey);
}

bool FileDlg::OpenActnLib(int mode)
{
    constexpr char kLibraries[] = "*.alx";
    if (mode != kLoad)
    {
        return false;
    }
    CWnd const* const owner = AfxGetMainWnd();
    CDlgSlctDir browser(owner ? owner->m_hWnd : nullptr);
    browser.m_strKey = "ActnLibDir";
    browser.m_strTitle = "Load Action Library...";
    browser.m_strFilePttr = kLibraries;
    if (browser.DoBrowse() == 0)
    {
        return false;
    }
    CString folder = browser.m_strPath;
    folder.TrimRight("\\/");
    const CString library = FirstFileIn(folder, kLibraries);
    if (library.IsEmpty())
    {
        return false;
    }
    BDIDrvr* const driver =
        m_pFrmt && pFrmt_actnlib ? BDIDrvrMngr::Instance()->GetDrvr(pFrmt_actnlib->m_strId.c_str()) : nullptr;
    m_vecFiles.Append(new BDIMoniker(tavkit::PathIn(folder, library).c_str(), driver));
    return true;
}

bool FileDlg::OpenAllRuleset(int mode, bool bJobSqnce)
{
    constexpr char kFolderKey[] = "Ruleset";
    for (DFileFrmt* const format : {pFrmt_proc, pFrmt_prtcl, pFrmt_anly, bJobSqnce ? pFrmt_jobsqnce : nullptr})
    {
        if (format)
        {
            AddDscr(format, false);
        }
    }
    *m_frmtForOnce = DFileFrmt("RLST_ALL", "All rule sets", tavkit::JoinPatterns(m_vecDscr).c_str());
    InsertAt(m_vecDscr, 0, m_frmtForOnce.get());
    SetTitle({"Load Rule Set...", "Save Rule Set..."}, TitleRule::IfEmpty, mode);
    BeginInStoredFolder(kFolderKey);
    const bool answered = AskAndStore(mode, "RulesetFolders", kFolderKey);
    RmvDscr(m_frmtForOnce.get());
    m_pFrmt = nullptr; // whatever it was: it may be the one that goes
    return answered;
}

// Data that the caller calls by a name

bool FileDlg::OpenTableData(int mode, CString const& label)
{
    m_nNodeType = bdiTable;
    SetFormat(frmtAscii, mode);
    SetLabelledTitle(mode, label);
    return ShowFileDlg(mode, "ImageFolders");
}

bool FileDlg::OpenLabelled(int mode, CString const& label, DFileFrmt& format, char const* key)
{
    OfferAll({&format});
    SetLabelledTitle(mode, label);
    return ShowFileDlg(mode, key);
}

bool FileDlg::OpenTiffData(int mode, CString const& label)
{
    return OpenLabelled(mode, label, tavkit::FileFrmtTiff, "ImageFolders");
}

bool FileDlg::OpenXMLData(int mode, CString const& label) { return OpenLabelled(mode, label, tavkit::FileFrmtXML, ""); }

bool FileDlg::OpenArcSDEConnFile(int mode, CString const& label)
{
    return OpenLabelled(mode, label, tavkit::FileFrmtConn, "ThematicFolders");
}

// What is only saved

bool FileDlg::OpenSaveCSV(char const* caption)
{
    OfferAll({&tavkit::FileFrmtCSV, &tavkit::FileFrmtAscii, &tavkit::FileFrmtTCSV});
    m_strCaption = caption;
    return ShowFileDlg(kSave, "ImageFolders");
}

bool FileDlg::OpenSaveHTML(char const* caption)
{
    OfferAll({&tavkit::FileFrmtHTML});
    m_strCaption = caption;
    return ShowFileDlg(kSave, "");
}
