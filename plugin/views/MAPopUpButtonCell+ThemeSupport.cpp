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

NSColor arrowColour(NSInteger state) {
  const ThemeUtility& theme = ThemeUtility::shared();
  if (state == NSControlStateValueOn) return theme.colorForKey(ThemeKey::kSendsOnFaderPopupMenuArrowColorOn);
  if (state == NSControlStateValueOff) return theme.colorForKey(ThemeKey::kPopupButtonMenuArrowColorOff);
  return {};
}

void customSendsOnFaderHackState(NSObject cell, NSInteger state) {
  SendsOnFaderHackState::callHost(cell, state);
  if (const NSColor colour = arrowColour(state)) call<"setMenuArrowColor:">(cell, colour);
}

}  // namespace

void attachMAPopUpButtonCellThemeSupport() {
  CategoryDefinition("MAPopUpButtonCell")
      .replacement<SendsOnFaderHackState, customSendsOnFaderHackState>()
      .classMethod<"addSwizzleMethod", installOnce<SendsOnFaderHackState>>();
}

}  // namespace velura
