#pragma once

#include "host/arrange/Timeline.h"
#include "host/arrange/TrackRows.h"
#include "host/song/Song.h"

namespace host {

/// What the views of one arrange window show, and where it lies. The window owns it and takes it from
/// its views when it closes.
struct ArrangeModel {
  explicit ArrangeModel(Song& shown) : song(shown), timeline(shown.arrange), rows(shown) {}
  /// Follows a change of the song's arrangement.
  void update() {
    timeline = Timeline(song.arrange);
    rows = TrackRows(song);
  }

  Song& song;
  Timeline timeline;
  TrackRows rows;
  bool flippedHeaders = false;  // the column of headers counts from the top
  bool knowsControlSurfaces = true;
};

}  // namespace host
