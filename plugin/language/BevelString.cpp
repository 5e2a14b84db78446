#include "plugin/language/BevelString.h"

#include <algorithm>

#include "plugin/language/StopText.h"

namespace velura {

namespace {

constexpr std::int64_t kNarrowest = 1;
constexpr std::int64_t kWidest = 6;
constexpr std::int64_t kStrongest = 100;

std::optional<NSInteger> takeStyle(std::string_view& text) {
  if (takeText(text, "R")) return static_cast<NSInteger>(BevelStyle::kRaised);
  if (takeText(text, "D")) return static_cast<NSInteger>(BevelStyle::kSunk);
  return std::nullopt;
}

/// A comma and an unsigned number.
std::optional<std::int64_t> takeNumber(std::string_view& text) {
  if (!takeText(text, ",")) return std::nullopt;
  const std::string_view digits = takeDigitText(text);
  return digits.empty() ? std::nullopt : std::optional(leadingInteger(digits));
}

/// The style of a selected strip, which is the normal one where the string names none.
std::optional<NSInteger> takeSelectedStyle(std::string_view& text, NSInteger style) {
  return takeText(text, ",") ? takeStyle(text) : std::optional(style);
}

}  // namespace

std::optional<BevelData> parseBevel(std::string_view text) {
  if (!takeText(text, "Bevel:{")) return std::nullopt;
  const auto style = takeStyle(text);
  const auto width = takeNumber(text);
  const auto strength = width ? takeNumber(text) : std::nullopt;
  if (!style || !strength) return std::nullopt;
  const auto selected = takeSelectedStyle(text, *style);
  if (!selected || text != "}" || *strength == 0) return std::nullopt;
  return BevelData{.style = *style,
                   .selectedStyle = *selected,
                   .width = static_cast<double>(std::clamp(*width, kNarrowest, kWidest)),
                   .strength = static_cast<double>(std::min(*strength, kStrongest))};
}

}  // namespace velura
