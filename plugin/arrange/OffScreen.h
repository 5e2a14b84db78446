#pragma once
// Views drawn off the screen, to be read pixel by pixel.

#include <optional>

#include "cocoa/AppKit.h"
#include "plugin/arrange/RulerPixels.h"

namespace velura {

/// What a ruler shows in a rectangle of its own coordinates. The pixels live as long as the bitmap.
struct RulerRendering {
  cocoa::Ref<NSBitmapImageRep> bitmap;
  RulerPixels pixels;
};

/// The visible part of a view; all of it where nothing is visible.
CGRect visibleOrBounds(NSView view);

/// A bitmap of what the view shows in a rectangle; null when it cannot be drawn.
cocoa::Ref<NSBitmapImageRep> drawnOffScreen(NSView view, CGRect rect);

/// The same as pixels that ticks and bands can be found in. Nothing for a bitmap whose pixels are not bytes in
/// the order red, green, blue.
std::optional<RulerRendering> renderRuler(NSView ruler, CGRect rect);

}  // namespace velura
