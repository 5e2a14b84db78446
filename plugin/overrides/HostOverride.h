#pragma once
// How an override is declared: one struct in the file of its host class that says all of it.
//
//   struct BorderColor : ThemedColor<kClass, "borderColor", key<"stripBorderColor">> {
//     static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerLayout);
//   };
//   struct DrawFrame : HostOverride<kClass, "drawFrame:", void(CGRect)> {
//     static constexpr OpenWindow kOpenWindow = ...;
//     static void themed(MAStripNode strip, CGRect rect) { ... callHost(strip, rect) ... }
//   };
//
// `themed` takes the place of the host's method. `kWhen` may be given where an override is not always installed.

#include "cocoa/AppKit.h"
#include "cocoa/Override.h"
#include "plugin/overrides/Condition.h"
#include "plugin/overrides/OpenWindow.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {

/// A method of the host class `Target`. The replacement is called "custom…" after it, where nothing else is said.
template <cocoa::FixedString Target, cocoa::FixedString Selector, class Signature,
          cocoa::FixedString Replacement = cocoa::replacementNameOf(Selector)>
struct HostOverride : cocoa::Override<Target, Selector, Signature, Replacement> {
  static constexpr Condition kWhen = Condition::kAlways;
};

/// The same for a class method.
template <cocoa::FixedString Target, cocoa::FixedString Selector, class Signature,
          cocoa::FixedString Replacement = cocoa::replacementNameOf(Selector)>
struct HostClassOverride : cocoa::Override<Target, Selector, Signature, Replacement, cocoa::MethodKind::kClass> {
  static constexpr Condition kWhen = Condition::kAlways;
};

/// A colour as the host's method answers it.
template <class R>
R crossing(NSColor color) {
  if constexpr (std::is_same_v<R, CGColorRef>) {
    return color.CGColor();
  } else {
    return color;
  }
}

/// The theme's colour, else what the host's method answers.
template <ThemeKey Key, class Override, class Self>
auto themedOrHost(Self self) {
  using R = decltype(Override::callHost(self));
  const NSColor themed = ThemeUtility::shared().colorForKey(Key);
  return themed ? crossing<R>(themed) : Override::callHost(self);
}

/// A getter of a colour that a key of the theme takes the place of.
template <cocoa::FixedString Target, cocoa::FixedString Selector, ThemeKey Key, class R = NSColor,
          cocoa::FixedString Replacement = cocoa::replacementNameOf(Selector)>
struct ThemedColor : HostOverride<Target, Selector, R(), Replacement> {
  static R themed(NSObject self) { return themedOrHost<Key, ThemedColor>(self); }
};

/// The same where the host asks a class.
template <cocoa::FixedString Target, cocoa::FixedString Selector, ThemeKey Key,
          cocoa::FixedString Replacement = cocoa::replacementNameOf(Selector)>
struct ThemedClassColor : HostClassOverride<Target, Selector, NSColor(), Replacement> {
  static NSColor themed(Class self) { return themedOrHost<Key, ThemedClassColor>(self); }
};

}  // namespace velura
