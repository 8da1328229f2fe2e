// FileDlg.cpp - the offer of formats, the question and the result
#include "tavkit/filedlg/FileDlg.h"
#include "tavkit/filedlg/FormatCatalogue.h"
#include "tavkit/filedlg/FormatOffer.h"

#include "tavkit/frame/services/BaseFuncs.h"
#include "tavkit/frame/services/Report.h"
#include "tavkit/frame/services/Wksp.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace
{

char g_filter[FileDlg::kFilterSize]; ///< one dialog asks at a time

void WarnOfNoFormats() { Report::UserWarning("FileDlg::ShowFileDlg: no file types available"); }

/// The custom imports of the open workspace, in order.
[[nodiscard]] std::vector<CustImport*> CustomImports()
{
    std::vector<CustImport*> imports;
    Wksp const* const workspace = Wksp::Instance();
    DataSchm* const schema = workspace ? workspace->GetDataSchm() : nullptr;
    for (int i = 0; schema && i < schema->GetNumCustImport(); ++i)
    {
        imports.push_back(schema->GetCustImport(i));
    }
    return imports;
}

} // namespace

DFileFrmt* FileDlg::pFrmt_workspace = nullptr;
DFileFrmt* FileDlg::pFrmt_dm_dbfile = nullptr;
DFileFrmt* FileDlg::pFrmt_prjct = nullptr;
DFileFrmt* FileDlg::pFrmt_clss_hrchy = nullptr;
DFileFrmt* FileDlg::pFrmt_clss_hrchy_user = nullptr;
DFileFrmt* FileDlg::pFrmt_prtcl = nullptr;
DFileFrmt* FileDlg::pFrmt_user_prop = nullptr;
DFileFrmt* FileDlg::pFrmt_proc = nullptr;
DFileFrmt* FileDlg::pFrmt_wzrd = nullptr;
DFileFrmt* FileDlg::pFrmt_paramset = nullptr;
DFileFrmt* FileDlg::pFrmt_anly = nullptr;
DFileFrmt* FileDlg::pFrmt_jobsqnce = nullptr;
DFileFrmt* FileDlg::pFrmt_platelayout = nullptr;
DFileFrmt* FileDlg::pFrmt_TMAlayout = nullptr;
DFileFrmt* FileDlg::pFrmt_TMAmatch = nullptr;
DFileFrmt* FileDlg::pFrmt_dosedilutionsec = nullptr;
DFileFrmt* FileDlg::pFrmt_actnlib = nullptr;
DFileFrmt* FileDlg::pFrmt_snpts = nullptr;
DFileFrmt* FileDlg::pFrmt_textsttng = nullptr;

FileDlg::FileDlg() = default;
FileDlg::FileDlg(CString const& caption) : m_strCaption(caption) {}
FileDlg::FileDlg(FileDlg const& other) = default;
FileDlg& FileDlg::operator=(FileDlg const& other) = default;
FileDlg::~FileDlg() { Reset(); }

void FileDlg::DeleteFiles()
{
    for (int i = m_vecFiles.GetCount() - 1; i >= 0; --i)
    {
        delete m_vecFiles[i];
    }
    m_vecFiles.Clear();
}

void FileDlg::Reset()
{
    DeleteFiles();
    for (DFileFrmt const* const format : m_lstPluginFrmts)
    {
        delete format;
    }
    m_lstPluginFrmts.Clear();
    m_vecDscr.Clear();
}

void FileDlg::SetCaption(char const* caption) { m_strCaption = caption; }
void FileDlg::SetDataType(unsigned int type) { m_nDataType = type; }
void FileDlg::SetMultipleFiles() { m_bMultiple = true; }
void FileDlg::SetNoChangeDir() { m_bNoChangeDir = true; }
void FileDlg::ShowOverwritePrompt(bool show) { m_bOverwritePrompt = show; }
void FileDlg::SetDlgTmplId(int id) { m_nDlgTmplId = id; }
void FileDlg::SetOptions(DString& options) { m_strOptions = options; }
void FileDlg::SetInitFile(char const* file) { m_strInitFile = file; }
void FileDlg::SetInitFrmtId(char const* id) { m_strInitFrmtId = id; }
void FileDlg::SetFormat(DFileFrmt* format) { m_pFrmt = format; }

DFileFrmt* FileDlg::GetFormat() const { return m_pFrmt; }
bool FileDlg::GetChckReadOnly() const { return m_bChckReadOnly; }
bool FileDlg::GetChckEditOnly() const { return m_bChckEditOnly; }
int FileDlg::GetNumSlctFiles() const { return m_vecFiles.GetCount(); }
BDIMoniker* FileDlg::GetFile(int index) const { return m_vecFiles[index]; }

BDIMoniker* FileDlg::GetFileRmv(int index)
{
    BDIMoniker* const moniker = GetFile(index);
    RemoveAt(m_vecFiles, index);
    return moniker;
}

CString FileDlg::GetPhysFile()
{
    BDIMoniker const* const first = GetFile(0);
    return first ? CString(first->GetMoniker().c_str()) : CString(".");
}

DString FileDlg::GetImgDrvrID()
{
    if (!m_pFrmt)
    {
        return "";
    }
    for (CustImport const* const import : CustomImports())
    {
        CustImport::Dfntn const& definition = *import->m_pDfntn;
        if (definition.m_strName == m_pFrmt->m_strName && !definition.m_vecLayer.IsEmpty())
        {
            return definition.m_vecLayer[0].m_strDrvrId;
        }
    }
    return m_pFrmt->m_strId;
}

void FileDlg::SortData()
{
    if (m_vecFiles.GetCount() < 2)
    {
        return;
    }
    // A name is asked for once, not at every comparison: each may open a repository.
    std::vector<std::pair<DString, BDIMoniker*>> named;
    named.reserve(static_cast<std::size_t>(m_vecFiles.GetCount()));
    for (BDIMoniker* const moniker : m_vecFiles)
    {
        named.emplace_back(moniker->GetDisplayName(), moniker);
    }
    std::stable_sort(named.begin(), named.end(), [](auto const& left, auto const& right) {
        return std::strcmp(left.first.c_str(), right.first.c_str()) < 0;
    });
    std::transform(named.begin(), named.end(), m_vecFiles.begin(), [](auto const& each) { return each.second; });
}

void FileDlg::AddDscr(DFileFrmt* format, bool sorted)
{
    if (sorted)
    {
        tavkit::AddSorted(m_vecDscr, format);
    }
    else
    {
        m_vecDscr.Append(format);
    }
}

void FileDlg::OfferAll(std::initializer_list<DFileFrmt*> formats)
{
    for (DFileFrmt* const format : formats)
    {
        AddDscr(format, false);
    }
}

void FileDlg::RmvDscr(DFileFrmt* format) { tavkit::RemoveFormat(m_vecDscr, format); }

DFileFrmt* FileDlg::GetFormat(char const* id)
{
    if (m_vecDscr.IsEmpty())
    {
        WarnOfNoFormats();
    }
    return tavkit::FindById(m_vecDscr, id);
}

DFileFrmt* FileDlg::GetFormatByName(char const* name)
{
    if (m_vecDscr.IsEmpty())
    {
        WarnOfNoFormats();
    }
    return tavkit::FindByName(m_vecDscr, name);
}

void FileDlg::SetFormat(FileDlg::EFormat format, int mode)
{
    const auto begin = [&](DFileFrmt& first, std::initializer_list<DFileFrmt*> others = {}) {
        m_pFrmt = &first;
        OfferAll({&first});
        OfferAll(others);
    };
    switch (format)
    {
    case frmtAscii:
        begin(tavkit::FileFrmtAscii, {&tavkit::FileFrmtDBase});
        if (mode == kLoad)
        {
            OfferAll({&tavkit::FileFrmtCSV, &tavkit::FileFrmtAll});
        }
        break;
    case frmtCSV:
        begin(tavkit::FileFrmtCSV, {&tavkit::FileFrmtTCSV});
        if (mode == kSave)
        {
            OfferAll({&tavkit::FileFrmtAscii});
        }
        break;
    case frmtShape:
        begin(tavkit::FileFrmtShape);
        break;
    case frmtHTML:
        begin(tavkit::FileFrmtHTML);
        break;
    case frmtSnippet:
        begin(tavkit::FileFrmtSnippet);
        break;
    }
}

void FileDlg::AddIOPluginFilters(DIOPluginMngr* mngr, int mode, ICheck<DString>* check)
{
    if (mngr)
    {
        mngr->BuildFrmtList(&m_lstPluginFrmts, mode, m_nDataType, check);
    }
    else
    {
        for (CustImport* const import : CustomImports())
        {
            CustImport::Dfntn const& definition = *import->m_pDfntn;
            const DString pattern = tavkit::ImportPattern(import->GetFilePttr(definition.m_vecParam, ""));
            m_lstPluginFrmts.AddTail(
                new DFileFrmt(definition.m_strFrmtId.c_str(), definition.m_strName.c_str(), pattern.c_str()));
        }
    }
    tavkit::OfferPluginFormats(m_vecDscr, m_lstPluginFrmts, mode == kLoad);
}

void FileDlg::InitFilter(char* buffer) const { tavkit::InitFilterText(buffer); }

void FileDlg::FinishFilter(char* buffer) const { tavkit::FinishFilterText(buffer); }

char const* FileDlg::BuildFilter(int* offered) const
{
    const int taken = tavkit::BuildFilterText(m_vecDscr, g_filter);
    if (offered)
    {
        *offered = taken;
    }
    const int missing = m_vecDscr.GetCount() - taken;
    if (missing > 0)
    {
        Report::UserWarning("FileDlg::ShowFileDlg: too many file types, the last %d are not offered", missing);
    }
    return g_filter;
}

bool FileDlg::ShowFileDlg(int mode, char const* key)
{
    DeleteFiles();
    if (m_vecDscr.IsEmpty())
    {
        WarnOfNoFormats();
        return false;
    }
    if (!m_pFrmt)
    {
        m_pFrmt = tavkit::FindByPattern(m_vecDscr, StripExtn(m_strInitFile).c_str());
    }
    if (!m_pFrmt)
    {
        m_pFrmt = m_vecDscr[0];
    }
    int offered = 0;
    char const* const filter = BuildFilter(&offered);
    // By name: a format that isn't on offer itself stands for one that is called the same.
    const int index = tavkit::IndexOfName(m_vecDscr, offered, m_pFrmt->m_strName.c_str());
    if (!OpenMFCFileDlg(mode, filter, index, m_pFrmt->m_strPattern.c_str(), key))
    {
        return false;
    }
    SortData();
    return true;
}
