// Surround panners: a disc with a ring, a cross and circles.

#include <initializer_list>

#include "plugin/mixer/KnobDrawing.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"MAPlanarPannerNode"};

constexpr double kThinLine = 0.5;

NSColor themedOr(ThemeKey key, NSColor host) {
  const NSColor themed = ThemeUtility::shared().colorForKey(key);
  return themed ? themed : host;
}

struct ValueIndicatorColor : HostOverride<kClass, "valueIndicatorColor", NSColor()> {
  static constexpr OpenWindow kOpenWindow = notReached(kPassedOver, "MAPlanarSpotNode spot");

  static NSColor themed(MANode panner) { return themedOr(key<"surroundPannerKnobBorderColor">, callHost(panner)); }
};

struct SpreadFillColor : HostOverride<kClass, "spreadFillColor", NSColor()> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);

  static NSColor themed(MANode panner) { return themedOr(key<"surroundPannerKnobFillColor">, callHost(panner)); }
};

struct SpreadStrokeColor : HostOverride<kClass, "spreadStrokeColor", NSColor()> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);

  static NSColor themed(MANode panner) { return themedOr(key<"surroundPannerKnobBorderColor">, callHost(panner)); }
};

struct Line {
  CGPoint from;
  CGPoint to;
};
void strokeLines(CGContextRef context, std::initializer_list<Line> lines) {
  CGContextSetLineWidth(context, kThinLine);
  CGContextBeginPath(context);
  for (const Line& line : lines) {
    CGContextMoveToPoint(context, line.from.x, line.from.y);
    CGContextAddLineToPoint(context, line.to.x, line.to.y);
  }
  CGContextStrokePath(context);
}

void drawGrid(CGRect rect, CGContextRef context, NSColor grid, NSColor background) {
  constexpr double kInset = 2.5;
  constexpr double kRingWidth = 3;
  constexpr double kCircleStep = 0.125;  // of the disc's width
  const CGRect disc = rect.insetBy(kInset, kInset);
  CGContextSaveGState(context);
  CGContextSetStrokeColorWithColor(context, grid.CGColor());
  fillDisc(disc, context, background);
  CGContextSetLineWidth(context, kRingWidth);
  CGContextStrokeEllipseInRect(context, disc);
  strokeLines(context, {{{disc.minX(), disc.midY()}, {disc.maxX(), disc.midY()}},
                        {{disc.midX(), disc.minY()}, {disc.midX(), disc.maxY()}}});
  CGContextBeginPath(context);
  CGContextAddEllipseInRect(context, disc.insetBy(1, 1));
  CGContextEOClip(context);
  strokeLines(context, {{{disc.minX(), disc.minY()}, {disc.maxX(), disc.maxY()}},
                        {{disc.maxX(), disc.minY()}, {disc.minX(), disc.maxY()}}});
  const double step = disc.size.width * kCircleStep;
  CGRect circle = disc.insetBy(step + 1, step + 1);
  for (int i = 0; i < 3; ++i) {
    if (i > 0) circle = circle.insetBy(step, step);
    CGContextStrokeEllipseInRect(context, circle);
  }
  fillDisc(circle, context, background);
  CGContextRestoreGState(context);
}

BOOL customDrawBackground(MANode panner, CGRect rect, CGContextRef context) {
  const ThemeUtility& theme = ThemeUtility::shared();
  if (theme.useImagesToDraw && drawImage(kSurroundBackground, panner, rect, context)) return 1;
  const NSColor grid = theme.colorForKey(key<"surroundPannerKnobGridColor">);
  const NSColor background = theme.colorForKey(key<"surroundPannerKnobBackgroundColor">);
  if (!grid || !background) return 0;
  drawGrid(rect, context, grid, background);
  return 1;
}

struct DrawRect : HostOverride<kClass, "drawRect:inContext:", void(CGRect, CGContextRef)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);

  static void themed(MANode panner, CGRect rect, CGContextRef context) {
    CGContextSaveGState(context);
    if (customDrawBackground(panner, rect, context) == 0) callHost(panner, rect, context);
    CGContextRestoreGState(context);
  }
};

void addMethods(CategoryDefinition& category) {
  category.method<"customDrawBackgroundInRect:inContext:", customDrawBackground>();
}

}  // namespace

namespace overrides {
extern constinit const ThemedClass MAPlanarPannerNode =
    OverridesOf<kClass, ValueIndicatorColor, SpreadFillColor, SpreadStrokeColor,
                DrawRect>::themedClass<InstallationRules{}, addMethods>();
}  // namespace overrides

}  // namespace velura
