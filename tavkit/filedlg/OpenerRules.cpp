// OpenerRules.cpp
#include "tavkit/filedlg/OpenerRules.h"

#include <string_view>

namespace tavkit
{

char const* TitleFor(Titles const& titles, TitleRule rule, int mode, bool isTitled) noexcept
{
    if (rule == TitleRule::IfEmpty && isTitled)
    {
        return nullptr;
    }
    if (mode == kLoadMode)
    {
        return titles.load;
    }
    return mode == kSaveMode || rule == TitleRule::Always ? titles.save : nullptr;
}

DString PathIn(char const* folder, char const* file)
{
    DString path = folder;
    if (!path.IsEmpty() && !std::string_view(path.c_str()).ends_with('\\'))
    {
        path += "\\";
    }
    path += file;
    return path;
}

} // namespace tavkit
