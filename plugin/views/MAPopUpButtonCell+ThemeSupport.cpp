// The arrow of the menu that shows sends on the faders.

#include "cocoa/AppKit.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"MAPopUpButtonCell"};

NSColor arrowColor(NSInteger state) {
  const ThemeUtility& theme = ThemeUtility::shared();
  if (state == NSControlStateValueOn) return theme.colorForKey(key<"sendsOnFaderPopupMenuArrowColorOn">);
  if (state == NSControlStateValueOff) return theme.colorForKey(key<"popupButtonMenuArrowColorOff">);
  return {};
}

struct SendsOnFaderHackState : HostOverride<kClass, "sendsOnFaderHackState:", void(NSInteger)> {
  static constexpr OpenWindow kOpenWindow = notReached(kSetOnce, "MAPopUpButton");

  static void themed(NSObject cell, NSInteger state) {
    callHost(cell, state);
    if (const NSColor color = arrowColor(state)) call<"setMenuArrowColor:">(cell, color);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MAPopUpButtonCell = OverridesOf<kClass, SendsOnFaderHackState>::themedClass<>();
}  // namespace overrides

}  // namespace velura
