#pragma once
// Finds the tick marks of a ruler in its pixels and tells bars, beats and divisions apart by their heights.

#include <cstddef>
#include <vector>

#include "plugin/arrange/RulerPixels.h"

namespace velura {

/// Screen x positions in points, each list from left to right.
struct RulerTicks {
  std::vector<double> bars;
  std::vector<double> beats;
  std::vector<double> divisions;
  [[nodiscard]] std::size_t count() const { return bars.size() + beats.size() + divisions.size(); }
};

/// The ticks of one horizontal strip of a ruler. Ticks more than two points left of `leftEdge` (a screen x)
/// are left out. Takes time in proportion to the pixels.
RulerTicks detectTicks(const RulerPixels& strip, double leftEdge);

}  // namespace velura
