// Outlines: the one of the loop browser takes its colours.

#include "cocoa/AppKit.h"
#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/views/TableColours.h"

namespace velura {
namespace {

using namespace cocoa;

using SetThemeVariant = Override<"MAKitOutlineView", void(NSInteger), "setThemeVariant:", "customSetThemeVariant:">;

void customSetThemeVariant(NSView outline, NSInteger variant) {
  SetThemeVariant::callHost(outline, variant);
  if (outline.className().isEqualToString(literal<"MALoopBrowserOutlineView">())) colourLoopBrowserList(outline);
}

void addSwizzleMethod(Class /*self*/) {
  static const bool installed = [] {
    SetThemeVariant::install();
    return true;
  }();
  static_cast<void>(installed);
}

}  // namespace

void attachMAKitOutlineViewThemeSupport() {
  CategoryDefinition("MAKitOutlineView")
      .replacement<SetThemeVariant, customSetThemeVariant>()
      .classMethod<"addSwizzleMethod", addSwizzleMethod>();
}

}  // namespace velura
