#include "host/mixer/MAKnobNode.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace host {
namespace {

using namespace cocoa;

constexpr double kRingInset = 2.5;
constexpr double kRingWidth = 3.5;
constexpr double kRadians = std::numbers::pi / 180;

void strokeArc(const Painter& painter, CGRect rect, double fromDegrees, double toDegrees, NSColor color) {
  CGContextRef context = painter.context();
  const CGRect ring = CGRectInset(rect, kRingInset, kRingInset);
  CGContextSaveGState(context);
  CGContextSetLineWidth(context, kRingWidth);
  CGContextSetStrokeColorWithColor(context, color.CGColor());
  CGContextBeginPath(context);
  CGContextAddArc(context, ring.midX(), ring.midY(), ring.size.width / 2, fromDegrees * kRadians, toDegrees * kRadians,
                  0);
  CGContextStrokePath(context);
  CGContextRestoreGState(context);
}

}  // namespace

namespace knob {

double angleAt(double value) { return kFirst + kSweep * (1 - value); }

void drawRing(const Painter& painter, CGRect rect, NSColor color) {
  strokeArc(painter, rect, kFirst, kFirst + kSweep, color);
}

void drawArc(const Painter& painter, CGRect rect, double from, double to, NSColor color) {
  constexpr double kShortest = 0.004;
  if (to - from > kShortest) strokeArc(painter, rect, angleAt(to), angleAt(from), color);
}

CGRect discOf(CGRect rect) {
  constexpr double kGap = 0.75;  // between ring and disc
  const double inset = kRingInset + kRingWidth / 2 + kGap + rect.size.width / 40;
  return CGRectInset(rect, inset, inset);
}

void anchorAtOrigin(id node) { stateOf<MANode>(node).layer->setAnchorPoint({0, 0}); }

void addPart(id control, NSObject part) {
  stateOf<MANode>(part).layer->setZPosition(1);
  call<"addChild:">(control, part);
}

void layOut(id control, CGSize size, std::initializer_list<const char*> parts) {
  for (const char* part : parts) {
    const auto node = call<"childNodeWithName:", NSObject>(control, string(part));
    call<"setFrame:">(node, CGRect{{0, 0}, size});
  }
}

void turnCap(id control, double value) {
  call<"setValue:">(call<"childNodeWithName:", NSObject>(control, literal<"cap">()), value);
  changed(control);
}

void changed(id control) {
  call<"setNeedsDisplay:">(control, BOOL(1));
  call<"setNeedsUpdateContents:">(control, BOOL(1));
  for (const NSObject child : items(stateOf<MANode>(control).childrenArray)) changed(child.object);
}

}  // namespace knob

id MAKnobNode::init() {
  superSend<MAKnobNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  knob::anchorAtOrigin(self);
  knob::addPart(self, makeNode("MAShapeNode", "shape", {}));
  knob::addPart(self, makeNode("_MACapNode", "cap", {}));
  return self;
}

/// The parts lie over the whole knob.
void MAKnobNode::setFrame(CGRect frame) {
  superSend<MAKnobNode, void>(self, selector<"setFrame:">(), frame);
  knob::layOut(self, frame.size, {"shape", "cap"});
}

void MAKnobNode::setValue(double newValue) {
  value = std::clamp(newValue, 0.0, 1.0);
  knob::turnCap(self, value);
}

void MAKnobNode::setBypassed(BOOL bypass) {
  bypassed = bypass != 0;
  knob::changed(self);
}

NSColor MAKnobNode::fillColor() { return paletteColor(bypassed ? Palette::kSendBypassedArc : fill); }

void MAKnobNode::drawRect(CGRect rect, CGContextRef context) {
  knob::drawRing(Painter(context), rect, paletteColor(Palette::kKnobRing));
}

id MAShapeNode::init() {
  superSend<MAShapeNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  knob::anchorAtOrigin(self);
  return self;
}

void MAShapeNode::drawRect(CGRect rect, CGContextRef context) {
  const NSObject parent = stateOf<MANode>(self).parent;
  const MAKnobNode* control = stateIfKind<MAKnobNode>(parent);
  if (control == nullptr) return;
  const auto color = call<"fillColor", NSColor>(parent);
  knob::drawArc(Painter(context), rect, std::min(control->value, control->neutral),
                std::max(control->value, control->neutral), color);
}

id RotaryCapNode::init() {
  superSend<RotaryCapNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  call<"addChild:">(self, makeNode("MAPointerNode", "pointer", {}).get());
  return self;
}

void RotaryCapNode::setFrame(CGRect frame) {
  superSend<RotaryCapNode, void>(self, selector<"setFrame:">(), frame);
  knob::layOut(self, frame.size, {"pointer"});
}

void RotaryCapNode::setValue(double newValue) { value = newValue; }

void RotaryCapNode::updatePresentationObject(NSObject presentation, NSObject view) {
  const auto layer = cast<CALayer>(presentation);
  layer.setAffineTransform(CGAffineTransformIdentity);  // a turned layer has no frame to set
  superSend<RotaryCapNode, void>(self, selector<"updatePresentationObject:view:">(), presentation, view);
  if (value != 0.5) layer.setAffineTransform(CGAffineTransformMakeRotation((knob::angleAt(value) - 90) * kRadians));
}

void RotaryCapNode::drawRect(CGRect rect, CGContextRef context) {
  const CGRect disc = knob::discOf(rect);
  Painter(context).fillEllipse(disc.insetBy(-0.75, -0.75), paletteColor(Palette::kKnobEdge));
  call<"drawCapInRect:inContext:flipped:">(self, disc, context, BOOL(0));
  for (const NSObject child : items(stateOf<MANode>(self).childrenArray)) {
    call<"drawRect:inContext:">(child, rect, context);
  }
}

void RotaryCapNode::drawCap(CGRect disc, CGContextRef context, BOOL /*flipped*/) {
  Painter(context).fillEllipse(disc, paletteColor(Palette::kKnobFace));
}

void MAPointerNode::drawRect(CGRect rect, CGContextRef context) {
  const CGRect disc = knob::discOf(rect);
  const double radius = disc.size.width / 2;
  const double width = rect.size.width > 30 ? 1.8 : 1.4;
  Painter(context).line({disc.midX(), disc.midY() + radius * 0.3}, {disc.midX(), disc.midY() + radius * 0.86},
                        paletteColor(Palette::kKnobPointer), width);
}

void defineMAKnobNode() {
  ClassDefinition<MAPointerNode>("MAPointerNode", "MANode")
      .method<"drawRect:inContext:", &MAPointerNode::drawRect>()
      .registered();
  ClassDefinition<RotaryCapNode>("MARotaryCapNode", "MANode")
      .method<"init", &RotaryCapNode::init>()
      .method<"setFrame:", &RotaryCapNode::setFrame>()
      .method<"setValue:", &RotaryCapNode::setValue>()
      .method<"updatePresentationObject:view:", &RotaryCapNode::updatePresentationObject>()
      .method<"drawRect:inContext:", &RotaryCapNode::drawRect>()
      .method<"drawCapInRect:inContext:flipped:", &RotaryCapNode::drawCap>()
      .registered();
  ClassDefinition<MAKnobCapNode>("_MACapNode", "MARotaryCapNode").registered();
  ClassDefinition<MAStereoPannerCapNode>("_MAStereoPannerCapNode", "MARotaryCapNode").registered();
  ClassDefinition<MAShapeNode>("MAShapeNode", "MANode")
      .method<"init", &MAShapeNode::init>()
      .method<"drawRect:inContext:", &MAShapeNode::drawRect>()
      .registered();
  ClassDefinition<MAKnobNode>("MAKnobNode", "MANode")
      .method<"init", &MAKnobNode::init>()
      .method<"setFrame:", &MAKnobNode::setFrame>()
      .method<"setValue:", &MAKnobNode::setValue>()
      .method<"setBypassed:", &MAKnobNode::setBypassed>()
      .method<"fillColor", &MAKnobNode::fillColor>()
      .method<"drawRect:inContext:", &MAKnobNode::drawRect>()
      .registered();
}

}  // namespace host
