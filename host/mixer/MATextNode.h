#pragma once

#include "host/drawing/Painter.h"
#include "host/mixer/MANode.h"

namespace host {

/// A line of text with a background of its own.
struct MATextNode : cocoa::ObjectState {
  cocoa::Ref<NSColor> foregroundColor;
  cocoa::Ref<NSColor> backgroundColor;
  TextStyle style;

  id init();
  void setForegroundColor(NSColor color);
  void setBackgroundColor(NSColor color);
  void updatePresentationObject(NSObject presentation, NSObject view);
  void drawRect(CGRect rect, CGContextRef context);
};

void defineMATextNode();

}  // namespace host
