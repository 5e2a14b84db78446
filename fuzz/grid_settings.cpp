// Any bytes as a grid settings file: what is limited stays within its limits.

#include "fuzz/Fuzzing.h"
#include "plugin/language/VLRGridSettings.h"
#include "plugin/plist/PropertyListReader.h"

namespace {

using namespace cocoa;

bool isWithin(double number, double most) { return number >= 0 && number <= most; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const AutoreleasePool pool;
  const auto list = velura::parsePropertyList(fuzzing::text(data, size));
  const velura::VLRGridSettings settings = velura::gridSettingsFrom(as<NSDictionary>(list));
  for (const velura::GridKeyRow& row : velura::kGridKeys) {
    if (row.outOfRange == velura::OutOfRange::kStays) continue;
    if (const auto* field = std::get_if<double velura::VLRGridSettings::*>(&row.field)) {
      fuzzing::require(isWithin(settings.**field, row.most));
    }
  }
  fuzzing::require(settings.colorMode >= 0 && settings.colorMode <= 2);
  return 0;
}
