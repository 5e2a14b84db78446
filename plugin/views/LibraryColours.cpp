#include "plugin/views/LibraryColours.h"

#include "cocoa/Call.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

/// The host's colour of menu arrows; nil on hosts that name their colours otherwise.
NSColor menuArrowColour() {
  const Class colours = classNamed("MAKitColor");
  if (colours == nullptr || !respondsTo(asObject(colours), selector<"colorWithPath:">())) return {};
  return call<"colorWithPath:", NSColor>(asObject(colours), literal<"Dark.menuArrows">());
}

void colourSelectedItem(NSObject button, NSColor colour) {
  const auto item = call<"selectedItem", NSObject>(button);
  const auto title = call<"title", NSString>(item);
  if (title.length() == 0) return;
  const NSMutableDictionary attributes = NSMutableDictionary::dictionary();
  attributes.setObject(colour, NSForegroundColorAttributeName);
  call<"setAttributedTitle:">(item, NSAttributedString::withString(title, attributes).get());
}

}  // namespace

void colourLibraryMenu(NSObject button) {
  if (!button) return;
  if (const NSColor arrow = menuArrowColour()) call<"setContentTintColor:">(button, arrow);
  const NSColor title = ThemeUtility::shared().colorForKey(ThemeKey::kLibrarySoundPacksFilterPopUpTextColor);
  if (title) colourSelectedItem(button, title);
}

}  // namespace velura
