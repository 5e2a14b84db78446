#include "plugin/gradient/StripAnchoring.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>

#include "plugin/gradient/BoundaryCache.h"
#include "plugin/gradient/StripNodeDump.h"
#include "plugin/theme/GradientSwitch.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/theme/VLRStripBevel.h"
#include "plugin/theme/VLRStripGradient.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr double kLowestStrip = 2;        // points; below it nothing can be placed
constexpr double kSameLocation = 0.0005;  // of a strip's height: stops this near meet at a hard edge

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
VLRStripGradient* gradientFor(const ThemeUtility& theme, bool highlighted, bool hasOverlay) {
  if (!hasOverlay && theme.useTrackColorAsStripBackground) return theme.gradient(theme.mixerAutoGradient);
  if (highlighted && theme.mixerStripHighlightGradient) return theme.gradient(theme.mixerStripHighlightGradient);
  return theme.gradient(theme.mixerStripGradient);
}

/// From 0 at the top edge of the strip to 1 at its bottom edge; nothing where the border lies below it.
std::optional<double> locationOf(MAStripNode strip, double height, const VLRStripGradient& gradient, std::size_t stop) {
  double location = gradient.locations[stop];
  if (const auto& anchor = gradient.anchors[stop]; anchor) {
    const double y = boundaryYForAnchor(strip, *anchor);
    if (!(y >= 0)) return std::nullopt;
    location = 1 - y / height;
  }
  return std::clamp(location, 0.0, 1.0);
}

}  // namespace

double boundaryYForAnchor(MAStripNode strip, StripAnchor anchor) {
  static BoundaryCache cache;
  return cache.boundary(strip, anchor);
}

bool resolveGradient(MAStripNode strip, VLRStripGradient& gradient, NSColor base, GradientStops& stops) {
  stops.count = 0;
  const NSArray colors = gradient.stopColorsForBase(base);
  const NSUInteger count = colors.count();
  if (count < kFewestStops) return false;
  const double height = strip.frame().size.height;
  const bool placed = !gradient.hasAnchors && !(gradient.smoothingPoints > 0);
  if (!placed && !(height >= kLowestStrip)) return false;
  for (std::size_t i = 0; i < count; ++i) {
    const auto location = placed ? std::optional(gradient.locations[i]) : locationOf(strip, height, gradient, i);
    if (!location) return false;
    stops.append(cast<NSColor>(colors.objectAtIndex(i)), *location);
  }
  if (placed) return true;
  std::span<NSColor> sortedColors(stops.colors.data(), stops.count);
  std::span<double> sortedLocations(stops.locations.data(), stops.count);
  VLRSortStops(sortedColors, sortedLocations);
  if (gradient.smoothingPoints > 0) smoothStops(stops, gradient.smoothingPoints, height);
  return true;
}

NSColor applyStripGradient(MAStripNode strip, NSColor base, bool highlighted, NSColor overlay) {
  dumpStripNodesIfArmed(strip);
  if (VLRGradientsDisabled()) return base;
  const ThemeUtility& theme = ThemeUtility::shared();
  VLRStripGradient* gradient = gradientFor(theme, highlighted, static_cast<bool>(overlay));
  const VLRStripBevel* bevel = theme.bevel(theme.mixerStripBevel);
  const NSInteger style = bevel == nullptr ? 0 : bevel->styleForHighlighted(highlighted);
  if (!overlay && !(base && (gradient != nullptr || style != 0))) return base;
  PatternLook look{.base = base, .size = strip.frame().size, .bevel = bevel, .bevelStyle = style, .overlay = overlay};
  GradientStops stops;
  if (gradient != nullptr && resolveGradient(strip, *gradient, base, stops)) {
    look.stops = &stops;
    look.angleDegrees = gradient->angleDegrees;
  }
  return patternColor(look);
}

}  // namespace velura
