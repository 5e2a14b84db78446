#pragma once
// CGImage: pixels that no longer change.

#include <memory>

#include "cocoa/AppKit.h"
#include "standin/Objects.h"
#include "standin/Surface.h"

namespace standin {

struct BitmapCopy;

/// State of a CGImage.
struct ImageState : cocoa::ObjectState {
  std::shared_ptr<const Surface> pixels;
  std::shared_ptr<const BitmapCopy> original;  // of a bitmap in another format than the pixels have
};

/// Owned by the caller; null without pixels.
CGImageRef makeImage(std::shared_ptr<const Surface> pixels);
inline const std::shared_ptr<const Surface>& pixelsOf(CGImageRef image) {
  return stateBehind<ImageState>(image).pixels;
}

/// The pixels that best serve an NSImage at one pixel a point (or at `scale`); null when it has none.
std::shared_ptr<const Surface> rasterOf(NSImage image, double scale = 1);

/// The pixels of a layer's contents: a CGImage or an NSImage.
std::shared_ptr<const Surface> contentsPixels(NSObject contents, double scale);

}  // namespace standin
