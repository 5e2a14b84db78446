#pragma once

#include <functional>

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"

namespace host {

/// A part of a view as assistive software sees it. What it is called and what lies in it is made when
/// somebody first asks.
struct MAAccessibilityElement : cocoa::ObjectState {
  cocoa::Ref<NSString> role;
  CGRect frame;       // in the view's coordinates
  id view = nullptr;  // not owned; null once the view shows something else
  bool selected = false;
  std::function<NSString()> makeDescription;
  std::function<cocoa::Ref<NSArray>()> makeChildren;

  /// What it is called. Asked again as long as there is no text.
  NSString accessibilityDescription();
  NSArray accessibilityChildren();
  /// nil for an attribute that it does not have, and for its place once the view shows something else.
  NSObject attributeValue(NSString name);
  /// On the screen: the lower left corner, y up.
  CGRect accessibilityFrame();
  /// Cuts it off from its view, with all that lies in it.
  void detach();

 private:
  cocoa::Ref<NSString> description_;
  cocoa::Ref<NSArray> children_;
};

/// A new element of a view.
cocoa::Ref<NSObject> makeAccessibilityElement(NSView view, NSString role, CGRect frame);
/// Cuts all elements of a list off from their view.
void detachElements(NSArray elements);

void defineMAAccessibilityElement();

}  // namespace host
