// Any pixels as a ruler: ticks come from left to right, no more of them than columns.

#include "plugin/arrange/TickDetection.h"

#include "fuzz/Fuzzing.h"
#include "fuzz/Pictures.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzzing::Bytes input(data, size);
  const fuzzing::Ruler ruler(input);
  const auto ticks = velura::detectTicks(ruler.pixels, static_cast<double>(input.number(0, 300)));
  fuzzing::require(ticks.count() <= static_cast<std::size_t>(ruler.pixels.width));
  for (const auto* list : {&ticks.bars, &ticks.beats, &ticks.divisions}) {
    fuzzing::require(std::is_sorted(list->begin(), list->end()));
  }
  return 0;
}
