#pragma once
// What the host says with a colour that it draws a control in.

#include "cocoa/AppKit.h"

namespace velura {

/// Greys are the plain look of the host: they have two components, brightness and alpha.
inline bool isGrey(NSColor color) {
  constexpr NSInteger kGreyComponents = 2;
  return color && color.type() == NSColorTypeComponentBased && color.numberOfComponents() == kGreyComponents;
}

enum class ColorState { kPlain, kLowLatency, kDimmed };

/// The state of a control that the host draws in a colour.
inline ColorState stateShownBy(NSColor color) {
  if (isGrey(color)) return ColorState::kPlain;
  return color.alphaComponent() == 1 ? ColorState::kLowLatency : ColorState::kDimmed;
}

}  // namespace velura
