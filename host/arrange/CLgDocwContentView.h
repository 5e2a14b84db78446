#pragma once

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"

namespace host {

/// The contents of a document window. Its background shows between the panes, as their separators.
struct CLgDocwContentView : cocoa::ObjectState {
  NSColor backgroundColor();
  void drawRect(CGRect dirty);
};

void defineCLgDocwContentView();

}  // namespace host
