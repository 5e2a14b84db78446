#include "host/mixer/MAImageNode.h"

#include "host/mixer/Painter.h"
#include "host/mixer/TrackIcon.h"

namespace host {

using namespace cocoa;

id MAImageNode::init() {
  superSend<MAImageNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  return self;
}

void MAImageNode::drawRect(CGRect rect, CGContextRef context) {
  const Painter painter(context);
  painter.fillRounded(rect, 4, look(Look::kIconBackground));
  drawTrackIcon(painter, toStdString(stateOf<MANode>(self).title), {rect.midX(), rect.midY()});
}

void defineMAImageNode() {
  ClassDefinition<MAImageNode>("MAImageNode", "MANode")
      .method<"init", &MAImageNode::init>()
      .method<"drawRect:inContext:", &MAImageNode::drawRect>()
      .registered();
}

}  // namespace host
