// Outlines: the one of the loop browser takes its colours.

#include "cocoa/AppKit.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/views/TableColors.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"MAKitOutlineView"};

struct SetThemeVariant : HostOverride<kClass, "setThemeVariant:", void(NSInteger)> {
  static constexpr OpenWindow kOpenWindow = notReached(kSetWithVariant, "MALoopBrowserOutlineView");

  static void themed(NSView outline, NSInteger variant) {
    callHost(outline, variant);
    if (outline.className().isEqualToString(literal<"MALoopBrowserOutlineView">())) colorLoopBrowserList(outline);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MAKitOutlineView = OverridesOf<kClass, SetThemeVariant>::themedClass<>();
}  // namespace overrides

}  // namespace velura
