#include "plugin/gradient/VLRStripBevel.h"

#include <algorithm>
#include <utility>

#include "plugin/gradient/GradientString.h"
#include "plugin/theme/StringBytes.h"

namespace velura {

using namespace cocoa;

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

NSObject bevelFromStringMessage(Class /*self*/, NSObject value) { return VLRStripBevel::bevelFromString(value); }

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

NSObject VLRStripBevel::bevelFromString(NSObject value) {
  const auto data = parseBevel(utf8Bytes(as<NSString>(value)));
  if (!data) return {};
  auto made = Ref<NSObject>::adopt(
      send<NSObject>(send<id>(DefinedClass<VLRStripBevel>::cls, selector<"alloc">()), selector<"init">()));
  static_cast<BevelData&>(stateOf<VLRStripBevel>(made.get())) = *data;
  return autoreleased(std::move(made));
}

void defineVLRStripBevel() {
  if (DefinedClass<VLRStripBevel>::cls != nullptr) return;
  ClassDefinition<VLRStripBevel>("VLRStripBevel", "NSObject")
      .classMethod<"bevelFromString:", bevelFromStringMessage>()
      .method<"styleForHighlighted:", &VLRStripBevel::styleForHighlighted>()
      .getter<"style", &VLRStripBevel::style>()
      .getter<"selectedStyle", &VLRStripBevel::selectedStyle>()
      .getter<"width", &VLRStripBevel::width>()
      .getter<"strength", &VLRStripBevel::strength>()
      .registered();
}

}  // namespace velura
