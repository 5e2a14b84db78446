#include "host/arrange/TrackRows.h"

#include <algorithm>

namespace host {

TrackRows::TrackRows(const Song& song) {
  edges_.reserve(song.tracks.size() + 1);
  double y = 0;
  edges_.push_back(y);
  for (const Track& track : song.tracks) edges_.push_back(y += track.height.value_or(song.arrange.trackHeight));
}

std::size_t TrackRows::rowAt(double y) const {
  const auto below = std::upper_bound(edges_.begin(), edges_.end(), y);
  return below == edges_.begin() ? 0 : static_cast<std::size_t>(below - edges_.begin()) - 1;
}

TrackRows::Range TrackRows::rowsIn(double top, double bottom) const {
  const std::size_t first = std::min(rowAt(top), count());
  const auto past = std::lower_bound(edges_.begin(), edges_.end() - 1, bottom);
  return {first, std::max(first, static_cast<std::size_t>(past - edges_.begin()))};
}

}  // namespace host
