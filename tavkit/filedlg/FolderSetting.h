// FolderSetting.h - the last folder and the last format of each kind of data, in the application's profile
#pragma once

#include <afxwin.h>

namespace tavkit
{

inline constexpr char kSettingsSection[] = "Settings"; ///< of the profile

/// The folder, or the format, stored under @p key in the profile's section "Settings"; @p dflt if there is none.
/// Without an application there is no profile.
[[nodiscard]] CString ReadFldrSttng(char const* key, char const* dflt);

/// Stores @p folder, or a format, under @p key, but for a null or empty key or text and for ".": a dot is what the
/// dialogs read with and stands for nothing stored.
void WriteFldrSttng(char const* key, char const* folder);

} // namespace tavkit
