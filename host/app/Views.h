#pragma once
// The host's views and windows.

#include <functional>

#include "cocoa/AppKit.h"
#include "cocoa/Call.h"
#include "cocoa/ClassDefinition.h"

namespace host {

/// Base of the host's views. Layer-backed; its background is its layer's.
struct MAView : cocoa::ObjectState {
  cocoa::Ref<NSColor> backgroundColor;
  NSObject delegate;  // outlives the view

  id initWithFrame(CGRect frame);
  void setBackgroundColor(NSColor colour);
  double backingScale();
};

/// Shows a tree of nodes.
struct MANodeView : cocoa::ObjectState {
  cocoa::Ref<NSObject> node;

  void setNode(NSObject root);
  /// Brings the layers up to date with the nodes: once a frame.
  void updatePresentation();
};

/// A strip of controls above a window's contents, drawn by a function of the host's own.
struct CLgToolbarView : cocoa::ObjectState {
  std::function<void(CGRect, CGContextRef)> draw;

  void drawRect(CGRect dirty);
};

void defineViews();

}  // namespace host
