#include "plugin/views/LibraryColors.h"

#include "cocoa/Call.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

/// The host's colour of menu arrows; nil on hosts that name their colours otherwise.
NSColor menuArrowColor() {
  const Class colors = classNamed("MAKitColor");
  if (colors == nullptr || !respondsTo(asObject(colors), selector<"colorWithPath:">())) return {};
  return call<"colorWithPath:", NSColor>(asObject(colors), literal<"Dark.menuArrows">());
}

void colorSelectedItem(NSObject button, NSColor color) {
  const auto item = call<"selectedItem", NSObject>(button);
  const auto title = call<"title", NSString>(item);
  if (title.length() == 0) return;
  const NSMutableDictionary attributes = NSMutableDictionary::dictionary();
  attributes.setObject(color, NSForegroundColorAttributeName);
  call<"setAttributedTitle:">(item, NSAttributedString::withString(title, attributes).get());
}

}  // namespace

void colorLibraryMenu(NSObject button) {
  if (!button) return;
  if (const NSColor arrow = menuArrowColor()) call<"setContentTintColor:">(button, arrow);
  const NSColor title = ThemeUtility::shared().colorForKey(key<"LibrarySoundPacksFilterPopUpTextColor">);
  if (title) colorSelectedItem(button, title);
}

}  // namespace velura
