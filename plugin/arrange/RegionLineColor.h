#pragma once
// The colour of grid lines in a region, derived from the region's own.

#include <cstdint>

namespace velura {

/// Red, green and blue from 0 to 1, in sRGB.
struct LineColor {
  double red = 0;
  double green = 0;
  double blue = 0;
  friend bool operator==(const LineColor&, const LineColor&) = default;
};

enum class GridColorMode : std::int32_t {
  kGrey = 0,          // one grey for all regions
  kAdaptiveGrey = 1,  // a grey that stands out from the region
  kTint = 2           // the region's own hue, lighter on dark regions and darker on light ones
};

/// A grey whose level lies `strength` (0 to 1) away from the region's luminance.
LineColor adaptiveGrey(const LineColor& region, double strength);

/// The region's hue; `vibrance` from 0 to 1 raises its saturation. A region without a hue gives a grey.
LineColor tintOf(const LineColor& region, double vibrance);

}  // namespace velura
