// FolderLink.h - a link on disk that leads to a folder
#pragma once

#include "Emulation.h"

namespace support
{
/// A link to a folder, which goes without the folder that it leads to.
class FolderLink
{
public:
    /// @param path    of the link, which isn't there yet
    /// @param target  absolute path of the folder
    FolderLink(std::string path, const std::string& target) : m_path(std::move(path))
    {
        const std::string unixTarget = EmulatorPath(target);
        RunProgram(unixTarget.empty() ? "cmd.exe /c mklink /J \"" + m_path + "\" \"" + target + "\""
                                      : "Z:\\bin\\ln -s \"" + unixTarget + "\" \"" + EmulatorPath(m_path) + "\"");
        if (!AwaitProgram([this] { return IsThere(); }))
        {
            throw std::runtime_error("cannot make the link " + m_path);
        }
    }
    FolderLink(const FolderLink&) = delete;
    FolderLink& operator=(const FolderLink&) = delete;
    ~FolderLink()
    {
        if (!::RemoveDirectoryA(m_path.c_str()) && IsThere())
        {
            RunProgram("Z:\\bin\\rm \"" + EmulatorPath(m_path) + "\"");
            (void)AwaitProgram([this] { return !IsThere(); });
        }
    }

    [[nodiscard]] const std::string& Path() const { return m_path; }

private:
    [[nodiscard]] bool IsThere() const
    {
        WIN32_FIND_DATAA found;
        const HANDLE find = ::FindFirstFileA(m_path.c_str(), &found);
        return find != INVALID_HANDLE_VALUE && ::FindClose(find);
    }

    std::string m_path;
};
} // namespace support
