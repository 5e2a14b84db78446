#pragma once

#include <string>

#include "cocoa/AppKit.h"
#include "tests/goldens/Tiles.h"

namespace goldens {

/// A PNG of the part that changed: as it was at the left and as it is at the right, the changed tiles framed. Only as
/// it is when `before` is nil.
std::string sideBySide(NSBitmapImageRep before, NSBitmapImageRep after, const Changes& changes);

}  // namespace goldens
