#pragma once

#include "cocoa/AppKit.h"

namespace velura {

/// Fills a rectangle of the current graphics context; what lies below shines through a colour that is not opaque.
inline void fillOver(CGRect rect, NSColor color) {
  color.setFill();
  NSRectFillUsingOperation(rect, NSCompositingOperationSourceOver);
}

}  // namespace velura
