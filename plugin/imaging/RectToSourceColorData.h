#pragma once
// The class `RectToSourceColorData`: one rule of recolouring. Where a pixel inside a rectangle has one colour,
// it is painted another.

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"

namespace velura {

struct RectToSourceColorData : cocoa::ObjectState {
  /// A new rule. Without a suggested colour the pixels that match are left as they are.
  static cocoa::Ref<NSObject> make(CGRect rect, NSColor source, NSColor suggested, double ignoreAlpha,
                                   bool compareAlpha);

  id init(CGRect rect, NSColor source, NSColor suggested, double ignoreAlpha, BOOL compareAlpha);

  bool compareAlphaValue = false;  // whether the pixel's alpha must equal the source colour's as well
  cocoa::Ref<NSColor> sourceColor;
  cocoa::Ref<NSColor> suggestedColor;
  double ignoreAlphaValue = 0;  // above 0: painted pixels keep the offset of their alpha from this one
  CGRect mRect;                 // in pixels, from the first stored row and column
};

/// Registers the class.
void defineRectToSourceColorData();

}  // namespace velura
