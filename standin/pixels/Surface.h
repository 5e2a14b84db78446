#pragma once
// Pixel memory: 8 bits a channel, premultiplied, alpha in the highest byte of a 32-bit word. Red and blue
// may stand either way round, so that a bitmap's own memory can be drawn into without conversion.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "cocoa/Geometry.h"

namespace standin {

using Pixel = std::uint32_t;

enum class PixelOrder : std::uint8_t {
  kNative,  // blue, green, red, alpha in memory: the order of the drawing library
  kRgba     // red, green, blue, alpha in memory: the order of bitmaps
};

/// The longest side of a raster. Longer ones are refused.
inline constexpr int kLongestSide = 16384;
/// Bitmaps, and what is copied of them, may be taller, as far as their memory goes.
inline constexpr int kTallest = 1'000'000;
inline constexpr std::ptrdiff_t kMostMemory = std::ptrdiff_t{256} << 20U;

/// Whether a file's picture may become a raster: a few bytes can claim to be any size.
inline constexpr bool isDecodable(std::uint32_t width, std::uint32_t height) {
  constexpr std::uint64_t kMostPixels = kMostMemory / 4;
  return width <= kLongestSide && height <= kLongestSide && std::uint64_t{width} * height <= kMostPixels;
}

/// Red, green and blue from 0 to 1, not premultiplied.
struct Rgba {
  double red = 0;
  double green = 0;
  double blue = 0;
  double alpha = 0;
  friend bool operator==(const Rgba&, const Rgba&) = default;
};

/// A rectangle of pixels: device coordinates, y down, right and bottom exclusive.
struct PixelRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  [[nodiscard]] int width() const { return right - left; }
  [[nodiscard]] int height() const { return bottom - top; }
  [[nodiscard]] bool isEmpty() const { return right <= left || bottom <= top; }
  [[nodiscard]] PixelRect intersected(const PixelRect& other) const {
    return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
            std::min(bottom, other.bottom)};
  }
  [[nodiscard]] bool contains(const PixelRect& other) const {
    return left <= other.left && top <= other.top && right >= other.right && bottom >= other.bottom;
  }
  friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

inline constexpr double clampedUnit(double value) { return value > 0 ? (value < 1 ? value : 1) : 0; }
inline constexpr Pixel byteOf(double value) { return static_cast<Pixel>(value * 255 + 0.5); }
inline constexpr Pixel alphaOf(Pixel pixel) { return pixel >> 24U; }
inline constexpr Pixel swappedRedBlue(Pixel pixel) {
  return (pixel & 0xFF00FF00U) | (pixel >> 16U & 0xFFU) | (pixel & 0xFFU) << 16U;
}

/// The pixel of a colour: clamped, premultiplied, rounded once.
inline constexpr Pixel packed(const Rgba& color, PixelOrder order) {
  const double alpha = clampedUnit(color.alpha);
  const Pixel native = byteOf(alpha) << 24U | byteOf(clampedUnit(color.red) * alpha) << 16U |
                       byteOf(clampedUnit(color.green) * alpha) << 8U | byteOf(clampedUnit(color.blue) * alpha);
  return order == PixelOrder::kNative ? native : swappedRedBlue(native);
}

/// A window onto rows of pixels that somebody else owns. `area` places it in device coordinates.
struct PixelView {
  std::byte* base = nullptr;
  std::ptrdiff_t stride = 0;
  PixelRect area;
  PixelOrder order = PixelOrder::kNative;

  [[nodiscard]] Pixel* at(int x, int y) const {
    return reinterpret_cast<Pixel*>(base + (y - area.top) * stride) + (x - area.left);
  }
};

/// Zeroed memory for pixels, to be given back with `std::free`; null when there is none.
std::byte* allocatedPixels(std::size_t rows, std::size_t bytesPerRow);

/// Owned pixels, transparent at first.
class Surface {
 public:
  /// Null unless both sides are from 1 to `kLongestSide` and the memory is there.
  static std::shared_ptr<Surface> make(int width, int height, PixelOrder order);
  /// The same with at most `kTallest` rows and `kMostMemory` beyond `kLongestSide`.
  static std::shared_ptr<Surface> makeTall(int width, int height, PixelOrder order);
  Surface(int width, int height, PixelOrder order, std::byte* memory);
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;
  ~Surface();

  [[nodiscard]] int width() const { return view_.area.right; }
  [[nodiscard]] int height() const { return view_.area.bottom; }
  [[nodiscard]] const PixelView& view() const { return view_; }
  /// The same pixels in the given order: this surface, or a copy that is kept for the next time.
  std::shared_ptr<const Surface> inOrder(PixelOrder order, const std::shared_ptr<const Surface>& self) const;

 private:
  PixelView view_;
  mutable std::shared_ptr<const Surface> reordered_;
};

/// A copy of the pixels in view, in the given order.
std::shared_ptr<Surface> copied(const PixelView& source, PixelOrder order);

/// The exact straight value of a premultiplied channel byte.
inline constexpr Pixel straight(Pixel channel, Pixel alpha) {
  return alpha == 0 ? 0 : std::min<Pixel>(255, (channel * 255 + alpha / 2) / alpha);
}

}  // namespace standin
