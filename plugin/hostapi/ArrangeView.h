#pragma once
// The host's arrange window as the plug-in knows it: views, and what they answer to assistive tools.

#include <optional>

#include "cocoa/AppKit.h"
#include "cocoa/Call.h"

namespace velura {

/// A section of the arrange view: its ruler, its track headers, its contents.
struct ArrangeSection : NSView {
  using NSView::NSView;
  /// The arrange view that the section belongs to; nil where the host has none.
  [[nodiscard]] NSObject parentView() const {
    return respondsToSelector(cocoa::selector<"parentView">()) ? cocoa::call<"parentView", NSObject>(object)
                                                               : NSObject();
  }
  /// A section of the same arrange view by its number; nil where there is none.
  [[nodiscard]] NSView sibling(NSInteger number) const;
  [[nodiscard]] NSInteger section() const { return cocoa::call<"section", NSInteger>(object); }
};

/// The number of the section that holds the ruler.
inline constexpr NSInteger kRulerSection = 2;

inline NSView ArrangeSection::sibling(NSInteger number) const {
  const NSObject parent = parentView();
  return cocoa::respondsTo<"sectionView:">(parent) ? cocoa::call<"sectionView:", NSView>(parent, number) : NSView();
}

/// Places of switches in the list "trackelemShow" of a header configuration.
inline constexpr NSUInteger kColorBarElement = 12;
inline constexpr NSUInteger kSurfaceBarElement = 14;

/// What the headers of an arrange view show; nil where the host cannot be asked.
NSDictionary headerConfigurationOf(NSObject arrangeView);

/// Screen x of a view's left edge, in points; 0 outside of a window.
double screenLeftOf(NSView view);
/// A screen rectangle in a view's own coordinates.
CGRect rectFromScreen(CGRect screen, NSView view);
CGRect rectToScreen(CGRect rect, NSView view);

}  // namespace velura
