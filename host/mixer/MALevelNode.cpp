#include "host/mixer/MALevelNode.h"

#include <algorithm>
#include <cmath>

#include "host/mixer/Painter.h"

namespace host {
namespace {

using namespace cocoa;

struct Zone {
  double from;
  double to;
  Look colour;
};
constexpr Zone kZones[] = {{0, 0.72, Look::kMeterGreen}, {0.72, 0.9, Look::kMeterYellow}, {0.9, 1, Look::kMeterRed}};

void drawBar(const Painter& painter, CGRect bar, double level) {
  painter.fillRounded(bar, 1.5, look(Look::kMeterBackground));
  const CGRect inner = bar.insetBy(1, 1);
  for (const Zone& zone : kZones) {
    const double top = std::min(level, zone.to);
    if (top <= zone.from) continue;
    const double y = std::round(inner.size.height * zone.from);
    painter.fill(CGRectMake(inner.minX(), inner.minY() + y, inner.size.width, std::round(inner.size.height * top) - y),
                 look(zone.colour));
  }
}

}  // namespace

id MALevelNode::init() {
  superSend<MALevelNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  return self;
}

void MALevelNode::drawRect(CGRect rect, CGContextRef context) {
  const Painter painter(context);
  const double width = bars == 1 ? rect.size.width : (rect.size.width - 1) / 2;
  for (int bar = 0; bar < bars; ++bar) {
    drawBar(painter, CGRectMake(bar * (width + 1), 0, width, rect.size.height), levels[static_cast<std::size_t>(bar)]);
  }
}

void defineMALevelNode() {
  ClassDefinition<MALevelNode>("MALevelNode", "MANode")
      .method<"init", &MALevelNode::init>()
      .method<"drawRect:inContext:", &MALevelNode::drawRect>()
      .registered();
}

}  // namespace host
