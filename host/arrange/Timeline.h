#pragma once
// Bars and points: where musical positions lie in the ruler and in the contents, which share their x.

#include <vector>

#include "host/song/Song.h"

namespace host {

enum class TickKind { kBar, kBeat, kDivision };

struct Tick {
  double x = 0;
  TickKind kind = TickKind::kBar;
  long bar = 1;  // the bar that it is in
};

/// The time of a song, drawn at its zoom. Bar 1 begins at x = 0.
class Timeline {
 public:
  explicit Timeline(const Arrangement& arrangement);

  [[nodiscard]] double x(double bar) const { return (bar - 1) * zoom_; }
  [[nodiscard]] double bar(double x) const { return x / zoom_ + 1; }
  [[nodiscard]] double width() const { return zoom_ * static_cast<double>(bars_); }
  /// The length of a beat, in bars.
  [[nodiscard]] double beat() const { return 1 / static_cast<double>(beatsPerBar_); }

  /// What the ruler shows between two places, and at most one tick more at either side. Beats and
  /// divisions that would stand too close together are left out.
  [[nodiscard]] std::vector<Tick> ticks(double fromX, double toX) const;
  /// How many bars lie between two numbers of the ruler: 1, 2, 4 …
  [[nodiscard]] long numberInterval() const;

 private:
  double zoom_;
  long bars_;
  long beatsPerBar_;
  long divisionsPerBeat_;
};

/// Where the ruler shows ticks, in the coordinates of the ruler and the contents, from left to right.
std::vector<double> barPositions(const Song& song);
std::vector<double> beatPositions(const Song& song);
std::vector<double> divisionPositions(const Song& song);

}  // namespace host
