#pragma once

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"

namespace host {

/// Shows a tree of nodes.
struct MANodeView : cocoa::ObjectState {
  cocoa::Ref<NSObject> node;

  void setNode(NSObject root);
  /// Brings the layers up to date with the nodes: once a frame.
  void updatePresentation();
};

void defineMANodeView();

}  // namespace host
