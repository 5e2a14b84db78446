#pragma once

#include "host/mixer/MANode.h"

namespace host {

/// A picture: one that it was given as its contents, else the icon of a track that `title` names.
struct MAImageNode : cocoa::ObjectState {
  cocoa::Ref<NSObject> contents;  // an NSImage or an image of Core Graphics

  id init();
  void setContents(NSObject image);
  void updatePresentationObject(NSObject presentation, NSObject view);
  void drawRect(CGRect rect, CGContextRef context);
};

void defineMAImageNode();

}  // namespace host
