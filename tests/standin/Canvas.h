#pragma once
// A small picture to draw into and to compare.

#include <cstdint>
#include <string>
#include <vector>

#include "cocoa/AppKit.h"

namespace support {

/// Memory in which the red byte comes first, or last as the drawing library has it.
enum class RedByte { kFirst, kLast };

/// A bitmap context over memory of the test's own; current for AppKit's drawing while it lives.
class Canvas {
 public:
  Canvas(int width, int height, double scale = 1, RedByte red = RedByte::kFirst);
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;
  ~Canvas();

  [[nodiscard]] CGContextRef context() const { return context_; }
  void fill(NSColor color, CGRect rect) const;
  /// A premultiplied pixel as 0xRRGGBBAA, counted from the top left.
  [[nodiscard]] std::uint32_t at(int x, int y) const;
  /// One letter a pixel, one line a row: '.' transparent, R G B W K opaque red, green, blue, white, black,
  /// '-' anything else.
  [[nodiscard]] std::string art() const;
  [[nodiscard]] std::vector<std::uint32_t> pixels() const;

 private:
  int width_;
  int height_;
  RedByte red_;
  std::vector<unsigned char> memory_;
  cocoa::CFRef<CGContextRef> context_;
  cocoa::Ref<NSGraphicsContext> before_;
};

/// Opaque colours by their letter; clear for '.'.
NSColor letter(char name);
/// An image of letters, rows from the top, one point a pixel.
cocoa::Ref<NSImage> imageOf(const std::vector<std::string>& rows);

}  // namespace support
