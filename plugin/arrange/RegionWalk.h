#pragma once
// The regions of an arrange view, as the host tells assistive tools of them.

#include <vector>

#include "cocoa/AppKit.h"

namespace velura {

/// Which elements of a tree are regions. The element that the walk begins with has depth 0.
struct RegionRules {
  int deepest;  // elements below are not looked at
  bool (*isRegion)(NSObject element, int depth);
  NSString (*describe)(NSObject element);  // tells the cycle's range from a region
};

/// The rectangles of the regions below an element, in a view's coordinates. Of a tree of any width, 262,144 elements
/// are looked at.
std::vector<CGRect> regionsBelow(NSObject element, NSView view, const RegionRules& rules, int depth = 0);

}  // namespace velura
