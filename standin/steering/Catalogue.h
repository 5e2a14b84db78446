#pragma once
// Colour catalogues: what `colorWithCatalogName:colorName:` looks its names up in.

#include "cocoa/AppKit.h"

namespace standin {

/// Enters a colour under its catalogue and its name, in place of an earlier one. A catalogue belongs to
/// whoever ships it, so a host fills its own at start-up.
void registerCatalogueColor(const char* catalogue, const char* name, NSColor color);

}  // namespace standin
