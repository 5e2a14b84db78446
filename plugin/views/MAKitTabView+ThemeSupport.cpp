// The tabs of the loop browser.

#include "cocoa/AppKit.h"
#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/views/LayerColor.h"

namespace velura {
namespace {

using namespace cocoa;

using SetLayer = Override<"MAKitTabView", void(CALayer), "setLayer:", "customSetLayer:">;

void customSetLayer(NSView tabs, CALayer layer) {
  SetLayer::callHost(tabs, layer);
  if (!tabs.superview().className().isEqualToString(literal<"MALoopBrowserSplitView">())) return;
  fillLayer(layer, key<"LoopBrowser_PaneHeaderColor">);
}

}  // namespace

void attachMAKitTabViewThemeSupport() {
  CategoryDefinition("MAKitTabView")
      .replacement<SetLayer, customSetLayer>()
      .classMethod<"addSwizzleMethod", installOnce<SetLayer>>();
}

}  // namespace velura
