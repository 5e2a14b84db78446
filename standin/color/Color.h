#pragma once
// What colours are made of, shared by Core Graphics' colours and AppKit's.

#include <array>
#include <cstdint>
#include <memory>
#include <optional>

#include "cocoa/AppKit.h"
#include "standin/pixels/RowFill.h"
#include "standin/runtime/Objects.h"

namespace standin {

/// The spaces that are told apart. Values pass between the RGB spaces unchanged, and a grey stands for
/// three equal values: colour management has no part in anything that is drawn here.
enum class ColorSpace : std::uint8_t {
  kSRGB,
  kCalibratedRGB,
  kDeviceRGB,
  kGenericGray,
  kCalibratedWhite,
  kDeviceWhite,
  kPattern
};

constexpr bool isRGB(ColorSpace space) { return space <= ColorSpace::kDeviceRGB; }
constexpr bool isGray(ColorSpace space) { return space >= ColorSpace::kGenericGray && space < ColorSpace::kPattern; }

/// Component values in their space: red, green, blue, alpha; or grey, alpha; or, for a pattern, alpha.
struct ColorValue {
  ColorSpace space = ColorSpace::kSRGB;
  std::array<double, 4> components{};

  [[nodiscard]] std::size_t count() const { return isRGB(space) ? 4 : isGray(space) ? 2 : 1; }
  [[nodiscard]] double alpha() const { return components[count() - 1]; }
  [[nodiscard]] Rgba rgba() const {
    if (isRGB(space)) return {components[0], components[1], components[2], components[3]};
    return {components[0], components[0], components[0], alpha()};
  }
  friend bool operator==(const ColorValue&, const ColorValue&) = default;
};

/// The value in another space.
ColorValue converted(const ColorValue& value, ColorSpace space);

/// State of a CGColorSpace.
struct ColorSpaceState : cocoa::ObjectState {
  ColorSpace space = ColorSpace::kSRGB;
};
/// The shared space object; not owned by the caller.
CGColorSpaceRef sharedColorSpace(ColorSpace space);

/// State of a CGPattern: an image that repeats. Its pixels are taken when they are first needed.
struct PatternState : cocoa::ObjectState {
  cocoa::Ref<NSImage> image;
  CGSize size;
  /// Null for an image without pixels.
  const Tile* tile(PixelOrder order);

 private:
  struct Taken {
    bool done = false;
    std::unique_ptr<Tile> tile;
  };
  std::array<Taken, 2> taken_;  // by pixel order
};

/// State of a CGColor.
struct ColorState : cocoa::ObjectState {
  ColorValue value;
  cocoa::CFRef<CGPatternRef> pattern;

  BOOL isEqual(NSObject other);
  NSUInteger hash();
};

/// Owned by the caller.
CGColorRef makeColor(const ColorValue& value);
CGColorRef makePatternColor(NSImage image, double alpha);
inline ColorState& colorState(CGColorRef color) { return stateBehind<ColorState>(color); }

/// What a fill or a stroke paints with.
struct Paint {
  Rgba color{0, 0, 0, 1};
  cocoa::CFRef<CGPatternRef> pattern;
};
Paint paintOf(CGColorRef color);
/// Of an NSColor; transparent for nil.
Paint paintOf(NSColor color);
/// The value of an NSColor as red, green, blue; nothing for nil or a pattern.
std::optional<Rgba> rgbaOf(NSColor color);

}  // namespace standin
