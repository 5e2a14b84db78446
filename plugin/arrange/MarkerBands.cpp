#include "plugin/arrange/MarkerBands.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "cocoa/Dispatch.h"
#include "cocoa/Exception.h"
#include "plugin/arrange/GridOverlay.h"
#include "plugin/arrange/MarkerBandDiagnostics.h"
#include "plugin/arrange/PrimaryMouseButton.h"
#include "plugin/arrange/RegionWalk.h"
#include "plugin/arrange/VLRGridSettingsReader.h"
#include "plugin/hostapi/Accessibility.h"
#include "plugin/hostapi/ArrangeView.h"

namespace velura {
namespace {

using namespace cocoa;

/// What the bands remember: the markers of the view that was drawn last.
struct BandState {
  std::vector<BandSegment> gVMBSegments;  // starts are in the view's coordinates, left to right
  std::vector<CGRect> gVMBRegions;
  id gVMBOwner = nullptr;  // not retained: only compared
  double gVMBSectionLeft = 0;
  double gVMBLastRulerH = -1;  // the first drawing schedules a redraw
  double gVMBLastGoodTime = 0;
  std::string gVMBSig;
  bool gVMBDelayedPending = false;
  bool gVMBRepaintPending = false;
};
BandState& bands = *new BandState;  // kept for the life of the process

void redrawIfShown(NSView view) {
  if (view.window()) view.setNeedsDisplay(true);
}

/// A ruler that grows or shrinks is laid out again a moment later, and its pixels move with it.
void watchRulerHeight(NSView view, NSView ruler) {
  constexpr double kTolerance = 1;
  constexpr double kDelay = 0.4;  // seconds
  const double height = ruler.frame().size.height;
  if (!(std::abs(height - bands.gVMBLastRulerH) > kTolerance)) return;
  bands.gVMBLastRulerH = height;
  if (bands.gVMBDelayedPending) return;
  bands.gVMBDelayedPending = true;
  asyncAfter(kDelay, dispatch_get_main_queue(), [view = Ref<NSView>(view)] {
    bands.gVMBDelayedPending = false;
    redrawIfShown(view);
  });
}

/// The host redraws only what it knows to have changed: changed markers need the whole view.
void repaintIfChanged(NSView view) {
  std::string signature = signatureOf(bands.gVMBSegments);
  if (signature == bands.gVMBSig) return;
  bands.gVMBSig = std::move(signature);
  if (bands.gVMBRepaintPending) return;
  bands.gVMBRepaintPending = true;
  async(dispatch_get_main_queue(), [view = Ref<NSView>(view)] {
    bands.gVMBRepaintPending = false;
    redrawIfShown(view);
  });
}

/// A ruler that is being redrawn may show no marker for a moment: the last ones stay for up to a second.
void takeOver(NSView view, std::vector<BandSegment> segments) {
  constexpr double kMemory = 1;  // seconds
  const double now = CFAbsoluteTimeGetCurrent();
  if (std::ranges::any_of(segments, [](const BandSegment& segment) { return segment.color.has_value(); })) {
    bands.gVMBSegments = std::move(segments);
    bands.gVMBLastGoodTime = now;
  } else if (bands.gVMBOwner != view.object || !(now - bands.gVMBLastGoodTime < kMemory)) {
    bands.gVMBSegments.clear();
  }
}

void clipAroundRegions(CGRect dirty) {
  const NSBezierPath path = NSBezierPath::bezierPathWithRect(dirty);
  path.setWindingRule(NSWindingRuleEvenOdd);
  for (const CGRect region : bands.gVMBRegions) {
    const CGRect part = CGRectIntersection(region, dirty);
    if (!part.isEmpty()) path.appendBezierPathWithRect(part);
  }
  path.addClip();
}

/// The rectangle of a segment; empty where it is out of sight.
CGRect bandOf(std::size_t index, CGRect bounds) {
  const bool isLast = index + 1 == bands.gVMBSegments.size();
  const double left = std::floor(bands.gVMBSegments[index].start);
  const double right = isLast ? bounds.maxX() : std::floor(bands.gVMBSegments[index + 1].start);
  return right > left ? CGRectMake(left, bounds.minY(), right - left, bounds.size.height) : CGRect{};
}

void drawBands(NSView view, CGRect dirty, double opacity) {
  if (bands.gVMBSegments.empty()) return;
  constexpr double kScale = 255;
  const SavedGraphicsState saved;
  clipAroundRegions(dirty);
  const CGRect bounds = view.bounds();
  for (std::size_t i = 0; i < bands.gVMBSegments.size(); ++i) {
    const auto& color = bands.gVMBSegments[i].color;
    const CGRect band = CGRectIntersection(bandOf(i, bounds), dirty);
    if (!color || band.isEmpty()) continue;
    NSColor::colorWithSRGBRed(color->red / kScale, color->green / kScale, color->blue / kScale, opacity).setFill();
    NSRectFillUsingOperation(band, NSCompositingOperationSourceOver);
  }
}

constexpr int kDeepestRegion = 7;
constexpr RegionRules kRegionRules{
    .deepest = kDeepestRegion,
    .isRegion = [](NSObject element,
                   int /*depth*/) { return accessibilityRole(element).isEqualToString(NSAccessibilityLayoutItemRole); },
    .describe = [](NSObject element) { return accessibilityText(element, literal<"AXDescription">()); }};

}  // namespace

void VLRMBCollectRegionsRec(NSObject element, NSView view, int depth, std::vector<CGRect>& regions) {
  const std::vector<CGRect> found = regionsBelow(element, view, kRegionRules, depth);
  regions.insert(regions.end(), found.begin(), found.end());
}

std::optional<MarkerRuler> VLRMarkerBandsReadRuler(NSView ruler, double sectionLeft) {
  constexpr double kSmallest = 4;  // points
  if (!ruler) return std::nullopt;
  const CGRect rect = visibleOrBounds(ruler);
  if (!(rect.size.width >= kSmallest && rect.size.height >= kSmallest)) return std::nullopt;
  auto rendering = renderRuler(ruler, rect);
  if (!rendering) return std::nullopt;
  MarkerLane lane = readMarkerLane(rendering->pixels, sectionLeft);
  MarkerRuler result{std::move(*rendering), std::move(lane)};
  writeRenderReport(result);
  return result;
}

void VLRMarkerBandsDraw(NSView view, CGRect dirty) {
  if (!view || !view.window() || isGridSampling()) return;
  const VLRGridSettings settings = VLRGridSettingsReader::shared().settings();
  if (!settings.markerBandsEnabled || isPrimaryMouseButtonDown()) return;
  bands.gVMBSectionLeft = screenLeftOf(view);
  const NSView ruler = ArrangeSection(view.object).sibling(kRulerSection);
  watchRulerHeight(view, ruler);
  auto read = foundBy([&] { return VLRMarkerBandsReadRuler(ruler, bands.gVMBSectionLeft); });
  bands.gVMBRegions = foundBy([&] {
    std::vector<CGRect> regions;
    VLRMBCollectRegionsRec(view, view, 0, regions);
    return regions;
  });
  takeOver(view, read ? std::move(read->lane.segments) : std::vector<BandSegment>());
  bands.gVMBOwner = view.object;
  static_cast<void>(guarded([&] {
    appendBandReport({view, ruler, bands.gVMBSectionLeft, bands.gVMBSegments, bands.gVMBRegions});
  }));
  repaintIfChanged(view);
  drawBands(view, dirty, settings.markerBandsOpacity);
}

}  // namespace velura
