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
  void setBackgroundColor(NSColor color);
  double backingScale();
};

/// A strip of controls above a window's contents, drawn by a function of the host's own.
struct CLgToolbarView : cocoa::ObjectState {
  std::function<void(CGRect, CGContextRef)> draw;

  void drawRect(CGRect dirty);
};

/// A class of the host's that adds nothing to its superclass.
template <cocoa::FixedString Name>
struct PlainClass : cocoa::ObjectState {};
template <cocoa::FixedString Name>
void definePlainClass(const char* superclass) {
  cocoa::ClassDefinition<PlainClass<Name>>(Name.text, superclass).registered();
}

void defineViews();

}  // namespace host
