// The shape that shows the value of a knob: on panners, the image of the knob's face lies on it.

#include "plugin/mixer/KnobDrawing.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"MAShapeNode"};

struct UpdatePresentationObject : HostOverride<kClass, "updatePresentationObject:view:", void(NSObject, NSObject)> {
  static constexpr Condition kWhen = Condition::kImages;
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);

  static void themed(MANode shape, NSObject presentation, NSObject view) {
    callHost(shape, presentation, view);
    const MANode knob = shape.parent();
    if (isPannerKnob(knob)) updateImageLayer(kKnobFace, shape, presentation, knob.isHighlighted());
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MAShapeNode =
    OverridesOf<kClass,
                UpdatePresentationObject>::themedClass<InstallationRules{.repetition = Repetition::kEveryTime}>();
}  // namespace overrides

}  // namespace velura
