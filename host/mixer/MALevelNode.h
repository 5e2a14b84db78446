#pragma once

#include <array>

#include "host/mixer/MANode.h"

namespace host {

/// A level meter of one or two bars, each from 0 to 1.
struct MALevelNode : cocoa::ObjectState {
  std::array<double, 2> levels{0, 0};
  int bars = 2;

  id init();
  void drawRect(CGRect rect, CGContextRef context);
};

void defineMALevelNode();

}  // namespace host
