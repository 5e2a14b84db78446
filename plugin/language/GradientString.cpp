#include "plugin/language/GradientString.h"

#include <utility>

#include "plugin/language/StopText.h"

namespace velura {

namespace {

constexpr std::string_view kLinearPrefix = "LinearGradient:";
constexpr std::string_view kAutoPrefix = "AutoGradient:";
constexpr double kUnplaced = -1;

/// "V", "H", or "A" and whole degrees, of which only the rest of the division by 360 counts.
std::optional<double> takeDirection(std::string_view& text) {
  constexpr double kTopToBottom = 180;
  constexpr double kLeftToRight = 90;
  constexpr int kFullTurn = 360;
  if (takeText(text, "V")) return kTopToBottom;
  if (takeText(text, "H")) return kLeftToRight;
  if (!takeText(text, "A")) return std::nullopt;
  const bool negative = takeText(text, "-");
  const std::string_view digits = takeDigitText(text);
  if (digits.empty()) return std::nullopt;
  int degrees = 0;
  for (const char digit : digits) degrees = (degrees * 10 + (digit - '0')) % kFullTurn;
  return negative && degrees != 0 ? kFullTurn - degrees : degrees;
}

/// ",S" and digits, which may be missing altogether: then 0.
std::optional<double> takeSmoothing(std::string_view& text) {
  if (!takeText(text, ",")) return 0;
  if (!takeText(text, "S")) return std::nullopt;
  const std::string_view digits = takeDigitText(text);
  if (digits.empty()) return std::nullopt;
  return static_cast<double>(leadingInteger(digits));
}

/// Takes one "{...}," and gives the text between the braces, which is never empty.
std::optional<std::string_view> takeGroup(std::string_view& text) {
  const auto end = text.find('}');
  if (!text.starts_with('{') || end == std::string_view::npos || end == 1) return std::nullopt;
  const std::string_view group = text.substr(1, end - 1);
  text.remove_prefix(end + 1);
  return takeText(text, ",") ? std::optional(group) : std::nullopt;
}

/// The parts of a group between its commas; nothing when there are more than `Most`.
template <std::size_t Most>
struct Parts {
  std::array<std::string_view, Most> texts;
  std::size_t count = 0;

  static std::optional<Parts> of(std::string_view group) {
    Parts parts;
    for (;;) {
      if (parts.count == Most) return std::nullopt;
      const auto comma = group.find(',');
      parts.texts[parts.count++] = group.substr(0, comma);
      if (comma == std::string_view::npos) return parts;
      group.remove_prefix(comma + 1);
    }
  }
};

/// Collects the positions of the stops while the groups are read.
class Positions {
 public:
  /// Reads the position that a group may carry as its last part.
  bool add(std::optional<std::string_view> token) {
    if (!token) {
      locations_.push_back(kUnplaced);
      anchors_.emplace_back();
      return true;
    }
    ++placed_;
    return VLRParsePositionToken(*token, locations_, anchors_, anchorCount_);
  }

  /// Completes a gradient. Stops without positions spread evenly; plain positions sort the stops; anchored
  /// ones wait in written order until the strip is known. False when only some stops have positions.
  template <class T>
  bool finish(std::vector<T>& values, GradientData& gradient) {
    if (placed_ != 0 && placed_ != locations_.size()) return false;
    if (placed_ == 0) {
      spread();
    } else if (anchorCount_ == 0) {
      VLRSortStops(values, locations_);
    }
    gradient.locations = std::move(locations_);
    gradient.anchors = std::move(anchors_);
    gradient.hasAnchors = anchorCount_ > 0;
    return true;
  }

 private:
  void spread() {
    const auto last = static_cast<double>(locations_.size() - 1);
    for (std::size_t i = 0; i < locations_.size(); ++i) locations_[i] = static_cast<double>(i) / last;
  }

  std::vector<double> locations_;
  std::vector<std::optional<StripAnchor>> anchors_;
  std::size_t anchorCount_ = 0;
  std::size_t placed_ = 0;
};

/// The written direction counts for two stops without anchors only.
void setDirection(GradientData& gradient, double degrees) {
  const bool counts = gradient.locations.size() == kFewestStops && !gradient.hasAnchors;
  if (counts) gradient.angleDegrees = degrees;
}

std::optional<GradientData> parseLinear(std::string_view text) {
  constexpr std::size_t kComponents = 4;
  const auto groups = VLRParseStopGroups(text, kLinearPrefix);
  if (!groups) return std::nullopt;
  GradientData gradient{.mode = GradientMode::kLinear};
  Positions positions;
  for (const std::string_view group : groups->groups) {
    const auto parts = Parts<kComponents + 1>::of(group);
    if (!parts || parts->count < kComponents) return std::nullopt;
    const auto& texts = parts->texts;
    gradient.colors.push_back(
        {leadingInteger(texts[0]), leadingInteger(texts[1]), leadingInteger(texts[2]), leadingInteger(texts[3])});
    const bool placed = parts->count > kComponents;
    if (!positions.add(placed ? std::optional(texts[kComponents]) : std::nullopt)) return std::nullopt;
  }
  if (!positions.finish(gradient.colors, gradient)) return std::nullopt;
  gradient.smoothingPoints = groups->smoothingPoints;
  setDirection(gradient, groups->angleDegrees);
  return gradient;
}

std::optional<GradientData> parseAutoGroups(const StopGroups& groups) {
  GradientData gradient{.mode = GradientMode::kAuto};
  Positions positions;
  for (const std::string_view group : groups.groups) {
    const auto parts = Parts<2>::of(group);
    if (!parts) return std::nullopt;
    gradient.deltas.push_back(leadingInteger(parts->texts[0]));
    if (!positions.add(parts->count > 1 ? std::optional(parts->texts[1]) : std::nullopt)) return std::nullopt;
  }
  if (!positions.finish(gradient.deltas, gradient)) return std::nullopt;
  gradient.smoothingPoints = groups.smoothingPoints;
  setDirection(gradient, groups.angleDegrees);
  return gradient;
}

/// A delta of the short form: an optional minus and digits.
std::optional<std::int64_t> takeDelta(std::string_view& text) {
  const bool negative = takeText(text, "-");
  if (text.empty() || !isDecimalDigit(text.front())) return std::nullopt;
  return takeDigits<std::int64_t>(text, 10, negative);
}

/// "AutoGradient:{10,-10,V}": two stops from edge to edge.
std::optional<GradientData> parseAutoShort(std::string_view text) {
  if (!takeText(text, kAutoPrefix) || !takeText(text, "{")) return std::nullopt;
  const auto first = takeDelta(text);
  if (!first || !takeText(text, ",")) return std::nullopt;
  const auto second = takeDelta(text);
  if (!second || !takeText(text, ",")) return std::nullopt;
  const auto degrees = takeDirection(text);
  if (!degrees || text != "}") return std::nullopt;
  return GradientData{.mode = GradientMode::kAuto,
                      .colors = {},
                      .deltas = {*first, *second},
                      .locations = {0, 1},
                      .anchors = {std::nullopt, std::nullopt},
                      .angleDegrees = *degrees};
}

std::optional<GradientData> parseAuto(std::string_view text) {
  const auto groups = VLRParseStopGroups(text, kAutoPrefix);
  auto gradient = groups ? parseAutoGroups(*groups) : parseAutoShort(text);
  if (!gradient) return std::nullopt;
  const bool shifts = std::ranges::any_of(gradient->deltas, [](std::int64_t delta) { return delta != 0; });
  return shifts ? std::move(gradient) : std::nullopt;
}

}  // namespace

std::optional<StopGroups> VLRParseStopGroups(std::string_view text, std::string_view prefix) {
  if (!takeText(text, prefix) || !takeText(text, "{")) return std::nullopt;
  StopGroups found;
  while (text.starts_with('{')) {
    const auto group = takeGroup(text);
    if (!group || found.groups.size() == kMostStops) return std::nullopt;
    found.groups.push_back(*group);
  }
  if (found.groups.size() < kFewestStops) return std::nullopt;
  const auto degrees = takeDirection(text);
  if (!degrees) return std::nullopt;
  const auto smoothing = takeSmoothing(text);
  if (!smoothing || text != "}") return std::nullopt;
  found.angleDegrees = *degrees;
  found.smoothingPoints = *smoothing;
  return found;
}

bool VLRParsePositionToken(std::string_view token, std::vector<double>& locations,
                           std::vector<std::optional<StripAnchor>>& anchors, std::size_t& anchorCount) {
  constexpr double kPercent = 100;
  if (takeText(token, "@")) {
    const auto anchor = stripAnchorNamed(token);
    if (!anchor) return false;
    locations.push_back(kUnplaced);
    anchors.emplace_back(anchor);
    ++anchorCount;
    return true;
  }
  locations.push_back(std::clamp(leadingDecimal(token) / kPercent, 0.0, 1.0));
  anchors.emplace_back();
  return true;
}

std::optional<GradientData> parseGradient(std::string_view text) {
  if (text.starts_with(kLinearPrefix)) return parseLinear(text);
  if (text.starts_with(kAutoPrefix)) return parseAuto(text);
  return std::nullopt;
}

}  // namespace velura
