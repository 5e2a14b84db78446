// Outlines: the one of the loop browser takes its colours.

#include "cocoa/AppKit.h"
#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/views/TableColors.h"

namespace velura {
namespace {

using namespace cocoa;

using SetThemeVariant = Override<"MAKitOutlineView", void(NSInteger), "setThemeVariant:", "customSetThemeVariant:">;

void customSetThemeVariant(NSView outline, NSInteger variant) {
  SetThemeVariant::callHost(outline, variant);
  if (outline.className().isEqualToString(literal<"MALoopBrowserOutlineView">())) colorLoopBrowserList(outline);
}

}  // namespace

void attachMAKitOutlineViewThemeSupport() {
  CategoryDefinition("MAKitOutlineView")
      .replacement<SetThemeVariant, customSetThemeVariant>()
      .classMethod<"addSwizzleMethod", installOnce<SetThemeVariant>>();
}

}  // namespace velura
