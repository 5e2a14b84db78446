#pragma once
// What the user has set for the bar/beat grid and the marker bands.

#include <string_view>

#include "cocoa/Encoding.h"
#include "cocoa/Foundation.h"

namespace velura {

/// A plain record, copied whole.
struct VLRGridSettings {
  bool enabled = false;
  bool barEnabled = true;
  bool beatEnabled = true;
  bool divEnabled = true;
  double barOpacity = 0.75;  // opacities and strengths from 0 to 1
  double beatOpacity = 0.4;
  double divOpacity = 0.2;
  double barWidth = 1;  // points, 0 to 2.5
  double beatWidth = 1;
  double divWidth = 1;
  double masterOpacity = 1;
  double lineGray = 1;         // white level
  std::int32_t colorMode = 0;  // codes of GridColourMode
  double adaptiveStrength = 0.5;
  double tintVibrance = 0.5;
  bool markerBandsEnabled = false;
  double markerBandsOpacity = 0.3;
  friend bool operator==(const VLRGridSettings&, const VLRGridSettings&) = default;
};

/// The settings that a settings file's dictionary describes. Absent keys, and values that have no number,
/// keep their defaults; numbers out of range are limited. nil gives the defaults.
VLRGridSettings gridSettingsFrom(NSDictionary stored);

}  // namespace velura

template <>
inline constexpr bool cocoa::isPlainStruct<velura::VLRGridSettings> = true;
template <>
struct cocoa::TypeEncoding<velura::VLRGridSettings> {
  static constexpr std::string_view text() { return "{VLRGridSettings=BBBBddddddddiddBd}"; }
};
