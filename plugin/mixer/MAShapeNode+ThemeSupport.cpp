// The shape that shows the value of a knob: on panners, the image of the knob's face lies on it.

#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/mixer/KnobDrawing.h"

namespace velura {
namespace {

using namespace cocoa;

using UpdatePresentationObject = Override<"MAShapeNode", void(NSObject, NSObject),
                                          "updatePresentationObject:view:", "customUpdatePresentationObject:view:">;

void customUpdatePresentationObject(MANode shape, NSObject presentation, NSObject view) {
  UpdatePresentationObject::callHost(shape, presentation, view);
  const MANode knob = shape.parent();
  if (isPannerKnob(knob)) updateImageLayer(kKnobFace, shape, presentation, knob.isHighlighted());
}

void addSwizzleMethod(Class /*self*/) {
  if (ThemeUtility::shared().useImagesToDraw) UpdatePresentationObject::install();
}

}  // namespace

void attachMAShapeNodeThemeSupport() {
  CategoryDefinition("MAShapeNode")
      .replacement<UpdatePresentationObject, customUpdatePresentationObject>()
      .classMethod<"addSwizzleMethod", addSwizzleMethod>();
}

}  // namespace velura
