#pragma once

#include "host/mixer/MANode.h"

namespace host {

/// One mark of a scale, and its label.
struct MAScaleTick : cocoa::ObjectState {
  NSInteger type = 0;
  cocoa::CFRef<CGColorRef> color;
  cocoa::CFRef<CGColorRef> highlightedColor;
  double defaultYPosition = 0;
  cocoa::Ref<NSString> label;

  CGColorRef plain() { return color; }
  void setColor(CGColorRef changed) { color = changed; }
  CGColorRef highlighted() { return highlightedColor; }
  void setHighlightedColor(CGColorRef changed) { highlightedColor = changed; }
};

/// The ticks and numbers beside a fader or meter, made of ticks.
struct MAScaleNode : cocoa::ObjectState {
  NSInteger type = 0;  // none yet
  cocoa::Ref<NSMutableArray> largeScaleTicks;

  id init();
  void setType(NSInteger newType);
  CGColorRef labelColor();
  CGColorRef highlightedLabelColor();
  void drawRect(CGRect rect, CGContextRef context);
};

void defineMAScaleNode();

}  // namespace host
