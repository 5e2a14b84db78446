#pragma once
// What the host tells assistive tools about its elements. An answer of another kind counts as none.

#include <optional>

#include "cocoa/AppKit.h"
#include "cocoa/Call.h"

namespace velura {

/// nil for an element that has no children to tell of.
NSArray accessibilityChildrenOf(NSObject element);

NSObject accessibilityAttribute(NSObject element, NSString attribute);

/// Nothing unless it is a string.
NSString accessibilityText(NSObject element, NSString attribute);
/// Nil where the element has none.
NSString accessibilityRole(NSObject element);

std::optional<CGSize> accessibilitySize(NSObject element);

/// The element's place on the screen, in points. Nothing unless its position is finite and its size finite
/// and above zero.
std::optional<CGRect> accessibilityFrame(NSObject element);

}  // namespace velura
