#pragma once

#include "host/mixer/MANode.h"

namespace host {

/// The channel fader: a groove, and a child named "fader knob" that rides in it, a picture.
struct MAFaderNode : cocoa::ObjectState {
  double value = 0;  // position from 0 at the bottom to 1
  NSInteger faderMode = 0;

  id init();
  void setValue(double position);
  void updatePresentationObject(NSObject presentation, NSObject view);
  void updateFaderKnob();
  void drawRect(CGRect rect, CGContextRef context);
};

/// Where a fader stands for a level in dB: 6 dB at the top, 0 dB at about three quarters.
double faderPosition(double decibels);

void defineMAFaderNode();

}  // namespace host
