// What shows behind the strips of the mixer.

#include "cocoa/AppKit.h"
#include "cocoa/QuartzCore.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kRupertContentsView{"CLgRupertContentsView"};

struct BackgroundColor : HostOverride<kRupertContentsView, "backgroundColor", NSColor(), "mixerBackgroundColor"> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerBackground);

  static NSColor themed(NSView contents) {
    const NSColor themed = ThemeUtility::shared().mixerBackgroundColor();
    return themed ? themed : callHost(contents);
  }
};

struct ViewWillMoveToWindow : HostOverride<kRupertContentsView, "viewWillMoveToWindow:", void(NSWindow)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerBackground);

  static void themed(NSView contents, NSWindow window) {
    callHost(contents, window);
    const NSColor themed = ThemeUtility::shared().mixerBackgroundColor();
    if (themed) contents.layer().setBackgroundColor(themed.CGColor());
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MANodeView =
    OverridesOf<"MANodeView", BackgroundColor, ViewWillMoveToWindow>::themedClass<>();
}  // namespace overrides

}  // namespace velura
