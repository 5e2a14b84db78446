#pragma once

#include "host/mixer/MANode.h"

namespace host {

/// A small button with a glyph: mute, solo, record, input monitoring, bounce, dim, disclosure.
struct MASymbolButtonNode : cocoa::ObjectState {
  id init();
  void drawRect(CGRect rect, CGContextRef context);
};

void defineMASymbolButtonNode();

}  // namespace host
