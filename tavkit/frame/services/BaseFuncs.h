// BaseFuncs.h - the host's base services that belong to no class
#pragma once

#include "tavkit/frame/services/DString.h"

/// Decimal text of @p value with @p digits digits behind the point (0 to 100; a number outside is taken to the nearer
/// end).
[[nodiscard]] TAVHOST_API DString FormatDouble(double value, int digits);

/// How RoundTo counts its digits.
enum RoundMode
{
    roundDecimals = 1,   ///< digits behind the decimal point
    roundSignificant = 2 ///< significant digits
};

/// @p value rounded to @p digits digits as its decimal text is; an exact half goes to the even digit. Values that
/// aren't finite or would leave the range of a double come back as they are, and so does every value for a digit count
/// below 0 (below 1 for significant digits) or a mode that isn't a RoundMode.
[[nodiscard]] TAVHOST_API double RoundTo(double value, int digits, int mode);

/// The extension of a file name, without the dot; "" without one.
[[nodiscard]] TAVHOST_API DString StripExtn(DString const& file);

/// The file name without its folder.
[[nodiscard]] TAVHOST_API DString StripPath(DString const& file);

/// The installation folder of the workbench, with its closing separator.
/// @param sub  null, or a folder below it whose path is given instead.
[[nodiscard]] TAVHOST_API DString GetInstallDir(char const* sub);

/// Takes @p folder as the installation folder until the end of the block, for a program that runs elsewhere than where
/// it is installed.
class TAVHOST_API InstallDirScope
{
public:
    explicit InstallDirScope(char const* folder);
    InstallDirScope(InstallDirScope const&) = delete;
    InstallDirScope& operator=(InstallDirScope const&) = delete;
    ~InstallDirScope();

private:
    DString m_strBefore;
};
