// What shows behind the strips of the mixer.

#include "cocoa/AppKit.h"
#include "cocoa/Override.h"
#include "cocoa/QuartzCore.h"
#include "plugin/loader/Attach.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

using BackgroundColor = Override<"CLgRupertContentsView", NSColor(), "backgroundColor", "mixerBackgroundColor">;
using ViewWillMoveToWindow =
    Override<"CLgRupertContentsView", void(NSWindow), "viewWillMoveToWindow:", "customViewWillMoveToWindow:">;

NSColor mixerBackgroundColor(NSView contents) {
  const NSColor themed = ThemeUtility::shared().mixerBackgroundColor();
  return themed ? themed : BackgroundColor::callHost(contents);
}

void customViewWillMoveToWindow(NSView contents, NSWindow window) {
  ViewWillMoveToWindow::callHost(contents, window);
  const NSColor themed = ThemeUtility::shared().mixerBackgroundColor();
  if (themed) contents.layer().setBackgroundColor(themed.CGColor());
}

}  // namespace

void attachMANodeViewThemeSupport() {
  CategoryDefinition("MANodeView")
      .replacement<BackgroundColor, mixerBackgroundColor>()
      .replacement<ViewWillMoveToWindow, customViewWillMoveToWindow>()
      .classMethod<"addSwizzleMethod", installOnce<BackgroundColor, ViewWillMoveToWindow>>();
}

}  // namespace velura
