#include "host/mixer/MANodeView.h"

#include "cocoa/Call.h"
#include "cocoa/QuartzCore.h"
#include "host/kit/Views.h"
#include "host/mixer/MANode.h"

namespace host {

using namespace cocoa;

void MANodeView::setNode(NSObject root) {
  const auto view = cast<NSView>(NSObject(self));
  if (node) stateOf<MANode>(node.get()).layer->removeFromSuperlayer();
  node = root;
  stateOf<MANode>(root).ownView = NSObject(self);
  view.layer().addSublayer(stateOf<MANode>(root).layer);
}

void MANodeView::updatePresentation() {
  if (!node) return;
  presentTree(node, NSObject(self));
  const NSColor background = call<"backgroundColor", NSColor>(self);
  cast<NSView>(NSObject(self)).layer().setBackgroundColor(background.CGColor());
}

void defineMANodeView() {
  ClassDefinition<MANodeView>("MANodeView", "MAView")
      .method<"setNode:", &MANodeView::setNode>()
      .getter<"node", &MANodeView::node>()
      .method<"updatePresentation", &MANodeView::updatePresentation>()
      .registered();
  definePlainClass<"CLgRupertContentsView">("MANodeView");
}

}  // namespace host
