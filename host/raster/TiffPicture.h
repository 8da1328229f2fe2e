// TiffPicture.h - the pixels of a TIFF page, read from the file one by one
#pragma once

#include <memory>

#include "host/raster/BlockDecoder.h"
#include "host/raster/PixelLayout.h"
#include "host/raster/TiffDirectory.h"

namespace raster
{

/// A page of grey levels or colours: whole numbers of 8, 16 and 32 bits, signed or not, and floating point numbers of
/// 32 bits; any number of channels, side by side or in planes; in strips or tiles; both byte orders; as they are or
/// packed by LZW, deflate or PackBits.
///
/// The platform's decoder hides the sign of the samples, knows no whole numbers of 32 bits and no planes, and holds a
/// strip as a whole, so such pages are read here. Of blocks that are stored as they are only the rows that are asked
/// for are touched; packed ones are unpacked row by row, so that no block is ever held whole.
class TiffPicture final : public Picture
{
public:
    /// @return true if a page is of the kinds named above.
    [[nodiscard]] static bool Reads(const TiffPage& page) noexcept;

    /// Opens a page for which Reads() is true.
    /// @return null if a block lies outside the file, in whole or in part, or the page claims more than a file of that
    ///         size can hold.
    [[nodiscard]] static std::unique_ptr<TiffPicture> Open(std::unique_ptr<host::ByteSource> source, TiffPage page,
                                                           bool bigEndian);

    [[nodiscard]] const PictureInfo& Info() const noexcept override { return m_info; }
    [[nodiscard]] bool Pick(std::span<const int> columns, std::span<const int> rows, ChannelRange channels,
                            std::span<std::byte> pixels) override;

private:
    /// Columns and rows that lie in one block, and where their pixels go.
    struct Request
    {
        std::span<const int> columns;
        std::span<const int> rows;
        ChannelRange channels;
        std::byte* pixels;
        std::size_t pixelBytes;
        std::size_t rowBytes;
    };

    TiffPicture(std::unique_ptr<host::ByteSource> source, TiffPage page, bool bigEndian);

    [[nodiscard]] bool IsWithinFile() const noexcept;
    [[nodiscard]] std::uint64_t RowBytes() const noexcept;
    [[nodiscard]] bool PickPlane(std::uint32_t plane, const Request& all);
    [[nodiscard]] bool PickStored(std::size_t block, std::uint32_t across, std::uint32_t down, const Request& request);
    [[nodiscard]] bool PickPacked(std::size_t block, std::uint32_t across, std::uint32_t down, const Request& request);
    [[nodiscard]] bool UnpackRow(std::size_t block, std::uint32_t rowInBlock);
    void UndoPredictor();

    std::unique_ptr<host::ByteSource> m_source;
    TiffPage m_page;
    PixelLayout m_layout;
    PictureInfo m_info;
    bool m_swapRow = false;          ///< an unpacked row is put into the machine's byte order before it is used
    std::vector<std::byte> m_rows;   ///< of a stored block: the piece that was read last; else the row unpacked last
    std::vector<std::byte> m_planes; ///< a row with its bytes sorted by weight
    struct
    {
        std::unique_ptr<BlockDecoder> decoder; ///< null if no block is begun
        std::size_t block = 0;
        std::uint32_t nextRow = 0; ///< the row behind the one in m_rows
    } m_unpacking;
};

/// What a page delivers through any reader.
/// @return the type of its samples, nothing if it has no type of its own (other widths, mixed ones).
[[nodiscard]] std::optional<SampleType> TypeOf(const TiffPage& page) noexcept;

} // namespace raster
