#pragma once

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"

namespace host {

/// Controls the window of a song's document.
struct CLgArrangeWindowController : cocoa::ObjectState {
  cocoa::Ref<NSView> mainSplitView;      // the panes below the transport
  cocoa::Ref<NSView> browserUnilibView;  // the files of computer and project, while their pane is open
};

void defineCLgArrangeWindowController();

}  // namespace host
