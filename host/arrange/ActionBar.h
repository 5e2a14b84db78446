#pragma once
// The buttons at the right of the transport: switches that show which panes are open, and buttons that do something
// once.

#include <set>

#include "cocoa/AppKit.h"
#include "host/panes/Panes.h"

namespace host {

inline constexpr double kActionBarWidth = 372;

/// The bar of a window in which some panes are open.
cocoa::Ref<NSView> newActionBar(CGRect frame, std::set<PaneKind> open);

void defineActionBar();

}  // namespace host
