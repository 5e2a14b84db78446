#pragma once

#include "cocoa/AppKit.h"
#include "host/arrange/Timeline.h"
#include "host/drawing/Painter.h"

namespace host {

/// A region on its track, and where it lies in the contents.
struct PlacedRegion {
  const Region& region;
  const Track& track;
  CGRect frame;
};

/// Draws regions, y downwards. What a region holds follows from its name and place alone, so every picture of
/// it is the same.
class RegionDrawing {
 public:
  /// Only what meets `dirty` is drawn. `scale` in pixels per point.
  RegionDrawing(const Painter& painter, const Timeline& timeline, CGRect dirty, double scale)
      : painter_(painter), timeline_(timeline), dirty_(dirty), scale_(scale) {}

  void draw(const PlacedRegion& placed) const;

 private:
  void drawSound(const PlacedRegion& placed, CGRect inside, NSColor color) const;
  void drawNotes(const PlacedRegion& placed, CGRect inside, NSColor color) const;
  void drawParts(const PlacedRegion& placed, CGRect inside, NSColor color) const;
  void drawLoopSign(CGPoint centre, NSColor color) const;
  [[nodiscard]] double snapped(double length) const;

  const Painter& painter_;
  const Timeline& timeline_;
  CGRect dirty_;
  double scale_;
};

}  // namespace host
