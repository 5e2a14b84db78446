#pragma once
// The class `MyNSBitmapImageRep`: a bitmap that remembers the name of its colour space, which the platform
// works out anew at every question.

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"

namespace velura {

struct MyNSBitmapImageRep : cocoa::ObjectState {
  /// Null when the image cannot be read.
  static cocoa::Ref<NSBitmapImageRep> withCGImage(CGImageRef image);
  /// Cleared, with 8-bit red, green, blue and alpha in calibrated RGB. Null when there is no memory for it.
  static cocoa::Ref<NSBitmapImageRep> withSize(NSInteger width, NSInteger height);

  id initWithCGImage(CGImageRef image);
  id initWithPlanes(unsigned char** planes, NSInteger width, NSInteger height, NSInteger bitsPerSample,
                    NSInteger samplesPerPixel, BOOL hasAlpha, BOOL isPlanar, NSString space, NSInteger bytesPerRow,
                    NSInteger bitsPerPixel);
  NSString colorSpaceName();

  cocoa::Ref<NSString> savedColorSpaceName;
};

/// Registers the class.
void defineMyNSBitmapImageRep();

}  // namespace velura
