// PictureInfo.h - what the workbench says of a picture
#pragma once

#include "tavkit/frame/WinTypes.h"
#include "tavkit/frame/services/RDIDriver.h"

#include <optional>
#include <string>
#include <vector>

namespace workbench
{
/// Facts of a picture file, those of its first channel where channels differ.
struct PictureInfo
{
    SIZE size{}; ///< logical pixels
    int channels = 0;
    DMITypes::RDIDataType type = DMITypes::rdiUInt8;
};

/// Opens the picture, reads its facts, and tries its last row, so that a file cut short is found out.
/// @return none when it can't be read.
[[nodiscard]] std::optional<PictureInfo> ReadPictureInfo(const std::string& path);

/// The values of one channel.
struct ChannelValues
{
    DMITypes::RDIDataType type = DMITypes::rdiUInt8;
    SIZE size{};                      ///< in values
    std::vector<unsigned char> bytes; ///< row by row
};

/// Reads a channel at another size, by its nearest values or their means.
/// @param channel  counted from 0
/// @param picture  size in logical pixels
/// @return none when it can't be read.
[[nodiscard]] std::optional<ChannelValues> ReadChannel(const std::string& path, int channel, SIZE picture, SIZE size);

/// Looks for the reason why a picture can't be read, and says what there is to know of its file: one fact a line, each
/// line closed by "\n". For people who know what a file format is.
[[nodiscard]] std::string DescribeFailure(const std::string& path);

/// "550 x 660 pixels"
[[nodiscard]] std::string SizeText(const PictureInfo& info);
/// "1 channel, 16 bit", "3 channels, 8 bit", "1 channel, 32 bit float"
[[nodiscard]] std::string TypeText(const PictureInfo& info);
} // namespace workbench
