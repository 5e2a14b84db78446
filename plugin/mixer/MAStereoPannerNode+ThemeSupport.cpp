// Stereo panners, whose ring and image are those of the panner knobs.

#include "plugin/mixer/KnobDrawing.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"MAStereoPannerNode"};

struct DrawRect : HostOverride<kClass, "drawRect:inContext:", void(CGRect, CGContextRef)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerNodes);

  static void themed(MANode panner, CGRect rect, CGContextRef context) {
    if (ThemeUtility::shared().useImagesToDraw &&
        (isPannerKnob(panner) || drawImage(kSendFace, panner, rect, context))) {
      return;
    }
    const NSColor ring = kPannerRing.color(panner.isHighlighted());
    if (!ring) return callHost(panner, rect, context);
    drawRing(rect, context, ring);
  }
};

struct UpdatePresentationObject : HostOverride<kClass, "updatePresentationObject:view:", void(NSObject, NSObject)> {
  static constexpr Condition kWhen = Condition::kImages;
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);

  static void themed(MANode panner, NSObject presentation, NSObject view) {
    callHost(panner, presentation, view);
    if (isPannerKnob(panner)) updateImageLayer(kKnobBackground, panner, presentation, panner.isHighlighted());
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MAStereoPannerNode =
    OverridesOf<kClass, DrawRect, UpdatePresentationObject>::themedClass<>();
}  // namespace overrides

}  // namespace velura
