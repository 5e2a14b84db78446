// Strips of the mixer: their backgrounds, border, empty slots and the area behind them.

#include "plugin/mixer/MAStripNode+ThemeSupport.h"

#include <cmath>

#include "cocoa/Exception.h"
#include "plugin/gradient/StripAnchoring.h"
#include "plugin/gradient/StripNodeDump.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/theme/SelectedTheme.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/theme/Utility.h"

namespace velura {
namespace {

using namespace cocoa;

using Strip = MAStripNode;
constexpr FixedString kClass = Strip::kClassName;

// ---- Backgrounds ------------------------------------------------------------------------------

/// What tells the kinds of strips apart, in one state.
struct StripKindRow {
  ThemeKey color;
  std::uint64_t ThemeUtility::*opacity;
};
enum Kind : std::size_t { kNormal, kFolder, kAux };
enum State : std::size_t { kPlain, kHighlighted };

constexpr StripKindRow kStripKinds[2][3] = {
    {{key<"stripBackgroundColor">, &ThemeUtility::mixerOpacity},
     {key<"folderStripBackgroundColor">, &ThemeUtility::mixerFolderOpacity},
     {key<"auxStripBackgroundColor">, &ThemeUtility::mixerAuxOpacity}},
    {{key<"stripHighlightBackgroundColor">, &ThemeUtility::mixerHighlightedOpacity},
     {key<"folderStripHighlightBackgroundColor">, &ThemeUtility::mixerFolderHighlightedOpacity},
     {key<"auxStripHighlightBackgroundColor">, &ThemeUtility::mixerAuxHighlightedOpacity}},
};

Kind stripKindOf(Strip strip) {
  switch (trackTypeOf(strip)) {
    case TrackType::kFolder:
      return kFolder;
    case TrackType::kAux:
      return kAux;
    default:
      return kNormal;
  }
}

struct StripBackground {
  NSColor base;
  NSColor overlay;
};

/// The track colour at the theme's opacity lies over the theme's gradient, or stands for the colour of the
/// strip's kind where the theme has no gradient.
StripBackground backgroundFor(Strip strip, State state, NSColor hostColor, bool hasGradient) {
  const ThemeUtility& theme = ThemeUtility::shared();
  const StripKindRow& row = kStripKinds[state][stripKindOf(strip)];
  const NSColor themed = theme.colorForKey(row.color);
  StripBackground background{themed ? themed : hostColor, NSColor()};
  if (!theme.useTrackColorAsStripBackground) return background;
  const std::uint64_t opacity = theme.*row.opacity;
  const NSColor color = opacity == 0 ? NSColor() : stripColor(strip);
  if (!color) return background;
  const NSColor tinted = color.colorWithAlphaComponent(static_cast<double>(opacity) / 100);
  (hasGradient ? background.overlay : background.base) = tinted;
  return background;
}

struct BackgroundColor : HostOverride<kClass, "backgroundColor", NSColor()> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);

  static NSColor themed(Strip strip) {
    const NSColor host = callHost(strip);
    const bool hasGradient = static_cast<bool>(ThemeUtility::shared().mixerStripGradient);
    const StripBackground background = backgroundFor(strip, kPlain, host, hasGradient);
    if (!background.base && !background.overlay) return host;
    return applyStripGradient(strip, background.base, false, background.overlay);
  }
};

struct HighlightedBackgroundColor : HostOverride<kClass, "highlightedBackgroundColor", NSColor()> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);

  static NSColor themed(Strip strip) {
    const ThemeUtility& theme = ThemeUtility::shared();
    const bool hasGradient = theme.mixerStripHighlightGradient || theme.mixerStripGradient;
    const StripBackground background = backgroundFor(strip, kHighlighted, callHost(strip), hasGradient);
    return applyStripGradient(strip, background.base, true, background.overlay);
  }
};

struct BorderColor : ThemedColor<kClass, "borderColor", key<"stripBorderColor">> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);
};

/// The mixer area behind the strips.
struct WillUpdatePresentationObject : HostOverride<kClass, "willUpdatePresentationObject", void()> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);

  static void themed(Strip strip) {
    const NSView view = strip.parent().view();
    if (respondsTo<"setBackgroundColor:">(view)) {
      if (const NSColor background = ThemeUtility::shared().mixerBackgroundColor()) {
        call<"setBackgroundColor:">(view, background);
      }
    }
    callHost(strip);
  }
};

// ---- Track colour ------------------------------------------------------------------------------

/// Whether the window's strips are set up to show track colours. They are when the host cannot say.
bool showsTrackColors(Strip strip) {
  constexpr NSUInteger kTrackColorSwitch = 44;
  bool allowed = true;
  // Whatever the host raises while it is asked is let go: the colours are then allowed.
  static_cast<void>(guarded([&] {
    const auto delegate = call<"delegate", NSObject>(strip.parent().view());
    if (!respondsTo<"mixerFENSTER">(delegate)) return;
    const auto window = call<"mixerFENSTER", NSObject>(delegate);
    const id controller = asObject(classNamed<"ChannelStripConfigController">());
    if (!window || !respondsTo(controller, selector<"createSaveConfigDict:">())) return;
    const auto config = call<"createSaveConfigDict:", NSDictionary>(controller, window);
    if (!config) return;
    const auto switches = cast<NSArray>(config.objectForKey(literal<"isMixThing">()));
    allowed = cast<NSNumber>(switches.objectAtIndex(kTrackColorSwitch)).boolValue();
  }));
  return allowed;
}

NSColor stripColorFromDataSource(Strip strip) {
  const NSObject dataSource = call<"dataSource", NSObject>(strip.parent().controller());
  if (!respondsTo<"colorOfStrip:highlighted:">(dataSource)) return {};
  if (!showsTrackColors(strip)) return {};
  return call<"colorOfStrip:highlighted:", NSColor>(dataSource, strip.representedObject(), BOOL(0));
}

// ---- Empty slots -------------------------------------------------------------------------------

NSColor emptySlotColor(Strip strip) {
  return ThemeUtility::shared().colorForKey(strip.isHighlighted() ? key<"emptySlotSelectedBGColor">
                                                                  : key<"emptySlotBGColor">);
}

NSColor emptySlotEdgeColor() { return NSColor::blackColor().colorWithAlphaComponent(0.05); }

/// Fills and strokes a path. Without a fill colour only the edge is drawn.
void drawPath(CGPathRef path, CGContextRef context, NSColor fill, NSColor border) {
  if (fill) {
    CGContextAddPath(context, path);
    CGContextSetFillColorWithColor(context, fill.CGColor());
    CGContextFillPath(context);
  }
  CGContextAddPath(context, path);
  CGContextSetStrokeColorWithColor(context, border.CGColor());
  CGContextSetLineWidth(context, 1);
  CGContextStrokePath(context);
}

/// A corner may not be rounder than the rectangle allows: Core Graphics refuses it.
CFRef<CGPathRef> roundedRect(CGRect rect, double radius) {
  const double x = std::fmax(0, std::fmin(radius, rect.size.width / 2));
  const double y = std::fmax(0, std::fmin(radius, rect.size.height / 2));
  return CFRef<CGPathRef>::adopt(CGPathCreateWithRoundedRect(rect, x, y, nullptr));
}

bool isFinite(CGRect rect) {
  return std::isfinite(rect.minX()) && std::isfinite(rect.minY()) && std::isfinite(rect.maxX()) &&
         std::isfinite(rect.maxY());
}

struct DrawSlotFrame : HostOverride<kClass, "drawSlotFrame:inContext:", void(CGRect, CGContextRef)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);

  static void themed(Strip strip, CGRect rect, CGContextRef context) {
    constexpr std::uint64_t kHostRadius = 4;
    const NSColor color = emptySlotColor(strip);
    const std::uint64_t radius = ThemeUtility::shared().emptySlotCornerRadius;
    if (!color && radius == kHostRadius) {
      callHost(strip, rect, context);
      return;
    }
    if (!isFinite(rect)) return;
    drawPath(roundedRect(rect, static_cast<double>(radius)), context, color, emptySlotEdgeColor());
  }
};

struct DrawKnobFrame : HostOverride<kClass, "drawKnobFrame:inContext:", void(CGRect, CGContextRef)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);

  static void themed(Strip strip, CGRect rect, CGContextRef context) {
    const NSColor color = emptySlotColor(strip);
    if (!color) {
      callHost(strip, rect, context);
      return;
    }
    if (!isFinite(rect)) return;
    drawPath(CFRef<CGPathRef>::adopt(CGPathCreateWithEllipseInRect(rect, nullptr)), context, color,
             emptySlotEdgeColor());
  }
};

/// Draws a title centred in `size`, in a context that is scaled already.
void drawTitle(NSString title, CGSize size, NSColor color) {
  if (title.length() == 0) return;
  const NSFont font = NSFont::systemFontOfSize(NSFont::smallSystemFontSize());
  const double height = font.boundingRectForFont().size.height;
  const Ref<NSMutableParagraphStyle> style = make<NSMutableParagraphStyle>();
  style->setAlignment(NSTextAlignmentCenter);
  const auto attributes = NSMutableDictionary::dictionary();
  attributes.setObject(font, NSFontAttributeName);
  attributes.setObject(color, NSForegroundColorAttributeName);
  attributes.setObject(style.get(), NSParagraphStyleAttributeName);
  text::drawInRect(title, CGRectMake(0, (size.height - (height - 1)) / 2, size.width, height - 1), attributes);
}

Ref<NSBitmapImageRep> titleBitmap(NSString title, CGSize size, double scale, NSColor color) {
  constexpr double kLargestSide = 16'384;
  const auto fits = [&](double points) { return points * scale >= 1 && points * scale <= kLargestSide; };
  if (!fits(size.width) || !fits(size.height)) return {};
  const auto pixels = [&](double points) { return static_cast<NSInteger>(std::trunc(points * scale)); };
  Ref<NSBitmapImageRep> bitmap = NSBitmapImageRep::withBitmapDataPlanes(
      nullptr, pixels(size.width), pixels(size.height), 8, 4, true, false, NSDeviceRGBColorSpace, 0, 32);
  if (!bitmap) return bitmap;
  const NSGraphicsContext context = NSGraphicsContext::graphicsContextWithBitmapImageRep(bitmap);
  NSGraphicsContext::saveGraphicsState();
  NSGraphicsContext::setCurrentContext(context);
  CGContextScaleCTM(context.CGContext(), scale, scale);
  CGContextSetShouldSmoothFonts(context.CGContext(), false);
  drawTitle(title, size, color);
  NSGraphicsContext::restoreGraphicsState();
  return bitmap;
}

/// Fed from the few titles of empty slots; the scale is the screen's and no part of the key.
struct TitleBitmaps {
  Ref<NSMutableDictionary> byTitleAndSize = make<NSMutableDictionary>();
};

struct ElementTitleImage
    : HostOverride<kClass,
                   "cachedElementTitleImageForLocalizedTitle:imageSize:scale:", CGImageRef(NSString, CGSize, double)> {
  static constexpr OpenWindow kOpenWindow =
      notReached("the titles of empty slots are pictures that the strip has", "MAStripNode strip");

  static CGImageRef themed(Strip strip, NSString title, CGSize size, double scale) {
    const NSColor color = ThemeUtility::shared().colorForKey(key<"emptySlotButtonLabelColor">);
    if (!color) return callHost(strip, title, size, scale);
    const NSMutableDictionary bitmaps = ThemeUtility::shared().derived<TitleBitmaps>().byTitleAndSize;
    const NSString key = string(toStdString(title) + "_" + toStdString(NSString(NSStringFromSize(size))));
    if (const auto cached = cast<NSBitmapImageRep>(bitmaps.objectForKey(key))) return cached.CGImage();
    const Ref<NSBitmapImageRep> bitmap = titleBitmap(title, size, scale, color);
    if (!bitmap) return nullptr;
    bitmaps.setObject(bitmap.get(), key);
    return bitmap->CGImage();
  }
};

// ---- Messages ----------------------------------------------------------------------------------

NSColor getStripColor(Strip strip) { return stripColor(strip); }
NSColor getStripColorFromDataSource(Strip strip) { return stripColorFromDataSource(strip); }

NSObject getNodeWithName(Strip /*strip*/, NSArray nodes, NSString name) {
  for (const MANode node : items<MANode>(nodes)) {
    if (node.name().isEqualToString(name)) return node;
  }
  return {};
}

void drawPathInContext(Strip /*strip*/, CGPathRef path, CGContextRef context, NSColor fill, NSColor border) {
  drawPath(path, context, fill, border);
}

void vlrDumpNodeTree(Strip /*strip*/, NSObject node, NSInteger depth, NSObject into) {
  std::string text;
  appendNodeTree(cast<MANode>(node), depth, text);
  call<"appendString:">(into, string(text));
}

/// -1 for a name that is no anchor.
double vlrBoundaryYForAnchor(Strip strip, NSString name) {
  const auto anchor = stripAnchorNamed(toStdString(name));
  return anchor ? boundaryYForAnchor(strip, *anchor) : -1;
}

BOOL vlrResolveGradient(Strip strip, NSObject gradient, NSColor base, id* outColors, id* outLocations) {
  auto* parsed = stateIfKind<VLRStripGradient>(gradient);
  GradientStops stops;
  if (parsed == nullptr || !resolveGradient(strip, *parsed, base, stops)) return BOOL(0);
  const auto colors = NSMutableArray::array();
  const auto locations = NSMutableArray::array();
  for (std::size_t i = 0; i < stops.count; ++i) {
    colors.addObject(stops.colors[i]);
    locations.addObject(NSNumber::numberWithDouble(stops.locations[i]));
  }
  if (outColors != nullptr) *outColors = colors.object;
  if (outLocations != nullptr) *outLocations = locations.object;
  return BOOL(1);
}

NSColor vlrApplyStripGradient(Strip strip, NSColor base, BOOL highlighted) {
  return applyStripGradient(strip, base, highlighted != 0, NSColor());
}

NSColor vlrApplyStripGradientWithOverlay(Strip strip, NSColor base, BOOL highlighted, NSColor overlay) {
  return applyStripGradient(strip, base, highlighted != 0, overlay);
}

void addMethods(CategoryDefinition& category) {
  category.method<"getStripColor", getStripColor>()
      .method<"getStripColorFromDataSource", getStripColorFromDataSource>()
      .method<"getNodeWithName:name:", getNodeWithName>()
      .method<"drawPath:inContext:fillColor:borderColor:", drawPathInContext>()
      .method<"vlrDumpNodeTree:depth:into:", vlrDumpNodeTree>()
      .method<"vlrBoundaryYForAnchor:", vlrBoundaryYForAnchor>()
      .method<"vlrResolveGradient:baseColor:outColors:outLocations:", vlrResolveGradient>()
      .method<"vlrApplyStripGradient:highlighted:", vlrApplyStripGradient>()
      .method<"vlrApplyStripGradient:highlighted:overlayColor:", vlrApplyStripGradientWithOverlay>();
}

}  // namespace

NSColor hostBackgroundColor(Strip strip) { return BackgroundColor::callHost(strip); }
NSColor hostHighlightedBackgroundColor(Strip strip) { return HighlightedBackgroundColor::callHost(strip); }

NSColor stripColor(Strip strip) {
  for (const MANode child : items<MANode>(strip.childrenArray())) {
    if (!child.isNamed<"name">() && !child.isNamed<"number">()) continue;
    if (!respondsTo<"customBackgroundColor">(child)) continue;
    auto color = call<"customBackgroundColor", NSColor>(child);
    if (!color) color = stripColorFromDataSource(strip);
    if (!color || color.isEqual(hostBackgroundColor(strip)) || color.isEqual(hostHighlightedBackgroundColor(strip)) ||
        color.alphaComponent() == 0) {
      return {};
    }
    return color;
  }
  return stripColorFromDataSource(strip);
}

namespace overrides {
extern constinit const ThemedClass MAStripNode =
    OverridesOf<kClass, WillUpdatePresentationObject, BackgroundColor, HighlightedBackgroundColor, BorderColor,
                ElementTitleImage, DrawSlotFrame,
                DrawKnobFrame>::themedClass<InstallationRules{.when = Condition::kCustomTheme}, addMethods>();
}  // namespace overrides

}  // namespace velura
