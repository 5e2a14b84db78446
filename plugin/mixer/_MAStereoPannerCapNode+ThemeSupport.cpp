// The cap of a stereo panner, with its pointer.

#include "plugin/mixer/KnobDrawing.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"_MAStereoPannerCapNode"};

struct UpdatePresentationObject : HostOverride<kClass, "updatePresentationObject:view:", void(NSObject, NSObject)> {
  static constexpr Condition kWhen = Condition::kImages;
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);

  static void themed(MANode cap, NSObject presentation, NSObject view) {
    callHost(cap, presentation, view);
    updatePointer(cap, presentation);
  }
};

struct DrawCap : HostOverride<kClass, "drawCapInRect:inContext:flipped:", void(CGRect, CGContextRef, BOOL)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);

  static void themed(MANode cap, CGRect rect, CGContextRef context, BOOL flipped) {
    constexpr double kInset = 3;
    if (ThemeUtility::shared().useImagesToDraw) return;
    const NSColor disc = kPannerCap.color(cap.isHighlighted());
    if (!disc) return callHost(cap, rect, context, flipped);
    fillDisc(rect.insetBy(kInset, kInset), context, disc);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass _MAStereoPannerCapNode =
    OverridesOf<kClass, DrawCap, UpdatePresentationObject>::themedClass<>();
}  // namespace overrides

}  // namespace velura
