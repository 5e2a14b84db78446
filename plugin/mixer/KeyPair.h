#pragma once

#include "plugin/theme/ThemeUtility.h"

namespace velura {

/// A colour of the theme, and the one that takes its place in a selected strip.
struct KeyPair {
  ThemeKey plain;
  ThemeKey highlighted;
  /// nil where the theme leaves the host's own.
  [[nodiscard]] NSColor color(bool isHighlighted) const {
    return ThemeUtility::shared().colorForKey(isHighlighted ? highlighted : plain);
  }
};

}  // namespace velura
