#pragma once

#include "cocoa/AppKit.h"

namespace velura {

/// Whether the primary button of the mouse is held down.
inline bool isPrimaryMouseButtonDown() { return (NSEvent::pressedMouseButtons() & 1U) != 0; }

}  // namespace velura
