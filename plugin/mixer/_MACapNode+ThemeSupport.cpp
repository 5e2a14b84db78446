// The cap of a knob, with its pointer.

#include "plugin/hostapi/HostVersion.h"
#include "plugin/mixer/KnobDrawing.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"_MACapNode"};

/// A cap without an image: how older hosts, whose rectangles are larger, keep it inside of the ring.
struct CapDisc {
  KeyPair keys;
  double insetOnOlderHosts;
};
constexpr CapDisc kPannerDisc{kPannerCap, 3};
constexpr CapDisc kSendDisc{kSendCap, 1};

bool areCapRectanglesLarger() {
  static const bool older = isHostOlderThan("10.7.5");
  return older;
}

struct UpdatePresentationObject : HostOverride<kClass, "updatePresentationObject:view:", void(NSObject, NSObject)> {
  static constexpr Condition kWhen = Condition::kImages;
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);

  static void themed(MANode cap, NSObject presentation, NSObject view) {
    callHost(cap, presentation, view);
    updatePointer(cap, presentation);
  }
};

struct DrawCap : HostOverride<kClass, "drawCapInRect:inContext:flipped:", void(CGRect, CGContextRef, BOOL)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerNodes);

  static void themed(MANode cap, CGRect rect, CGContextRef context, BOOL flipped) {
    const bool isPanner = isPannerKnob(cap.parent());
    if (ThemeUtility::shared().useImagesToDraw && (isPanner || drawImage(kSendCapImage, cap, rect, context))) return;
    const CapDisc& disc = isPanner ? kPannerDisc : kSendDisc;
    const NSColor color = disc.keys.color(cap.isHighlighted());
    if (!color) return callHost(cap, rect, context, flipped);
    const double inset = areCapRectanglesLarger() ? disc.insetOnOlderHosts : 0;
    fillDisc(rect.insetBy(inset, inset), context, color);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass _MACapNode =
    OverridesOf<kClass, UpdatePresentationObject,
                DrawCap>::themedClass<InstallationRules{.repetition = Repetition::kEveryTime}>();
}  // namespace overrides

}  // namespace velura
