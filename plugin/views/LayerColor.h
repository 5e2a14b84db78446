#pragma once

#include "cocoa/QuartzCore.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {

/// Gives a layer the theme's colour as its background; leaves it where the theme has none.
inline void fillLayer(CALayer layer, ThemeKey key) {
  if (const NSColor color = ThemeUtility::shared().colorForKey(key)) layer.setBackgroundColor(color.CGColor());
}

}  // namespace velura
