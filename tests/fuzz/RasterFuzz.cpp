// RasterFuzz.cpp - picture files of any content through the raster drivers, as a picture view reads them

#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "tavkit/frame/services/RDIDriverMngr.h"

namespace
{

/// A file in the temporary folder, written anew for each input and deleted with the program.
class InputFile
{
public:
    InputFile()
    {
        char folder[MAX_PATH];
        char path[MAX_PATH];
        ::GetTempPathA(sizeof folder, folder);
        ::GetTempFileNameA(folder, "fuz", 0, path);
        m_path = path;
    }
    ~InputFile() { ::DeleteFileA(m_path.c_str()); }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    bool Write(std::uint8_t const* data, std::size_t size) const
    {
        std::FILE* const file = std::fopen(m_path.c_str(), "wb");
        if (file == nullptr)
        {
            return false;
        }
        const bool written = std::fwrite(data, 1, size, file) == size;
        return std::fclose(file) == 0 && written;
    }
    const std::string& Path() const { return m_path; }

private:
    std::string m_path;
};

void Require(bool holds)
{
    if (!holds)
    {
        std::abort();
    }
}

void ReadPage(const std::string& name)
{
    constexpr int kWidth = 24;
    constexpr int kHeight = 20;
    constexpr unsigned kModeAny = 3;
    constexpr int kMostBytes = 4;
    RDIDriver* driver = nullptr;
    void* handle = nullptr;
    DError error;
    const BDIMoniker moniker(name.c_str(), nullptr);
    if (!RDIDriverMngr::Instance()->OpenFile(moniker, &driver, &handle, "", &error, nullptr))
    {
        Require(error.HasError() && driver == nullptr && handle == nullptr);
        return;
    }
    const int width = driver->GetChnlSizeX(handle, 0);
    const int height = driver->GetChnlSizeY(handle, 0);
    Require(driver->GetNumChnl(handle) > 0 && width > 0 && height > 0);
    std::vector<char> buffer(kWidth * kHeight * kMostBytes);
    for (const int channel : {0, driver->GetNumChnl(handle) - 1})
    {
        (void)driver->ReadBlockRsmpl(handle, channel, 0, 0, width, height, buffer.data(), kWidth, kHeight, kModeAny,
                                     true);
    }
    driver->CloseFile(handle);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static const InputFile file;
    Require(file.Write(data, size));
    ReadPage(file.Path());
    ReadPage(file.Path() + "?page=1");
    return 0;
}
