// Knobs: the ring behind the value, the value's colour, and images in their place.

#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/mixer/HostColor.h"
#include "plugin/mixer/KnobDrawing.h"

namespace velura {
namespace {

using namespace cocoa;

using UpdatePresentationObject = Override<"MAKnobNode", void(NSObject, NSObject),
                                          "updatePresentationObject:view:", "customUpdatePresentationObject:view:">;
using FillColor = Override<"MAKnobNode", NSColor(), "fillColor", "customFillColor">;
using DrawRect = Override<"MAKnobNode", void(CGRect, CGContextRef), "drawRect:inContext:", "customDrawRect:inContext:">;

void customUpdatePresentationObject(MANode knob, NSObject presentation, NSObject view) {
  UpdatePresentationObject::callHost(knob, presentation, view);
  if (isPannerKnob(knob)) updateImageLayer(kKnobBackground, knob, presentation, knob.isHighlighted());
}

/// The level of a send goes by where it takes its signal; a kind that is none of these keeps the host's colour.
NSColor sendFillColor(MANode knob, NSColor host) {
  const NSObject send = knob.representedObject();
  if (!send.respondsToSelector(selector<"type">())) return {};
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

NSColor customFillColor(MANode knob) {
  const NSColor host = FillColor::callHost(knob);
  const NSColor themed = themedFillColor(knob, host);
  return themed ? themed : host;
}

void customDrawRect(MANode knob, CGRect rect, CGContextRef context) {
  const bool isPanner = isPannerKnob(knob);
  if (ThemeUtility::shared().useImagesToDraw && (isPanner || drawImage(kSendFace, knob, rect, context))) return;
  const NSColor ring = (isPanner ? kPannerRing : kSendRing).color(knob.isHighlighted());
  if (!ring) return DrawRect::callHost(knob, rect, context);
  drawRing(rect, context, ring);
}

void addSwizzleMethod(Class self) {
  installOnce<FillColor, DrawRect>(self);
  if (ThemeUtility::shared().useImagesToDraw) installOnce<UpdatePresentationObject>(self);
}

}  // namespace

void attachMAKnobNodeThemeSupport() {
  CategoryDefinition("MAKnobNode")
      .replacement<UpdatePresentationObject, customUpdatePresentationObject>()
      .replacement<FillColor, customFillColor>()
      .replacement<DrawRect, customDrawRect>()
      .classMethod<"addSwizzleMethod", addSwizzleMethod>();
}

}  // namespace velura
