#include "host/mixer/MAPannerNode.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "host/drawing/Painter.h"
#include "host/mixer/MAKnobNode.h"

namespace host {
namespace {

using namespace cocoa;

constexpr double kPlaneInset = 2.5;

void addPart(id control, const char* className, const char* name) {
  knob::addPart(control, makeNode(className, name, {}));
}

/// Two crossing lines as one path.
void strokeCross(CGContextRef context, CGPoint a, CGPoint b, CGPoint c, CGPoint d) {
  CGContextBeginPath(context);
  CGContextMoveToPoint(context, a.x, a.y);
  CGContextAddLineToPoint(context, b.x, b.y);
  CGContextMoveToPoint(context, c.x, c.y);
  CGContextAddLineToPoint(context, d.x, d.y);
  CGContextStrokePath(context);
}

/// Three circles around the middle, the innermost one filled.
void drawCircles(CGContextRef context, CGRect plane) {
  const double step = plane.size.width * 0.125;
  CGRect circle = CGRectInset(plane, step + 1, step + 1);
  CGContextStrokeEllipseInRect(context, circle);
  for (int i = 0; i < 2; ++i) {
    circle = CGRectInset(circle, step, step);
    CGContextStrokeEllipseInRect(context, circle);
  }
  CGContextFillEllipseInRect(context, circle);
}

/// The plane seen from above: a ring, the axes and the diagonals, circles of equal distance.
void drawPlane(CGContextRef context, CGRect rect, NSColor grid, NSColor background) {
  constexpr double kRing = 3;
  constexpr double kHair = 0.5;
  const CGRect plane = CGRectInset(rect, kPlaneInset, kPlaneInset);
  CGContextSaveGState(context);
  CGContextSetFillColorWithColor(context, background.CGColor());
  CGContextSetStrokeColorWithColor(context, grid.CGColor());
  CGContextFillEllipseInRect(context, plane);
  CGContextSetLineWidth(context, kRing);
  CGContextStrokeEllipseInRect(context, plane);
  CGContextSetLineWidth(context, kHair);
  strokeCross(context, {plane.minX(), plane.midY()}, {plane.maxX(), plane.midY()}, {plane.midX(), plane.minY()},
              {plane.midX(), plane.maxY()});
  CGContextBeginPath(context);
  CGContextAddEllipseInRect(context, CGRectInset(plane, 1, 1));
  CGContextEOClip(context);
  strokeCross(context, {plane.minX(), plane.minY()}, {plane.maxX(), plane.maxY()}, {plane.maxX(), plane.minY()},
              {plane.minX(), plane.maxY()});
  drawCircles(context, plane);
  CGContextRestoreGState(context);
}

/// The sector that a sound fills: towards its place, as wide as its spread.
void drawSector(CGContextRef context, CGPoint middle, double radius, double towards, double width, NSColor fill,
                NSColor stroke) {
  CGContextBeginPath(context);
  if (width < 2 * std::numbers::pi) CGContextMoveToPoint(context, middle.x, middle.y);
  CGContextAddArc(context, middle.x, middle.y, radius, towards - width / 2, towards + width / 2, 0);
  CGContextClosePath(context);
  CGContextSetFillColorWithColor(context, fill.CGColor());
  CGContextSetStrokeColorWithColor(context, stroke.CGColor());
  CGContextSetLineWidth(context, 1);
  CGContextDrawPath(context, kCGPathFillStroke);
}

}  // namespace

id MAStereoPannerNode::init() {
  superSend<MAStereoPannerNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  knob::anchorAtOrigin(self);
  addPart(self, "_MAStereoPannerSpreadNode", "spread");
  addPart(self, "_MAStereoPannerCapNode", "cap");
  return self;
}

void MAStereoPannerNode::setFrame(CGRect frame) {
  superSend<MAStereoPannerNode, void>(self, selector<"setFrame:">(), frame);
  knob::layOut(self, frame.size, {"spread", "cap"});
}

void MAStereoPannerNode::setPanning(double newValue, const Panning& panning) {
  spread = panning.spread;
  inverseSpread = panning.inverseSpread;
  setValue(newValue);
}

void MAStereoPannerNode::setValue(double newValue) {
  value = std::clamp(newValue, 0.0, 1.0);
  knob::turnCap(self, value);
}

void MAStereoPannerNode::drawRect(CGRect rect, CGContextRef context) {
  knob::drawRing(Painter(context), rect, paletteColor(Palette::kKnobRing));
}

id MAStereoPannerSpreadNode::init() {
  superSend<MAStereoPannerSpreadNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  knob::anchorAtOrigin(self);
  return self;
}

NSColor MAStereoPannerSpreadNode::fillColor() {
  const NSObject parent = stateOf<MANode>(self).parent;
  return paletteColor(callBool<"inverseSpread">(parent.object) ? Palette::kSpreadInverseArc : Palette::kSpreadArc);
}

void MAStereoPannerSpreadNode::drawRect(CGRect rect, CGContextRef context) {
  const MAStereoPannerNode* panner = stateIfKind<MAStereoPannerNode>(stateOf<MANode>(self).parent);
  if (panner == nullptr) return;
  const auto color = call<"fillColor", NSColor>(self);
  knob::drawArc(Painter(context), rect, std::max(0.0, panner->value - panner->spread / 2),
                std::min(1.0, panner->value + panner->spread / 2), color);
}

id MAPlanarPannerNode::init() {
  superSend<MAPlanarPannerNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  knob::anchorAtOrigin(self);
  addPart(self, "MAPlanarSpotNode", "spot");
  return self;
}

void MAPlanarPannerNode::setFrame(CGRect frame) {
  superSend<MAPlanarPannerNode, void>(self, selector<"setFrame:">(), frame);
  knob::layOut(self, frame.size, {"spot"});
}

void MAPlanarPannerNode::setPanning(const Panning& panning) {
  place = {panning.x, panning.y};
  spread = panning.spread;
  knob::changed(self);
}

NSColor MAPlanarPannerNode::valueIndicatorColor() { return paletteColor(Palette::kSurroundBorder); }
NSColor MAPlanarPannerNode::spreadFillColor() { return paletteColor(Palette::kSurroundSpread); }
NSColor MAPlanarPannerNode::spreadStrokeColor() { return paletteColor(Palette::kSurroundBorder); }

void MAPlanarPannerNode::drawRect(CGRect rect, CGContextRef context) {
  drawPlane(context, rect, paletteColor(Palette::kSurroundGrid), paletteColor(Palette::kSurroundBackground));
}

id MAPlanarSpotNode::init() {
  superSend<MAPlanarSpotNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  knob::anchorAtOrigin(self);
  return self;
}

void MAPlanarSpotNode::drawRect(CGRect rect, CGContextRef context) {
  constexpr double kSpot = 2.5;
  constexpr double kFullCircle = 2 * std::numbers::pi;
  const NSObject parent = stateOf<MANode>(self).parent;
  const MAPlanarPannerNode* panner = stateIfKind<MAPlanarPannerNode>(parent);
  if (panner == nullptr) return;
  const CGRect plane = CGRectInset(rect, kPlaneInset + 1.5, kPlaneInset + 1.5);
  const CGPoint middle{plane.midX(), plane.midY()};
  const double radius = plane.size.width / 2;
  const double distance = std::min(1.0, std::hypot(panner->place.x, panner->place.y));
  const double towards = distance == 0 ? std::numbers::pi / 2 : std::atan2(panner->place.y, panner->place.x);
  if (panner->spread > 0) {
    drawSector(context, middle, radius - 0.5, towards, panner->spread * kFullCircle,
               call<"spreadFillColor", NSColor>(parent), call<"spreadStrokeColor", NSColor>(parent));
  }
  const double reach = distance * (radius - kSpot);
  const CGPoint spot{middle.x + std::cos(towards) * reach, middle.y + std::sin(towards) * reach};
  const Painter painter(context);
  painter.fillEllipse(CGRectMake(spot.x - kSpot - 1, spot.y - kSpot - 1, 2 * kSpot + 2, 2 * kSpot + 2),
                      paletteColor(Palette::kKnobEdge));
  painter.fillEllipse(CGRectMake(spot.x - kSpot, spot.y - kSpot, 2 * kSpot, 2 * kSpot),
                      call<"valueIndicatorColor", NSColor>(parent));
}

void defineMAPannerNodes() {
  ClassDefinition<MAStereoPannerSpreadNode>("_MAStereoPannerSpreadNode", "MANode")
      .method<"init", &MAStereoPannerSpreadNode::init>()
      .method<"fillColor", &MAStereoPannerSpreadNode::fillColor>()
      .method<"drawRect:inContext:", &MAStereoPannerSpreadNode::drawRect>()
      .registered();
  ClassDefinition<MAStereoPannerNode>("MAStereoPannerNode", "MANode")
      .method<"init", &MAStereoPannerNode::init>()
      .method<"setFrame:", &MAStereoPannerNode::setFrame>()
      .method<"setValue:", &MAStereoPannerNode::setValue>()
      .getter<"inverseSpread", &MAStereoPannerNode::inverseSpread>()
      .method<"drawRect:inContext:", &MAStereoPannerNode::drawRect>()
      .registered();
  ClassDefinition<MAPlanarSpotNode>("MAPlanarSpotNode", "MANode")
      .method<"init", &MAPlanarSpotNode::init>()
      .method<"drawRect:inContext:", &MAPlanarSpotNode::drawRect>()
      .registered();
  ClassDefinition<MAPlanarPannerNode>("MAPlanarPannerNode", "MANode")
      .method<"init", &MAPlanarPannerNode::init>()
      .method<"setFrame:", &MAPlanarPannerNode::setFrame>()
      .method<"valueIndicatorColor", &MAPlanarPannerNode::valueIndicatorColor>()
      .method<"spreadFillColor", &MAPlanarPannerNode::spreadFillColor>()
      .method<"spreadStrokeColor", &MAPlanarPannerNode::spreadStrokeColor>()
      .method<"drawRect:inContext:", &MAPlanarPannerNode::drawRect>()
      .registered();
}

}  // namespace host
