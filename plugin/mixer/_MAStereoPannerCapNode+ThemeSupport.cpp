// The cap of a stereo panner, with its pointer.

#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/mixer/KnobDrawing.h"

namespace velura {
namespace {

using namespace cocoa;

using UpdatePresentationObject = Override<"_MAStereoPannerCapNode", void(NSObject, NSObject),
                                          "updatePresentationObject:view:", "customUpdatePresentationObject:view:">;
using DrawCap = Override<"_MAStereoPannerCapNode", void(CGRect, CGContextRef, BOOL),
                         "drawCapInRect:inContext:flipped:", "customDrawCapInRect:inContext:flipped:">;

void customUpdatePresentationObject(MANode cap, NSObject presentation, NSObject view) {
  UpdatePresentationObject::callHost(cap, presentation, view);
  updatePointer(cap, presentation);
}

void customDrawCap(MANode cap, CGRect rect, CGContextRef context, BOOL flipped) {
  constexpr double kInset = 3;
  if (ThemeUtility::shared().useImagesToDraw) return;
  const NSColor disc = kPannerCap.color(cap.isHighlighted());
  if (!disc) return DrawCap::callHost(cap, rect, context, flipped);
  fillDisc(rect.insetBy(kInset, kInset), context, disc);
}

void addSwizzleMethod(Class self) {
  installOnce<DrawCap>(self);
  if (ThemeUtility::shared().useImagesToDraw) installOnce<UpdatePresentationObject>(self);
}

}  // namespace

void attachMAStereoPannerCapNodeThemeSupport() {
  CategoryDefinition("_MAStereoPannerCapNode")
      .replacement<UpdatePresentationObject, customUpdatePresentationObject>()
      .replacement<DrawCap, customDrawCap>()
      .classMethod<"addSwizzleMethod", addSwizzleMethod>();
}

}  // namespace velura
