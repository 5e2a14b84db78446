// The menu of loop packs, told from other menus by its help identifier.

#include "cocoa/AppKit.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"MAPopUpButton"};

struct SetQuickHelpID : HostOverride<kClass, "setQuickHelpID:", void(NSObject)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kLoopBrowser);

  static void themed(NSObject button, NSObject identifier) {
    const NSColor title = ThemeUtility::shared().colorForKey(key<"LoopPacksMenuTitleColor">);
    if (title && as<NSString>(identifier).isEqualToString(literal<"LPB_023_LoopsMenu">())) {
      call<"setTitleColor:">(button, title);
    }
    callHost(button, identifier);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MAPopUpButton = OverridesOf<kClass, SetQuickHelpID>::themedClass<>();
}  // namespace overrides

}  // namespace velura
