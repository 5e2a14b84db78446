#pragma once
// The coloured strips behind the headers of the arrange window's tracks.

#include <vector>

#include "cocoa/AppKit.h"
#include "plugin/arrange/TrackTable.h"

namespace velura {

/// One strip, in the header view's coordinates.
struct HeaderStrip {
  CGRect rect;
  cocoa::Ref<NSColor> color;
  bool selected = false;
};

/// The pixel column in which the colour bars of a header view's tracks are sampled; 0 for strips in the
/// theme's colours.
struct ColorBar {
  NSInteger column = 0;
  bool isShown = false;
  bool areTrackNumbersShown = false;
};
ColorBar colorBarOf(NSView header);

/// What strips are made from: the header column as it is, or was when the mouse went down.
struct HeaderColumn {
  NSView view;
  std::vector<TrackRecord> tracks;
  NSInteger colorBarColumn = 0;
  NSBitmapImageRep canvas;           // the colour bars are drawn here; may be nil
  void (*drawHost)(NSView, CGRect);  // the host's own drawing
};

/// The strips of the tracks. With sampled colours only those that meet the dirty rectangle.
std::vector<HeaderStrip> stripsOf(const HeaderColumn& column, CGRect dirty);

/// Paints the strips that meet the dirty rectangle into the current graphics context.
void paintStrips(const std::vector<HeaderStrip>& strips, CGRect dirty);

}  // namespace velura
