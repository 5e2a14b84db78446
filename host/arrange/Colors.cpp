#include "host/arrange/Colors.h"

#include <cmath>

namespace host {

NSColor asColor(const SongColor& color) {
  return NSColor::colorWithSRGBRed(color.red / 255.0, color.green / 255.0, color.blue / 255.0, 1);
}

double luminance(const SongColor& color) {
  return (0.2126 * color.red + 0.7152 * color.green + 0.0722 * color.blue) / 255;
}

SongColor mixed(const SongColor& from, const SongColor& to, double step) {
  const auto between = [step](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * step)); };
  return {between(from.red, to.red), between(from.green, to.green), between(from.blue, to.blue)};
}

}  // namespace host
