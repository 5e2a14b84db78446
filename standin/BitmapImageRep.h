#pragma once
// What other files of the stand-in ask of NSImageRep and NSBitmapImageRep.

#include <memory>

#include "cocoa/AppKit.h"
#include "standin/Objects.h"
#include "standin/Surface.h"

namespace standin {

/// State of an NSImageRep.
struct ImageRepState : cocoa::ObjectState {
  NSSize size;
  NSInteger pixelsWide = 0;
  NSInteger pixelsHigh = 0;
  bool alpha = true;
  /// The representation's pixels; null when it has none.
  std::shared_ptr<const Surface> (*pixels)(id self) = nullptr;
};

/// A representation made of an image, owned by the caller.
NSBitmapImageRep makeBitmapRep(const Surface& pixels);

/// A context that draws straight into the bitmap's memory, owned by the caller. Null unless the bitmap has
/// red, green, blue and a premultiplied alpha of 8 bits each, in this order.
CGContextRef makeBitmapContext(NSBitmapImageRep rep);

}  // namespace standin
