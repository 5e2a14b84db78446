#include "tests/support/KeyColours.h"

#include <algorithm>
#include <string>

#include "plugin/theme/ThemeKeys.h"

namespace support {
namespace {

void add(ThemeFile& theme, std::string_view key) {
  const Rgba c = colourOf(key);
  theme.text(std::string(key), colour(static_cast<int>(c.red), static_cast<int>(c.green), static_cast<int>(c.blue)));
}

}  // namespace

Rgba colourOf(std::string_view key) {
  const auto index = static_cast<long>(velura::indexOf(*velura::keyNamed(key)));
  return {index * 7 % 50 * 4 + 20, index / 50 * 40 + 7, kThemedBlue};  // neighbours lie well apart
}

ThemeFile coloursOf(std::initializer_list<std::string_view> keys) {
  ThemeFile theme;
  for (const std::string_view key : keys) add(theme, key);
  return theme;
}

ThemeFile allColours(std::initializer_list<std::string_view> without) {
  ThemeFile theme;
  for (const velura::ThemeKeyRow& row : velura::kThemeKeys) {
    const bool named = std::ranges::find(without, row.name) != without.end();
    if (row.kind == velura::ThemeKeyKind::kColour && !named) add(theme, row.name);
  }
  return theme;
}

}  // namespace support
