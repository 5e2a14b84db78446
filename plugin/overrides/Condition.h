#pragma once
// When an override is installed at all, and what became of it.

#include <cstdint>

namespace velura {

/// What became of an override.
enum class Outcome : std::uint8_t {
  kNotUnderThisTheme,  // the theme does not ask for it
  kNotOnThisVersion,   // it is for another version of the host
  kInstalled,
  kExchangedBack,  // installed twice, which some classes allow
  kNoClass,
  kNoMethod,
  kOtherSignature
};

enum class Condition : std::uint8_t {
  kAlways,
  kCustomTheme,         // a theme other than "Default" is selected
  kImages,              // the theme has knobs and panners drawn from images
  kArrangeTrackColors,  // the theme gives track headers the colours of their tracks
  kSinceHost11_2,
  kSinceHost12_3
};

/// Asked anew at every call.
bool holds(Condition condition);

/// The outcome of an override whose condition does not hold.
Outcome outcomeWithout(Condition condition);

}  // namespace velura
