#pragma once

#include <string>
#include <vector>

#include "cocoa/AppKit.h"
#include "tests/goldens/Tiles.h"

namespace goldens {

/// The views of a window and the nodes of its mixer whose frames tell best where a picture of it changed: by class and
/// name, first those that lie in what changed and nowhere else, of these the innermost.
std::vector<std::string> elementsAt(NSWindow window, const Changes& changes, double scale);

}  // namespace goldens
