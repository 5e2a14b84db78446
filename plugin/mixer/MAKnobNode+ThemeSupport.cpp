// Knobs: the ring behind the value, the value's colour, and images in their place.

#include "plugin/mixer/HostColor.h"
#include "plugin/mixer/KnobDrawing.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"MAKnobNode"};

struct UpdatePresentationObject : HostOverride<kClass, "updatePresentationObject:view:", void(NSObject, NSObject)> {
  static constexpr Condition kWhen = Condition::kImages;
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);

  static void themed(MANode knob, NSObject presentation, NSObject view) {
    callHost(knob, presentation, view);
    if (isPannerKnob(knob)) updateImageLayer(kKnobBackground, knob, presentation, knob.isHighlighted());
  }
};

/// The level of a send goes by where it takes its signal; a kind that is none of these keeps the host's colour.
NSColor sendFillColor(MANode knob, NSColor host) {
  const NSObject send = knob.representedObject();
  if (!respondsTo<"type">(send)) return {};
  const auto type = call<"type", NSInteger>(send);
  constexpr NSInteger kPostFader = 0;
  constexpr NSInteger kPreFader = 1;
  constexpr NSInteger kPostPan = 2;
  if (type != kPostFader && type != kPreFader && type != kPostPan) return {};
  if (isGrey(host)) return ThemeUtility::shared().colorForKey(key<"sendKnobBypassFillColor">);
  return ThemeUtility::shared().colorForKey(type == kPostPan ? key<"sendKnobPostPanFillColor">
                                                             : key<"sendKnobFaderFillColor">);
}

NSColor themedFillColor(MANode knob, NSColor host) {
  const ThemeUtility& theme = ThemeUtility::shared();
  if (isPannerKnob(knob)) return theme.colorForKey(key<"pannerKnobFillColor">);
  if (knob.isNamed<"sendKnob">()) return sendFillColor(knob, host);
  return knob.isNamed<"inputGainKnob">() ? theme.colorForKey(key<"inputGainKnobFillColor">) : NSColor();
}

struct FillColor : HostOverride<kClass, "fillColor", NSColor()> {
  static constexpr OpenWindow kOpenWindow =
      partlyReachedBy(RefreshBranch::kMixerNodes, kPassedOver, "MAPointerNode pointer");

  static NSColor themed(MANode knob) {
    const NSColor host = callHost(knob);
    const NSColor themed = themedFillColor(knob, host);
    return themed ? themed : host;
  }
};

struct DrawRect : HostOverride<kClass, "drawRect:inContext:", void(CGRect, CGContextRef)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerNodes);

  static void themed(MANode knob, CGRect rect, CGContextRef context) {
    const bool isPanner = isPannerKnob(knob);
    if (ThemeUtility::shared().useImagesToDraw && (isPanner || drawImage(kSendFace, knob, rect, context))) return;
    const NSColor ring = (isPanner ? kPannerRing : kSendRing).color(knob.isHighlighted());
    if (!ring) return callHost(knob, rect, context);
    drawRing(rect, context, ring);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MAKnobNode =
    OverridesOf<kClass, FillColor, DrawRect, UpdatePresentationObject>::themedClass<>();
}  // namespace overrides

}  // namespace velura
