#include "tests/support/KeyColors.h"

#include <algorithm>
#include <string>

#include "plugin/language/ThemeKeys.h"

namespace support {
namespace {

void add(ThemeFile& theme, std::string_view key) {
  const Rgba c = colorOf(key);
  theme.text(std::string(key), color(static_cast<int>(c.red), static_cast<int>(c.green), static_cast<int>(c.blue)));
}

}  // namespace

Rgba colorOf(std::string_view key) {
  const auto index = static_cast<long>(velura::indexOf(*velura::keyNamed(key)));
  return {index * 7 % 50 * 4 + 20, index / 50 * 40 + 7, kThemedBlue};  // neighbours lie well apart
}

ThemeFile colorsOf(std::initializer_list<std::string_view> keys) {
  ThemeFile theme;
  for (const std::string_view key : keys) add(theme, key);
  return theme;
}

ThemeFile allColors(std::initializer_list<std::string_view> without) {
  ThemeFile theme;
  for (const velura::ThemeKeyRow& row : velura::kThemeKeys) {
    const bool named = std::ranges::find(without, row.name) != without.end();
    if (row.kind == velura::ThemeKeyKind::kColor && !named) add(theme, row.name);
  }
  return theme;
}

}  // namespace support
