// WicPicture.h - a picture read through the platform's imaging component
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <windows.h>
#include <wincodec.h>
#include <wrl/client.h>

#include "host/raster/PictureFile.h"
#include "host/raster/PixelLayout.h"
#include "host/raster/TiffDirectory.h"

namespace raster
{

/// COM on this thread for the life of the object, whatever the thread has done about it before.
class ComScope
{
public:
    ComScope() noexcept;
    ~ComScope();
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;

private:
    bool m_leave; ///< false where the thread lives in the other kind of apartment: COM is there already
};

/// One page of a file that the platform decodes. Grey levels and colours of 8 and 16 bits and of floating point come as
/// they are; every other form is converted to one grey or three colour channels of 8 bits.
///
/// Only TIFF pages are decoded piece by piece: a picture of another format may be held whole by the platform's decoder.
class WicPicture final : public Picture
{
public:
    /// @param path  in the ANSI code page.
    /// @param page  counted from 0.
    /// @param tags  of the page of a TIFF file: they tell the sign of its samples and its blocks.
    /// @param cause gets a sentence if the result is null.
    /// @return null if the platform refuses the file or the page.
    [[nodiscard]] static std::unique_ptr<WicPicture> Open(const std::string& path, PictureFormat format, unsigned page,
                                                          const std::optional<TiffPage>& tags, std::string& cause);

    [[nodiscard]] const PictureInfo& Info() const noexcept override { return m_info; }
    [[nodiscard]] bool Pick(std::span<const int> columns, std::span<const int> rows, ChannelRange channels,
                            std::span<std::byte> pixels) override;

private:
    WicPicture() = default;

    [[nodiscard]] HRESULT OpenFrame(const std::string& path, PictureFormat format, unsigned page);
    [[nodiscard]] HRESULT ChooseSource(const std::optional<TiffPage>& tags);
    [[nodiscard]] HRESULT ConvertTo8Bit(const WICPixelFormatGUID& format);
    [[nodiscard]] bool IsGreyPalette() const;

    ComScope m_com; // first, so that it ends last
    Microsoft::WRL::ComPtr<IWICImagingFactory> m_factory;
    Microsoft::WRL::ComPtr<IWICBitmapFrameDecode> m_frame;
    Microsoft::WRL::ComPtr<IWICBitmapSource> m_source; ///< the frame or the converter behind it
    PixelLayout m_layout;
    PictureInfo m_info;
    int m_blockWidth = 1;
    int m_columnStep = 1;           ///< pieces begin at its multiples
    std::vector<std::byte> m_piece; ///< what was copied last
};

} // namespace raster
