#pragma once
// The states of NSMenu and NSMenuItem, for the buttons that show menus.

#include "cocoa/AppKit.h"
#include "standin/runtime/Objects.h"

namespace standin {

struct MenuItemState : cocoa::ObjectState {
  cocoa::Ref<NSString> title;
  cocoa::Ref<NSAttributedString> attributedTitle;  // shown instead of the title, which stays what it is
  SEL action = nullptr;
  NSInteger state = 0;
  id menu = nullptr;

  id initWithTitle(NSString text, SEL selected, NSString keyEquivalent);
  NSString titleHandle();
  void setTitle(NSString text);
  void setAttributedTitle(NSAttributedString text);
  void changed();
};

struct MenuState : cocoa::ObjectState {
  cocoa::Ref<NSMutableArray> items = cocoa::make<NSMutableArray>();
  id cell = nullptr;  // of the pop-up button that shows this menu

  ~MenuState();
  NSArray itemArray() {
    return cocoa::autoreleased(cocoa::Ref<NSArray>::adopt(cocoa::call<"copy", NSArray>(items.get())));
  }
  NSInteger numberOfItems() { return static_cast<NSInteger>(items->count()); }
  NSMenuItem itemAtIndex(NSInteger index);
  void addItem(NSMenuItem item);
  NSMenuItem addItemWithTitle(NSString title, SEL action, NSString keyEquivalent);
  void changed();
};

}  // namespace standin
