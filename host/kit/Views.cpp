#include "host/kit/Views.h"

namespace host {

using namespace cocoa;

id MAView::initWithFrame(CGRect frame) {
  superSend<MAView, id>(self, selector<"initWithFrame:">(), frame);
  cast<NSView>(NSObject(self)).setWantsLayer(true);
  return self;
}

void MAView::setBackgroundColor(NSColor color) {
  if (color.isEqual(backgroundColor.get())) return;
  backgroundColor = color;
  call<"setNeedsDisplay:">(self, BOOL(1));
}

double MAView::backingScale() {
  const NSWindow window = cast<NSView>(NSObject(self)).window();
  return window ? window.backingScaleFactor() : 1;
}

void CLgToolbarView::drawRect(CGRect /*dirty*/) {
  if (draw) draw(cast<NSView>(NSObject(self)).bounds(), NSGraphicsContext::currentContext().CGContext());
}

void defineViews() {
  ClassDefinition<MAView>("MAView", "NSView")
      .method<"initWithFrame:", &MAView::initWithFrame>()
      .getter<"backgroundColor", &MAView::backgroundColor>()
      .method<"setBackgroundColor:", &MAView::setBackgroundColor>()
      .method<"backingScale", &MAView::backingScale>()
      .property<"delegate", "setDelegate:", &MAView::delegate>()
      .registered();
  ClassDefinition<CLgToolbarView>("CLgToolbarView", "MAView")
      .method<"drawRect:", &CLgToolbarView::drawRect>()
      .registered();
  definePlainClass<"MAKitWindow">("NSWindow");
  definePlainClass<"MAKitPanel">("NSPanel");
}

}  // namespace host
