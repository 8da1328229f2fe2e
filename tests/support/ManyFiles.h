// ManyFiles.h - a folder full of files
#pragma once

#include "Emulation.h"

#include <cstdio>

namespace support
{
/// The name of a file by its number: five digits and more, so that the numbers' order is that of the names.
[[nodiscard]] inline std::string ManyFilesName(int number)
{
    char name[32];
    std::snprintf(name, sizeof name, "file%05d.tif", number);
    return name;
}

/// Makes empty files, numbered from 0, in a folder that is there. Where Windows is emulated on a disk that tells the
/// case of letters, every new name costs a look at all that are there, so the emulating system's shell makes them.
inline void MakeManyFiles(const std::string& folder, int count)
{
    const std::string unixFolder = EmulatorPath(folder);
    if (!unixFolder.empty())
    {
        RunProgram("Z:\\bin\\sh -c \"cd '" + unixFolder + "' && seq -f file%05g.tif 0 " + std::to_string(count - 1) +
                   " | xargs touch\"");
    }
    const auto path = [&](int number) { return folder + "\\" + ManyFilesName(number); };
    if (!unixFolder.empty() &&
        AwaitProgram([&] { return ::GetFileAttributesA(path(count - 1).c_str()) != INVALID_FILE_ATTRIBUTES; }))
    {
        return;
    }
    for (int i = 0; i < count; ++i)
    {
        const HANDLE file =
            ::CreateFileA(path(i).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file == INVALID_HANDLE_VALUE)
        {
            throw std::runtime_error("cannot make " + path(i));
        }
        ::CloseHandle(file);
    }
}
} // namespace support
