#pragma once
// The text form of a theme colour: "sRGBColor:{255, 128, 0, 100}".

#include <cstdint>
#include <optional>
#include <string_view>

namespace velura {

/// Red, green and blue from 0 to 255 and alpha in percent, as written: nothing is clamped.
struct ColorComponents {
  std::int32_t red = 0;
  std::int32_t green = 0;
  std::int32_t blue = 0;
  std::int32_t alpha = 1;
  friend bool operator==(const ColorComponents&, const ColorComponents&) = default;
};

/// Reads "sRGBColor:{%i, %i, %i, %i" as `scanf` does, into the components in their order, and answers how many it
/// read; what it does not reach stays as it is.
int scanColorString(std::string_view text, ColorComponents& color);

/// The components of a colour string; nothing for a text that does not begin with "sRGBColor:" in any
/// letter case. From there on it is read as `scanf` reads "sRGBColor:{%i, %i, %i, %i": the pattern's
/// letters must match exactly, a prefix of 0x or 0 sets the base, and reading stops at the first character
/// that does not fit, which leaves the remaining components as they are made above. A number beyond 32
/// bits becomes the nearest that 32 bits hold.
std::optional<ColorComponents> parseColorString(std::string_view text);

}  // namespace velura
