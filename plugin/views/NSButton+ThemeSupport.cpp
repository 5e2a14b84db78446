// The symbols of the action bar's buttons.

#include <utility>

#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/theme/SelectedTheme.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/views/ToolbarButton.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"NSButton"};

NSImage tinted(NSImage image, ThemeKey key) {
  if (!respondsTo<"imageWithColor:">(image)) return image;
  return call<"imageWithColor:", NSImage>(image, ThemeUtility::shared().colorForKey(key));
}

struct SetImage : HostOverride<kClass, "setImage:", void(NSImage)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kActionBar);

  static void themed(NSButton button, NSImage image) {
    if (!isToolbarButton(button)) return callHost(button, image);
    const bool isSwitch = call<"showsStateBy", NSUInteger>(button.cell()) != 0;
    if (!isSwitch) {
      return callHost(button, tinted(image, key<"OneClickToolbarIconsSymbolsColor">));
    }
    NSImage shown = tinted(image, key<"On_OffToolbarIcons_OffSymbolsColor">);
    NSImage other = tinted(image, key<"On_OffToolbarIcons_OnSymbolsColor">);
    if (button.state() == NSControlStateValueOn) std::swap(shown, other);
    callHost(button, shown);
    call<"setAlternateImage:">(button, other);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass NSButton =
    OverridesOf<kClass, SetImage>::themedClass<InstallationRules{.when = Condition::kCustomTheme}>();
}  // namespace overrides

}  // namespace velura
