#include "host/arrange/Timeline.h"

#include <algorithm>
#include <cmath>

namespace host {
namespace {

constexpr double kClosestBeats = 5;
constexpr double kClosestDivisions = 4;
constexpr double kClosestNumbers = 34;

std::vector<double> positions(const Song& song, TickKind kind) {
  const Timeline timeline(song.arrange);
  std::vector<double> found;
  for (const Tick& tick : timeline.ticks(0, timeline.width())) {
    if (tick.kind == kind) found.push_back(tick.x);
  }
  return found;
}

}  // namespace

Timeline::Timeline(const Arrangement& arrangement)
    : zoom_(arrangement.zoom),
      bars_(arrangement.bars),
      beatsPerBar_(arrangement.beatsPerBar),
      divisionsPerBeat_(arrangement.division) {}

std::vector<Tick> Timeline::ticks(double fromX, double toX) const {
  const double beatSpacing = zoom_ / static_cast<double>(beatsPerBar_);
  const bool showsBeats = beatSpacing >= kClosestBeats;
  const bool showsDivisions = showsBeats && beatSpacing / static_cast<double>(divisionsPerBeat_) >= kClosestDivisions;
  const long perBeat = showsDivisions ? divisionsPerBeat_ : 1;
  const long perBar = showsBeats ? beatsPerBar_ * perBeat : 1;
  const double spacing = zoom_ / static_cast<double>(perBar);
  const long first = std::max(0L, static_cast<long>(std::floor(fromX / spacing)) - 1);
  const long last = std::min(bars_ * perBar - 1, static_cast<long>(std::ceil(toX / spacing)) + 1);
  std::vector<Tick> found;
  for (long i = first; i <= last; ++i) {
    const TickKind kind = i % perBar == 0 ? TickKind::kBar : i % perBeat == 0 ? TickKind::kBeat : TickKind::kDivision;
    found.push_back({zoom_ * static_cast<double>(i) / static_cast<double>(perBar), kind, i / perBar + 1});
  }
  return found;
}

long Timeline::numberInterval() const {
  long interval = 1;
  while (static_cast<double>(interval) * zoom_ < kClosestNumbers) interval *= 2;
  return interval;
}

std::vector<double> barPositions(const Song& song) { return positions(song, TickKind::kBar); }
std::vector<double> beatPositions(const Song& song) { return positions(song, TickKind::kBeat); }
std::vector<double> divisionPositions(const Song& song) { return positions(song, TickKind::kDivision); }

}  // namespace host
