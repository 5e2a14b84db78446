// The upper part of the loop browser.

#include "cocoa/AppKit.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/views/LayerColor.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"MASplitView"};

struct SetLayer : HostOverride<kClass, "setLayer:", void(CALayer)> {
  static constexpr OpenWindow kOpenWindow =
      partlyReachedBy(RefreshBranch::kLoopBrowser, "its layer gets the colour of the tabs",
                      "MALoopBrowserSplitView, MALoopBrowserFilterSegmentedControl");

  static void themed(NSView split, CALayer layer) {
    callHost(split, layer);
    if (split.className().isEqualToString(literal<"MALoopBrowserSplitView">())) {
      fillLayer(layer, key<"LoopBrowserHeaderColor">);
    }
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MASplitView = OverridesOf<kClass, SetLayer>::themedClass<>();
}  // namespace overrides

}  // namespace velura
