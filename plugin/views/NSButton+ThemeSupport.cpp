// The symbols of the action bar's buttons.

#include <utility>

#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/theme/SelectedTheme.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/views/ToolbarButton.h"

namespace velura {
namespace {

using namespace cocoa;

using SetImage = Override<"NSButton", void(NSImage), "setImage:", "customSetImage:">;

NSImage tinted(NSImage image, ThemeKey key) {
  if (!image.respondsToSelector(selector<"imageWithColor:">())) return image;
  return call<"imageWithColor:", NSImage>(image, ThemeUtility::shared().colorForKey(key));
}

void customSetImage(NSButton button, NSImage image) {
  if (!isToolbarButton(button)) return SetImage::callHost(button, image);
  const bool isSwitch = call<"showsStateBy", NSUInteger>(button.cell()) != 0;
  if (!isSwitch) {
    return SetImage::callHost(button, tinted(image, key<"OneClickToolbarIconsSymbolsColor">));
  }
  NSImage shown = tinted(image, key<"On_OffToolbarIcons_OffSymbolsColor">);
  NSImage other = tinted(image, key<"On_OffToolbarIcons_OnSymbolsColor">);
  if (button.state() == NSControlStateValueOn) std::swap(shown, other);
  SetImage::callHost(button, shown);
  call<"setAlternateImage:">(button, other);
}

void addSwizzleMethod(Class self) {
  if (VLRIsCustomThemeSelected()) installOnce<SetImage>(self);
}

}  // namespace

void attachNSButtonThemeSupport() {
  CategoryDefinition("NSButton")
      .replacement<SetImage, customSetImage>()
      .classMethod<"addSwizzleMethod", addSwizzleMethod>();
}

}  // namespace velura
