#pragma once
// What of a window has to be drawn anew, as a host that keeps its last picture wants to know it.

#include "cocoa/AppKit.h"

namespace standin {

/// Whether any view that shows in the window needs display.
bool windowNeedsDisplay(NSWindow window);

/// What has to be drawn anew, in the window's base coordinates; empty when nothing does. Whatever lies in
/// it shows again as it should after `displayRectIgnoringOpacity:inContext:` of the frame view.
NSRect windowDirtyRect(NSWindow window);

/// What of the view needs display, in its own coordinates; empty when nothing does.
NSRect dirtyRect(NSView view);

}  // namespace standin
