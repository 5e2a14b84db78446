#pragma once

#include "host/mixer/MANode.h"

namespace host {

/// A picture: the icon of a track. `title` names the picture.
struct MAImageNode : cocoa::ObjectState {
  id init();
  void drawRect(CGRect rect, CGContextRef context);
};

void defineMAImageNode();

}  // namespace host
