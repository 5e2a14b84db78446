// The ticks of scales are made in the theme's colours.

#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"MAScaleTick"};

CGColorRef themedOr(ThemeKey key, CGColorRef host) {
  const NSColor themed = ThemeUtility::shared().colorForKey(key);
  return themed ? themed.CGColor() : host;
}

/// A class method that makes a tick.
template <FixedString Selector>
struct TickFactory
    : HostClassOverride<kClass, Selector, NSObject(NSInteger, CGColorRef, CGColorRef, double, NSString)> {
  static constexpr OpenWindow kOpenWindow = notReached(kKeepsTicks);

  static NSObject themed(Class tick, NSInteger type, CGColorRef color, CGColorRef highlighted, double y,
                         NSString label) {
    return TickFactory::callHost(tick, type, themedOr(key<"scaleTickMarkColor">, color),
                                 themedOr(key<"scaleTickMarkHighlightColor">, highlighted), y, label);
  }
};
using TickWithType = TickFactory<"scaleTickWithType:color:highlightedColor:defaultYPosition:label:">;
using InfinityTickWithType = TickFactory<"scaleInfinityTickWithType:color:highlightedColor:defaultYPosition:label:">;

}  // namespace

namespace overrides {
extern constinit const ThemedClass MAScaleTick =
    OverridesOf<kClass, TickWithType, InfinityTickWithType>::themedClass<>();
}  // namespace overrides

}  // namespace velura
