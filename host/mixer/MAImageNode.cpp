#include "host/mixer/MAImageNode.h"

#include "host/drawing/Painter.h"
#include "host/drawing/TrackIcon.h"

namespace host {

using namespace cocoa;

id MAImageNode::init() {
  superSend<MAImageNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  return self;
}

/// From then on nothing is drawn, also after the picture was taken away.
void MAImageNode::setContents(NSObject image) {
  stateOf<MANode>(self).drawsContents = false;
  if (contents.get() == image) return;
  contents = image;
  call<"setNeedsUpdateContents:">(self, BOOL(1));
}

void MAImageNode::updatePresentationObject(NSObject presentation, NSObject view) {
  superSend<MAImageNode, void>(self, selector<"updatePresentationObject:view:">(), presentation, view);
  if (stateOf<MANode>(self).drawsContents) return;
  const auto layer = cast<CALayer>(presentation);
  layer.setContentsScale(call<"backingScale", double>(view));
  if (layer.contents() != contents.get()) layer.setContents(contents);
}

void MAImageNode::drawRect(CGRect rect, CGContextRef context) {
  const Painter painter(context);
  painter.fillRounded(rect, 4, paletteColor(Palette::kIconBackground));
  drawTrackIcon(painter, toStdString(stateOf<MANode>(self).title), {rect.midX(), rect.midY()});
}

void defineMAImageNode() {
  ClassDefinition<MAImageNode>("MAImageNode", "MANode")
      .method<"init", &MAImageNode::init>()
      .getter<"contents", &MAImageNode::contents>()
      .method<"setContents:", &MAImageNode::setContents>()
      .method<"updatePresentationObject:view:", &MAImageNode::updatePresentationObject>()
      .method<"drawRect:inContext:", &MAImageNode::drawRect>()
      .registered();
}

}  // namespace host
