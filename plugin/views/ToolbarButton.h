#pragma once

#include "cocoa/AppKit.h"

namespace velura {

/// Whether a view is a button of the host's action bar.
inline bool isToolbarButton(NSView view) {
  const NSString name = view.className();
  return name.isEqualToString(cocoa::literal<"MAABButton">()) ||
         name.isEqualToString(cocoa::literal<"MAActionBarButton">());
}

}  // namespace velura
