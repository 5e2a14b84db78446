#include "host/arrange/CLgDocwContentView.h"

#include "host/drawing/Painter.h"

namespace host {

using namespace cocoa;

NSColor CLgDocwContentView::backgroundColor() { return paletteColor(Palette::kArrangeSeparator); }

void CLgDocwContentView::drawRect(CGRect dirty) {
  const auto background = call<"backgroundColor", NSColor>(self);
  if (background) Painter(NSGraphicsContext::currentContext().CGContext()).fill(dirty, background);
}

void defineCLgDocwContentView() {
  ClassDefinition<CLgDocwContentView>("CLgDocwContentView", "MAView")
      .method<"backgroundColor", &CLgDocwContentView::backgroundColor>()
      .method<"drawRect:", &CLgDocwContentView::drawRect>()
      .registered();
}

}  // namespace host
