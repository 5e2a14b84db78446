#pragma once
// Any bytes as a picture: what fuzzers of pixel readers have in common.

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

#include "plugin/arrange/RulerPixels.h"

namespace fuzzing {

/// Takes numbers from the front of the input; zeros once it is used up.
class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
  template <class T>
  T take() {
    T value{};
    const std::size_t count = std::min(sizeof value, size_);
    std::memcpy(&value, data_, count);
    data_ += count;
    size_ -= count;
    return value;
  }
  /// A number from `low` to `high`, both inclusive.
  long number(long low, long high) { return low + static_cast<long>(take<std::uint16_t>()) % (high - low + 1); }
  /// Any double: infinite, no number, and the like.
  double any() { return take<double>(); }
  /// `count` bytes, the rest of the input over and over.
  std::vector<std::uint8_t> repeated(std::size_t count) {
    std::vector<std::uint8_t> bytes(count);
    for (std::size_t i = 0; i < count; ++i) bytes[i] = size_ == 0 ? std::uint8_t{0} : data_[i % size_];
    return bytes;
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
};

/// A ruler of any layout. The pixels live as long as the object; a read beside them is a finding.
struct Ruler {
  explicit Ruler(Bytes& input) {
    pixels.width = input.number(0, 300);
    pixels.height = input.number(0, 90);
    pixels.bytesPerPixel = input.number(3, 5);
    pixels.bytesPerRow = pixels.width * pixels.bytesPerPixel + input.number(0, 9);
    pixels.pixelsPerPoint = input.number(0, 7) == 0 ? input.any() : static_cast<double>(input.number(1, 3));
    pixels.screenLeft = input.number(0, 7) == 0 ? input.any() : static_cast<double>(input.number(0, 400));
    bytes = input.repeated(static_cast<std::size_t>(pixels.bytesPerRow * pixels.height));
    pixels.bytes = bytes.data();
  }
  velura::RulerPixels pixels;
  std::vector<std::uint8_t> bytes;
};

}  // namespace fuzzing
