#pragma once

#include "host/mixer/MANode.h"

namespace host {

/// The ticks and numbers beside a fader or meter. `title` is unused; `type` 2 is a volume scale.
struct MAScaleNode : cocoa::ObjectState {
  NSInteger type = 2;

  id init();
  void drawRect(CGRect rect, CGContextRef context);
};

void defineMAScaleNode();

}  // namespace host
