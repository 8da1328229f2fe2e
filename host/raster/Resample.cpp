#include "host/raster/Resample.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>

namespace raster
{
namespace
{

constexpr std::size_t kMostRemembered = std::size_t{32} << 20; // bytes of a window that is kept for its other channels
constexpr std::size_t kBandBytes = std::size_t{32} << 20;      // about what is read from the picture at a time

/// A source pixel's share in a target pixel.
struct Share
{
    int source = 0;
    double weight = 0.0;
};

/// Shares of one target pixel: `count` of them from `first` on.
struct Coverage
{
    std::vector<Share> shares;
    std::vector<std::size_t> starts; ///< of each target, and the end of the last
};

[[nodiscard]] Coverage FindCoverage(double from, double to, int count, int limit)
{
    Coverage coverage;
    coverage.starts.reserve(static_cast<std::size_t>(count) + 1);
    const double step = (to - from) / count;
    for (int i = 0; i < count; ++i)
    {
        coverage.starts.push_back(coverage.shares.size());
        const double left = std::max(from + i * step, 0.0);
        const double right = std::min(i + 1 == count ? to : from + (i + 1) * step, static_cast<double>(limit));
        if (!(left < right))
        {
            continue;
        }
        const int first = static_cast<int>(left);
        for (int source = first; source < limit && source < right; ++source)
        {
            const double weight = std::min<double>(right, source + 1.0) - std::max<double>(left, source);
            if (weight > 0.0)
            {
                coverage.shares.push_back({source, weight});
            }
        }
    }
    coverage.starts.push_back(coverage.shares.size());
    return coverage;
}

/// Mean of a row of target pixels, in the making.
struct Means
{
    explicit Means(std::size_t count) : sums(count), weights(count) {}

    void Clear()
    {
        std::ranges::fill(sums, 0.0);
        std::ranges::fill(weights, 0.0);
    }

    std::vector<double> sums;
    std::vector<double> weights;
};

/// Adds a row of source pixels to the means; `row[0]` is column `firstColumn`. What is not a number has no share.
template <class Sample>
void AddRow(Means& means, const Coverage& columns, const Sample* row, int firstColumn, double weight)
{
    for (std::size_t i = 0; i + 1 < columns.starts.size(); ++i)
    {
        double sum = 0.0;
        double total = 0.0;
        for (std::size_t k = columns.starts[i]; k < columns.starts[i + 1]; ++k)
        {
            const Share& share = columns.shares[k];
            const auto value = static_cast<double>(row[share.source - firstColumn]);
            if (!std::isnan(value))
            {
                sum += value * share.weight;
                total += share.weight;
            }
        }
        means.sums[i] += sum * weight;
        means.weights[i] += total * weight;
    }
}

template <class Sample>
[[nodiscard]] Sample ToSample(double mean) noexcept
{
    if constexpr (std::numeric_limits<Sample>::is_integer)
    {
        constexpr auto lowest = static_cast<double>(std::numeric_limits<Sample>::lowest());
        constexpr auto highest = static_cast<double>(std::numeric_limits<Sample>::max());
        return static_cast<Sample>(std::clamp(std::floor(mean + 0.5), lowest, highest));
    }
    else
    {
        return static_cast<Sample>(mean);
    }
}

/// Puts one channel of a block of picked pixels into the rows of a wider target.
void PlaceChannel(const std::byte* pixels, std::size_t pixelBytes, std::size_t sampleBytes, std::size_t columns,
                  std::size_t rows, std::byte* target, std::size_t targetRowBytes) noexcept
{
    const auto place = [&]<std::size_t Bytes>() {
        for (std::size_t row = 0; row < rows; ++row, target += targetRowBytes)
        {
            std::byte* out = target;
            for (std::size_t column = 0; column < columns; ++column, pixels += pixelBytes, out += Bytes)
            {
                std::memcpy(out, pixels, Bytes);
            }
        }
    };
    switch (sampleBytes)
    {
    case 1:
        place.operator()<1>();
        break;
    case 2:
        place.operator()<2>();
        break;
    default:
        place.operator()<4>();
        break;
    }
}

} // namespace

struct WindowReader::Target
{
    int width = 0;
    int height = 0;
    std::span<std::byte> bytes;
};

bool IsProper(const SourceWindow& window) noexcept
{
    return std::isfinite(window.left) && std::isfinite(window.top) && std::isfinite(window.right) &&
           std::isfinite(window.bottom) && std::isfinite(window.right - window.left) &&
           std::isfinite(window.bottom - window.top) && window.left < window.right && window.top < window.bottom;
}

NearestIndices FindNearest(double from, double to, int count, int limit)
{
    NearestIndices result;
    const double step = (to - from) / count;
    for (int i = 0; i < count; ++i)
    {
        const double centre = from + (i + 0.5) * step;
        if (!(centre >= 0.0))
        {
            continue;
        }
        if (!(centre < limit))
        {
            break;
        }
        if (result.sources.empty())
        {
            result.firstTarget = i;
            result.sources.reserve(static_cast<std::size_t>(count - i));
        }
        result.sources.push_back(static_cast<int>(centre));
    }
    return result;
}

bool WindowReader::Read(int channel, const SourceWindow& window, int width, int height, ResampleMethod method,
                        std::span<std::byte> target)
{
    std::ranges::fill(target, std::byte{0});
    const Target into{width, height, target};
    const bool done =
        method == ResampleMethod::Average ? ReadAverage(channel, window, into) : ReadNearest(channel, window, into);
    if (!done)
    {
        std::ranges::fill(target, std::byte{0});
    }
    return done;
}

bool WindowReader::ReadNearest(int channel, const SourceWindow& window, const Target& target)
{
    const PictureInfo& info = m_picture.Info();
    const auto columns = FindNearest(window.left, window.right, target.width, info.width);
    const auto rows = FindNearest(window.top, window.bottom, target.height, info.height);
    if (columns.sources.empty() || rows.sources.empty())
    {
        return true; // beside the picture: all zero
    }
    const std::size_t sampleBytes = BytesOf(info.type);
    const std::size_t targetRowBytes = static_cast<std::size_t>(target.width) * sampleBytes;
    std::byte* const first = target.bytes.data() + static_cast<std::size_t>(rows.firstTarget) * targetRowBytes +
                             static_cast<std::size_t>(columns.firstTarget) * sampleBytes;
    const auto allChannels = static_cast<std::size_t>(info.channels);
    const std::size_t allBytes = sampleBytes * allChannels;

    if (info.channels > 1 && rows.sources.size() <= kMostRemembered / allBytes / columns.sources.size())
    {
        if (m_last.pixels.empty() || m_last.window != window || m_last.width != target.width ||
            m_last.height != target.height)
        {
            m_last.pixels.resize(columns.sources.size() * rows.sources.size() * allBytes);
            if (!m_picture.Pick(columns.sources, rows.sources, {0, info.channels}, m_last.pixels))
            {
                m_last.pixels.clear();
                return false;
            }
            m_last.window = window;
            m_last.width = target.width;
            m_last.height = target.height;
        }
        PlaceChannel(m_last.pixels.data() + static_cast<std::size_t>(channel) * sampleBytes, allBytes, sampleBytes,
                     columns.sources.size(), rows.sources.size(), first, targetRowBytes);
        return true;
    }

    if (columns.sources.size() == static_cast<std::size_t>(target.width))
    {
        return m_picture.Pick(columns.sources, rows.sources, {channel, 1},
                              target.bytes.subspan(static_cast<std::size_t>(rows.firstTarget) * targetRowBytes,
                                                   rows.sources.size() * targetRowBytes));
    }
    const std::size_t pickedRowBytes = columns.sources.size() * sampleBytes;
    const std::size_t atOnce = std::max<std::size_t>(kBandBytes / pickedRowBytes, 1);
    std::vector<std::byte> band;
    for (std::size_t done = 0; done < rows.sources.size(); done += atOnce)
    {
        const auto part = std::span(rows.sources).subspan(done, std::min(atOnce, rows.sources.size() - done));
        band.resize(part.size() * pickedRowBytes);
        if (!m_picture.Pick(columns.sources, part, {channel, 1}, band))
        {
            return false;
        }
        PlaceChannel(band.data(), sampleBytes, sampleBytes, columns.sources.size(), part.size(),
                     first + done * targetRowBytes, targetRowBytes);
    }
    return true;
}

template <class Sample>
bool WindowReader::Average(int channel, const SourceWindow& window, const Target& target)
{
    const PictureInfo& info = m_picture.Info();
    const Coverage columns = FindCoverage(window.left, window.right, target.width, info.width);
    const Coverage rows = FindCoverage(window.top, window.bottom, target.height, info.height);
    if (columns.shares.empty() || rows.shares.empty())
    {
        return true; // beside the picture: all zero
    }
    const int firstColumn = columns.shares.front().source;
    const int endColumn = columns.shares.back().source + 1;
    std::vector<int> allColumns(static_cast<std::size_t>(endColumn - firstColumn));
    std::iota(allColumns.begin(), allColumns.end(), firstColumn);

    // Bands end where the picture's blocks end, so that no block is decoded twice.
    const std::size_t rowSamples = allColumns.size();
    const int wanted = static_cast<int>(std::clamp<std::size_t>(kBandBytes / (rowSamples * sizeof(Sample)), 1, 4096));
    const int bandRows = std::max(wanted - wanted % info.blockRows, std::min(wanted, info.blockRows));
    std::vector<Sample> band;
    std::vector<int> bandIndices;
    int bandFirst = 0;
    int bandEnd = 0;
    const int endRow = rows.shares.back().source + 1;

    Means means(static_cast<std::size_t>(target.width));
    for (std::size_t j = 0; j + 1 < rows.starts.size(); ++j)
    {
        means.Clear();
        for (std::size_t k = rows.starts[j]; k < rows.starts[j + 1]; ++k)
        {
            const Share& share = rows.shares[k];
            if (share.source < bandFirst || share.source >= bandEnd)
            {
                bandFirst = share.source;
                bandEnd = static_cast<int>(
                    std::min<std::int64_t>(endRow, (static_cast<std::int64_t>(bandFirst) / bandRows + 1) * bandRows));
                bandIndices.resize(static_cast<std::size_t>(bandEnd - bandFirst));
                std::iota(bandIndices.begin(), bandIndices.end(), bandFirst);
                band.resize(rowSamples * bandIndices.size());
                if (!m_picture.Pick(allColumns, bandIndices, {channel, 1}, std::as_writable_bytes(std::span(band))))
                {
                    return false;
                }
            }
            AddRow(means, columns, band.data() + static_cast<std::size_t>(share.source - bandFirst) * rowSamples,
                   firstColumn, share.weight);
        }
        std::byte* out = target.bytes.data() + j * static_cast<std::size_t>(target.width) * sizeof(Sample);
        for (std::size_t i = 0; i < means.sums.size(); ++i, out += sizeof(Sample))
        {
            if (columns.starts[i] == columns.starts[i + 1] || rows.starts[j] == rows.starts[j + 1])
            {
                continue; // beside the picture
            }
            const auto value = ToSample<Sample>(means.sums[i] / means.weights[i]);
            std::memcpy(out, &value, sizeof value);
        }
    }
    return true;
}

bool WindowReader::ReadAverage(int channel, const SourceWindow& window, const Target& target)
{
    switch (m_picture.Info().type)
    {
    case SampleType::U8:
        return Average<std::uint8_t>(channel, window, target);
    case SampleType::U16:
        return Average<std::uint16_t>(channel, window, target);
    case SampleType::S16:
        return Average<std::int16_t>(channel, window, target);
    case SampleType::U32:
        return Average<std::uint32_t>(channel, window, target);
    case SampleType::S32:
        return Average<std::int32_t>(channel, window, target);
    default:
        return Average<float>(channel, window, target);
    }
}

} // namespace raster
