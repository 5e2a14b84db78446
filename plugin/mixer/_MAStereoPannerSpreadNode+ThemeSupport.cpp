// The spread of a stereo panner.

#include "plugin/mixer/KnobDrawing.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"_MAStereoPannerSpreadNode"};

/// Sides that are exchanged have a colour of their own, and without it the host's.
struct FillColor : HostOverride<kClass, "fillColor", NSColor()> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);

  static NSColor themed(MANode spread) {
    const MANode panner = spread.parent();
    const bool inverse = respondsTo<"inverseSpread">(panner) && callBool<"inverseSpread">(panner.object);
    const NSColor themed = ThemeUtility::shared().colorForKey(inverse ? key<"stereoPannerKnobAlternateFillColor">
                                                                      : key<"stereoPannerKnobFillColor">);
    return themed ? themed : callHost(spread);
  }
};

struct UpdatePresentationObject : HostOverride<kClass, "updatePresentationObject:view:", void(NSObject, NSObject)> {
  static constexpr Condition kWhen = Condition::kImages;
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);

  static void themed(MANode spread, NSObject presentation, NSObject view) {
    callHost(spread, presentation, view);
    const MANode panner = spread.parent();
    if (isPannerKnob(panner)) updateImageLayer(kKnobFace, spread, presentation, panner.isHighlighted());
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass _MAStereoPannerSpreadNode =
    OverridesOf<kClass, FillColor, UpdatePresentationObject>::themedClass<>();
}  // namespace overrides

}  // namespace velura
