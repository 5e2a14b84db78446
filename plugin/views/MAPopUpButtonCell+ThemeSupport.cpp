// The arrow of the menu that shows sends on the faders.

#include "cocoa/AppKit.h"
#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

using SendsOnFaderHackState =
    Override<"MAPopUpButtonCell", void(NSInteger), "sendsOnFaderHackState:", "customSendsOnFaderHackState:">;

NSColor arrowColor(NSInteger state) {
  const ThemeUtility& theme = ThemeUtility::shared();
  if (state == NSControlStateValueOn) return theme.colorForKey(key<"sendsOnFaderPopupMenuArrowColorOn">);
  if (state == NSControlStateValueOff) return theme.colorForKey(key<"popupButtonMenuArrowColorOff">);
  return {};
}

void customSendsOnFaderHackState(NSObject cell, NSInteger state) {
  SendsOnFaderHackState::callHost(cell, state);
  if (const NSColor color = arrowColor(state)) call<"setMenuArrowColor:">(cell, color);
}

}  // namespace

void attachMAPopUpButtonCellThemeSupport() {
  CategoryDefinition("MAPopUpButtonCell")
      .replacement<SendsOnFaderHackState, customSendsOnFaderHackState>()
      .classMethod<"addSwizzleMethod", installOnce<SendsOnFaderHackState>>();
}

}  // namespace velura
