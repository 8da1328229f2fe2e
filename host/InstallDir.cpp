// InstallDir.cpp - where the workbench is installed
#include <string>

#include <windows.h>

#include "host/PathText.h"
#include "tavkit/frame/services/BaseFuncs.h"

namespace
{
/// Set by an InstallDirScope; empty for the folder of the running program.
DString& GivenFolder()
{
    static DString folder;
    return folder;
}

std::string ProgramFolder()
{
    std::string path(MAX_PATH, '\0');
    for (;;)
    {
        const DWORD length = ::GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size())
        {
            path.resize(length);
            break;
        }
        path.resize(path.size() * 2); // cut off: the path is longer
    }
    return std::string(host::SplitPath(path).folder);
}
} // namespace

DString GetInstallDir(char const* sub)
{
    std::string folder = GivenFolder().IsEmpty() ? ProgramFolder() : std::string(GivenFolder().c_str());
    if (!folder.empty() && !host::EndsFolder(folder.back()))
    {
        folder += '\\';
    }
    if (sub && *sub)
    {
        folder += sub;
        if (!host::EndsFolder(folder.back()))
        {
            folder += '\\';
        }
    }
    return folder.c_str();
}

InstallDirScope::InstallDirScope(char const* folder) : m_strBefore(GivenFolder()) { GivenFolder() = folder; }

InstallDirScope::~InstallDirScope() { GivenFolder() = m_strBefore; }
