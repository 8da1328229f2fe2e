// TempFolder.h - a folder of a test's own, with files of given bytes
#pragma once

#include <windows.h>

#include <cstdio>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace support
{
/// A new folder, which goes with all that is in it.
class TempFolder
{
public:
    TempFolder()
    {
        char temp[MAX_PATH];
        ::GetTempPathA(MAX_PATH, temp);
        static unsigned serial = 0;
        do
        {
            m_path = std::string(temp) + "tavkit-" + std::to_string(::GetCurrentProcessId()) + "-" +
                     std::to_string(++serial) + "\\";
        } while (!::CreateDirectoryA(m_path.c_str(), nullptr) && ::GetLastError() == ERROR_ALREADY_EXISTS);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder()
    {
        for (const std::string& name : Names())
        {
            const std::string path = Path(name);
            ::SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
            if (!::DeleteFileA(path.c_str()))
            {
                ::RemoveDirectoryA(path.c_str());
            }
        }
        ::RemoveDirectoryA(m_path.c_str());
    }

    /// The folder's path, or that of a name in it.
    [[nodiscard]] std::string Path(std::string_view name = {}) const { return m_path + std::string(name); }

    /// Writes a file and gives its path.
    std::string Write(std::string_view name, std::string_view bytes) const
    {
        const std::string path = Path(name);
        std::FILE* file = std::fopen(path.c_str(), "wb");
        const bool written = file && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
        if (!file || std::fclose(file) != 0 || !written)
        {
            throw std::runtime_error("cannot write " + path);
        }
        return path;
    }

    /// The bytes of a file; "" if it isn't there.
    [[nodiscard]] std::string Read(std::string_view name) const
    {
        std::string bytes;
        if (std::FILE* file = std::fopen(Path(name).c_str(), "rb"))
        {
            char block[65536];
            while (const std::size_t got = std::fread(block, 1, sizeof(block), file))
            {
                bytes.append(block, got);
            }
            std::fclose(file);
        }
        return bytes;
    }

    /// Makes a folder in it and gives its path, without a closing separator.
    std::string MakeFolder(std::string_view name) const
    {
        const std::string path = Path(name);
        ::CreateDirectoryA(path.c_str(), nullptr);
        return path;
    }

    /// Names of all that is in it.
    [[nodiscard]] std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        WIN32_FIND_DATAA found;
        const HANDLE find = ::FindFirstFileA((m_path + "*").c_str(), &found);
        if (find != INVALID_HANDLE_VALUE)
        {
            do
            {
                const std::string name = found.cFileName;
                if (name != "." && name != "..")
                {
                    names.push_back(name);
                }
            } while (::FindNextFileA(find, &found));
            ::FindClose(find);
        }
        return names;
    }

private:
    std::string m_path;
};
} // namespace support
