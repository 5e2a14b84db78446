#pragma once

#include <memory>

#include "cocoa/AppKit.h"
#include "standin/pixels/Surface.h"

namespace standin {

/// The pixels of a layer's contents, a CGImage or an NSImage; of the latter those that best serve the scale. Null when
/// there are none.
std::shared_ptr<const Surface> contentsPixels(NSObject contents, double scale);

}  // namespace standin
