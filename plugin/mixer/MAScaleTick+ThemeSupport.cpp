// The ticks of scales are made in the theme's colours.

#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

using TickWithType =
    Override<"MAScaleTick", NSObject(NSInteger, CGColorRef, CGColorRef, double, NSString),
             "scaleTickWithType:color:highlightedColor:defaultYPosition:label:",
             "customScaleTickWithType:color:highlightedColor:defaultYPosition:label:", MethodKind::kClass>;
using InfinityTickWithType =
    Override<"MAScaleTick", NSObject(NSInteger, CGColorRef, CGColorRef, double, NSString),
             "scaleInfinityTickWithType:color:highlightedColor:defaultYPosition:label:",
             "customScaleInfinityTickWithType:color:highlightedColor:defaultYPosition:label:", MethodKind::kClass>;

CGColorRef themedOr(ThemeKey key, CGColorRef host) {
  const NSColor themed = ThemeUtility::shared().colorForKey(key);
  return themed ? themed.CGColor() : host;
}

template <class Factory>
NSObject customTick(Class tick, NSInteger type, CGColorRef color, CGColorRef highlighted, double y, NSString label) {
  return Factory::callHost(tick, type, themedOr(key<"scaleTickMarkColor">, color),
                           themedOr(key<"scaleTickMarkHighlightColor">, highlighted), y, label);
}

}  // namespace

void attachMAScaleTickThemeSupport() {
  CategoryDefinition("MAScaleTick")
      .replacement<TickWithType, customTick<TickWithType>>()
      .replacement<InfinityTickWithType, customTick<InfinityTickWithType>>()
      .classMethod<"addSwizzleMethod", installOnce<TickWithType, InfinityTickWithType>>();
}

}  // namespace velura
