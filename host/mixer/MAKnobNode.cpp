#include "host/mixer/MAKnobNode.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "host/mixer/Painter.h"

namespace host {
namespace {

using namespace cocoa;

// The arc leaves a gap at the bottom: 310 degrees from lower left to lower right.
constexpr double kStart = 245;
constexpr double kSweep = 310;

double angleAt(double value) { return kStart - kSweep * value; }

void drawFace(const Painter& painter, CGRect face, double value) {
  painter.fillEllipse(face.offsetBy(0, -1), faded(NSColor::blackColor(), 0.35));
  painter.fillEllipse(face, look(Look::kKnobFaceEdge));
  const CGRect inner = face.insetBy(1, 1);
  painter.verticalGradient(inner, inner.size.width / 2, look(Look::kButtonTop), look(Look::kKnobFaceEdge));
  painter.fillEllipse(inner.insetBy(1.5, 1.5), look(Look::kKnobFace));
  const double angle = angleAt(value) * std::numbers::pi / 180;
  const CGPoint centre{inner.midX(), inner.midY()};
  const double radius = inner.size.width / 2;
  const auto at = [&](double distance) {
    return CGPoint{centre.x + std::cos(angle) * distance, centre.y + std::sin(angle) * distance};
  };
  painter.line(at(radius * 0.35), at(radius * 0.85), look(Look::kKnobPointer), 1.6);
}

}  // namespace

id MAKnobNode::init() {
  superSend<MAKnobNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  return self;
}

void MAKnobNode::drawRect(CGRect rect, CGContextRef context) {
  const MANode& node = stateOf<MANode>(self);
  const bool panner = toStdString(node.name) == "pan";
  const double ring = panner ? 3 : 2;
  const double radius = std::min(rect.size.width, rect.size.height) / 2 - ring / 2 - 0.5;
  const CGPoint centre{rect.midX(), rect.midY()};
  const Painter painter(context);
  painter.arc(centre, radius, kStart, kStart - kSweep, look(Look::kKnobRing), ring);
  const double from = bipolar ? 0.5 : 0.0;
  if (std::abs(value - from) > 0.004) {
    painter.arc(centre, radius, angleAt(std::min(from, value)), angleAt(std::max(from, value)),
                look(panner ? Look::kKnobArc : Look::kSendArc), ring);
  }
  const double face = radius - ring / 2 - 1.5;
  drawFace(painter, CGRectMake(centre.x - face, centre.y - face, 2 * face, 2 * face), value);
}

void defineMAKnobNode() {
  ClassDefinition<MAKnobNode>("MAKnobNode", "MANode")
      .method<"init", &MAKnobNode::init>()
      .method<"drawRect:inContext:", &MAKnobNode::drawRect>()
      .registered();
}

}  // namespace host
