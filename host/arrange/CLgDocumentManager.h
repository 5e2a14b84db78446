#pragma once

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"

namespace host {

/// Knows a document, and which views show it.
struct CLgDocumentManager : cocoa::ObjectState {
  cocoa::Ref<NSObject> songDocument;
  cocoa::Ref<NSView> view;

  NSArray visibleUnilibViews();
};

void defineCLgDocumentManager();

}  // namespace host
