// ResolveBDI.cpp - FileDlg's way from picked files to monikers, with the dialog for what only the user can tell
#include "tavkit/filedlg/BDISelectorDlg.h"
#include "tavkit/filedlg/FileDlg.h"
#include "tavkit/filedlg/Resolution.h"

namespace
{

bool AskInDialog(tavkit::ItemQuestion const& question, DVectorSafe<DString>& picked)
{
    CBDISelectorDlg dialog(question.drvr, question.root.c_str(), static_cast<unsigned int>(question.nodeType),
                           question.caption.c_str(), question.multi, nullptr);
    if (dialog.DoModal() != IDOK)
    {
        return false;
    }
    picked = dialog.GetPicked();
    return true;
}

} // namespace

bool FileDlg::ResolveBDI(int mode, int nodeType, DFileFrmt* format, DString const& caption,
                         DVectorSafe<DFile> const& files, char const* defExt, DVector<BDIMoniker*>& monikers,
                         char const* options)
{
    return tavkit::ResolveFiles({mode == kLoad, nodeType, format, caption, defExt, options}, files, monikers,
                                AskInDialog);
}
