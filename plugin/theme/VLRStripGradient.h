#pragma once
// The class `VLRStripGradient`: a gradient string as an object.

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"
#include "plugin/language/GradientString.h"

namespace velura {

/// The class `VLRStripGradient`. Made by `gradientFromString:` alone and never changed afterwards.
struct VLRStripGradient : cocoa::ObjectState, GradientData {
  cocoa::Ref<NSArray> stopColors;  // nil in auto mode
  cocoa::Ref<NSArray> stopDeltas;  // nil in linear mode
  cocoa::Ref<NSArray> stopLocations;
  cocoa::Ref<NSArray> stopAnchors;  // names, and NSNull for a stop without one

  /// A new gradient, autoreleased, or nil for anything that is no gradient string.
  static NSObject gradientFromString(NSObject value);

  /// The colours of the stops. nil for an auto gradient without a base.
  [[nodiscard]] NSArray stopColorsForBase(NSColor base) const;
  /// The base with its brightness shifted by `delta` percent points; a colour without components as it is.
  [[nodiscard]] NSColor colorForBase(NSColor base, NSInteger delta) const;

 private:
  bool takeOver(GradientData data);
};

/// Registers the class.
void defineVLRStripGradient();

}  // namespace velura
