#include "host/mixer/MALevelNode.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "host/drawing/Painter.h"
#include "host/drawing/ScreenImage.h"
#include "host/mixer/AssetMapping.h"

namespace host {
namespace {

using namespace cocoa;

struct MALevelNodeTextureCache : ObjectState {};
struct MALevelNodeBackgroundTextureCache : ObjectState {};

constexpr double kHoldHeight = 1;
constexpr double kHoldAbove = 0.04;  // the highest level was a little above the one shown

/// The picture of a type, size and scale, made when it is first asked for.
template <class Make>
CGImageRef cachedTexture(const char* kind, NSInteger type, CGSize size, double scale, Make&& make) {
  constexpr NSUInteger kMost = 64;
  static const NSMutableDictionary images = cocoa::make<NSMutableDictionary>().detach();
  char text[96];
  std::snprintf(text, sizeof text, "%s|%ld|%gx%g|%g", kind, static_cast<long>(type), size.width, size.height, scale);
  const NSString key = string(text);
  if (const NSObject known = images.objectForKey(key)) return bridged<CGImageRef>(known);
  if (images.count() >= kMost) images.removeAllObjects();
  const CGImageRef image = drawnBitmap(size, scale, make)->CGImage();
  images.setObject(bridged(image), key);
  return image;
}

CGSize pixelSize(CGSize size, double scale) { return {std::ceil(size.width * scale), std::ceil(size.height * scale)}; }

/// Along the longer side of the bar. Null for a type that the mixer does not have.
CGImageRef textureNamed(Class /*self*/, NSInteger type, CGSize size, double scale) {
  const NSGradient gradient = levelGradient(type);
  if (!gradient) return nullptr;
  return cachedTexture("level", type, size, scale, [&](CGContextRef) {
    const CGSize pixels = pixelSize(size, scale);
    const bool lies = pixels.width > pixels.height;
    gradient.drawFromPoint({0, 0}, lies ? CGPoint{pixels.width, 0} : CGPoint{0, pixels.height},
                           NSGradientDrawsBeforeStartingLocation | NSGradientDrawsAfterEndingLocation);
  });
}

/// All types lie on the same ground.
CGImageRef backgroundTextureNamed(Class /*self*/, NSInteger /*type*/, CGSize size, double scale) {
  constexpr double kRadius = 3;
  return cachedTexture("background", 0, size, scale, [&](CGContextRef) {
    paletteColor(Palette::kMeterBackground).setFill();
    NSBezierPath::bezierPathWithRoundedRect({{0, 0}, pixelSize(size, scale)}, kRadius, kRadius).fill();
  });
}

/// Shows of a texture as large as `bar` the part between two heights.
void drawPart(const Painter& painter, CGImageRef texture, CGRect bar, double from, double to) {
  if (texture == nullptr || to <= from) return;
  CGContextSaveGState(painter.context());
  CGContextClipToRect(painter.context(), CGRectMake(bar.minX(), bar.minY() + from, bar.size.width, to - from));
  CGContextDrawImage(painter.context(), bar, texture);
  CGContextRestoreGState(painter.context());
}

void drawBar(const Painter& painter, CGRect bar, const MALevelDisplay& display, double hold, double scale) {
  const auto ground = call<"backgroundTextureNamed:withSize:constentScale:", CGImageRef>(
      classNamed("MALevelNodeBackgroundTextureCache"), display.mixerLevelType, bar.size, scale);
  if (ground != nullptr) CGContextDrawImage(painter.context(), bar, ground);
  const CGRect inner = bar.insetBy(1, 1);
  const auto texture = call<"textureNamed:withSize:constentScale:", CGImageRef>(
      classNamed("MALevelNodeTextureCache"), display.mixerLevelType, inner.size, scale);
  const double height = inner.size.height;
  drawPart(painter, texture, inner, 0, std::round(height * display.level));
  const double top = std::round((height - kHoldHeight) * hold) + kHoldHeight;
  if (hold > 0) drawPart(painter, texture, inner, top - kHoldHeight, top);
}

Ref<NSObject> made(Class cls) { return Ref<NSObject>::adopt(NSObject(call<"init", id>(call<"alloc", id>(cls)))); }

}  // namespace

id MALevelNode::init() {
  superSend<MALevelNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  setBars(2);
  return self;
}

void MALevelNode::setMixerLevelType(NSInteger type) {
  mixerLevelType = type;
  for (const NSObject part : items(levelDisplays)) {
    if (part.respondsToSelector(selector<"setMixerLevelType:">())) call<"setMixerLevelType:">(part, type);
  }
  call<"setNeedsUpdateContents:">(self, BOOL(1));
}

void MALevelNode::setBars(int count) {
  levelDisplays = make<NSMutableArray>();
  for (int bar = 0; bar < count; ++bar) {
    const Ref<NSObject> display = made(DefinedClass<MALevelDisplay>::cls);
    stateOf<MALevelDisplay>(display.get()).mixerLevelType = mixerLevelType;
    levelDisplays->addObject(display);
  }
  levelDisplays->addObject(made(DefinedClass<MALevelHold>::cls));
}

void MALevelNode::setLevels(const std::array<double, 2>& levels) {
  std::size_t bar = 0;
  double highest = 0;
  for (const NSObject part : items(levelDisplays)) {
    if (MALevelDisplay* display = stateIfKind<MALevelDisplay>(part)) {
      display->level = std::clamp(levels.at(bar++), 0.0, 1.0);
      highest = std::max(highest, display->level);
    } else if (MALevelHold* hold = stateIfKind<MALevelHold>(part)) {
      hold->level = highest > 0 ? std::min(1.0, highest + kHoldAbove) : 0;
    }
  }
  call<"setNeedsUpdateContents:">(self, BOOL(1));
}

void MALevelNode::drawRect(CGRect rect, CGContextRef context) {
  const Painter painter(context);
  const double scale = CGContextGetCTM(context).a;
  const auto bars = static_cast<double>(levelDisplays->count() - 1);
  const double width = (rect.size.width - (bars - 1)) / bars;
  double hold = 0;
  for (const NSObject part : items(levelDisplays)) {
    if (const MALevelHold* held = stateIfKind<MALevelHold>(part)) hold = held->level;
  }
  double x = 0;
  for (const NSObject part : items(levelDisplays)) {
    const MALevelDisplay* display = stateIfKind<MALevelDisplay>(part);
    if (display == nullptr) continue;
    drawBar(painter, CGRectMake(x, 0, width, rect.size.height), *display, hold, scale);
    x += width + 1;
  }
}

void defineMALevelNode() {
  ClassDefinition<MALevelNodeTextureCache>("MALevelNodeTextureCache", "NSObject")
      .classMethod<"textureNamed:withSize:constentScale:", textureNamed>()
      .registered();
  ClassDefinition<MALevelNodeBackgroundTextureCache>("MALevelNodeBackgroundTextureCache", "NSObject")
      .classMethod<"backgroundTextureNamed:withSize:constentScale:", backgroundTextureNamed>()
      .registered();
  ClassDefinition<MALevelDisplay>("MALevelDisplay", "NSObject")
      .property<"mixerLevelType", "setMixerLevelType:", &MALevelDisplay::mixerLevelType>()
      .registered();
  ClassDefinition<MALevelHold>("MALevelHold", "NSObject").registered();
  ClassDefinition<MALevelNode>("MALevelNode", "MANode")
      .method<"init", &MALevelNode::init>()
      .getter<"mixerLevelType", &MALevelNode::mixerLevelType>()
      .method<"setMixerLevelType:", &MALevelNode::setMixerLevelType>()
      .getter<"levelDisplays", &MALevelNode::levelDisplays>()
      .method<"drawRect:inContext:", &MALevelNode::drawRect>()
      .registered();
}

}  // namespace host
