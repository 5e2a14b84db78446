#pragma once

#include <optional>

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"
#include "host/arrange/ArrangeModel.h"

namespace host {

/// The regions on their tracks. The workspace's background lies behind this view.
struct ArrangeContentsSectionView : cocoa::ObjectState {
  void drawRect(CGRect dirty);
  void mouseDown(NSEvent event);
  void mouseDragged(NSEvent event);
  void mouseUp(NSEvent event);
  NSArray accessibilityChildren();

  /// Where a region lies, in the view's coordinates.
  CGRect regionRect(std::size_t row, const Region& region);

 private:
  struct Drag {
    std::size_t row = 0;
    std::size_t region = 0;
    double startBar = 1;
    double fromX = 0;
  };
  std::optional<Drag> regionAt(CGPoint point);
  void drawGrid(CGRect dirty);
  cocoa::Ref<NSObject> makeRow(std::size_t row);
  cocoa::Ref<NSArray> makeRegions(std::size_t row);
  cocoa::Ref<NSObject> makeCycle();

  std::optional<Drag> drag_;
};

void defineArrangeContentsSectionView();

}  // namespace host
