#pragma once
// CGImage: pixels that no longer change.

#include <memory>

#include "cocoa/AppKit.h"
#include "standin/pixels/Surface.h"
#include "standin/runtime/Objects.h"

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

}  // namespace standin
