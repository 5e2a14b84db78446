#pragma once
// What the user has set for the bar/beat grid and the marker bands.

#include <array>
#include <cstdint>
#include <string_view>
#include <variant>

#include "cocoa/Encoding.h"
#include "cocoa/Foundation.h"

namespace velura {

/// A plain record, copied whole. `GridKeyRow` says what its fields mean.
struct VLRGridSettings {
  bool enabled = false;
  bool barEnabled = true;
  bool beatEnabled = true;
  bool divEnabled = true;
  double barOpacity = 0.75;
  double beatOpacity = 0.4;
  double divOpacity = 0.2;
  double barWidth = 1;
  double beatWidth = 1;
  double divWidth = 1;
  double masterOpacity = 1;
  double lineGray = 1;
  std::int32_t colorMode = 0;  // codes of GridColorMode
  double adaptiveStrength = 0.5;
  double tintVibrance = 0.5;
  bool markerBandsEnabled = false;
  double markerBandsOpacity = 0.3;
  friend bool operator==(const VLRGridSettings&, const VLRGridSettings&) = default;
};

/// What happens to a number outside of its range.
enum class OutOfRange : std::uint8_t { kStays, kLimited, kBecomesZero };

/// One key of the settings file. Its default is the field's.
struct GridKeyRow {
  using Field = std::variant<bool VLRGridSettings::*, double VLRGridSettings::*, std::int32_t VLRGridSettings::*>;
  std::string_view key;
  Field field;
  double most = 1;  // the sensible range runs from 0 to this
  OutOfRange outOfRange = OutOfRange::kStays;
  std::string_view effect{};  // a sentence for users
};

// clang-format off
inline constexpr auto kGridKeys = std::to_array<GridKeyRow>({
    {"enabled", &VLRGridSettings::enabled, 1, OutOfRange::kStays, "Whether the grid is drawn."},
    {"barEnabled", &VLRGridSettings::barEnabled, 1, OutOfRange::kStays, "Whether it has bar lines."},
    {"beatEnabled", &VLRGridSettings::beatEnabled, 1, OutOfRange::kStays, "Whether it has beat lines."},
    {"divEnabled", &VLRGridSettings::divEnabled, 1, OutOfRange::kStays, "Whether it has division lines."},
    {"barOpacity", &VLRGridSettings::barOpacity, 1, OutOfRange::kStays, "Opacity of bar lines."},
    {"beatOpacity", &VLRGridSettings::beatOpacity, 1, OutOfRange::kStays, "Opacity of beat lines."},
    {"divOpacity", &VLRGridSettings::divOpacity, 1, OutOfRange::kStays, "Opacity of division lines."},
    {"barWidth", &VLRGridSettings::barWidth, 2.5, OutOfRange::kLimited, "Width of bar lines in points."},
    {"beatWidth", &VLRGridSettings::beatWidth, 2.5, OutOfRange::kLimited, "Width of beat lines in points."},
    {"divWidth", &VLRGridSettings::divWidth, 2.5, OutOfRange::kLimited, "Width of division lines in points."},
    {"masterOpacity", &VLRGridSettings::masterOpacity, 1, OutOfRange::kLimited,
     "Multiplies the opacities of all lines."},
    {"lineGray", &VLRGridSettings::lineGray, 1, OutOfRange::kStays, "White level of the lines in colour mode 0."},
    {"colorMode", &VLRGridSettings::colorMode, 2, OutOfRange::kBecomesZero,
     "0: grey lines; 1: a grey that stands out from each region; 2: a tint of each region's hue."},
    {"adaptiveStrength", &VLRGridSettings::adaptiveStrength, 1, OutOfRange::kLimited,
     "How far the greys of colour mode 1 stand out."},
    {"tintVibrance", &VLRGridSettings::tintVibrance, 1, OutOfRange::kLimited,
     "How saturated the tints of colour mode 2 are."},
    {"markerBandsEnabled", &VLRGridSettings::markerBandsEnabled, 1, OutOfRange::kStays,
     "Whether the colours of markers tint the workspace between the regions."},
    {"markerBandsOpacity", &VLRGridSettings::markerBandsOpacity, 1, OutOfRange::kLimited, "Opacity of those bands."},
});
// clang-format on

/// The settings that a settings file's dictionary describes. Absent keys, and values that have no number,
/// keep their defaults. nil gives the defaults.
VLRGridSettings gridSettingsFrom(NSDictionary stored);

}  // namespace velura

template <>
inline constexpr bool cocoa::isPlainStruct<velura::VLRGridSettings> = true;
template <>
struct cocoa::TypeEncoding<velura::VLRGridSettings> {
  static constexpr std::string_view text() { return "{VLRGridSettings=BBBBddddddddiddBd}"; }
};
