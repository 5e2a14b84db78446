#pragma once
// The smallest theme that shows what one key does.

#include <map>
#include <string>
#include <vector>

#include "plugin/language/ThemeKeys.h"

namespace session {

/// From a key's name to its value, a property list element.
using ThemeEntries = std::map<std::string, std::string>;

struct KeyTheme {
  ThemeEntries without;  // what the key needs to show at all
  ThemeEntries with;     // the same, and the key with a value that cannot be overlooked
  std::vector<std::string> renderOptions;
  std::string song;  // in place of the usual one, where that has another state; "" for none
  bool needsImages = false;
};

KeyTheme themeShowing(const velura::ThemeKeyRow& row);

/// A theme settings file.
std::string themeList(const ThemeEntries& entries);

}  // namespace session
