#pragma once

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"
#include "host/arrange/ArrangeModel.h"

namespace host {

/// The column of track headers. It draws what stands on a header; the header's own background lies behind it.
struct ArrangeTrackHeaderSectionView : cocoa::ObjectState {
  BOOL isFlipped();
  void drawRect(CGRect dirty);
  void mouseDown(NSEvent event);
  void mouseDragged(NSEvent) {}
  void mouseUp(NSEvent event);
  NSArray accessibilityChildren();

  /// The header of a track, in the view's coordinates.
  CGRect headerRect(std::size_t row);
  /// Where a track's name stands.
  CGRect nameRect(std::size_t row);
};

void defineArrangeTrackHeaderSectionView();

}  // namespace host
