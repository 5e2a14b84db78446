#include "host/mixer/MADisplayNode.h"

#include "host/drawing/Painter.h"

namespace host {

using namespace cocoa;

id MADisplayNode::init() {
  superSend<MADisplayNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  textColor = paletteColor(Palette::kDisplayText);
  return self;
}

void MADisplayNode::setTextColor(NSColor color) {
  textColor = color;
  call<"setNeedsUpdateContents:">(self, BOOL(1));
}

void MADisplayNode::drawRect(CGRect rect, CGContextRef context) {
  const MANode& node = stateOf<MANode>(self);
  const Painter painter(context);
  painter.fillRounded(rect, 3, paletteColor(Palette::kDisplayBackground));
  painter.text(node.title, rect, textColor, {.size = 8.5, .weight = 0.23});
}

void defineMADisplayNode() {
  ClassDefinition<MADisplayNode>("MADisplayNode", "MANode")
      .method<"init", &MADisplayNode::init>()
      .getter<"textColor", &MADisplayNode::textColor>()
      .method<"setTextColor:", &MADisplayNode::setTextColor>()
      .method<"drawRect:inContext:", &MADisplayNode::drawRect>()
      .registered();
}

}  // namespace host
