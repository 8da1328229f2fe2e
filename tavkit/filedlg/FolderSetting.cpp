// FolderSetting.cpp
#include "tavkit/filedlg/FolderSetting.h"

#include <cstring>

namespace tavkit
{

CString ReadFldrSttng(char const* key, char const* dflt)
{
    CWinApp* const app = AfxGetApp();
    return app && key ? app->GetProfileString(kSettingsSection, key, dflt) : CString(dflt);
}

void WriteFldrSttng(char const* key, char const* folder)
{
    CWinApp* const app = AfxGetApp();
    if (app && key && *key && folder && *folder && std::strcmp(folder, ".") != 0)
    {
        app->WriteProfileString(kSettingsSection, key, folder);
    }
}

} // namespace tavkit
