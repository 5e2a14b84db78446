#pragma once
// The grammar of gradient strings.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "cocoa/Geometry.h"

namespace velura {

inline constexpr std::size_t kFewestStops = 2;
inline constexpr std::size_t kMostStops = 24;

enum class GradientMode : NSInteger {
  kLinear = 0,  // the string lists the colours
  kAuto = 1     // it lists shifts of brightness, and the colours come from a base colour
};

/// The sections of a mixer strip that a stop can be tied to.
enum class StripAnchor {
  kGainReduction,
  kEQ,
  kMIDIFX,
  kInput,
  kAudioFX,
  kInserts,
  kSends,
  kAutomation,
  kPan,
  kFader,
  kName
};
inline constexpr std::array<std::string_view, 11> kStripAnchorNames{
    "gainreduction", "eq", "midifx", "input", "audiofx", "inserts", "sends", "automation", "pan", "fader", "name"};

/// The anchor of that name, which is case-sensitive.
constexpr std::optional<StripAnchor> stripAnchorNamed(std::string_view name) {
  const auto* const found = std::ranges::find(kStripAnchorNames, name);
  if (found == kStripAnchorNames.end()) return std::nullopt;
  return static_cast<StripAnchor>(found - kStripAnchorNames.begin());
}

/// Red, green and blue from 0 to 255 and alpha in percent, as written.
struct StopColor {
  std::int64_t red = 0;
  std::int64_t green = 0;
  std::int64_t blue = 0;
  std::int64_t alpha = 0;
  friend bool operator==(const StopColor&, const StopColor&) = default;
};

/// What a gradient string says. All lists that are in use have one entry a stop, in one order.
struct GradientData {
  GradientMode mode = GradientMode::kLinear;
  std::vector<StopColor> colors;     // linear gradients
  std::vector<std::int64_t> deltas;  // auto gradients: shifts of brightness in percent points
  std::vector<double> locations;     // 0 to 1 along the gradient; -1 for an anchored stop
  std::vector<std::optional<StripAnchor>> anchors;
  bool hasAnchors = false;
  double angleDegrees = 180;  // from 0 up to 360; 180 is top to bottom, 90 is left to right
  double smoothingPoints = 0;
};

/// The gradient that a string describes; nothing when the string is malformed. Takes time linear in the
/// length of the string.
std::optional<GradientData> parseGradient(std::string_view text);

struct StopGroups {
  std::vector<std::string_view> groups;  // the texts between the braces
  double angleDegrees = 180;
  double smoothingPoints = 0;
};

/// Takes a string of the form `prefix{{...},{...},V,S4}` apart; nothing when it is of another form or has
/// fewer than 2 or more than 24 groups.
std::optional<StopGroups> VLRParseStopGroups(std::string_view text, std::string_view prefix);

/// Reads a percentage or "@" and an anchor's name, and appends to both lists. False, and nothing appended,
/// for a name that is no anchor.
bool VLRParsePositionToken(std::string_view token, std::vector<double>& locations,
                           std::vector<std::optional<StripAnchor>>& anchors, std::size_t& anchorCount);

/// Sorts two parallel lists (vectors or spans) by location. Stops at one location keep their order.
template <class Values, class Locations>
void VLRSortStops(Values& values, Locations& locations) {
  using Distance = std::ptrdiff_t;
  for (std::size_t i = 1; i < locations.size(); ++i) {
    std::size_t to = i;
    while (to > 0 && locations[to - 1] > locations[i]) --to;
    const auto moveDown = [&](auto& list) {
      std::rotate(list.begin() + static_cast<Distance>(to), list.begin() + static_cast<Distance>(i),
                  list.begin() + static_cast<Distance>(i + 1));
    };
    moveDown(values);
    moveDown(locations);
  }
}

}  // namespace velura
