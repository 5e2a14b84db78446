// Gradients and bevels: what is promised of every one that parses.

#include <algorithm>
#include <cmath>

#include "fuzz/Fuzzing.h"
#include "plugin/theme/VLRStripBevel.h"
#include "plugin/theme/VLRStripGradient.h"

namespace {

using fuzzing::require;

void check(const velura::GradientData& gradient) {
  const bool linear = gradient.mode == velura::GradientMode::kLinear;
  const std::size_t stops = linear ? gradient.colors.size() : gradient.deltas.size();
  require(stops >= velura::kFewestStops && stops <= velura::kMostStops);
  require(gradient.locations.size() == stops && gradient.anchors.size() == stops);
  require(linear || std::ranges::any_of(gradient.deltas, [](std::int64_t delta) { return delta != 0; }));
  for (std::size_t i = 0; i < stops; ++i) {
    const double location = gradient.locations[i];
    require(gradient.anchors[i] ? location == -1 : location >= 0 && location <= 1);
  }
  require(gradient.hasAnchors || std::ranges::is_sorted(gradient.locations));
  require(gradient.angleDegrees >= 0 && gradient.angleDegrees < 360);
  require(gradient.angleDegrees == 180 || (stops == 2 && !gradient.hasAnchors));
  require(gradient.smoothingPoints >= 0 && std::isfinite(gradient.smoothingPoints));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto text = fuzzing::text(data, size);
  if (const auto gradient = velura::parseGradient(text)) check(*gradient);
  if (const auto bevel = velura::parseBevel(text)) {
    require(bevel->width >= 1 && bevel->width <= 6);
    require(bevel->strength > 0 && bevel->strength <= 100);
    require(bevel->style == 1 || bevel->style == 2);
    require(bevel->selectedStyle == 1 || bevel->selectedStyle == 2);
  }
  return 0;
}
