#include "plugin/arrange/GridOverlay.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

#include "cocoa/Dispatch.h"
#include "cocoa/Exception.h"
#include "plugin/arrange/Median.h"
#include "plugin/arrange/OffScreen.h"
#include "plugin/arrange/PrimaryMouseButton.h"
#include "plugin/arrange/RegionLineColor.h"
#include "plugin/arrange/RegionWalk.h"
#include "plugin/arrange/TickDetection.h"
#include "plugin/arrange/VLRGridSettingsReader.h"
#include "plugin/hostapi/Accessibility.h"
#include "plugin/hostapi/ArrangeView.h"
#include "plugin/text/Truncated.h"

namespace velura {

namespace {

using namespace cocoa;

/// What the grid remembers. One arrange view at a time owns the snapshot: where the host had its ticks and regions
/// when the view was last drawn with the button up.
struct GridState {
  std::vector<double> gVBGBarXs;  // screen x
  std::vector<double> gVBGBeatXs;
  std::vector<double> gVBGDivXs;
  std::vector<CGRect> gVBGRegions;             // in the view's coordinates
  id gVBGSnapshotOwner = nullptr;              // not retained: only compared
  double gVBGSectionLeft = 0;                  // screen x of the view's left edge
  std::vector<Ref<NSColor>> gVBGRegionColors;  // one per region, or null
  std::int32_t gVBGSampledMode = -1;
  double gVBGSampledStr = -1;
  double gVBGSampledVib = -1;
  double gVBGLastSampleTime = 0;
  bool gVBGSamplePending = false;
  bool gVBGMouseUpRefreshPending = false;
  bool gVBGSampling = false;
};
GridState& grid = *new GridState;  // kept for the life of the process

void forgetColors() {
  grid.gVBGRegionColors.clear();
  grid.gVBGSampledMode = -1;
}

void dropSnapshot() {
  grid.gVBGBarXs.clear();
  grid.gVBGBeatXs.clear();
  grid.gVBGDivXs.clear();
  grid.gVBGRegions.clear();
  grid.gVBGSectionLeft = 0;
  forgetColors();
}

// ---- The snapshot -----------------------------------------------------------------------------------

/// The regions lie in rows; what the host calls a cycle region is none.
constexpr RegionRules kRegionRules{
    .deepest = 2,
    .isRegion = [](NSObject /*element*/, int depth) { return depth == 2; },
    .describe =
        [](NSObject element) {
          const NSString description = accessibilityText(element, literal<"AXDescription">());
          return description ? description : accessibilityText(element, literal<"AXTitle">());
        }};

/// The strip of a ruler that begins `offset` points below its top edge; nothing where the ruler ends before.
std::optional<CGRect> stripOf(NSView ruler, CGRect visible, double offset) {
  constexpr double kStripHeight = 38;
  constexpr double kLowestStrip = 10;
  constexpr double kTolerance = 0.5;
  const double height = std::min(visible.size.height - offset, kStripHeight);
  if (!(height >= kLowestStrip)) return std::nullopt;
  const double y = ruler.isFlipped() ? visible.minY() + offset : visible.maxY() - offset - height;
  if (y < visible.minY() - kTolerance || y + height > visible.maxY() + kTolerance) return std::nullopt;
  return CGRectMake(visible.minX(), y, visible.size.width, height);
}

RulerTicks ticksOf(NSView ruler, double leftEdge) {
  constexpr double kStripOffsets[] = {0, 19};
  const CGRect visible = visibleOrBounds(ruler);
  RulerTicks best;
  for (const double offset : kStripOffsets) {
    const auto strip = stripOf(ruler, visible, offset);
    const auto rendering = strip ? renderRuler(ruler, *strip) : std::nullopt;
    if (!rendering) continue;
    RulerTicks ticks = detectTicks(rendering->pixels, leftEdge);
    if (ticks.count() > best.count()) best = std::move(ticks);
  }
  return best;
}

bool drawsAnyLines(const VLRGridSettings& settings) {
  return settings.barEnabled || settings.beatEnabled || settings.divEnabled;
}

void takeSnapshot(NSView view, const VLRGridSettings& settings) {
  grid.gVBGSectionLeft = screenLeftOf(view);
  grid.gVBGRegions = foundBy([&] { return regionsBelow(view, view, kRegionRules); });
  RulerTicks ticks = foundBy([&] {
    const NSView ruler = ArrangeSection(view.object).sibling(kRulerSection);
    const bool isWanted = ruler && ruler.window() && drawsAnyLines(settings);
    return isWanted ? ticksOf(ruler, grid.gVBGSectionLeft) : RulerTicks();
  });
  grid.gVBGBarXs = std::move(ticks.bars);
  grid.gVBGBeatXs = std::move(ticks.beats);
  grid.gVBGDivXs = std::move(ticks.divisions);
  grid.gVBGSnapshotOwner = view.object;
}

// ---- Colours ----------------------------------------------------------------------------------------

/// The middle colour of what a view shows in a rectangle, its edges left out; nothing when it shows none.
std::optional<LineColor> middleColor(NSView view, CGRect rect) {
  constexpr double kStep = 0.08;
  constexpr double kFirstX = 0.12;
  constexpr double kFirstY = 0.35;
  constexpr double kLast = 0.88;
  const auto bitmap = drawnOffScreen(view, rect);
  if (!bitmap) return std::nullopt;
  const auto width = static_cast<double>(bitmap->pixelsWide());
  const auto height = static_cast<double>(bitmap->pixelsHigh());
  std::vector<double> reds;
  std::vector<double> greens;
  std::vector<double> blues;
  const NSColorSpace sRGB = NSColorSpace::sRGBColorSpace();
  for (double fx = kFirstX; fx <= kLast; fx += kStep) {
    for (double fy = kFirstY; fy <= kLast; fy += kStep) {
      const NSColor color = bitmap->colorAtX(truncated(fx * width), truncated(fy * height)).colorUsingColorSpace(sRGB);
      if (!color) continue;
      reds.push_back(color.redComponent());
      greens.push_back(color.greenComponent());
      blues.push_back(color.blueComponent());
    }
  }
  if (reds.empty()) return std::nullopt;
  return LineColor{VLRBGMedian(reds), VLRBGMedian(greens), VLRBGMedian(blues)};
}

NSColor lineColor(const LineColor& region, const VLRGridSettings& settings) {
  const LineColor color = GridColorMode(settings.colorMode) == GridColorMode::kTint
                              ? tintOf(region, settings.tintVibrance)
                              : adaptiveGrey(region, settings.adaptiveStrength);
  const bool isGrey = color.red == color.green && color.green == color.blue;  // as the one of all regions is
  return isGrey ? NSColor::colorWithWhite(color.red, 1)
                : NSColor::colorWithSRGBRed(color.red, color.green, color.blue, 1);
}

/// Null for a region of which too little is to be seen, or that the host raises an exception about.
Ref<NSColor> sampledColor(NSView view, CGRect region, CGRect visible, const VLRGridSettings& settings) {
  constexpr double kSmallest = 8;  // points
  const CGRect seen = CGRectIntersection(region, visible);
  if (seen.size.width < kSmallest || seen.size.height < kSmallest) return {};
  const AutoreleasePool pool;
  // Caught inside of the pool: an exception is autoreleased itself, and would be gone outside.
  const auto color = foundBy([&] { return middleColor(view, seen); });
  return color ? Ref<NSColor>(lineColor(*color, settings)) : Ref<NSColor>();
}

bool areSameColors(const std::vector<Ref<NSColor>>& a, const std::vector<Ref<NSColor>>& b) {
  return std::ranges::equal(a, b, [](NSColor first, NSColor second) { return first.isEqual(second); });
}

/// Marks off-screen drawing for region colours.
class Sampling {
 public:
  Sampling() { grid.gVBGSampling = true; }
  Sampling(const Sampling&) = delete;
  Sampling& operator=(const Sampling&) = delete;
  ~Sampling() { grid.gVBGSampling = false; }
};

void sampleRegions(NSView view) {
  grid.gVBGSamplePending = false;
  grid.gVBGLastSampleTime = CFAbsoluteTimeGetCurrent();
  const VLRGridSettings settings = VLRGridSettingsReader::shared().settings();
  if (isPrimaryMouseButtonDown() || !view.window() || settings.colorMode == 0) return;
  if (grid.gVBGSnapshotOwner != view.object || grid.gVBGRegions.empty()) return;
  std::vector<Ref<NSColor>> colors;
  {
    const Sampling sampling;
    const CGRect visible = view.visibleRect();
    for (const CGRect region : std::vector(grid.gVBGRegions)) {
      colors.push_back(sampledColor(view, region, visible, settings));
    }
  }
  const bool changed = !areSameColors(colors, grid.gVBGRegionColors);
  grid.gVBGRegionColors = std::move(colors);
  grid.gVBGSampledMode = settings.colorMode;
  grid.gVBGSampledStr = settings.adaptiveStrength;
  grid.gVBGSampledVib = settings.tintVibrance;
  if (changed) view.setNeedsDisplay(true);
}

bool areColorsOutOfDate(const VLRGridSettings& settings) {
  constexpr double kLongest = 2;  // seconds
  return settings.colorMode != grid.gVBGSampledMode || settings.adaptiveStrength != grid.gVBGSampledStr ||
         settings.tintVibrance != grid.gVBGSampledVib || grid.gVBGRegionColors.size() != grid.gVBGRegions.size() ||
         CFAbsoluteTimeGetCurrent() - grid.gVBGLastSampleTime >= kLongest;
}

// ---- Drawing ----------------------------------------------------------------------------------------

struct LineKind {
  bool VLRGridSettings::*enabled;
  double VLRGridSettings::*opacity;
  double VLRGridSettings::*width;
  std::vector<double> GridState::*positions;
};

/// In the order in which they are drawn: bars end up on top.
constexpr LineKind kLineKinds[] = {
    {&VLRGridSettings::divEnabled, &VLRGridSettings::divOpacity, &VLRGridSettings::divWidth, &GridState::gVBGDivXs},
    {&VLRGridSettings::beatEnabled, &VLRGridSettings::beatOpacity, &VLRGridSettings::beatWidth, &GridState::gVBGBeatXs},
    {&VLRGridSettings::barEnabled, &VLRGridSettings::barOpacity, &VLRGridSettings::barWidth, &GridState::gVBGBarXs},
};

/// Whether a line of a region may stand at `x`: one beside its left edge would look like part of it.
bool isLinePlace(double x, CGRect region) {
  constexpr double kMargin = 1;
  constexpr double kEdge = 2;
  return x >= region.minX() - kMargin && x <= region.maxX() + kMargin && !(std::abs(x - region.minX()) < kEdge);
}

void drawLines(CGRect region, const std::vector<double>& positions, NSColor color, double alpha, double width) {
  constexpr double kInvisible = 0.001;
  constexpr double kTopEdge = 2;       // points of the region that stay clear
  constexpr double kSearchMargin = 3;  // more than rounding and margins move a line
  if (!(width > kInvisible) || !(alpha > kInvisible) || positions.empty()) return;
  const double top = region.minY() + kTopEdge;
  const double bottom = region.maxY();
  if (!(top < bottom)) return;
  const auto first = std::ranges::lower_bound(positions, region.minX() + grid.gVBGSectionLeft - kSearchMargin);
  const auto last = std::ranges::upper_bound(positions, region.maxX() + grid.gVBGSectionLeft + kSearchMargin);
  if (first == last) return;
  const SavedGraphicsState saved;
  color.colorWithAlphaComponent(alpha).setStroke();
  NSRectClip(region);
  const NSBezierPath path = NSBezierPath::bezierPath();
  path.setLineWidth(width);
  for (auto position = first; position != last; ++position) {
    const double x = std::floor(*position - grid.gVBGSectionLeft) + 0.5;
    if (!isLinePlace(x, region)) continue;
    path.moveToPoint({x, top});
    path.lineToPoint({x, bottom});
  }
  path.stroke();
}

void drawRegion(CGRect region, NSColor color, const VLRGridSettings& settings) {
  for (const LineKind& kind : kLineKinds) {
    if (settings.*kind.enabled) {
      drawLines(region, grid.*kind.positions, color, settings.*kind.opacity * settings.masterOpacity,
                settings.*kind.width);
    }
  }
}

void drawRegions(CGRect dirty, const VLRGridSettings& settings) {
  const NSColor grey = NSColor::colorWithWhite(settings.lineGray, 1);
  for (std::size_t i = 0; i < grid.gVBGRegions.size(); ++i) {
    if (!CGRectIntersectsRect(grid.gVBGRegions[i], dirty)) continue;
    const bool hasColor = i < grid.gVBGRegionColors.size() && grid.gVBGRegionColors[i];
    drawRegion(grid.gVBGRegions[i], hasColor ? grid.gVBGRegionColors[i].get() : grey, settings);
  }
}

void pollMouse(Ref<NSView> view) {
  constexpr double kPollInterval = 0.15;  // seconds
  asyncAfter(kPollInterval, dispatch_get_main_queue(), [view = std::move(view)] {
    if (isPrimaryMouseButtonDown()) return pollMouse(view);
    grid.gVBGMouseUpRefreshPending = false;
    if (view->window()) view->setNeedsDisplay(true);
  });
}

}  // namespace

bool isGridSampling() { return grid.gVBGSampling; }

void VLRBGScheduleMouseUpRefresh(NSView view) {
  if (grid.gVBGMouseUpRefreshPending) return;
  grid.gVBGMouseUpRefreshPending = true;
  pollMouse(view);
}

void VLRBGScheduleRegionSampleIfNeeded(NSView view) {
  const VLRGridSettings settings = VLRGridSettingsReader::shared().settings();
  if (settings.colorMode == 0) return forgetColors();
  if (grid.gVBGSamplePending || !areColorsOutOfDate(settings)) return;
  grid.gVBGSamplePending = true;
  async(dispatch_get_main_queue(), [view = Ref<NSView>(view)] { sampleRegions(view); });
}

void VLRBundleGridPostDraw(NSView view, CGRect dirty) {
  if (grid.gVBGSampling || !view || !view.window()) return;
  const VLRGridSettings settings = VLRGridSettingsReader::shared().settings();
  if (!settings.enabled) return dropSnapshot();
  if (isPrimaryMouseButtonDown()) {
    if (grid.gVBGSnapshotOwner != view.object) return;
    VLRBGScheduleMouseUpRefresh(view);
  } else {
    takeSnapshot(view, settings);
  }
  if (grid.gVBGRegions.empty()) return;
  VLRBGScheduleRegionSampleIfNeeded(view);
  drawRegions(dirty, settings);
}

}  // namespace velura
