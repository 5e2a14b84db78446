// Switches of the action bar: one that is on loses its border and gets a background.

#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/views/ToolbarButton.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"NSButtonCell"};

void exchangeImages(NSButtonCell cell) {
  const Ref<NSImage> image = cell.image();
  const auto alternate = call<"alternateImage", NSImage>(cell);
  if (!image || !alternate) return;
  cell.setImage(alternate);
  call<"setAlternateImage:">(cell, image.get());
}

void showState(NSButtonCell cell, NSView button) {
  constexpr double kCornerRadius = 7;
  const bool isOn = cell.state() == NSControlStateValueOn;
  call<"setBordered:">(button, BOOL(!isOn));
  if (!isOn) return;
  cell.setBackgroundColor(ThemeUtility::shared().colorForKey(key<"On_OffToolbarIcons_OnBackgroundColor">));
  button.layer().setCornerRadius(kCornerRadius);
}

struct SetState : HostOverride<kClass, "setState:", void(NSInteger)> {
  static constexpr OpenWindow kOpenWindow = notReached(kSetOnce, "MAABButton");

  static void themed(NSButtonCell cell, NSInteger state) {
    const NSInteger before = cell.state();
    callHost(cell, state);
    if (call<"showsStateBy", NSUInteger>(cell) == 0) return;
    const NSView button = cell.controlView();
    if (!isToolbarButton(button)) return;
    showState(cell, button);
    if (state != before) exchangeImages(cell);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass NSButtonCell = OverridesOf<kClass, SetState>::themedClass<>();
}  // namespace overrides

}  // namespace velura
