// The cap of a knob, with its pointer.

#include "cocoa/Override.h"
#include "plugin/hostapi/HostVersion.h"
#include "plugin/loader/Attach.h"
#include "plugin/mixer/KnobDrawing.h"

namespace velura {
namespace {

using namespace cocoa;

using UpdatePresentationObject = Override<"_MACapNode", void(NSObject, NSObject),
                                          "updatePresentationObject:view:", "customUpdatePresentationObject:view:">;
using DrawCap = Override<"_MACapNode", void(CGRect, CGContextRef, BOOL),
                         "drawCapInRect:inContext:flipped:", "customDrawCapInRect:inContext:flipped:">;

/// A cap without an image: how older hosts, whose rectangles are larger, keep it inside of the ring.
struct CapDisc {
  KeyPair keys;
  double insetOnOlderHosts;
};
constexpr CapDisc kPannerDisc{kPannerCap, 3};
constexpr CapDisc kSendDisc{kSendCap, 1};

bool areCapRectanglesLarger() {
  static const bool older = isHostOlderThan("10.7.5");
  return older;
}

void customUpdatePresentationObject(MANode cap, NSObject presentation, NSObject view) {
  UpdatePresentationObject::callHost(cap, presentation, view);
  updatePointer(cap, presentation);
}

void customDrawCap(MANode cap, CGRect rect, CGContextRef context, BOOL flipped) {
  const bool isPanner = isPannerKnob(cap.parent());
  if (ThemeUtility::shared().useImagesToDraw && (isPanner || drawImage(kSendCapImage, cap, rect, context))) return;
  const CapDisc& disc = isPanner ? kPannerDisc : kSendDisc;
  const NSColor color = disc.keys.color(cap.isHighlighted());
  if (!color) return DrawCap::callHost(cap, rect, context, flipped);
  const double inset = areCapRectanglesLarger() ? disc.insetOnOlderHosts : 0;
  fillDisc(rect.insetBy(inset, inset), context, color);
}

void addSwizzleMethod(Class /*self*/) {
  if (ThemeUtility::shared().useImagesToDraw) UpdatePresentationObject::install();
  DrawCap::install();
}

}  // namespace

void attachMACapNodeThemeSupport() {
  CategoryDefinition("_MACapNode")
      .replacement<UpdatePresentationObject, customUpdatePresentationObject>()
      .replacement<DrawCap, customDrawCap>()
      .classMethod<"addSwizzleMethod", addSwizzleMethod>();
}

}  // namespace velura
