#pragma once
// A theme in which every colour tells what it stands for.

#include <initializer_list>
#include <string_view>

#include "tests/support/Colors.h"
#include "tests/support/Theme.h"

namespace support {

/// The colour of a key: another for every one, and none of the host's.
Rgba colorOf(std::string_view key);
/// Every colour of that kind has this amount of blue, and nothing of the host's.
inline constexpr long kThemedBlue = 99;

/// A theme of the colours of some keys.
ThemeFile colorsOf(std::initializer_list<std::string_view> keys);
/// A theme of the colours of all keys, but those that are named.
ThemeFile allColors(std::initializer_list<std::string_view> without = {});

}  // namespace support
