#pragma once
// Images that a theme brings along, in the companion application's bundle.

#include "cocoa/AppKit.h"

namespace velura {

/// An image of the theme by its name; nil when there is none. A size of zero, in points, keeps the image's own.
/// Pointer images come mirrored, top for bottom, from the theme's cache.
NSImage themeImage(NSString name, CGSize size);

/// The image upside down, all of its frames; nil when it cannot be read.
NSImage flippedVertically(NSImage image);

/// Adds the messages that ask for images to the class `ThemeUtility`.
void attachThemeUtilityImages();

}  // namespace velura
