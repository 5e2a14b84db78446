#include "fuzz/Fuzzing.h"
#include "plugin/language/ColorString.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto text = fuzzing::text(data, size);
  const auto color = velura::parseColorString(text);
  fuzzing::require(!color || text.size() >= 10);
  return 0;
}
