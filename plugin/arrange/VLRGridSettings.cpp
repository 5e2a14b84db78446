#include "plugin/arrange/VLRGridSettings.h"

#include <algorithm>

#include "cocoa/Call.h"

namespace velura {
namespace {

using namespace cocoa;

struct Flag {
  const char* key;
  bool VLRGridSettings::*field;
};
constexpr Flag kFlags[] = {
    {"enabled", &VLRGridSettings::enabled},
    {"barEnabled", &VLRGridSettings::barEnabled},
    {"beatEnabled", &VLRGridSettings::beatEnabled},
    {"divEnabled", &VLRGridSettings::divEnabled},
    {"markerBandsEnabled", &VLRGridSettings::markerBandsEnabled},
};

/// The largest value of a number that is limited to the range from 0.
constexpr double kUnlimited = 0;
constexpr double kWidest = 2.5;

struct Number {
  const char* key;
  double VLRGridSettings::*field;
  double most;
};
constexpr Number kNumbers[] = {
    {"barOpacity", &VLRGridSettings::barOpacity, kUnlimited},
    {"beatOpacity", &VLRGridSettings::beatOpacity, kUnlimited},
    {"divOpacity", &VLRGridSettings::divOpacity, kUnlimited},
    {"barWidth", &VLRGridSettings::barWidth, kWidest},
    {"beatWidth", &VLRGridSettings::beatWidth, kWidest},
    {"divWidth", &VLRGridSettings::divWidth, kWidest},
    {"masterOpacity", &VLRGridSettings::masterOpacity, 1},
    {"lineGray", &VLRGridSettings::lineGray, kUnlimited},
    {"adaptiveStrength", &VLRGridSettings::adaptiveStrength, 1},
    {"tintVibrance", &VLRGridSettings::tintVibrance, 1},
    {"markerBandsOpacity", &VLRGridSettings::markerBandsOpacity, 1},
};

/// 0 for what is no number.
double limited(double value, double most) {
  if (most == kUnlimited) return value;
  return value > 0 ? std::min(value, most) : 0;
}

std::int32_t colourMode(NSInteger stored) {
  constexpr NSInteger kLast = 2;
  return stored >= 0 && stored <= kLast ? static_cast<std::int32_t>(stored) : 0;
}

/// Strings and numbers have a value; a list or data has none.
template <FixedString Getter>
NSObject valueAnswering(NSDictionary stored, const char* key) {
  const NSObject value = stored.objectForKey(string(key));
  return value.respondsToSelector(selector<Getter>()) ? value : NSObject();
}

}  // namespace

VLRGridSettings gridSettingsFrom(NSDictionary stored) {
  VLRGridSettings settings;
  if (!stored) return settings;
  for (const auto& [key, field] : kFlags) {
    if (const NSObject value = valueAnswering<"boolValue">(stored, key))
      settings.*field = asks<"boolValue">(value.object);
  }
  for (const auto& [key, field, most] : kNumbers) {
    if (const NSObject value = valueAnswering<"doubleValue">(stored, key)) {
      settings.*field = limited(call<"doubleValue", double>(value), most);
    }
  }
  if (const NSObject value = valueAnswering<"integerValue">(stored, "colorMode")) {
    settings.colorMode = colourMode(call<"integerValue", NSInteger>(value));
  }
  return settings;
}

}  // namespace velura
