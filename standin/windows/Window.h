#pragma once
// Windows and the frame view that holds their title bar and contents.

#include "cocoa/AppKit.h"
#include "standin/views/View.h"

namespace standin {

inline constexpr double kTitleBarHeight = 28;

/// A frame view of the given size for a window; with a title bar when `titled`. Owned by the caller.
NSView makeThemeFrame(NSSize size, bool titled);
/// Puts the contents into the frame view in place of the earlier ones, below the title bar.
void setFrameContent(NSView frame, NSView content);
void setFrameTitles(NSView frame, NSString title, NSString subtitle);
void layOutFrame(NSView frame, NSSize size);

/// Where the mouse is, on the screen.
void setMouseLocation(NSPoint onScreen);

/// The application's list of windows. It does not own them.
void applicationAdds(NSWindow window);
void applicationRemoves(NSWindow window);
void applicationMovesToFront(NSWindow window);
void setKeyWindow(NSWindow window);
NSWindow keyWindow();

}  // namespace standin
