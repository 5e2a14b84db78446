// The spread of a stereo panner.

#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/mixer/KnobDrawing.h"

namespace velura {
namespace {

using namespace cocoa;

using FillColor = Override<"_MAStereoPannerSpreadNode", NSColor(), "fillColor", "customFillColor">;
using UpdatePresentationObject = Override<"_MAStereoPannerSpreadNode", void(NSObject, NSObject),
                                          "updatePresentationObject:view:", "customUpdatePresentationObject:view:">;

/// Sides that are exchanged have a colour of their own, and without it the host's.
NSColor customFillColor(MANode spread) {
  const MANode panner = spread.parent();
  const bool inverse = panner.respondsToSelector(selector<"inverseSpread">()) && asks<"inverseSpread">(panner.object);
  const NSColor themed = ThemeUtility::shared().colorForKey(inverse ? key<"stereoPannerKnobAlternateFillColor">
                                                                    : key<"stereoPannerKnobFillColor">);
  return themed ? themed : FillColor::callHost(spread);
}

void customUpdatePresentationObject(MANode spread, NSObject presentation, NSObject view) {
  UpdatePresentationObject::callHost(spread, presentation, view);
  const MANode panner = spread.parent();
  if (isPannerKnob(panner)) updateImageLayer(kKnobFace, spread, presentation, panner.isHighlighted());
}

void addSwizzleMethod(Class self) {
  installOnce<FillColor>(self);
  if (ThemeUtility::shared().useImagesToDraw) installOnce<UpdatePresentationObject>(self);
}

}  // namespace

void attachMAStereoPannerSpreadNodeThemeSupport() {
  CategoryDefinition("_MAStereoPannerSpreadNode")
      .replacement<FillColor, customFillColor>()
      .replacement<UpdatePresentationObject, customUpdatePresentationObject>()
      .classMethod<"addSwizzleMethod", addSwizzleMethod>();
}

}  // namespace velura
