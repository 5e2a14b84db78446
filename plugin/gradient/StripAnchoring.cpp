#include "plugin/gradient/StripAnchoring.h"

#include <algorithm>
#include <cmath>

#include "plugin/gradient/BoundaryCache.h"
#include "plugin/gradient/GradientSwitch.h"
#include "plugin/gradient/VLRStripBevel.h"
#include "plugin/gradient/VLRStripGradient.h"
#include "plugin/mixer/StripNodeDump.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr double kLowestStrip = 2;         // points; below it nothing can be placed
constexpr double kSameLocation = 0.0005;   // of a strip's height: stops this near meet at a hard edge

/// Stable and ascending: stops at one location keep the order in which they were written.
void sortStops(GradientStops& stops) {
  for (std::size_t i = 1; i < stops.count; ++i) {
    std::size_t to = i;
    while (to > 0 && stops.locations[to - 1] > stops.locations[i]) --to;
    std::rotate(stops.colours.begin() + to, stops.colours.begin() + i, stops.colours.begin() + i + 1);
    std::rotate(stops.locations.begin() + to, stops.locations.begin() + i, stops.locations.begin() + i + 1);
  }
}

/// Pulls stops that meet at a hard edge apart, never past their neighbours.
void smoothStops(GradientStops& stops, double points, double height) {
  const double half = points / height * 0.5;
  for (std::size_t i = 0; i + 1 < stops.count; ++i) {
    const double a = stops.locations[i];
    const double b = stops.locations[i + 1];
    if (std::abs(b - a) >= kSameLocation) continue;
    const double previous = i == 0 ? 0 : stops.locations[i - 1];
    const double next = i + 2 < stops.count ? stops.locations[i + 2] : 1;
    stops.locations[i] = std::max(a - half, previous);
    stops.locations[i + 1] = std::min(b + half, next);
  }
}

/// The gradient that applies to a strip. The track colour by itself drives the auto gradient alone.
const VLRStripGradient* gradientFor(const ThemeUtility& theme, bool highlighted, bool hasOverlay) {
  if (!hasOverlay && theme.useTrackColorAsStripBackground) return theme.gradient(theme.mixerAutoGradient);
  if (highlighted && theme.mixerStripHighlightGradient) return theme.gradient(theme.mixerStripHighlightGradient);
  return theme.gradient(theme.mixerStripGradient);
}

}  // namespace

double boundaryYForAnchor(MAStripNode strip, std::string_view anchor) {
  static BoundaryCache cache;
  const auto index = anchorNamed(anchor);
  return index ? cache.boundary(strip, *index) : -1;
}

bool resolveGradient(MAStripNode strip, const VLRStripGradient& gradient, NSColor base, GradientStops& stops) {
  stops.count = 0;
  return false;
}

NSColor applyStripGradient(MAStripNode strip, NSColor base, bool highlighted, NSColor overlay) {
  dumpStripNodesIfArmed(strip);
  if (VLRGradientsDisabled()) return base;
  const ThemeUtility& theme = ThemeUtility::shared();
  const VLRStripGradient* gradient = gradientFor(theme, highlighted, static_cast<bool>(overlay));
  const VLRStripBevel* bevel = theme.bevel(theme.mixerStripBevel);
  const NSInteger style = bevel == nullptr ? 0 : bevel->styleForHighlighted(highlighted);
  if (!overlay && !(base && (gradient != nullptr || style != 0))) return base;
  PatternLook look{
      .base = base, .size = strip.frame().size, .bevel = bevel, .bevelStyle = style, .overlay = overlay};
  GradientStops stops;
  if (gradient != nullptr && resolveGradient(strip, *gradient, base, stops)) {
    look.stops = &stops;
    look.angleDegrees = gradient->angleDegrees;
  }
  return patternColour(look);
}

}  // namespace velura
