#pragma once
// The host's own views and cells, which its panes are built of.

#include <initializer_list>
#include <string_view>

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"

namespace host {

/// The cell of the host's pop-up buttons: one small arrow that points down.
struct MAPopUpButtonCell : cocoa::ObjectState {
  cocoa::Ref<NSColor> menuArrowColor;  // the host's own when there is none
  cocoa::Ref<NSColor> titleColor;      // likewise
  NSInteger sendsOnFader = -1;         // whether the menu of sends on faders is on; -1 on other buttons

  id init();
  void sendsOnFaderHackState(NSInteger state);
  void setMenuArrowColor(NSColor colour);
  void setTitleColor(NSColor colour);
  NSAttributedString attributedTitle();
  void drawInterior(CGRect frame, NSView view);
};

/// A pop-up button of one of the classes, with its items, the first of which is selected.
cocoa::Ref<NSPopUpButton> newPopUpButton(const char* className, CGRect frame,
                                         std::initializer_list<std::string_view> items);

void defineKitViews();

}  // namespace host
