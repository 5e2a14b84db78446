#pragma once
// Panners beyond the plain pan knob.

#include "host/mixer/MANode.h"
#include "host/song/Song.h"

namespace host {

/// Places both channels of a stereo track: the arc shows how far they lie apart.
struct MAStereoPannerNode : cocoa::ObjectState {
  double value = 0.5;  // the middle of both, from 0 to 1
  double spread = 0.5;
  bool inverseSpread = false;

  id init();
  void setFrame(CGRect frame);
  void setPanning(double newValue, const Panning& panning);
  void setValue(double newValue);
  void drawRect(CGRect rect, CGContextRef context);
};

/// The arc between the channels of the panner above it.
struct MAStereoPannerSpreadNode : cocoa::ObjectState {
  id init();
  NSColor fillColor();
  void drawRect(CGRect rect, CGContextRef context);
};

/// Places a track on the plane of the loudspeakers.
struct MAPlanarPannerNode : cocoa::ObjectState {
  CGPoint place;  // -1 to 1
  double spread = 0.5;

  id init();
  void setFrame(CGRect frame);
  void setPanning(const Panning& panning);
  NSColor valueIndicatorColor();
  NSColor spreadFillColor();
  NSColor spreadStrokeColor();
  void drawRect(CGRect rect, CGContextRef context);
};

/// Where the track lies and how wide it is, in the colours of the panner above it.
struct MAPlanarSpotNode : cocoa::ObjectState {
  id init();
  void drawRect(CGRect rect, CGContextRef context);
};

void defineMAPannerNodes();

}  // namespace host
