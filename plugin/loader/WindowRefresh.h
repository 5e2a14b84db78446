#pragma once
// Windows that were open before the plug-in came: their views hold on to the host's look until something makes them
// ask again.

#include "cocoa/AppKit.h"

namespace velura {

/// The first view of that class below `root`, parents before their children; nil when there is none. `root` itself
/// does not count.
NSView findSubviewOfClass(NSString className, NSView root);

// What is brought up to date below a view or node, itself included.
void resetLibViewColors(NSView view);
void resetMixerNode(NSObject node);
void resetLiveLoopsView(NSView view);
void resetEventViewColors(NSView view);

/// Has every document window of the host take on the theme.
void refreshWindows();

}  // namespace velura
