// TiffDirectory.h - the tags of a TIFF page: what the samples mean and where they lie
#pragma once

#include <limits>
#include <optional>
#include <vector>

#include "host/ByteSource.h"

namespace raster
{

/// Meaning of a sample's bits, with the file format's numbers.
enum class TiffSampleFormat : std::uint16_t
{
    Unsigned = 1,
    Signed = 2,
    Float = 3,
    Undefined = 4
};

/// Compression schemes that this system tells apart, with the file format's numbers.
enum class TiffCompression : std::uint16_t
{
    None = 1,
    Lzw = 5,
    Deflate = 8,
    OldDeflate = 32946,
    PackBits = 32773
};

/// What was done to the samples before they were packed, with the file format's numbers.
enum class TiffPredictor : std::uint16_t
{
    None = 1,
    Difference = 2, ///< each sample is told by its distance from the one before
    FloatPlanes = 3 ///< floating point: the bytes sorted by weight, each told by its distance from the one before
};

/// Photometric interpretations that are read without the platform's decoder, with the file format's numbers.
enum class TiffPhotometric : std::uint16_t
{
    WhiteIsZero = 0,
    BlackIsZero = 1,
    Rgb = 2
};

/// One page of a TIFF file. A strip is a block as wide as the page.
struct TiffPage
{
    std::uint32_t width = 0;   ///< pixels, 1 to 2^31 - 1
    std::uint32_t height = 0;  ///< pixels, 1 to 2^31 - 1
    std::uint32_t bits = 1;    ///< of each sample; 0 if the samples of a pixel differ
    std::uint32_t samples = 1; ///< of each pixel, at least 1
    std::uint32_t alphas = 0;  ///< how many samples at the end of a pixel are opacity
    TiffSampleFormat format = TiffSampleFormat::Unsigned;
    TiffCompression compression = TiffCompression::None;
    TiffPredictor predictor = TiffPredictor::None;
    TiffPhotometric photometric = TiffPhotometric::BlackIsZero;
    bool reversedBits = false;     ///< the lowest bit of a byte comes first
    bool planar = false;           ///< the samples of a pixel stand in blocks of their own
    std::uint32_t blockWidth = 0;  ///< pixels, at least 1; may reach past the page
    std::uint32_t blockHeight = 0; ///< pixels, at least 1; at most the page's height for strips
    std::uint32_t blocksAcross = 0;
    std::uint32_t blocksDown = 0;
    std::vector<std::uint64_t> offsets;    ///< of each block: row by row, plane by plane
    std::vector<std::uint64_t> byteCounts; ///< of each block as stored
};

/// Finds the pages of a TIFF file: classic or large, both byte orders. Nothing is kept that the file merely claims:
/// every list is checked against the file's size before room is made for it.
class TiffDirectory
{
public:
    /// @param source  borrowed; lives longer than this object.
    explicit TiffDirectory(host::ByteSource& source) noexcept;

    /// @return true if the bytes begin like a TIFF file.
    [[nodiscard]] bool IsTiff() const noexcept { return m_kind != Kind::None; }

    /// @return true if the file stores its numbers with the highest byte first.
    [[nodiscard]] bool IsBigEndian() const noexcept { return m_bigEndian; }

    /// Reads the tags of a page.
    /// @param page  counted from 0 along the chain of pages.
    /// @return nothing if there is no such page, or its tags are missing, cut off or contradict one another.
    [[nodiscard]] std::optional<TiffPage> ReadPage(unsigned page) const;

    /// Counts the pages along their chain.
    /// @param most  where counting ends: a hostile file may hold as many pages as it has room for.
    /// @return number of pages that can be reached; a chain that closes to a ring is counted once around.
    [[nodiscard]] unsigned CountPages(unsigned most = std::numeric_limits<unsigned>::max()) const;

private:
    enum class Kind
    {
        None,
        Classic,
        Large
    };
    struct Entry
    {
        std::uint16_t type = 0;
        std::uint64_t count = 0;
        std::uint64_t place = 0; ///< where the values stand, in the entry itself or elsewhere
    };
    struct Tags;

    [[nodiscard]] std::optional<std::uint64_t> Number(std::uint64_t offset, unsigned bytes) const;
    [[nodiscard]] std::optional<std::uint64_t> FirstPage() const;
    [[nodiscard]] std::optional<std::uint64_t> PageAfter(std::uint64_t directory) const;
    [[nodiscard]] std::optional<std::uint64_t> FindPage(unsigned page) const;
    [[nodiscard]] std::optional<Tags> ReadTags(std::uint64_t directory) const;
    [[nodiscard]] std::optional<std::vector<std::uint64_t>> Values(const Entry& entry, std::uint64_t most) const;
    [[nodiscard]] bool ReadValue(const std::optional<Entry>& entry, std::uint64_t ifMissing,
                                 std::uint64_t& value) const;
    [[nodiscard]] bool ReadSamples(const Tags& tags, TiffPage& page) const;
    [[nodiscard]] bool ReadBlocks(const Tags& tags, TiffPage& page) const;

    host::ByteSource& m_source; // not owned
    Kind m_kind = Kind::None;
    bool m_bigEndian = false;
};

} // namespace raster
