#pragma once

#include "host/mixer/MANode.h"

namespace host {

/// A slot or button with a title. Its asset set path says which kind it is; `state` 0 is off or bypassed.
struct MAButtonNode : cocoa::ObjectState {
  id init();
  void drawRect(CGRect rect, CGContextRef context);
};

void defineMAButtonNode();

}  // namespace host
