#include "plugin/arrange/RegionLineColor.h"

#include <algorithm>
#include <cmath>

namespace velura {
namespace {

constexpr double kLight = 0.5;  // luminance from which a region is light

double luminanceOf(const LineColor& color) { return 0.2126 * color.red + 0.7152 * color.green + 0.0722 * color.blue; }

struct HueColor {
  double hue;  // 0 to 6
  double saturation;
  double brightness;
};

HueColor hueOf(const LineColor& color) {
  const double most = std::max({color.red, color.green, color.blue});
  const double spread = most - std::min({color.red, color.green, color.blue});
  HueColor result{0, most > 0 ? spread / most : 0, most};
  if (!(spread > 0)) return result;
  if (most == color.red) {
    result.hue = (color.green - color.blue) / spread + (color.green < color.blue ? 6 : 0);
  } else if (most == color.green) {
    result.hue = (color.blue - color.red) / spread + 2;
  } else {
    result.hue = (color.red - color.green) / spread + 4;
  }
  return result;
}

LineColor colorOf(const HueColor& color) {
  const auto channel = [&](double offset) {
    const double k = std::fmod(offset + color.hue, 6.0);
    return color.brightness * (1 - color.saturation * std::clamp(std::min(k, 4 - k), 0.0, 1.0));
  };
  return {channel(5), channel(3), channel(1)};
}

LineColor greyAwayFrom(double luminance, double distance) {
  const double level = luminance >= kLight ? std::max(luminance - distance, 0.0) : std::min(luminance + distance, 1.0);
  return {level, level, level};
}

}  // namespace

LineColor adaptiveGrey(const LineColor& region, double strength) {
  return greyAwayFrom(luminanceOf(region), 0.45 + 0.55 * strength);
}

LineColor tintOf(const LineColor& region, double vibrance) {
  constexpr double kGreySaturation = 0.04;
  constexpr double kGreyDistance = 0.5;
  const double luminance = luminanceOf(region);
  HueColor tint = hueOf(region);
  if (tint.saturation < kGreySaturation) return greyAwayFrom(luminance, kGreyDistance);
  const double gain = 0.4 + 1.2 * vibrance;
  if (luminance < kLight) {
    tint.saturation = std::min(gain * std::max(0.85 * tint.saturation, 0.35), 1.0);
    tint.brightness = std::min(tint.brightness + 0.45, 1.0);
  } else {
    tint.saturation = std::min(gain * std::min(1.15 * tint.saturation, 1.0), 1.0);
    tint.brightness = std::max(tint.brightness - 0.45, 0.12);
  }
  return colorOf(tint);
}

}  // namespace velura
