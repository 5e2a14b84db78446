#include "host/mixer/MAGainReductionMeterNode.h"

#include <cmath>

#include "host/mixer/Painter.h"

namespace host {

using namespace cocoa;

id MAGainReductionMeterNode::init() {
  superSend<MAGainReductionMeterNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  return self;
}

void MAGainReductionMeterNode::drawRect(CGRect rect, CGContextRef context) {
  const Painter painter(context);
  painter.fillRounded(rect, 2, look(Look::kMeterBackground));
  const CGRect inner = rect.insetBy(1, 1);
  const double width = std::round(inner.size.width * reduction);
  painter.fill(CGRectMake(inner.maxX() - width, inner.minY(), width, inner.size.height), look(Look::kGainReduction));
}

void defineMAGainReductionMeterNode() {
  ClassDefinition<MAGainReductionMeterNode>("MAGainReductionMeterNode", "MANode")
      .method<"init", &MAGainReductionMeterNode::init>()
      .method<"drawRect:inContext:", &MAGainReductionMeterNode::drawRect>()
      .registered();
}

}  // namespace host
