// Level meters learn which kind of strip they sit on.

#include "plugin/hostapi/MANode.h"
#include "plugin/mixer/LevelMeters.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/theme/Utility.h"

namespace velura {
namespace {

using namespace cocoa;

using Meter = MALevelNode;
constexpr FixedString kClass = Meter::kClassName;

void setType(Meter meter, NSInteger number) {
  meter.setMixerLevelType(number);
  for (const NSObject display : items(meter.levelDisplays())) {
    if (respondsTo<"setMixerLevelType:">(display)) call<"setMixerLevelType:">(display, number);
  }
}

/// Strips change their kind, and a meter that showed colours of its own may have to go back to the host's.
void updateType(Meter meter) {
  const NSInteger number = meter.mixerLevelType();
  MeterType type = MeterType::of(number);
  if (!type.isThemed()) return;
  type.style = meterStyleOf(trackTypeOf(meter));
  if (vlrLevelMeterColorsForTypeIndex(type.style) == nullptr) type.style = -1;
  if (type.number() != number) setType(meter, type.number());
}

struct UpdatePresentationObject : HostOverride<kClass, "updatePresentationObject:view:", void(NSObject, NSObject),
                                               "customLevelUpdatePresentationObject:view:"> {
  static constexpr OpenWindow kOpenWindow = partlyReachedBy(
      RefreshBranch::kMixerNodes, "its levels change their pictures with the next change", "MALevelNode level");

  static void themed(Meter meter, NSObject presentation, NSObject view) {
    updateType(meter);
    callHost(meter, presentation, view);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MALevelNode = OverridesOf<kClass, UpdatePresentationObject>::themedClass<>();
}  // namespace overrides

}  // namespace velura
