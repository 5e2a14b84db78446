// Any bytes as a theme settings file: the theme that comes of it answers every question.

#include <cmath>

#include "fuzz/Fuzzing.h"
#include "plugin/plist/PropertyListReader.h"
#include "plugin/theme/ThemeUtility.h"

namespace {

using namespace cocoa;
using velura::ThemeUtility;

void ask(const ThemeUtility& theme) {
  for (const velura::ThemeKeyRow& row : velura::kThemeKeys) {
    const NSColor color = theme.colorForKey(keyOf(row));
    if (color) fuzzing::require(std::isfinite(color.alphaComponent()));
  }
  for (long type = -1; type <= 100; ++type) {
    static_cast<void>(theme.useSharedPannerType(type));
    static_cast<void>(theme.useSharedFaderType(type));
  }
  static_cast<void>(theme.mixerBackgroundColor());
  if (const auto* gradient = ThemeUtility::gradient(theme.mixerAutoGradient)) {
    static_cast<void>(gradient->stopColorsForBase(NSColor::whiteColor()));
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  velura::defineVLRStripGradient();
  velura::defineVLRStripBevel();
  velura::defineThemeUtility();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const AutoreleasePool pool;
  const auto list = velura::parsePropertyList(fuzzing::text(data, size));
  // Not initialised: that would read the user's own theme.
  const auto theme = Ref<NSObject>::adopt(NSObject(send<id>(DefinedClass<ThemeUtility>::cls, selector<"alloc">())));
  auto& state = stateOf<ThemeUtility>(theme.get());
  state.setColorCollection(NSDictionary::dictionary());
  state.apply(as<NSDictionary>(list));
  ask(state);
  return 0;
}
