// The bar of controls above the library.

#include "cocoa/AppKit.h"
#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

using ControlsDrawRect =
    Override<"CLgDocwControlsView", void(CGRect), "drawRect:", "customCLgDocwControlsViewDrawRect:">;

/// The host keeps what a bar of controls is for in an instance variable. 0 when it has none.
std::intptr_t typeOf(NSView controls) {
  const Class cls = object_getClass(controls.object);
  const Ivar variable = class_getInstanceVariable(cls, "docwControlsViewType");
  if (variable == nullptr) return 0;
  return reinterpret_cast<std::intptr_t>(object_getIvar(controls.object, variable));
}

void customControlsDrawRect(NSView controls, CGRect dirty) {
  constexpr std::intptr_t kLibrary = 2;
  const NSColor color = ThemeUtility::shared().colorForKey(key<"LibraryColorHeaderBackground">);
  if (!color || typeOf(controls) != kLibrary) return ControlsDrawRect::callHost(controls, dirty);
  color.setFill();
  NSRectFill(dirty);
}

}  // namespace

void attachMAKitViewThemeSupport() {
  CategoryDefinition("MAKitView")
      .replacement<ControlsDrawRect, customControlsDrawRect>()
      .classMethod<"addSwizzleMethod", installOnce<ControlsDrawRect>>();
}

}  // namespace velura
