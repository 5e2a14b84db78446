// What every view tells of itself; the places are the screen's, y up.

#include "cocoa/AppKit.h"
#include "standin/runtime/Objects.h"
#include "standin/views/Registration.h"

using namespace cocoa;

namespace standin {

namespace {

NSString role(NSView) { return NSAccessibilityGroupRole; }
NSArray children(NSView) { return NSArray::array(); }

NSObject attributeValue(NSView self, NSString name) {
  if (!name) return {};
  if (name.isEqualToString(literal<"AXRole">())) return call<"accessibilityRole", NSObject>(self);
  if (name.isEqualToString(literal<"AXChildren">())) return call<"accessibilityChildren", NSObject>(self);
  if (name.isEqualToString(literal<"AXSize">())) return NSValue::valueWithSize(self.frame().size);
  if (!name.isEqualToString(literal<"AXPosition">()) || !self.window()) return {};
  const NSRect base = self.convertRectToView(self.bounds(), {});
  return NSValue::valueWithPoint(self.window().convertRectToScreen(base).origin);
}

}  // namespace

void registerViewAccessibility() {
  CategoryDefinition("NSView")
      .method<"accessibilityRole", role>()
      .method<"accessibilityChildren", children>()
      .method<"accessibilityAttributeValue:", attributeValue>();
}

}  // namespace standin
