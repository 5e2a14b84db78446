#include "host/mixer/MAFaderNode.h"

#include <algorithm>
#include <cmath>

#include "host/drawing/Painter.h"
#include "host/drawing/ScreenImage.h"

namespace host {
namespace {

using namespace cocoa;

constexpr double kCapWidth = 22;
constexpr double kCapHeight = 38;
constexpr NSInteger kGroupMode = 1;

/// The cap lies in its picture with room for its shadow. Faders of groups have a line of another colour.
void drawCap(CGContextRef context, Palette line) {
  const Painter painter(context);
  const CGRect cap = CGRectMake(0, 0, kCapWidth, kCapHeight).insetBy(1, 2);
  painter.fillRounded(cap.offsetBy(0, -1.5), 4, faded(NSColor::blackColor(), 0.45));
  painter.body(cap, 4, paletteColor(Palette::kFaderTop), paletteColor(Palette::kFaderBottom),
               paletteColor(Palette::kFaderEdge));
  const CGRect waist = CGRectMake(cap.minX() + 1, cap.midY() - 6, cap.size.width - 2, 12);
  painter.verticalGradient(waist, 0, paletteColor(Palette::kFaderBottom), paletteColor(Palette::kFaderTop));
  painter.fill(CGRectMake(cap.minX() + 2, cap.midY() - 0.75, cap.size.width - 4, 1.5), paletteColor(line));
}

NSImage capImage(bool ofGroup) {
  const auto make = [](Palette line) {
    return screenImage({kCapWidth, kCapHeight}, [=](CGContextRef context) { drawCap(context, line); });
  };
  static const Ref<NSImage> caps[] = {make(Palette::kFaderLine), make(Palette::kFaderGroupLine)};
  return caps[ofGroup ? 1 : 0];
}

}  // namespace

double faderPosition(double decibels) {
  if (decibels <= -96) return 0;
  return std::clamp(std::pow(10.0, (decibels - 6) / 48), 0.0, 1.0);
}

id MAFaderNode::init() {
  superSend<MAFaderNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  call<"addChild:">(self, makeNode("MAImageNode", "fader knob", {}).get());
  return self;
}

void MAFaderNode::setValue(double position) {
  value = position;
  const MANode& node = stateOf<MANode>(self);
  const CGSize size = node.frame.size;
  const NSObject knob = call<"childNodeWithName:", NSObject>(self, literal<"fader knob">());
  const double travel = size.height - kCapHeight;
  call<"setFrame:">(
      knob, CGRectMake(std::floor((size.width - kCapWidth) / 2), std::round(travel * value), kCapWidth, kCapHeight));
}

void MAFaderNode::updatePresentationObject(NSObject presentation, NSObject view) {
  superSend<MAFaderNode, void>(self, selector<"updatePresentationObject:view:">(), presentation, view);
  call<"updateFaderKnob">(self);
}

void MAFaderNode::updateFaderKnob() {
  const auto knob = call<"childNodeWithName:", NSObject>(self, literal<"fader knob">());
  call<"setContents:">(knob, capImage(faderMode == kGroupMode));
}

void MAFaderNode::drawRect(CGRect rect, CGContextRef context) {
  const Painter painter(context);
  const CGRect groove = CGRectMake(std::floor(rect.midX()) - 2, 6, 4, rect.size.height - 12);
  painter.fillRounded(groove.insetBy(-1, -1), 3, faded(NSColor::whiteColor(), 0.07));
  painter.fillRounded(groove, 2, paletteColor(Palette::kFaderTrack));
}

void defineMAFaderNode() {
  ClassDefinition<MAFaderNode>("MAFaderNode", "MANode")
      .method<"init", &MAFaderNode::init>()
      .method<"setValue:", &MAFaderNode::setValue>()
      .property<"faderMode", "setFaderMode:", &MAFaderNode::faderMode>()
      .method<"updatePresentationObject:view:", &MAFaderNode::updatePresentationObject>()
      .method<"updateFaderKnob", &MAFaderNode::updateFaderKnob>()
      .method<"drawRect:inContext:", &MAFaderNode::drawRect>()
      .registered();
}

}  // namespace host
