// The bar of controls above the library.

#include "cocoa/AppKit.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

/// The host keeps what a bar of controls is for in an instance variable. 0 when it has none.
std::intptr_t typeOf(NSView controls) {
  const Class cls = object_getClass(controls.object);
  const Ivar variable = class_getInstanceVariable(cls, "docwControlsViewType");
  if (variable == nullptr) return 0;
  return reinterpret_cast<std::intptr_t>(object_getIvar(controls.object, variable));
}

struct ControlsDrawRect
    : HostOverride<"CLgDocwControlsView", "drawRect:", void(CGRect), "customCLgDocwControlsViewDrawRect:"> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kHost);

  static void themed(NSView controls, CGRect dirty) {
    constexpr std::intptr_t kLibrary = 2;
    const NSColor color = ThemeUtility::shared().colorForKey(key<"LibraryColorHeaderBackground">);
    if (!color || typeOf(controls) != kLibrary) return callHost(controls, dirty);
    color.setFill();
    NSRectFill(dirty);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MAKitView = OverridesOf<"MAKitView", ControlsDrawRect>::themedClass<>();
}  // namespace overrides

}  // namespace velura
