// Level meters learn which kind of strip they sit on.

#include "cocoa/Override.h"
#include "plugin/hostapi/MANode.h"
#include "plugin/loader/Attach.h"
#include "plugin/mixer/LevelMeters.h"
#include "plugin/theme/Utility.h"

namespace velura {
namespace {

using namespace cocoa;

using UpdatePresentationObject =
    Override<"MALevelNode", void(NSObject, NSObject),
             "updatePresentationObject:view:", "customLevelUpdatePresentationObject:view:">;

void setType(MALevelNode meter, NSInteger number) {
  meter.setMixerLevelType(number);
  for (const NSObject display : items(meter.levelDisplays())) {
    if (display.respondsToSelector(selector<"setMixerLevelType:">())) call<"setMixerLevelType:">(display, number);
  }
}

/// Strips change their kind, and a meter that showed colours of its own may have to go back to the host's.
void updateType(MALevelNode meter) {
  const NSInteger number = meter.mixerLevelType();
  MeterType type = MeterType::of(number);
  if (!type.isThemed()) return;
  type.style = meterStyleOf(trackTypeOf(meter));
  if (vlrLevelMeterColorsForTypeIndex(type.style) == nullptr) type.style = -1;
  if (type.number() != number) setType(meter, type.number());
}

void customLevelUpdatePresentationObject(MALevelNode meter, NSObject presentation, NSObject view) {
  updateType(meter);
  UpdatePresentationObject::callHost(meter, presentation, view);
}

}  // namespace

void attachMALevelNodeThemeSupport() {
  CategoryDefinition("MALevelNode")
      .replacement<UpdatePresentationObject, customLevelUpdatePresentationObject>()
      .classMethod<"addSwizzleMethod", installOnce<UpdatePresentationObject>>();
}

}  // namespace velura
