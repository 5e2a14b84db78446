#pragma once
// A ruler painted pixel by pixel, for what reads rulers.

#include <cstdint>
#include <random>
#include <vector>

#include "plugin/arrange/RulerPixels.h"

namespace support {

struct RulerColor {
  std::uint8_t red;
  std::uint8_t green;
  std::uint8_t blue;
};

class PaintedRuler {
 public:
  PaintedRuler(long width, long height, RulerColor background = {60, 60, 60}, double pixelsPerPoint = 1)
      : width_(width),
        height_(height),
        pixelsPerPoint_(pixelsPerPoint),
        bytes_(static_cast<std::size_t>(width * height * 4)) {
    fill(0, width, 0, height, background);
  }

  /// Columns and rows from the first to, not including, the last.
  PaintedRuler& fill(long left, long right, long top, long bottom, RulerColor color) {
    for (long y = top; y < bottom; ++y) {
      for (long x = left; x < right; ++x) {
        std::uint8_t* pixel = bytes_.data() + (y * width_ + x) * 4;
        pixel[0] = color.red;
        pixel[1] = color.green;
        pixel[2] = color.blue;
        pixel[3] = 255;
      }
    }
    return *this;
  }

  /// A tick that stands on the last row.
  PaintedRuler& tick(long column, long height, RulerColor color = {200, 200, 200}) {
    return fill(column, column + 1, height_ - height, height_, color);
  }

  [[nodiscard]] velura::RulerPixels pixels(double screenLeft = 0) const {
    return {.bytes = bytes_.data(),
            .width = width_,
            .height = height_,
            .bytesPerRow = width_ * 4,
            .bytesPerPixel = 4,
            .pixelsPerPoint = pixelsPerPoint_,
            .screenLeft = screenLeft};
  }

 private:
  long width_;
  long height_;
  double pixelsPerPoint_;
  std::vector<std::uint8_t> bytes_;
};

/// Calls a function with noise in rulers of many sizes and scales.
template <class Function>
void forAnyPixels(const Function& function) {
  std::mt19937 random(11);
  for (const long width : {1L, 2L, 3L, 5L, 40L, 333L, 20'000L}) {
    for (const long height : {1L, 2L, 9L, 11L, 30L, 76L}) {
      std::vector<std::uint8_t> bytes(static_cast<std::size_t>(width * height * 4));
      for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random());
      for (const double scale : {1e-9, 0.5, 1.0, 2.0, 1e15}) {
        function(velura::RulerPixels{bytes.data(), width, height, width * 4, 4, scale, -50});
      }
    }
  }
}

}  // namespace support
