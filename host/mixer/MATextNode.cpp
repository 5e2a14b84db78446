#include "host/mixer/MATextNode.h"

namespace host {

using namespace cocoa;

id MATextNode::init() {
  superSend<MATextNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  foregroundColor = paletteColor(Palette::kNameText);
  stateOf<MANode>(self).layer->setCornerRadius(3);
  return self;
}

void MATextNode::setForegroundColor(NSColor color) {
  foregroundColor = color;
  call<"setNeedsUpdateContents:">(self, BOOL(1));
}

void MATextNode::setBackgroundColor(NSColor color) {
  backgroundColor = color;
  call<"setNeedsDisplay:">(self, BOOL(1));
}

void MATextNode::updatePresentationObject(NSObject presentation, NSObject view) {
  superSend<MATextNode, void>(self, selector<"updatePresentationObject:view:">(), presentation, view);
  const auto background = call<"backgroundColor", NSColor>(self);
  cast<CALayer>(presentation).setBackgroundColor(background.CGColor());
}

void MATextNode::drawRect(CGRect rect, CGContextRef context) {
  const Painter painter(context);
  painter.text(stateOf<MANode>(self).title, rect.insetBy(3, 0), call<"foregroundColor", NSColor>(self), style);
}

void defineMATextNode() {
  ClassDefinition<MATextNode>("MATextNode", "MANode")
      .method<"init", &MATextNode::init>()
      .getter<"foregroundColor", &MATextNode::foregroundColor>()
      .method<"setForegroundColor:", &MATextNode::setForegroundColor>()
      .getter<"backgroundColor", &MATextNode::backgroundColor>()
      .method<"setBackgroundColor:", &MATextNode::setBackgroundColor>()
      .method<"updatePresentationObject:view:", &MATextNode::updatePresentationObject>()
      .method<"drawRect:inContext:", &MATextNode::drawRect>()
      .registered();
}

}  // namespace host
