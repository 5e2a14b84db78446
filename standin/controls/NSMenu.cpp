// NSMenu and NSMenuItem. Menus are never opened here: they hold what a pop-up button chooses from.

#include "standin/controls/Menu.h"
#include "standin/controls/Registration.h"

using namespace cocoa;

namespace standin {

void MenuItemState::changed() {
  if (menu != nullptr) stateOf<MenuState>(menu).changed();
}

id MenuItemState::initWithTitle(NSString text, SEL selected, NSString /*keyEquivalent*/) {
  title = text;
  action = selected;
  return self;
}
NSString MenuItemState::titleHandle() { return title ? title.get() : literal<"">(); }
void MenuItemState::setTitle(NSString text) {
  title = text;
  changed();
}
void MenuItemState::setAttributedTitle(NSAttributedString text) {
  attributedTitle = Ref<NSAttributedString>::adopt(call<"copy", NSAttributedString>(text));
  changed();
}

MenuState::~MenuState() {
  for (const NSObject item : cocoa::items(items.get())) stateOf<MenuItemState>(item).menu = nullptr;
}

/// The pop-up button shows one of the items.
void MenuState::changed() {
  if (cell != nullptr) call<"controlView", NSView>(cell).setNeedsDisplay(true);
}

void MenuState::addItem(NSMenuItem item) {
  auto* state = stateIfKind<MenuItemState>(item);
  if (state == nullptr || state->menu != nullptr) return;
  state->menu = self;
  items->addObject(item);
  changed();
}

NSMenuItem MenuState::addItemWithTitle(NSString title, SEL action, NSString keyEquivalent) {
  const auto item = makeWith<NSMenuItem, "initWithTitle:action:keyEquivalent:">(title, action, keyEquivalent);
  addItem(item);
  return item;
}

NSMenuItem MenuState::itemAtIndex(NSInteger index) {
  const bool isThere = index >= 0 && static_cast<NSUInteger>(index) < items->count();
  return isThere ? cast<NSMenuItem>(items->objectAtIndex(static_cast<NSUInteger>(index))) : NSMenuItem();
}

void registerMenus() {
  ClassDefinition<MenuItemState>("NSMenuItem", "NSObject")
      .method<"initWithTitle:action:keyEquivalent:", &MenuItemState::initWithTitle>()
      .method<"title", &MenuItemState::titleHandle>()
      .method<"setTitle:", &MenuItemState::setTitle>()
      .getter<"attributedTitle", &MenuItemState::attributedTitle>()
      .method<"setAttributedTitle:", &MenuItemState::setAttributedTitle>()
      .property<"state", "setState:", &MenuItemState::state>()
      .registered();
  ClassDefinition<MenuState>("NSMenu", "NSObject")
      .method<"itemArray", &MenuState::itemArray>()
      .method<"numberOfItems", &MenuState::numberOfItems>()
      .method<"itemAtIndex:", &MenuState::itemAtIndex>()
      .method<"addItem:", &MenuState::addItem>()
      .method<"addItemWithTitle:action:keyEquivalent:", &MenuState::addItemWithTitle>()
      .registered();
}

}  // namespace standin
