// The menu of loop packs, told from other menus by its help identifier.

#include "cocoa/AppKit.h"
#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

using SetQuickHelpID = Override<"MAPopUpButton", void(NSObject), "setQuickHelpID:", "customSetQuickHelpID:">;

void customSetQuickHelpID(NSObject button, NSObject identifier) {
  const NSColor title = ThemeUtility::shared().colorForKey(key<"LoopPacksMenuTitleColor">);
  if (title && as<NSString>(identifier).isEqualToString(literal<"LPB_023_LoopsMenu">())) {
    call<"setTitleColor:">(button, title);
  }
  SetQuickHelpID::callHost(button, identifier);
}

}  // namespace

void attachMAPopUpButtonThemeSupport() {
  CategoryDefinition("MAPopUpButton")
      .replacement<SetQuickHelpID, customSetQuickHelpID>()
      .classMethod<"addSwizzleMethod", installOnce<SetQuickHelpID>>();
}

}  // namespace velura
