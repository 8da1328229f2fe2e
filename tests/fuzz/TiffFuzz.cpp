// TiffFuzz.cpp - tags and pixels of TIFF pages from any bytes

#include <cstdint>
#include <cstdlib>
#include <memory>

#include "host/raster/Resample.h"
#include "host/raster/TiffPicture.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    using namespace raster;
    constexpr unsigned kPages = 3;
    constexpr int kWidth = 24;
    constexpr int kHeight = 20;
    const auto bytes = std::as_bytes(std::span(data, size));
    host::SpanSource tags(bytes);
    const TiffDirectory directory(tags);
    const unsigned count = directory.CountPages();
    for (unsigned n = 0; n < kPages; ++n)
    {
        auto page = directory.ReadPage(n);
        if (page && n >= count)
        {
            std::abort(); // a page that can't be reached
        }
        if (!page || !TiffPicture::Reads(*page))
        {
            continue;
        }
        const auto picture =
            TiffPicture::Open(std::make_unique<host::SpanSource>(bytes), std::move(*page), directory.IsBigEndian());
        if (!picture)
        {
            continue;
        }
        const PictureInfo& info = picture->Info();
        WindowReader reader(*picture);
        std::vector<std::byte> target(kWidth * kHeight * BytesOf(info.type));
        const auto right = static_cast<double>(info.width);
        const auto bottom = static_cast<double>(info.height);
        for (const int channel : {0, info.channels - 1})
        {
            (void)reader.Read(channel, {0, 0, right, bottom}, kWidth, kHeight, ResampleMethod::Nearest, target);
        }
        // The mean of a picture looks at all of it, which only a small one is asked for.
        const SourceWindow corner{right - kWidth * 1.5, bottom - kHeight * 1.5, right + 1, bottom + 1};
        (void)reader.Read(0, corner, kWidth, kHeight, ResampleMethod::Average, target);
    }
    return 0;
}
