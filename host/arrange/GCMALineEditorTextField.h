#pragma once

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"

namespace host {

/// Edits one line of text in place, a track's name for one.
struct GCMALineEditorTextField : cocoa::ObjectState {
  id initWithFrame(CGRect frame);
};

void defineGCMALineEditorTextField();

}  // namespace host
