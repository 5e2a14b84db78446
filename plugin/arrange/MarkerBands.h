#pragma once
// Bands behind the regions in the colours of the host's markers, which are read from its ruler.

#include <optional>
#include <vector>

#include "cocoa/AppKit.h"
#include "plugin/arrange/BandWalk.h"
#include "plugin/arrange/OffScreen.h"

namespace velura {

/// Tints what lies between the regions of an arrange view, inside a dirty rectangle, with the colours of the
/// markers above. Takes the view's current graphics context.
void VLRMarkerBandsDraw(NSView view, CGRect dirty);

/// A ruler as it was drawn, and what was read from it.
struct MarkerRuler {
  RulerRendering rendering;
  MarkerLane lane;
};

/// Reads the markers of a ruler; nothing when it cannot be drawn or is smaller than 4 points.
/// `sectionLeft` is the screen x that segment starts are measured from.
std::optional<MarkerRuler> VLRMarkerBandsReadRuler(NSView ruler, double sectionLeft);

/// Adds the rectangles of the regions below an accessibility element, in the view's coordinates. Elements
/// deeper than depth 7 are left out.
void VLRMBCollectRegionsRec(NSObject element, NSView view, int depth, std::vector<CGRect>& regions);

}  // namespace velura
