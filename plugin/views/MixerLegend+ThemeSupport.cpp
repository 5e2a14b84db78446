// The mixer's legend: its background, and its elements, which stay the host's.

#include "cocoa/AppKit.h"
#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

using BackgroundColor = Override<"MixerLegendView", NSColor(), "backgroundColor", "customBackgroundColor">;
using AddElements = Override<"MixerLegendViewController", void(), "addElements", "customAddElements">;

NSColor customBackgroundColor(NSView legend) {
  const NSColor themed = ThemeUtility::shared().colorForKey(key<"componentsLabelBackgroundColor">);
  return themed ? themed : BackgroundColor::callHost(legend);
}

void customAddElements(NSObject controller) { AddElements::callHost(controller); }

}  // namespace

void attachMixerLegendViewThemeSupport() {
  CategoryDefinition("MixerLegendView")
      .replacement<BackgroundColor, customBackgroundColor>()
      .classMethod<"addSwizzleMethod", installOnce<BackgroundColor>>();
}

void attachMixerLegendViewControllerThemeSupport() {
  CategoryDefinition("MixerLegendViewController")
      .replacement<AddElements, customAddElements>()
      .classMethod<"addSwizzleMethod", installOnce<AddElements>>();
}

}  // namespace velura
