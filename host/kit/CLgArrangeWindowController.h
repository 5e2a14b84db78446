#pragma once

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"
#include "host/kit/Pane.h"

namespace host {

/// Controls the window of a song's document.
struct CLgArrangeWindowController : cocoa::ObjectState {
  cocoa::Ref<NSView> mainSplitView;  // the panes below the transport
  cocoa::Ref<NSView> actionBarView;
  Pane* inspector = nullptr;  // while the window is open

  cocoa::Ref<NSView> browserUnilibView;  // the files of computer and project, while their pane is open

  BOOL inspectorIsVisible();
  void toggleInspectors();
};

void defineCLgArrangeWindowController();

}  // namespace host
