// OpenMFCFileDlg.cpp - FileDlg's way from a question through the system's file dialog to the result
#include "tavkit/filedlg/DfltFldrs.h"
#include "tavkit/filedlg/FileDlg.h"
#include "tavkit/filedlg/FileQuestion.h"

#include <afxdlgs.h>

#include <io.h>

#include <array>
#include <cstring>

namespace
{

constexpr std::size_t kFileBufferSize = 32768; ///< bytes of the selection, zeros included

bool AskInDialog(tavkit::FileQuestion const& question, tavkit::FileAnswer& answer)
{
    std::array<char, kFileBufferSize> buffer{};
    CFileDialog dialog(question.open, question.defExt, nullptr,
                       OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT | OFN_ENABLESIZING, question.filter);
    if (!question.overwritePrompt)
    {
        dialog.m_ofn.Flags &= ~static_cast<DWORD>(OFN_OVERWRITEPROMPT);
    }
    if (question.several)
    {
        dialog.m_ofn.Flags |= OFN_ALLOWMULTISELECT;
    }
    if (question.locked)
    {
        dialog.m_ofn.Flags |= OFN_NOCHANGEDIR;
    }
    if (!question.startFolder.IsEmpty())
    {
        dialog.m_ofn.lpstrInitialDir = question.startFolder;
    }
    std::strncpy(buffer.data(), question.startName, buffer.size() - 1);
    dialog.m_ofn.lpstrTitle = question.title;
    dialog.m_ofn.nFilterIndex = question.filterIndex;
    dialog.m_ofn.lpstrFile = buffer.data();
    dialog.m_ofn.nMaxFile = static_cast<DWORD>(buffer.size());
    if (dialog.DoModal() == IDCANCEL)
    {
        return false;
    }
    for (POSITION pos = dialog.GetStartPosition(); pos;)
    {
        answer.files.Append(DFile(dialog.GetNextPathName(pos)));
    }
    answer.filterIndex = dialog.m_ofn.nFilterIndex;
    answer.options = question.options;
    return true;
}

} // namespace

bool FileDlg::OpenMFCFileDlg(int mode, char const* filter, int index, char const* defExt, char const* key)
{
    tavkit::FileSetup setup;
    setup.mode = mode;
    setup.filter = filter;
    setup.index = index;
    setup.defExt = defExt;
    setup.key = key;
    setup.caption = m_strCaption;
    setup.initFile = m_strInitFile;
    setup.options = m_strOptions;
    setup.templateId = m_nDlgTmplId;
    setup.several = m_bMultiple;
    setup.locked = m_bNoChangeDir;
    setup.overwritePrompt = m_bOverwritePrompt;

    tavkit::FileServices services;
    services.folders = [](char const* category) {
        DVectorSafe<DString> folders;
        DfltFldrs::Instance()->GetDirHist(category, folders, true, true);
        return folders;
    };
    services.access = [](char const* path, tavkit::Access right) {
        return _access(path, static_cast<int>(right)) == 0;
    };
    services.ask = AskInDialog;
    services.take = [&](tavkit::FileAnswer const& answer) {
        m_bChckReadOnly = answer.readOnly;
        m_bChckEditOnly = answer.editOnly;
        m_pFrmt = tavkit::FormatOfFilter(m_vecDscr, answer.filterIndex);
        return ResolveBDI(mode, m_nNodeType, m_pFrmt, m_strCaption.GetString(), answer.files, defExt, m_vecFiles,
                          answer.options);
    };
    services.remember = [&](char const* category) {
        DfltFldrs::Instance()->SaveDirHist(category, DFile(GetPhysFile()).GetPhysFilePath());
    };
    return tavkit::AskForFiles(setup, services);
}
