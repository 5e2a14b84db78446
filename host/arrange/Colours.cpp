#include "host/arrange/Colours.h"

#include <cmath>

namespace host {

NSColor asColour(const SongColour& colour) {
  return NSColor::colorWithSRGBRed(colour.red / 255.0, colour.green / 255.0, colour.blue / 255.0, 1);
}

double luminance(const SongColour& colour) {
  return (0.2126 * colour.red + 0.7152 * colour.green + 0.0722 * colour.blue) / 255;
}

SongColour mixed(const SongColour& from, const SongColour& to, double step) {
  const auto between = [step](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * step)); };
  return {between(from.red, to.red), between(from.green, to.green), between(from.blue, to.blue)};
}

}  // namespace host
