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
    if (key && *key && folder && *folder && std::strcmp(folder, ".") != 0)
    {
        WriteSttng(key, folder);
    }
}

void WriteSttng(char const* key, char const* text)
{
    if (CWinApp* const app = AfxGetApp())
    {
        app->WriteProfileString(kSettingsSection, key, text);
    }
}

} // namespace tavkit
