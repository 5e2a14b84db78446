#pragma once

#include "cocoa/AppKit.h"

namespace velura {

/// The image with every pixel recoloured by a list of `RectToSourceColorData`, owned; null for an image that
/// cannot be read.
CGImageRef applyTransformation(CGImageRef image, NSArray rules);

/// The same for a bitmap, in place. Pictures of grey shades and planar ones are left as they are.
void applyTransformationToBitmap(NSBitmapImageRep bitmap, NSArray rules);

/// Adds the messages of recolouring to the class `Utility`.
void attachUtilityRecoloring();

}  // namespace velura
