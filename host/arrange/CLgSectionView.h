#pragma once

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"
#include "host/arrange/ArrangeModel.h"

namespace host {

/// The sections of an arrange view, by the numbers that the host gives them.
inline constexpr NSInteger kHeaderSection = 0;
inline constexpr NSInteger kContentsSection = 1;
inline constexpr NSInteger kRulerSection = 2;

// The ruler, from its top downwards, in points.
inline constexpr double kRulerBaseline = 38;  // what the ticks stand on: a line down to the marker lane
inline constexpr double kMarkerLaneTop = 39;
inline constexpr double kMarkerLaneBottom = 58;
inline constexpr double kRulerHeight = 76;
inline constexpr double kBarTickHeight = 17;
inline constexpr double kBeatTickHeight = 11;
inline constexpr double kDivisionTickHeight = 6;

/// A section of an arrange view. A plain one draws the ruler with the global tracks when it is that section,
/// and nothing otherwise.
struct CLgSectionView : cocoa::ObjectState {
  NSInteger section = 0;
  NSObject parentView;  // the arrange view, which holds this one
  NSObject docManager;
  NSObject song;
  ArrangeModel* model = nullptr;  // null once the window is closed, like the three above

  ~CLgSectionView() { forgetElements(); }
  BOOL isFlipped() { return 1; }
  void drawRect(CGRect dirty);
  NSString accessibilityRole();
  NSArray accessibilityChildren() { return NSArray::array(); }
  NSObject accessibilityAttributeValue(NSString name);

  /// The accessibility elements of a section that has some: made at the first call, and again after
  /// `forgetElements`.
  template <class Make>
  NSArray elements(Make make) {
    if (!elements_) elements_ = make();
    return elements_;
  }
  /// What is shown, or where, has changed.
  void forgetElements();
  void closed();

 private:
  cocoa::Ref<NSArray> elements_;
};

void defineCLgSectionView();

}  // namespace host
