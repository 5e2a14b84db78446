#include "standin/views/Registration.h"
#include "standin/views/View.h"

using namespace cocoa;

namespace standin {

namespace {

/// State of an NSBox: a filled, framed area.
struct Box : ObjectState {
  Ref<NSColor> fillColor;
  Ref<NSColor> borderColor;
  CGFloat borderWidth = 0;
  CGFloat cornerRadius = 0;

  void setFillColor(NSColor color) {
    fillColor = color;
    NSView(self).setNeedsDisplay(true);
  }
  void setBorderColor(NSColor color) {
    borderColor = color;
    NSView(self).setNeedsDisplay(true);
  }
  void drawRect(NSRect) {
    const NSRect bounds = NSView(self).bounds();
    if (fillColor) {
      fillColor->set();
      if (cornerRadius > 0) {
        NSBezierPath::bezierPathWithRoundedRect(bounds, cornerRadius, cornerRadius).fill();
      } else {
        NSBezierPath::fillRect(bounds);
      }
    }
    if (borderColor && borderWidth > 0) {
      borderColor->set();
      const auto edge = NSBezierPath::bezierPathWithRoundedRect(bounds.insetBy(borderWidth / 2, borderWidth / 2),
                                                                cornerRadius, cornerRadius);
      edge.setLineWidth(borderWidth);
      edge.stroke();
    }
  }
};

}  // namespace

void registerBoxes() {
  ClassDefinition<Box>("NSBox", "NSView")
      .getter<"fillColor", &Box::fillColor>()
      .method<"setFillColor:", &Box::setFillColor>()
      .getter<"borderColor", &Box::borderColor>()
      .method<"setBorderColor:", &Box::setBorderColor>()
      .property<"borderWidth", "setBorderWidth:", &Box::borderWidth>()
      .property<"cornerRadius", "setCornerRadius:", &Box::cornerRadius>()
      .method<"drawRect:", &Box::drawRect>()
      .registered();
}

}  // namespace standin
