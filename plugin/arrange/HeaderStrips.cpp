#include "plugin/arrange/HeaderStrips.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "cocoa/Exception.h"
#include "plugin/hostapi/ArrangeView.h"
#include "plugin/text/Truncated.h"
#include "plugin/theme/GradientSwitch.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/theme/VLRStripBevel.h"
#include "plugin/theme/VLRStripGradient.h"

namespace velura {
namespace {

using namespace cocoa;

// ---- Where the host shows its colour bars -------------------------------------------------------------

/// What an adapter is made with is asked for first: the host may raise, and nothing is allocated then.
Ref<NSObject> newMixerAdapter(Class adapterClass, NSView header) {
  if (class_getInstanceMethod(adapterClass, selector<"initWithSongID:">()) != nullptr) {
    const auto document = call<"songDocument", NSObject>(call<"docManager", NSObject>(header));
    const auto song = call<"songID", NSInteger>(document);
    return Ref<NSObject>::adopt(call<"initWithSongID:", NSObject>(call<"alloc", id>(adapterClass), song));
  }
  const auto song = call<"song", NSObject>(header);
  return Ref<NSObject>::adopt(call<"initWithSong:", NSObject>(call<"alloc", id>(adapterClass), song));
}

/// Asks the host's mixer model for its number of control-surface bars; below zero where it cannot be asked.
NSInteger controlSurfaceBars(NSView header) {
  constexpr NSInteger kUnknown = -1;
  const Class adapterClass = classNamed("MAMixerModelAdapter");
  if (adapterClass == nullptr) return kUnknown;
  const auto adapter = newMixerAdapter(adapterClass, header);
  if (!respondsTo<"numberOfControlSurfaceBars">(adapter.get())) return kUnknown;
  return std::max<NSInteger>(call<"numberOfControlSurfaceBars", NSInteger>(adapter), 0);
}

NSInteger columnBesideSurfaceBars(NSView header, bool areTrackNumbersShown) {
  constexpr NSInteger kWithoutNumbers = 6;
  constexpr NSInteger kWithNumbers = 9;
  constexpr NSInteger kBarWidth = 5;
  constexpr NSInteger kMostBars = 1 << 20;
  const NSInteger bars = controlSurfaceBars(header);
  if (bars < 0) return areTrackNumbersShown ? kWithNumbers : kWithoutNumbers;
  return bars < 1 ? 1 : kBarWidth * std::min(bars, kMostBars) + 1;
}

/// Fills in `bar` as far as the host can be asked.
void askHost(NSView header, ColorBar& bar) {
  const NSDictionary configuration = headerConfigurationOf(ArrangeSection(header.object).parentView());
  if (!configuration) return;
  const auto shows = cast<NSArray>(configuration.objectForKey(literal<"trackelemShow">()));
  const auto isShown = [&](NSUInteger element) { return callBool<"boolValue">(shows.objectAtIndex(element).object); };
  bar.areTrackNumbersShown = callBool<"boolValue">(configuration.objectForKey(literal<"isshowtrnums">()).object);
  bar.isShown = isShown(kColorBarElement);
  const bool areSurfaceBarsShown = isShown(kSurfaceBarElement);
  constexpr NSInteger kAlone = 2;
  if (!bar.isShown) {
    bar.column = 0;
  } else {
    bar.column = areSurfaceBarsShown ? columnBesideSurfaceBars(header, bar.areTrackNumbersShown) : kAlone;
  }
}

// ---- Colours ------------------------------------------------------------------------------------------

/// What a theme says about a kind of track.
struct StripKind {
  ThemeKey key;
  std::uint64_t ThemeUtility::*opacity;  // of the track's own colour, in percent
};

const StripKind& stripKindOf(const TrackRecord& track) {
  static constexpr StripKind kKinds[] = {
      {key<"arrangeStripBackgroundColor">, &ThemeUtility::arrangeOpacity},
      {key<"arrangeStripHighlightBackgroundColor">, &ThemeUtility::arrangeHighlightedOpacity},
      {key<"arrangeFolderStripBackgroundColor">, &ThemeUtility::arrangeFolderOpacity},
      {key<"arrangeFolderSelectedStripBackgroundColor">, &ThemeUtility::arrangeFolderHighlightedOpacity},
  };
  return kKinds[(track.folder ? 2U : 0U) + (track.selected ? 1U : 0U)];
}

NSColor sampledStripColor(NSColor sample, const TrackRecord& track) {
  constexpr double kPercent = 100;
  const ThemeUtility& theme = ThemeUtility::shared();
  const StripKind& kind = stripKindOf(track);
  const std::uint64_t opacity = theme.*kind.opacity;
  return opacity != 0 ? sample.colorWithAlphaComponent(static_cast<double>(opacity) / kPercent)
                      : theme.colorForKey(kind.key);
}

/// Calls `visit` with each track and its rectangle, top to bottom as the current context shows it.
template <class Visit>
void forEachTrack(const HeaderColumn& column, bool flipped, Visit&& visit) {
  const CGSize size = column.view.frame().size;
  double y = flipped ? 0 : size.height;
  for (const TrackRecord& track : column.tracks) {
    if (!flipped) y -= track.height;
    visit(track, CGRectMake(0, y, size.width, track.height));
    if (flipped) y += track.height;
  }
}

std::vector<HeaderStrip> themedStrips(const HeaderColumn& column, bool flipped) {
  std::vector<HeaderStrip> strips;
  forEachTrack(column, flipped, [&](const TrackRecord& track, CGRect rect) {
    const NSColor color = ThemeUtility::shared().colorForKey(stripKindOf(track).key);
    if (color) strips.push_back({rect, color, track.selected});
  });
  return strips;
}

/// Draws the host's headers, as far as colour bars reach, into the canvas.
void drawColorBars(const HeaderColumn& column, CGRect dirty, NSGraphicsContext canvas) {
  constexpr NSInteger kNarrowest = 18;
  double tallest = 0;
  for (const TrackRecord& track : column.tracks) tallest = std::max(tallest, track.height);
  const CGRect rect =
      CGRectMake(0, std::max(0.0, dirty.minY() - tallest),
                 static_cast<double>(std::max(kNarrowest, column.colorBarColumn + 2)), dirty.size.height + tallest);
  NSGraphicsContext::setCurrentContext(canvas);
  if (const NSColor empty = ThemeUtility::shared().colorForKey(key<"EmptyAreaBelow">)) empty.set();
  NSRectFill(rect);
  column.drawHost(column.view, rect);
}

/// The canvas's row in which a track's colour bar is sampled: two points below the track's upper edge, or above
/// its lower one where the upper one is not drawn.
NSInteger sampleRow(const HeaderColumn& column, CGRect track, CGRect dirty, bool flipped) {
  constexpr double kInset = 2;
  if (flipped) return truncated(track.minY() + kInset);
  const double height = column.view.frame().size.height;
  const double upper = track.maxY() - kInset;
  const bool isDrawn = CGRectContainsPoint(dirty, {static_cast<double>(column.colorBarColumn), upper});
  return truncated(height - (isDrawn ? upper : track.minY() + kInset));
}

std::vector<HeaderStrip> sampledStrips(const HeaderColumn& column, CGRect dirty) {
  const auto canvas =
      column.canvas ? NSGraphicsContext::graphicsContextWithBitmapImageRep(column.canvas) : NSGraphicsContext();
  if (!canvas) return {};
  const SavedGraphicsState saved;
  drawColorBars(column, dirty, canvas);
  const bool flipped = canvas.isFlipped();
  const NSInteger wide = column.canvas.pixelsWide();
  const NSInteger high = column.canvas.pixelsHigh();
  std::vector<HeaderStrip> strips;
  forEachTrack(column, flipped, [&](const TrackRecord& track, CGRect rect) {
    if (!CGRectIntersectsRect(rect, dirty)) return;
    const NSInteger row = sampleRow(column, rect, dirty, flipped);
    if (column.colorBarColumn >= wide || row < 0 || row >= high) return;
    const NSColor sample = column.canvas.colorAtX(column.colorBarColumn, row);
    const NSColor color = sample ? sampledStripColor(sample, track) : NSColor();
    if (color) strips.push_back({rect, color, track.selected});
  });
  return strips;
}

// ---- Painting -----------------------------------------------------------------------------------------

void fillWith(CGContextRef context, CGRect rect, NSColor color) {
  CGContextSetAlpha(context, color.alphaComponent());
  CGContextSetFillColorWithColor(context, color.colorWithAlphaComponent(1).CGColor());
  CGContextFillRect(context, rect);
  CGContextSetAlpha(context, 1);
}

/// What a strip shows besides its own colour.
struct StripPlan {
  const VLRStripGradient* gradient = nullptr;
  NSColor base;
  NSColor overlay;  // nil for none
};

const VLRStripGradient* gradientFor(const HeaderStrip& strip) {
  const ThemeUtility& theme = ThemeUtility::shared();
  const auto* selected = ThemeUtility::gradient(theme.arrangeStripHighlightGradient);
  const auto* plain = ThemeUtility::gradient(theme.arrangeStripGradient);
  if (!strip.selected) return plain;
  const bool fallsBack = theme.useTrackColorAsArrangeStripBackground && selected == nullptr;
  return fallsBack ? plain : selected;
}

StripPlan stripPlanFor(const HeaderStrip& strip, bool gradientsOff) {
  const ThemeUtility& theme = ThemeUtility::shared();
  const VLRStripGradient* gradient = gradientsOff ? nullptr : gradientFor(strip);
  if (gradient == nullptr || gradient->hasAnchors) return {nullptr, strip.color, {}};
  if (!theme.useTrackColorAsArrangeStripBackground) return {gradient, strip.color, {}};
  const ThemeKey base =
      strip.selected ? key<"arrangeStripHighlightBackgroundColor"> : key<"arrangeStripBackgroundColor">;
  return {gradient, theme.colorForKey(base), strip.color};
}

/// The colours as a gradient; null when their number or one of them cannot be drawn.
CFRef<CGGradientRef> drawableGradient(NSArray stops, const VLRStripGradient& gradient) {
  if (stops.count() > kMostStops || stops.count() != gradient.stopLocations->count()) return {};
  const NSMutableArray colors = NSMutableArray::array();
  std::vector<CGFloat> locations;
  for (NSUInteger i = 0; i < stops.count(); ++i) {
    const NSColor color = cast<NSColor>(stops.objectAtIndex(i)).colorUsingColorSpace(NSColorSpace::sRGBColorSpace());
    if (!color) return {};
    colors.addObject(bridged(color.CGColor()));
    locations.push_back(cast<NSNumber>(gradient.stopLocations->objectAtIndex(i)).doubleValue());
  }
  const auto space = CFRef<CGColorSpaceRef>::adopt(CGColorSpaceCreateWithName(kCGColorSpaceSRGB));
  return CFRef<CGGradientRef>::adopt(CGGradientCreateWithColors(space, bridged<CFArrayRef>(colors), locations.data()));
}

void fillWithGradient(CGContextRef context, CGRect rect, CGGradientRef gradient, double angleDegrees, bool flipped) {
  constexpr double kHalfTurn = 180;
  const double angle = angleDegrees * std::numbers::pi / kHalfTurn;
  const double across = std::sin(angle);
  const double up = std::cos(angle);
  const double reach = (std::abs(rect.size.width * across) + std::abs(rect.size.height * up)) / 2;
  const double x = across * reach;
  const double y = (flipped ? -up : up) * reach;
  CGContextSaveGState(context);
  CGContextClipToRect(context, rect);
  CGContextDrawLinearGradient(context, gradient, {rect.midX() - x, rect.midY() - y}, {rect.midX() + x, rect.midY() + y},
                              kCGGradientDrawsNeither);
  CGContextRestoreGState(context);
}

void paintGround(CGContextRef context, const HeaderStrip& strip, const StripPlan& plan, bool flipped) {
  const NSArray stops = plan.gradient == nullptr ? NSArray() : plan.gradient->stopColorsForBase(plan.base);
  if (stops.count() < kFewestStops) {
    if (plan.base) fillWith(context, strip.rect, plan.base);
    return;
  }
  const auto gradient = drawableGradient(stops, *plan.gradient);
  if (gradient) fillWithGradient(context, strip.rect, gradient, plan.gradient->angleDegrees, flipped);
}

/// A light edge and a dark one.
void paintBevel(CGContextRef context, const HeaderStrip& strip, bool flipped) {
  constexpr double kLargestShare = 3;
  constexpr double kPercent = 100;
  const VLRStripBevel* bevel = ThemeUtility::bevel(ThemeUtility::shared().arrangeStripBevel);
  if (bevel == nullptr) return;
  const auto style = BevelStyle(bevel->styleForHighlighted(BOOL(strip.selected)));
  if (style == BevelStyle::kNone) return;
  const CGRect& rect = strip.rect;
  const double band = std::min(bevel->width, rect.size.height / kLargestShare);
  const CGRect low = CGRectMake(rect.minX(), rect.minY(), rect.size.width, band);
  const CGRect high = CGRectMake(rect.minX(), rect.maxY() - band, rect.size.width, band);
  const double upperShade = style == BevelStyle::kRaised ? 1 : 0;
  const double alpha = bevel->strength / kPercent;
  const auto shaded = [&](CGRect part, double shade) {
    CGContextSetRGBFillColor(context, shade, shade, shade, alpha);
    CGContextFillRect(context, part);
  };
  shaded(flipped ? low : high, upperShade);
  shaded(flipped ? high : low, 1 - upperShade);
}

void paintStrip(CGContextRef context, const HeaderStrip& strip, bool flipped) {
  const bool gradientsOff = VLRGradientsDisabled();
  const StripPlan plan = stripPlanFor(strip, gradientsOff);
  paintGround(context, strip, plan, flipped);
  if (plan.overlay) fillWith(context, strip.rect, plan.overlay);
  if (!gradientsOff) paintBevel(context, strip, flipped);
}

}  // namespace

ColorBar colorBarOf(NSView header) {
  if (!ThemeUtility::shared().useTrackColorAsArrangeStripBackground) return {};
  ColorBar bar{.column = 1};
  static_cast<void>(guarded([&] { askHost(header, bar); }));
  return bar;
}

std::vector<HeaderStrip> stripsOf(const HeaderColumn& column, CGRect dirty) {
  const bool flipped = NSGraphicsContext::currentContext().isFlipped();
  if (flipped) NSLog(literal<"Velura Context is flipped. We need to handle this">().object);
  if (column.tracks.empty()) return {};
  return column.colorBarColumn < 1 ? themedStrips(column, flipped) : sampledStrips(column, dirty);
}

void paintStrips(const std::vector<HeaderStrip>& strips, CGRect dirty) {
  const NSGraphicsContext graphics = NSGraphicsContext::currentContext();
  const CGContextRef context = graphics.CGContext();
  if (strips.empty() || context == nullptr) return;
  const SavedGraphicsState saved;
  for (const HeaderStrip& strip : strips) {
    if (CGRectIntersectsRect(strip.rect, dirty)) paintStrip(context, strip, graphics.isFlipped());
  }
}

}  // namespace velura
