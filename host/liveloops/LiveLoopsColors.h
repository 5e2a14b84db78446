#pragma once
// The classes that answer the colours of the Live Loops grid.

#include "cocoa/AppKit.h"

namespace host {

/// A colour of one of the classes ("LiveLoopsSceneTriggerColors"), asked of its one instance.
NSColor liveLoopsColor(const char* className, const char* method);

void defineLiveLoopsColors();

}  // namespace host
