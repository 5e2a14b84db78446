// The tabs of the loop browser.

#include "cocoa/AppKit.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/views/LayerColor.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"MAKitTabView"};

struct SetLayer : HostOverride<kClass, "setLayer:", void(CALayer)> {
  static constexpr OpenWindow kOpenWindow = notReached(kSetWithLayer, "MAKitTabView");

  static void themed(NSView tabs, CALayer layer) {
    callHost(tabs, layer);
    if (!tabs.superview().className().isEqualToString(literal<"MALoopBrowserSplitView">())) return;
    fillLayer(layer, key<"LoopBrowser_PaneHeaderColor">);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MAKitTabView = OverridesOf<kClass, SetLayer>::themedClass<>();
}  // namespace overrides

}  // namespace velura
