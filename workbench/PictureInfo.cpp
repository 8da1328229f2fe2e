#include "workbench/PictureInfo.h"

#include "tavkit/drawing/ContrastStretch.h"
#include "tavkit/drawing/ImageFit.h"
#include "tavkit/frame/services/BDIMoniker.h"
#include "tavkit/frame/services/DError.h"
#include "tavkit/frame/services/RDIDriverMngr.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <vector>

namespace workbench
{
namespace
{
/// How ReadBlockRsmpl is to resample: nearest or averaging, as the driver likes.
constexpr unsigned kResampleMode = 3;

/// An open picture file, closed at the end of the block.
class OpenPicture
{
public:
    explicit OpenPicture(const std::string& path)
    {
        DError error;
        const BDIMoniker moniker(path.c_str(), nullptr);
        if (!RDIDriverMngr::Instance()->OpenFile(moniker, &m_driver, &m_file, "", &error, nullptr))
        {
            Fail("opening the file", static_cast<const char*>(error.GetErrorText()));
            m_driver = nullptr;
        }
    }
    ~OpenPicture()
    {
        if (m_driver != nullptr)
        {
            m_driver->CloseFile(m_file);
        }
    }
    OpenPicture(const OpenPicture&) = delete;
    OpenPicture& operator=(const OpenPicture&) = delete;

    [[nodiscard]] std::optional<PictureInfo> Info()
    {
        if (m_driver == nullptr)
        {
            return std::nullopt;
        }
        RDIGeoCoo place;
        m_driver->GetChnlGeoCode(m_file, 0, &place);
        PictureInfo info;
        info.channels = m_driver->GetNumChnl(m_file);
        info.size.cx = tavkit::LogicalSize(m_driver->GetChnlSizeX(m_file, 0), place.m_nStepX);
        info.size.cy = tavkit::LogicalSize(m_driver->GetChnlSizeY(m_file, 0), place.m_nStepY);
        info.type = m_driver->GetChnlDataType(m_file, 0);
        if (info.channels <= 0 || info.size.cx <= 0 || info.size.cy <= 0)
        {
            Fail("looking for channels", SizeText(info) + ", " + TypeText(info));
            return std::nullopt;
        }
        if (!HasLastRow(info))
        {
            Fail("reading the last row",
                 "The file ends too early for " + SizeText(info) + ", " + TypeText(info) + ", or its data is damaged.");
            return std::nullopt;
        }
        return info;
    }
    [[nodiscard]] std::optional<ChannelValues> Values(int channel, SIZE picture, SIZE size)
    {
        if (m_driver == nullptr)
        {
            return std::nullopt;
        }
        ChannelValues values{m_driver->GetChnlDataType(m_file, channel), size, {}};
        const auto bytes = tavkit::BytesPerPixel(static_cast<tavkit::PixelType>(values.type));
        values.bytes.resize(static_cast<size_t>(size.cx) * static_cast<size_t>(size.cy) * static_cast<size_t>(bytes));
        if (values.bytes.empty() ||
            !m_driver->ReadBlockRsmpl(m_file, channel, 0.0, 0.0, picture.cx, picture.cy, values.bytes.data(), size.cx,
                                      size.cy, kResampleMode, true))
        {
            return std::nullopt;
        }
        return values;
    }
    /// The step that failed and its cause, each in a line; empty when none failed so far.
    [[nodiscard]] const std::string& Failure() const { return m_failure; }

private:
    void Fail(const std::string& step, const std::string& cause)
    {
        m_failure = "Failed: " + step + "\n";
        m_failure += cause.empty() ? "" : "Cause: " + cause + "\n";
    }
    [[nodiscard]] bool HasLastRow(const PictureInfo& info) const
    {
        const auto bytes = tavkit::BytesPerPixel(static_cast<tavkit::PixelType>(info.type));
        std::vector<unsigned char> row(static_cast<size_t>(info.size.cx) * static_cast<size_t>(bytes));
        return bytes > 0 && m_driver->ReadBlockRsmpl(m_file, 0, 0.0, info.size.cy - 1, info.size.cx, info.size.cy,
                                                     row.data(), info.size.cx, 1, kResampleMode, true);
    }

    RDIDriver* m_driver = nullptr;
    void* m_file = nullptr;
    std::string m_failure;
};

const char* NameOf(DMITypes::RDIDataType type)
{
    switch (type)
    {
    case DMITypes::rdiUInt8:
        return "8 bit";
    case DMITypes::rdiUInt16:
        return "16 bit";
    case DMITypes::rdiInt16:
        return "16 bit signed";
    case DMITypes::rdiUInt32:
        return "32 bit";
    case DMITypes::rdiInt32:
        return "32 bit signed";
    case DMITypes::rdiFloat32:
        return "32 bit float";
    }
    return "unknown type";
}

std::string DescribeBeginning(const std::string& path)
{
    constexpr std::streamsize kBytes = 16;
    std::ifstream file(path, std::ios::binary);
    std::array<char, kBytes> bytes{};
    file.read(bytes.data(), kBytes);
    std::string text;
    for (std::streamsize i = 0; i < file.gcount(); ++i)
    {
        char hex[4];
        std::snprintf(hex, sizeof hex, " %02X", static_cast<unsigned>(static_cast<unsigned char>(bytes.at(i))));
        text += hex;
    }
    return text.empty() ? "" : "Begins with:" + text + "\n";
}

/// Size, date and first bytes of a file, or that there is none.
std::string DescribeFile(const std::string& path)
{
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!::GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data))
    {
        return "The file isn't there or may not be looked at (system error " + std::to_string(::GetLastError()) +
               ").\n";
    }
    const ULARGE_INTEGER size{{data.nFileSizeLow, data.nFileSizeHigh}};
    std::string text = "Size: " + std::to_string(size.QuadPart) + " bytes\n";
    FILETIME local{};
    SYSTEMTIME time{};
    if (::FileTimeToLocalFileTime(&data.ftLastWriteTime, &local) && ::FileTimeToSystemTime(&local, &time))
    {
        char changed[64];
        std::snprintf(changed, sizeof changed, "Changed: %04u-%02u-%02u %02u:%02u:%02u\n", time.wYear, time.wMonth,
                      time.wDay, time.wHour, time.wMinute, time.wSecond);
        text += changed;
    }
    return text + DescribeBeginning(path);
}
} // namespace

std::optional<PictureInfo> ReadPictureInfo(const std::string& path) { return OpenPicture(path).Info(); }

std::optional<ChannelValues> ReadChannel(const std::string& path, int channel, SIZE picture, SIZE size)
{
    return OpenPicture(path).Values(channel, picture, size);
}

std::string DescribeFailure(const std::string& path)
{
    OpenPicture picture(path);
    const bool readable = picture.Info().has_value();
    return "File: " + path + "\n" + DescribeFile(path) +
           (readable ? "The picture can be read at present. F5 reads it anew.\n" : picture.Failure());
}

std::string SizeText(const PictureInfo& info)
{
    return std::to_string(info.size.cx) + " x " + std::to_string(info.size.cy) + " pixels";
}

std::string TypeText(const PictureInfo& info)
{
    const char* const plural = info.channels == 1 ? " channel, " : " channels, ";
    return std::to_string(info.channels) + plural + NameOf(info.type);
}
} // namespace workbench
