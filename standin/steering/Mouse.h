#pragma once
// The mouse of the simulated screen.

#include "cocoa/AppKit.h"

namespace standin {

/// What `pressedMouseButtons` answers from now on. Bit 0 is the primary button.
void setPressedMouseButtons(NSUInteger buttons);

}  // namespace standin
