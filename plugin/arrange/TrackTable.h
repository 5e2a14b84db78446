#pragma once
// The tracks of a header column, as the host tells assistive tools of them.

#include <cstdint>
#include <vector>

#include "cocoa/AppKit.h"

namespace velura {

/// One track, as it lies in a track table: a 64-bit count, then a record a track, top to bottom.
struct TrackRecord {
  double height = 0;  // points
  bool selected = false;
  bool folder = false;
};

/// Whether a track's accessibility element has a disclosure triangle.
bool isFolderTrack(NSObject element);

/// The table of the tracks of a header view. The host formats no strings meanwhile. nil, after a line in the
/// log, when the host raises an exception.
NSData trackTableOf(NSView header);

/// The records of a table; none for nil.
std::vector<TrackRecord> tracksIn(NSData table);

}  // namespace velura
