#pragma once
// Puts the stops of a gradient on the borders between the sections of a mixer strip.

#include "plugin/gradient/PatternRenderer.h"
#include "plugin/hostapi/MANode.h"
#include "plugin/theme/VLRStripGradient.h"

namespace velura {

/// Where an anchor's border lies in a strip, in points above its bottom edge: the middle of the gap between
/// the sections above it and those below it, over all strips beside this one.
double boundaryYForAnchor(MAStripNode strip, StripAnchor anchor);

/// The stops of a gradient on this strip, sorted, from 0 at the top edge to 1 at the bottom. False when
/// there are fewer than two colours, or when anchors or smoothing meet a strip lower than two points.
bool resolveGradient(MAStripNode strip, VLRStripGradient& gradient, NSColor base, GradientStops& stops);

/// The colour that a strip takes as its background: the theme's gradient, overlay and bevel over `base`.
/// Each colour may be nil. Answers `base` where there is nothing to add.
NSColor applyStripGradient(MAStripNode strip, NSColor base, bool highlighted, NSColor overlay);

}  // namespace velura
