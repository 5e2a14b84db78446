#pragma once
// What other files of the stand-in ask of NSImageRep and NSBitmapImageRep.

#include <memory>
#include <vector>

#include "cocoa/AppKit.h"
#include "standin/imagefiles/ImageFile.h"
#include "standin/pixels/Surface.h"
#include "standin/runtime/Objects.h"

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

/// The frames of an image file that can be read, at the size that they were made for.
std::vector<cocoa::Ref<NSBitmapImageRep>> bitmapReps(NSData data);

/// The representation as a frame of an image file; nothing without pixels.
std::optional<ImageFrame> frameOf(NSImageRep rep);

/// The frames as TIFF; nil for none.
NSData tiffData(const std::vector<ImageFrame>& frames);

/// A context that draws straight into the bitmap's memory, owned by the caller. Null unless the bitmap has
/// red, green, blue and a premultiplied alpha of 8 bits each, in this order.
CGContextRef makeBitmapContext(NSBitmapImageRep rep);

}  // namespace standin
