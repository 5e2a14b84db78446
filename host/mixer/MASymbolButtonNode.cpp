#include "host/mixer/MASymbolButtonNode.h"

#include "host/drawing/Painter.h"

namespace host {
namespace {

using namespace cocoa;

struct SymbolLook {
  std::string_view name;
  Palette on;
};

constexpr SymbolLook kSymbolLooks[] = {
    {"mute", Palette::kMuteOn},          {"solo", Palette::kSoloOn}, {"record", Palette::kRecordOn},
    {"monitoring", Palette::kMonitorOn}, {"dim", Palette::kMuteOn},  {"bounce", Palette::kButtonTop},
};

Palette bodyFor(const std::string& name) {
  for (const SymbolLook& row : kSymbolLooks) {
    if (row.name == name) return row.on;
  }
  return Palette::kSymbolOff;
}

void drawDisclosure(const Painter& painter, CGRect rect, NSColor color) {
  const double x = rect.midX();
  const double y = rect.midY();
  CGContextRef context = painter.context();
  CGContextSetFillColorWithColor(context, color.CGColor());
  CGContextBeginPath(context);
  CGContextMoveToPoint(context, x - 2.5, y + 4);
  CGContextAddLineToPoint(context, x + 3.5, y);
  CGContextAddLineToPoint(context, x - 2.5, y - 4);
  CGContextClosePath(context);
  CGContextFillPath(context);
}

constexpr double kRadius = 3.5;
constexpr double kWide = 40;  // room for more than a letter

}  // namespace

id MASymbolButtonNode::init() {
  superSend<MASymbolButtonNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  foregroundColor = paletteColor(Palette::kSymbolText);
  return self;
}

void MASymbolButtonNode::setState(NSInteger state) {
  const bool changes = stateOf<MANode>(self).state != state;
  superSend<MASymbolButtonNode, void>(self, selector<"setState:">(), state);
  if (changes) applySymbol();
}

void MASymbolButtonNode::setForegroundColor(NSColor color) {
  foregroundColor = color;
  call<"setNeedsUpdateContents:">(self, BOOL(1));
}

void MASymbolButtonNode::setSymbol(NSAttributedString glyph) {
  symbol = glyph;
  call<"setNeedsUpdateContents:">(self, BOOL(1));
}

void MASymbolButtonNode::applySymbol() {
  const MANode& node = stateOf<MANode>(self);
  const Palette color = node.state == kOn         ? Palette::kSymbolTextOn
                        : node.state == kBlinking ? bodyFor(toStdString(node.name))
                                                  : Palette::kSymbolText;
  const TextStyle style{.size = node.frame.size.width > kWide ? 9.0 : 10.0, .weight = NSFontWeightSemibold};
  const NSString letter = node.title ? node.title.get() : literal<"">();
  call<"setSymbol:">(self,
                     autoreleased(NSAttributedString::withString(letter, lineAttributes(paletteColor(color), style))));
}

void MASymbolButtonNode::drawRect(CGRect rect, CGContextRef context) {
  const MANode& node = stateOf<MANode>(self);
  const std::string name = toStdString(node.name);
  const Painter painter(context);
  if (name == "disclosure") {
    drawDisclosure(painter, rect, foregroundColor);
    return;
  }
  const NSColor body = paletteColor(node.state == kOn ? bodyFor(name) : Palette::kSymbolOff);
  painter.body(rect, kRadius, body, faded(body, 0.86), paletteColor(Palette::kButtonEdge));
  painter.text(symbol.get(), rect);
}

void defineMASymbolButtonNode() {
  ClassDefinition<MASymbolButtonNode>("MASymbolButtonNode", "MANode")
      .method<"init", &MASymbolButtonNode::init>()
      .method<"setState:", &MASymbolButtonNode::setState>()
      .getter<"foregroundColor", &MASymbolButtonNode::foregroundColor>()
      .method<"setForegroundColor:", &MASymbolButtonNode::setForegroundColor>()
      .getter<"symbol", &MASymbolButtonNode::symbol>()
      .method<"setSymbol:", &MASymbolButtonNode::setSymbol>()
      .method<"drawRect:inContext:", &MASymbolButtonNode::drawRect>()
      .registered();
}

}  // namespace host
