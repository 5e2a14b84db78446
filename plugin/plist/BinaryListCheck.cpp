// Binary property lists: a table of objects that refer to one another by index.

#include <algorithm>
#include <cstdint>
#include <vector>

#include "plugin/plist/PropertyListCheck.h"

namespace velura {

namespace {

constexpr std::string_view kMagic = "bplist00";
constexpr std::size_t kTrailerSize = 32;

/// What one object amounts to once everything that it refers to is written out.
struct Extent {
  enum class State : std::uint8_t { kUnseen, kOpen, kDone } state = State::kUnseen;
  std::uint32_t height = 0;  // levels of containers below and including it
  std::uint64_t objects = 0;
  std::uint64_t bytes = 0;
};

class BinaryListCheck {
 public:
  explicit BinaryListCheck(std::string_view bytes) : bytes_(bytes) {}

  bool passes() {
    if (!readTrailer()) return false;
    extents_.resize(objectCount_);
    return measure(top_, 0);
  }

 private:
  struct Marker {
    unsigned kind = 0;        // the upper four bits
    unsigned detail = 0;      // the lower four bits
    std::uint64_t count = 0;  // of bytes, characters or entries
    std::size_t payload = 0;  // where they start
  };

  [[nodiscard]] std::uint64_t bigEndian(std::size_t at, std::size_t size) const {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < size; ++i) value = value << 8U | static_cast<unsigned char>(bytes_[at + i]);
    return value;
  }
  static bool isWordSize(std::size_t size) { return size == 1 || size == 2 || size == 4 || size == 8; }

  bool readTrailer() {
    if (!bytes_.starts_with(kMagic) || bytes_.size() < kMagic.size() + kTrailerSize) return false;
    const std::size_t trailer = bytes_.size() - kTrailerSize;
    offsetSize_ = bigEndian(trailer + 6, 1);
    referenceSize_ = bigEndian(trailer + 7, 1);
    objectCount_ = bigEndian(trailer + 8, 8);
    top_ = bigEndian(trailer + 16, 8);
    const std::uint64_t table = bigEndian(trailer + 24, 8);
    if (!isWordSize(offsetSize_) || !isWordSize(referenceSize_)) return false;
    if (objectCount_ == 0 || objectCount_ > kMostListObjects || top_ >= objectCount_) return false;
    if (table < kMagic.size() || table > trailer || (trailer - table) / offsetSize_ < objectCount_) return false;
    table_ = table;
    return true;
  }

  /// Whether `count` items of `size` bytes lie between `at` and the offset table.
  [[nodiscard]] bool fits(std::size_t at, std::uint64_t count, std::size_t size) const {
    return at <= table_ && count <= (table_ - at) / size;
  }

  bool readMarker(std::uint64_t object, Marker& marker) const {
    const std::uint64_t offset = bigEndian(table_ + static_cast<std::size_t>(object) * offsetSize_, offsetSize_);
    if (offset < kMagic.size() || offset >= table_) return false;
    const auto at = static_cast<std::size_t>(offset);
    const auto byte = static_cast<unsigned>(bigEndian(at, 1));
    marker = {byte >> 4U, byte & 0xFU, byte & 0xFU, at + 1};
    const bool counted = marker.kind >= 0x4;
    return !counted || marker.detail != 0xF || readLongCount(marker);
  }

  /// A count of 15 and more is an integer object of its own behind the marker.
  bool readLongCount(Marker& marker) const {
    if (!fits(marker.payload, 1, 1)) return false;
    const auto byte = static_cast<unsigned>(bigEndian(marker.payload, 1));
    const std::size_t size = std::size_t{1} << (byte & 0xFU);
    if (byte >> 4U != 0x1 || size > 8 || !fits(marker.payload + 1, 1, size)) return false;
    marker.count = bigEndian(marker.payload + 1, size);
    marker.payload += 1 + size;
    return true;
  }

  /// Measures an object that `depth` containers hold. Recurses at most to the deepest level allowed.
  bool measure(std::uint64_t object, std::size_t depth) {
    if (object >= objectCount_) return false;
    Extent& extent = extents_[static_cast<std::size_t>(object)];
    if (extent.state == Extent::State::kOpen) return false;  // it holds itself
    if (extent.state == Extent::State::kUnseen) {
      extent.state = Extent::State::kOpen;
      if (!measureNew(object, depth, extent)) return false;
      extent.state = Extent::State::kDone;
    }
    return depth + extent.height <= kDeepestList && extent.objects <= kMostListObjects &&
           extent.bytes <= kMostListBytes;
  }

  bool measureNew(std::uint64_t object, std::size_t depth, Extent& extent) {
    Marker marker;
    if (!readMarker(object, marker)) return false;
    extent.objects = 1;
    switch (marker.kind) {
      case 0x0:
        return marker.detail == 0x8 || marker.detail == 0x9;  // false, true
      case 0x1:
        return marker.detail <= 3 && fits(marker.payload, 1, std::size_t{1} << marker.detail);
      case 0x2:
        return (marker.detail == 2 || marker.detail == 3) && fits(marker.payload, 1, std::size_t{1} << marker.detail);
      case 0x3:
        return marker.detail == 3 && fits(marker.payload, 1, 8) && isDate(marker.payload);
      case 0x4:
        return measureBytes(marker, 1, extent);
      case 0x5:
        return measureBytes(marker, 1, extent) && isASCII(marker);
      case 0x6:
        return measureBytes(marker, 2, extent) && isUTF16(marker);
      case 0xA:
        return measureContainer(marker, 1, depth, extent);
      case 0xD:
        return measureContainer(marker, 2, depth, extent);
      default:
        return false;
    }
  }

  bool measureBytes(const Marker& marker, std::size_t size, Extent& extent) {
    if (!fits(marker.payload, marker.count, size)) return false;
    extent.bytes = marker.count * size;
    // Objects may overlap in the file; written out, each of them counts.
    measuredBytes_ += extent.bytes;
    return measuredBytes_ <= kMostListBytes;
  }
  [[nodiscard]] bool isASCII(const Marker& marker) const {
    const std::string_view text = bytes_.substr(marker.payload, static_cast<std::size_t>(marker.count));
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  }
  /// Every surrogate has its other half: a string with a lone one has no other encoding, and Foundation may
  /// raise over it.
  [[nodiscard]] bool isUTF16(const Marker& marker) const {
    bool afterHigh = false;
    for (std::size_t i = 0; i < marker.count; ++i) {
      const std::uint64_t kind = bigEndian(marker.payload + 2 * i, 2) & 0xFC00U;
      if ((kind == 0xDC00) != afterHigh) return false;
      afterHigh = kind == 0xD800;
    }
    return !afterHigh;
  }
  /// A date is a double; one that is no number, or beyond any calendar, is refused.
  [[nodiscard]] bool isDate(std::size_t at) const {
    constexpr std::uint64_t kExponent = 0x7FF0000000000000U;
    constexpr std::uint64_t kTwoTo40 = 0x4270000000000000U;
    return (bigEndian(at, 8) & kExponent) < kTwoTo40;
  }

  /// An array holds one reference per entry; a dictionary holds those of all keys, then of all values.
  bool measureContainer(const Marker& marker, std::size_t references, std::size_t depth, Extent& extent) {
    if (depth >= kDeepestList || !fits(marker.payload, marker.count, references * referenceSize_)) return false;
    const auto count = static_cast<std::size_t>(marker.count);
    std::uint32_t below = 0;
    for (std::size_t i = 0; i < count * references; ++i) {
      const std::uint64_t child = bigEndian(marker.payload + i * referenceSize_, referenceSize_);
      if (!measure(child, depth + 1)) return false;
      const bool isKey = references == 2 && i < count;
      if (isKey && !isString(child)) return false;
      const Extent& measured = extents_[static_cast<std::size_t>(child)];
      below = std::max(below, measured.height);
      extent.objects += measured.objects;
      extent.bytes += measured.bytes;
      if (extent.objects > kMostListObjects || extent.bytes > kMostListBytes) return false;
    }
    extent.height = below + 1;
    return true;
  }

  [[nodiscard]] bool isString(std::uint64_t object) const {
    Marker marker;
    return readMarker(object, marker) && (marker.kind == 0x5 || marker.kind == 0x6);
  }

  std::string_view bytes_;
  std::size_t offsetSize_ = 0;
  std::size_t referenceSize_ = 0;
  std::size_t table_ = 0;
  std::uint64_t objectCount_ = 0;
  std::uint64_t top_ = 0;
  std::uint64_t measuredBytes_ = 0;
  std::vector<Extent> extents_;
};

}  // namespace

bool isSoundBinaryList(std::string_view bytes) { return BinaryListCheck(bytes).passes(); }

}  // namespace velura
