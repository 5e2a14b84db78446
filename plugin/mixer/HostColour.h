#pragma once
// What the host says with a colour that it draws a control in.

#include "cocoa/AppKit.h"

namespace velura {

/// Greys are the plain look of the host: they have two components, brightness and alpha.
inline bool isGrey(NSColor colour) {
  constexpr NSInteger kGreyComponents = 2;
  return colour && colour.type() == NSColorTypeComponentBased && colour.numberOfComponents() == kGreyComponents;
}

enum class ColourState { kPlain, kLowLatency, kDimmed };

/// The state of a control that the host draws in a colour.
inline ColourState stateShownBy(NSColor colour) {
  if (isGrey(colour)) return ColourState::kPlain;
  return colour.alphaComponent() == 1 ? ColourState::kLowLatency : ColourState::kDimmed;
}

}  // namespace velura
