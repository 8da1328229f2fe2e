// OpenMFCFileDlg.cpp - FileDlg's way from a question through the system's file dialog to the result
#include "tavkit/filedlg/CustomFileDlg.h"
#include "tavkit/filedlg/DfltFldrs.h"
#include "tavkit/filedlg/FileDlg.h"
#include "tavkit/filedlg/FileQuestion.h"

#include "tavkit/frame/services/Report.h"

#include <io.h>

#include <array>
#include <cstring>

namespace
{

/// Tells the user why the system ended the dialog without an answer, unless he cancelled it himself.
void ReportFailure(DWORD error)
{
    switch (error)
    {
    case 0:
        return;
    case FNERR_BUFFERTOOSMALL:
        Report::UserWarning("FileDlg::OpenMFCFileDlg: too many files, their names take more than %d characters",
                            static_cast<int>(FileDlg::kSelectionSize));
        return;
    case CDERR_FINDRESFAILURE:
        Report::UserWarning("FileDlg::OpenMFCFileDlg: the dialog template is not there");
        return;
    default:
        Report::UserWarning("FileDlg::OpenMFCFileDlg: the file dialog failed (error %04lX)", error);
        return;
    }
}

bool AskInDialog(tavkit::FileQuestion const& question, tavkit::FileAnswer& answer)
{
    CCustomFileDlg dialog(question.open, question.extension, nullptr, question.filter, nullptr,
                          static_cast<UINT>(question.templateId));
    // Not every system looks for the panel before it shows its dialog, and without one it may fail badly.
    if (!::FindResourceA(dialog.m_ofn.hInstance, dialog.m_ofn.lpTemplateName, RT_DIALOG))
    {
        ReportFailure(CDERR_FINDRESFAILURE);
        return false;
    }
    if (!question.overwritePrompt)
    {
        dialog.m_ofn.Flags &= ~static_cast<DWORD>(OFN_OVERWRITEPROMPT);
    }
    if (question.locked)
    {
        dialog.m_ofn.Flags |= OFN_NOCHANGEDIR | OFN_ENABLEHOOK;
    }
    if (question.several)
    {
        dialog.m_ofn.Flags |= OFN_ALLOWMULTISELECT;
    }
    dialog.m_bShowFolders = question.showFolders;
    dialog.m_vecFolders = question.folders;
    if (!question.startFolder.IsEmpty())
    {
        dialog.m_ofn.lpstrInitialDir = question.startFolder;
    }
    std::array<char, FileDlg::kSelectionSize> selection{};
    if (static_cast<std::size_t>(question.startName.GetLength()) < selection.size())
    {
        std::strcpy(selection.data(), question.startName);
    }
    if (!question.title.IsEmpty()) // otherwise the system has a title of its own
    {
        dialog.m_ofn.lpstrTitle = question.title;
    }
    dialog.m_ofn.nFilterIndex = question.filterIndex;
    dialog.m_ofn.lpstrFile = selection.data();
    dialog.m_ofn.nMaxFile = static_cast<DWORD>(selection.size());
    dialog.m_strOptions = question.options;

    if (dialog.DoModal() == IDCANCEL)
    {
        ReportFailure(::CommDlgExtendedError());
        return false;
    }
    if (question.several && !tavkit::IsWholeSelection(selection))
    {
        ReportFailure(FNERR_BUFFERTOOSMALL);
        return false;
    }
    for (POSITION pos = dialog.GetStartPosition(); pos;)
    {
        answer.files.Append(DFile(dialog.GetNextPathName(pos)));
    }
    answer.filterIndex = dialog.m_ofn.nFilterIndex;
    answer.options = static_cast<LPCTSTR>(dialog.m_strOptions);
    answer.readOnly = dialog.m_bChckReadOnly;
    answer.editOnly = dialog.m_bChckEditOnly;
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
