// Stereo panners, whose ring and image are those of the panner knobs.

#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/mixer/KnobDrawing.h"

namespace velura {
namespace {

using namespace cocoa;

using DrawRect =
    Override<"MAStereoPannerNode", void(CGRect, CGContextRef), "drawRect:inContext:", "customDrawRect:inContext:">;
using UpdatePresentationObject = Override<"MAStereoPannerNode", void(NSObject, NSObject),
                                          "updatePresentationObject:view:", "customUpdatePresentationObject:view:">;

void customDrawRect(MANode panner, CGRect rect, CGContextRef context) {
  if (ThemeUtility::shared().useImagesToDraw && (isPannerKnob(panner) || drawImage(kSendFace, panner, rect, context))) {
    return;
  }
  const NSColor ring = kPannerRing.color(panner.isHighlighted());
  if (!ring) return DrawRect::callHost(panner, rect, context);
  drawRing(rect, context, ring);
}

void customUpdatePresentationObject(MANode panner, NSObject presentation, NSObject view) {
  UpdatePresentationObject::callHost(panner, presentation, view);
  if (isPannerKnob(panner)) updateImageLayer(kKnobBackground, panner, presentation, panner.isHighlighted());
}

void addSwizzleMethod(Class self) {
  installOnce<DrawRect>(self);
  if (ThemeUtility::shared().useImagesToDraw) installOnce<UpdatePresentationObject>(self);
}

}  // namespace

void attachMAStereoPannerNodeThemeSupport() {
  CategoryDefinition("MAStereoPannerNode")
      .replacement<DrawRect, customDrawRect>()
      .replacement<UpdatePresentationObject, customUpdatePresentationObject>()
      .classMethod<"addSwizzleMethod", addSwizzleMethod>();
}

}  // namespace velura
