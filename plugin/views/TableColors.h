#pragma once

#include "cocoa/Call.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {

/// Grid lines between the columns of a table, and none between its rows.
inline constexpr NSUInteger kColumnLinesOnly = 1;

/// Gives a table the theme's colours of its grid and of its background, as far as the theme has them.
inline void colorTable(NSObject table, ThemeKey grid, ThemeKey background) {
  const ThemeUtility& theme = ThemeUtility::shared();
  if (const NSColor color = theme.colorForKey(grid)) cocoa::call<"setGridColor:">(table, color);
  if (const NSColor color = theme.colorForKey(background)) cocoa::call<"setBackgroundColor:">(table, color);
}

/// The lists of the loop browser.
inline void colorLoopBrowserList(NSObject list) {
  colorTable(list, key<"LoopBrowserGridColor">, key<"LoopBrowserControlBackgroundColor">);
}

}  // namespace velura
