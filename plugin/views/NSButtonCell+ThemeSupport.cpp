// Switches of the action bar: one that is on loses its border and gets a background.

#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/views/ToolbarButton.h"

namespace velura {
namespace {

using namespace cocoa;

using SetState = Override<"NSButtonCell", void(NSInteger), "setState:", "customSetState:">;

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

void customSetState(NSButtonCell cell, NSInteger state) {
  const NSInteger before = cell.state();
  SetState::callHost(cell, state);
  if (call<"showsStateBy", NSUInteger>(cell) == 0) return;
  const NSView button = cell.controlView();
  if (!isToolbarButton(button)) return;
  showState(cell, button);
  if (state != before) exchangeImages(cell);
}

}  // namespace

void attachNSButtonCellThemeSupport() {
  CategoryDefinition("NSButtonCell")
      .replacement<SetState, customSetState>()
      .classMethod<"addSwizzleMethod", installOnce<SetState>>();
}

}  // namespace velura
