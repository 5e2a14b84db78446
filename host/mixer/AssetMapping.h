#pragma once
// The mixer's own assets, as its framework lists them: bodies of buttons, colours of meters.

#include <string_view>

#include "cocoa/AppKit.h"

namespace host {

/// A body from its upper edge to its lower one.
struct ButtonBody {
  cocoa::Ref<NSColor> top;
  cocoa::Ref<NSColor> bottom;
};

struct ButtonAsset {
  ButtonBody on;
  ButtonBody off;
};

/// How buttons of an asset set path look ("Buttons.Send"); a path that is not listed looks like "Buttons.Default".
const ButtonAsset& buttonAsset(std::string_view path);

/// The colours of a meter from its lowest level to its highest. nil for a type that the mixer does not have.
NSGradient levelGradient(NSInteger mixerLevelType);

/// Says of the mixer's classes that they come from the framework beside the program. Once they are all defined.
void placeMixerClasses();

}  // namespace host
