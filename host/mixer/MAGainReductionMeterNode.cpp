#include "host/mixer/MAGainReductionMeterNode.h"

#include <cmath>

#include "host/drawing/Painter.h"

namespace host {

using namespace cocoa;

id MAGainReductionMeterNode::init() {
  superSend<MAGainReductionMeterNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  return self;
}

NSColor MAGainReductionMeterNode::backgroundFillColor() {
  return paletteColor(isOn ? Palette::kMeterBackground : Palette::kGainReductionOff);
}

NSColor MAGainReductionMeterNode::fillColor() { return paletteColor(Palette::kGainReduction); }

void MAGainReductionMeterNode::drawRect(CGRect rect, CGContextRef context) {
  const Painter painter(context);
  painter.fillRounded(rect, 2, call<"backgroundFillColor", NSColor>(self));
  if (!callBool<"isOn">(self)) return;
  const CGRect inner = rect.insetBy(1, 1);
  const double width = std::round(inner.size.width * reduction);
  painter.fill(CGRectMake(inner.maxX() - width, inner.minY(), width, inner.size.height),
               call<"fillColor", NSColor>(self));
}

void defineMAGainReductionMeterNode() {
  ClassDefinition<MAGainReductionMeterNode>("MAGainReductionMeterNode", "MANode")
      .method<"init", &MAGainReductionMeterNode::init>()
      .getter<"isOn", &MAGainReductionMeterNode::isOn>()
      .method<"backgroundFillColor", &MAGainReductionMeterNode::backgroundFillColor>()
      .method<"fillColor", &MAGainReductionMeterNode::fillColor>()
      .method<"drawRect:inContext:", &MAGainReductionMeterNode::drawRect>()
      .registered();
}

}  // namespace host
