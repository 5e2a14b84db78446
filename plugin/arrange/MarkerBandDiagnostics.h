#pragma once
// What the marker bands saw, written to files under /tmp for whoever looks for a fault. Each report is made
// only while its switch file exists.

#include <string>
#include <vector>

#include "cocoa/AppKit.h"
#include "plugin/arrange/MarkerBands.h"

namespace velura {

/// "/tmp/vlr_mb_render_on": the bands of a ruler and the segments read from it, at most every 0.8 seconds.
void writeRenderReport(const MarkerRuler& ruler);

struct BandReport {
  NSView view;
  NSView ruler;  // may be nil
  double sectionLeft;
  const std::vector<BandSegment>& segments;
  const std::vector<CGRect>& regions;
};
/// "/tmp/vlr_mb_diag_on": what a pass found, whenever the height of the ruler has changed.
void appendBandReport(const BandReport& report);

/// "/tmp/vlr_marker_probe_on": the views around an arrange view, the rows of its ruler and the marker cells,
/// at most every 2 seconds.
void VLRMarkerProbe(NSView view);

}  // namespace velura
