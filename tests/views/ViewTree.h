#pragma once
// Views of a host's windows, found by their classes.

#include <string_view>
#include <vector>

#include "host/app/Application.h"

namespace support {

/// Every view below one that is of the class, in the order in which they lie.
std::vector<NSView> viewsBelow(NSView root, std::string_view className);
/// The first view of the class in a window; nil when there is none.
NSView viewIn(const host::Application& application, host::WindowKind window, std::string_view className);

}  // namespace support
