#pragma once
// The pixels of a rendered ruler, or of a strip of one, and where they lie.

#include <cstddef>
#include <cstdint>

namespace velura {

/// Rows of 8-bit pixels from the top, red, green and blue first. All sizes are in pixels.
struct RulerPixels {
  const std::uint8_t* bytes = nullptr;
  long width = 0;
  long height = 0;
  long bytesPerRow = 0;
  long bytesPerPixel = 4;
  double pixelsPerPoint = 1;
  double screenLeft = 0;  // screen x of the first column, in points

  [[nodiscard]] const std::uint8_t* row(long y) const { return bytes + y * bytesPerRow; }
  [[nodiscard]] double screenX(long column) const { return screenLeft + static_cast<double>(column) / pixelsPerPoint; }
};

}  // namespace velura
