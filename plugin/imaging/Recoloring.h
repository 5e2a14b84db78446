#pragma once
// Recolours a bitmap by rules: where a pixel inside a rectangle has one colour, it is painted another.

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>

#include "cocoa/CoreGraphics.h"

namespace velura {

/// How a bitmap's pixels lie in memory. Sizes are in pixels.
struct BitmapPixels {
  std::uint8_t* bytes = nullptr;  // the first plane
  std::uint64_t format = 0;       // the bits of NSBitmapFormat
  long width = 0;
  long height = 0;
  long bytesPerRow = 0;
  long bitsPerPixel = 32;
  bool hasAlpha = true;

  /// Whether every pixel holds at least the bytes that are read of it: not so in pictures of grey shades.
  [[nodiscard]] bool isReadable() const;
};

/// Straight, not premultiplied.
using PixelValue = std::array<std::uint8_t, 4>;  // red, green, blue, alpha

/// The value of a pixel with 8-bit samples. Premultiplied channels are divided out and rounded to the nearest,
/// halves up; a channel above its alpha, which no premultiplied pixel has, counts as full.
PixelValue pixelValue(const BitmapPixels& bitmap, long x, long y);

/// One rule. The first one that matches a pixel decides it.
struct RecolorRule {
  CGRect rect;                                     // in pixels, from the first stored row and column
  std::array<double, 3> source{};                  // red, green and blue, 0 to 1
  std::optional<double> sourceAlpha;               // where set, the pixel's alpha must be this one
  std::optional<std::array<double, 4>> suggested;  // nothing: the pixel stays as it is
  double ignoreAlpha = 0;
};

/// The alpha that a rule gives a pixel of alpha `a` (0 to 255): the suggested one, or, with a reference alpha
/// above 0, moved by what the pixel is off the reference. May lie outside of 0 to 1.
double outputAlpha(double suggested, double ignoreAlpha, int a);

/// Writes a colour (red, green, blue, alpha) to the pixel at x, y of the bitmap.
using PaintPixel = std::function<void(const std::array<double, 4>& color, long x, long y)>;

/// Recolours a bitmap of 8-bit samples in place. `paint` is called once for each colour that is written; the
/// bytes that it leaves are taken for all other pixels of that colour. Fully transparent pixels stay.
void recolor(const BitmapPixels& bitmap, std::span<const RecolorRule> rules, const PaintPixel& paint);

/// Reads the pixel at x, y as a colour, its components times 255 without their fractions.
using ReadPixel = std::function<std::array<long, 4>(long x, long y)>;

/// The same for bitmaps that can only be read colour by colour.
void recolorByColors(long width, long height, std::span<const RecolorRule> rules, const ReadPixel& read,
                     const PaintPixel& paint);

}  // namespace velura
