#include "host/mixer/MASymbolButtonNode.h"

#include "host/mixer/Painter.h"

namespace host {
namespace {

using namespace cocoa;

struct SymbolLook {
  std::string_view name;
  Look on;
};

constexpr SymbolLook kSymbolLooks[] = {
    {"mute", Look::kMuteOn},          {"solo", Look::kSoloOn}, {"record", Look::kRecordOn},
    {"monitoring", Look::kMonitorOn}, {"dim", Look::kMuteOn},  {"bounce", Look::kButtonTop},
};

Look bodyFor(const std::string& name) {
  for (const SymbolLook& row : kSymbolLooks) {
    if (row.name == name) return row.on;
  }
  return Look::kSymbolOff;
}

void drawDisclosure(const Painter& painter, CGRect rect) {
  const double x = rect.midX();
  const double y = rect.midY();
  CGContextRef context = painter.context();
  CGContextSetFillColorWithColor(context, look(Look::kSymbolText).CGColor());
  CGContextBeginPath(context);
  CGContextMoveToPoint(context, x - 2.5, y + 4);
  CGContextAddLineToPoint(context, x + 3.5, y);
  CGContextAddLineToPoint(context, x - 2.5, y - 4);
  CGContextClosePath(context);
  CGContextFillPath(context);
}

constexpr double kRadius = 3.5;

}  // namespace

id MASymbolButtonNode::init() {
  superSend<MASymbolButtonNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  return self;
}

void MASymbolButtonNode::drawRect(CGRect rect, CGContextRef context) {
  const MANode& node = stateOf<MANode>(self);
  const std::string name = toStdString(node.name);
  const Painter painter(context);
  if (name == "disclosure") {
    drawDisclosure(painter, rect);
    return;
  }
  const bool on = node.state != 0;
  const NSColor body = look(on ? bodyFor(name) : Look::kSymbolOff);
  painter.body(rect, kRadius, body, faded(body, 0.86), look(Look::kButtonEdge));
  painter.text(node.title, rect, on ? NSColor::blackColor() : look(Look::kSymbolText),
               {.size = rect.size.width > 40 ? 9.0 : 10.0, .weight = 0.3});
}

void defineMASymbolButtonNode() {
  ClassDefinition<MASymbolButtonNode>("MASymbolButtonNode", "MANode")
      .method<"init", &MASymbolButtonNode::init>()
      .method<"drawRect:inContext:", &MASymbolButtonNode::drawRect>()
      .registered();
}

}  // namespace host
