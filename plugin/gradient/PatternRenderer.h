#pragma once
// Renders gradients, overlays and bevels into small images, and hands them out as pattern colours.

#include <array>
#include <cstddef>

#include "cocoa/AppKit.h"
#include "plugin/theme/VLRStripGradient.h"

namespace velura {

struct VLRStripBevel;

/// Colours along a gradient, each at a location from 0 to 1. The colours are not retained.
struct GradientStops {
  std::size_t count = 0;
  std::array<NSColor, kMostStops> colors;
  std::array<double, kMostStops> locations{};

  /// False when there is no room for another stop.
  bool append(NSColor color, double location) {
    if (count == kMostStops) return false;
    colors[count] = color;
    locations[count++] = location;
    return true;
  }
};

/// What a pattern shows, from back to front: gradient or base colour, overlay, bevel. All may be absent.
struct PatternLook {
  NSColor base;
  CGSize size;
  /// Null without a gradient. A gradient needs at least two stops to be drawn.
  const GradientStops* stops = nullptr;
  /// Compass bearing from the first stop to the last: 180 is top to bottom, 90 is left to right.
  double angleDegrees = 180;
  const VLRStripBevel* bevel = nullptr;
  /// 0 none, 1 raised, any other value sunk.
  NSInteger bevelStyle = 0;
  NSColor overlay;
};

/// The pattern colour of a look, from the theme's cache or freshly drawn. Answers the base colour itself
/// when there is nothing to render or the size lies outside 2 to 4096 points, and nil for a bevel alone.
/// `cache` holds the finished patterns by key.
NSColor patternColor(const PatternLook& look, NSMutableDictionary cache);

/// The same with the cache of the theme in force.
NSColor patternColor(const PatternLook& look);

/// Adds the messages that ask for patterns to the class `ThemeUtility`.
void attachThemeUtilityPatterns();

}  // namespace velura
