#pragma once

#include "host/mixer/MANode.h"

namespace host {

/// A picture of the channel's equalizer curve; a titled empty slot while the channel has none.
struct MAEQThumbnailNode : cocoa::ObjectState {
  unsigned curve = 0;  // which of the host's sample curves; 0 for none

  id init();
  void drawRect(CGRect rect, CGContextRef context);
  void drawTitle(CGRect rect, CGContextRef context);
};

void defineMAEQThumbnailNode();

}  // namespace host
