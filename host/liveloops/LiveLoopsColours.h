#pragma once
// The classes that answer the colours of the Live Loops grid.

#include "cocoa/AppKit.h"

namespace host {

/// A colour of one of the classes ("LiveLoopsSceneTriggerColors"), asked of its one instance.
NSColor liveLoopsColour(const char* className, const char* method);

void defineLiveLoopsColours();

}  // namespace host
