#pragma once
// The host's own views and cells, which its panes are built of.

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"
#include "host/kit/KitWindow.h"
#include "host/kit/Views.h"

namespace host {

/// The cell of the host's pop-up buttons: one small arrow that points down.
struct MAPopUpButtonCell : cocoa::ObjectState {
  cocoa::Ref<NSColor> menuArrowColor;  // the host's own when there is none
  cocoa::Ref<NSColor> titleColor;      // likewise

  id init();
  void sendsOnFaderHackState(NSInteger state);
  void setMenuArrowColor(NSColor color);
  void setTitleColor(NSColor color);
  NSAttributedString attributedTitle();
  void drawInterior(CGRect frame, NSView view);
};

/// A pop-up button of one of the classes, with its items, the first of which is selected.
cocoa::Ref<NSPopUpButton> newPopUpButton(const char* className, CGRect frame,
                                         std::initializer_list<std::string_view> items);

/// Tabs along the top of a view.
struct MAKitTabView : cocoa::ObjectState {
  std::vector<std::string> tabs;
  std::size_t selected = 0;

  void setLayer(CALayer layer);
  void drawRect(CGRect dirty);
};

/// The bar above a part of a pane; its controls lie on it.
struct CLgDocwControlsView : cocoa::ObjectState {
  void drawRect(CGRect dirty);
};

/// A bar with a title. Its type is 1 above note pads, 2 above the library and lists, 0 elsewhere.
cocoa::Ref<NSView> newControlsView(CGRect frame, NSInteger type, std::string title);

/// Draws tabs, centred in a rectangle.
void drawTabs(CGRect bounds, const std::vector<std::string>& tabs, std::size_t selected);

/// Text without a frame.
cocoa::Ref<NSTextField> newLabel(std::string_view text, CGRect frame, NSColor color, double size, double weight = 0);
/// A rectangle of one colour.
cocoa::Ref<NSBox> newBox(CGRect frame, NSColor color, double cornerRadius = 0);

/// A field to search by, that nothing was typed into.
void addSearchField(NSView parent, CGRect place, std::string_view prompt, NSColor background, NSColor text);

/// Cuts a strip off the upper edge of a rectangle.
CGRect takeTop(CGRect& rest, double height);

void defineKitViews();

}  // namespace host
