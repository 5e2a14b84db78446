#pragma once

#include "host/mixer/MANode.h"

namespace host {

/// A small dark display: peak level, fader level, mixer group.
struct MADisplayNode : cocoa::ObjectState {
  cocoa::Ref<NSColor> textColor;

  id init();
  void setTextColor(NSColor color);
  void drawRect(CGRect rect, CGContextRef context);
};

void defineMADisplayNode();

}  // namespace host
