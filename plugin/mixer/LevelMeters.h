#pragma once
// Level meters with colours of their own for each kind of strip. The host tells its meters apart by a number from
// 1 to 4; the plug-in adds the kind of strip to it, so that the host's own look-ups carry it along.

#include <array>

#include "cocoa/AppKit.h"
#include "plugin/language/TrackTypes.h"

namespace velura {

inline constexpr std::size_t kMeterColors = 5;
using MeterColors = std::array<cocoa::Ref<NSColor>, kMeterColors>;
using MeterLocations = std::array<CGFloat, kMeterColors>;

/// A meter's number, taken apart.
struct MeterType {
  NSInteger base;   // the host's own number; 1 to 4 for those that are themed
  NSInteger style;  // which kind of strip; negative for the host's own colours

  static constexpr MeterType of(NSInteger number) {
    constexpr NSInteger kRadix = 10;
    return number < kRadix ? MeterType{number, -1} : MeterType{number % kRadix, number / kRadix - 1};
  }
  [[nodiscard]] constexpr NSInteger number() const { return base + 10 * (style + 1); }
  [[nodiscard]] constexpr bool isThemed() const { return base >= 1 && base <= 4; }
};

/// The style of a kind of strip; negative for a kind without one.
NSInteger meterStyleOf(TrackType type);

/// The colours of a style, from the bottom or left end; null while strips of that kind show the host's meters.
const MeterColors* vlrLevelMeterColorsForTypeIndex(NSInteger style);

/// Where on a meter of a base type its colours lie, from 0 to 1.
const MeterLocations& vlrLevelMeterLocationsForBaseType(NSInteger base);

/// The picture of a full meter of a style, `size` in points; null where the host's is to be shown. Cached.
CGImageRef vlrLevelMeterTexture(MeterType type, CGSize size, CGFloat scale);

/// The picture of the background of a meter; null while the theme has no colour for it.
CGImageRef levelMeterBackground(CGSize size, CGFloat scale);

}  // namespace velura
