#pragma once

#include "host/mixer/MANode.h"

namespace host {

/// A rotary control. `value` runs from 0 to 1; a bipolar knob fills its arc from the middle.
struct MAKnobNode : cocoa::ObjectState {
  double value = 0;
  bool bipolar = false;

  id init();
  void drawRect(CGRect rect, CGContextRef context);
};

void defineMAKnobNode();

}  // namespace host
