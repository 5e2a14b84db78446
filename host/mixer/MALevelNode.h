#pragma once

#include <array>

#include "host/mixer/MANode.h"

namespace host {

/// A level meter of one or two bars. Its type says how levels are spread over it and which colours they have:
/// 1 linear, 2 linear of an output, 3 exponential, 4 exponential of an output.
struct MALevelNode : cocoa::ObjectState {
  NSInteger mixerLevelType = 3;
  cocoa::Ref<NSMutableArray> levelDisplays;  // one for each bar, and the hold of the highest level

  id init();
  void setMixerLevelType(NSInteger type);
  void drawRect(CGRect rect, CGContextRef context);

  void setBars(int count);
  /// From 0 to 1. A meter of one bar shows the first.
  void setLevels(const std::array<double, 2>& levels);
};

/// One bar of a meter.
struct MALevelDisplay : cocoa::ObjectState {
  NSInteger mixerLevelType = 3;
  double level = 0;
};

/// The highest level that there was, as a line across the bars.
struct MALevelHold : cocoa::ObjectState {
  double level = 0;
};

void defineMALevelNode();

}  // namespace host
