#pragma once
// Pictures as plain pixels, to be compared and cut.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace session {

/// Opaque: three bytes a pixel, rows from top to bottom.
struct Picture {
  std::size_t width = 0;
  std::size_t height = 0;
  std::vector<std::uint8_t> samples;

  [[nodiscard]] const std::uint8_t* pixel(std::size_t x, std::size_t y) const { return &samples[(y * width + x) * 3]; }
};

/// A part of a picture, in pixels.
struct PixelRect {
  std::size_t x = 0;
  std::size_t y = 0;
  std::size_t width = 0;
  std::size_t height = 0;
};

/// Nothing when the file is no PNG.
std::optional<Picture> readPicture(const std::string& path);

Picture cut(const Picture& whole, PixelRect part);

/// A PNG of at most 256 colours: in a picture that has more, similar ones become one.
std::string palettePng(const Picture& picture);

/// Where a part of the given size shows best what differs between two pictures of one size: changed and unchanged
/// pixels in balance, among details that tell what it is, and the changed ones in the middle. Nothing when they are
/// equal, or smaller than the part.
std::optional<PixelRect> mostTellingPart(const Picture& before, const Picture& after, std::size_t width,
                                         std::size_t height);

}  // namespace session
