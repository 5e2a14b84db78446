// Any pixels as a ruler: bands lie inside it, one below the other, and the chosen one has the best score.

#include "fuzz/Fuzzing.h"
#include "fuzz/Pictures.h"
#include "plugin/arrange/BandWalk.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzzing::Bytes input(data, size);
  const fuzzing::Ruler ruler(input);
  const auto lane = velura::readMarkerLane(ruler.pixels, static_cast<double>(input.number(0, 300)));
  long below = -1;
  for (const auto& band : lane.bands) {
    fuzzing::require(band.rows.top > below && band.rows.bottom > band.rows.top);
    fuzzing::require(band.score <= 24 && (!lane.chosen || band.score <= lane.chosen->score));
    below = band.rows.bottom;
  }
  fuzzing::require(below < ruler.pixels.height);
  fuzzing::require(lane.chosen.has_value() || lane.segments.empty());
  static_cast<void>(velura::signatureOf(lane.segments));
  velura::VLRMBWalkBand(ruler.pixels, {input.number(0, 100) - 5, input.number(0, 100) - 5}, 0);
  return 0;
}
