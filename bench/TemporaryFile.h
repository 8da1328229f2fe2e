// TemporaryFile.h - a file for one measurement
#pragma once

#include <string>

#include <windows.h>

#include "bench/Bench.h"

namespace bench
{

/// An empty file, which is deleted at the end of the block with whatever was written into it.
class TemporaryFile
{
public:
    TemporaryFile()
    {
        char folder[MAX_PATH];
        char name[MAX_PATH];
        Require(::GetTempPathA(MAX_PATH, folder) != 0 && ::GetTempFileNameA(folder, "tav", 0, name) != 0,
                "there is no folder for temporary files");
        m_path = name;
    }
    ~TemporaryFile() { ::DeleteFileA(m_path.c_str()); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    [[nodiscard]] const std::string& Path() const noexcept { return m_path; }

private:
    std::string m_path;
};

} // namespace bench
