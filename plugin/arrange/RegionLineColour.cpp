#include "plugin/arrange/RegionLineColour.h"

#include <algorithm>
#include <cmath>

namespace velura {
namespace {

constexpr double kLight = 0.5;  // luminance from which a region is light

double luminanceOf(const LineColour& colour) {
  return 0.2126 * colour.red + 0.7152 * colour.green + 0.0722 * colour.blue;
}

struct HueColour {
  double hue;  // 0 to 6
  double saturation;
  double brightness;
};

HueColour hueOf(const LineColour& colour) {
  const double most = std::max({colour.red, colour.green, colour.blue});
  const double spread = most - std::min({colour.red, colour.green, colour.blue});
  HueColour result{0, most > 0 ? spread / most : 0, most};
  if (!(spread > 0)) return result;
  if (most == colour.red) {
    result.hue = (colour.green - colour.blue) / spread + (colour.green < colour.blue ? 6 : 0);
  } else if (most == colour.green) {
    result.hue = (colour.blue - colour.red) / spread + 2;
  } else {
    result.hue = (colour.red - colour.green) / spread + 4;
  }
  return result;
}

LineColour colourOf(const HueColour& colour) {
  const auto channel = [&](double offset) {
    const double k = std::fmod(offset + colour.hue, 6.0);
    return colour.brightness * (1 - colour.saturation * std::clamp(std::min(k, 4 - k), 0.0, 1.0));
  };
  return {channel(5), channel(3), channel(1)};
}

LineColour greyAwayFrom(double luminance, double distance) {
  const double level = luminance >= kLight ? std::max(luminance - distance, 0.0) : std::min(luminance + distance, 1.0);
  return {level, level, level};
}

}  // namespace

LineColour adaptiveGrey(const LineColour& region, double strength) {
  return greyAwayFrom(luminanceOf(region), 0.45 + 0.55 * strength);
}

LineColour tintOf(const LineColour& region, double vibrance) {
  constexpr double kGreySaturation = 0.04;
  constexpr double kGreyDistance = 0.5;
  const double luminance = luminanceOf(region);
  HueColour tint = hueOf(region);
  if (tint.saturation < kGreySaturation) return greyAwayFrom(luminance, kGreyDistance);
  const double gain = 0.4 + 1.2 * vibrance;
  if (luminance < kLight) {
    tint.saturation = std::min(gain * std::max(0.85 * tint.saturation, 0.35), 1.0);
    tint.brightness = std::min(tint.brightness + 0.45, 1.0);
  } else {
    tint.saturation = std::min(gain * std::min(1.15 * tint.saturation, 1.0), 1.0);
    tint.brightness = std::max(tint.brightness - 0.45, 0.12);
  }
  return colourOf(tint);
}

}  // namespace velura
