#pragma once

#include <cstddef>
#include <vector>

#include "host/song/Song.h"

namespace host {

/// Where the tracks lie, from the top of the first one downwards.
class TrackRows {
 public:
  explicit TrackRows(const Song& song);

  [[nodiscard]] std::size_t count() const { return edges_.size() - 1; }
  [[nodiscard]] double top(std::size_t row) const { return edges_[row]; }
  [[nodiscard]] double height(std::size_t row) const { return edges_[row + 1] - edges_[row]; }
  [[nodiscard]] double total() const { return edges_.back(); }
  /// The row that a place lies in; `count()` below the last one, 0 above the first.
  [[nodiscard]] std::size_t rowAt(double y) const;

  /// The rows that meet a stretch: from `first` up to, without, `end`.
  struct Range {
    std::size_t first = 0;
    std::size_t end = 0;
  };
  [[nodiscard]] Range rowsIn(double top, double bottom) const;

 private:
  std::vector<double> edges_;  // the tops, and the bottom of the last
};

}  // namespace host
