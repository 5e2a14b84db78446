#include "fuzz/Fuzzing.h"
#include "plugin/theme/ColourString.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto text = fuzzing::text(data, size);
  const auto colour = velura::parseColourString(text);
  fuzzing::require(!colour || text.size() >= 10);
  return 0;
}
