#pragma once

#include "host/mixer/MANode.h"

namespace host {

/// How much the channel's compressor takes away, from 0 to 1, growing from the right.
struct MAGainReductionMeterNode : cocoa::ObjectState {
  double reduction = 0;
  bool isOn = false;  // the channel has a compressor

  id init();
  NSColor backgroundFillColor();
  NSColor fillColor();
  void drawRect(CGRect rect, CGContextRef context);
};

void defineMAGainReductionMeterNode();

}  // namespace host
