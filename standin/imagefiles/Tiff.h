#pragma once
// TIFF in both directions, in memory.

#include "standin/imagefiles/ImageFile.h"

namespace standin {

std::size_t tiffFrameCount(FileBytes bytes);
std::optional<ImageFrame> decodedTiffFrame(FileBytes bytes, std::size_t index);
/// Red, green, blue and premultiplied alpha of 8 bits each, or without alpha where a frame has none.
std::vector<std::uint8_t> encodedTiff(std::span<const ImageFrame> frames);

}  // namespace standin
