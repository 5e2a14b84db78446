// Displays of a strip: its group, and its highest level.

#include <array>
#include <cstdint>
#include <optional>

#include "cocoa/Override.h"
#include "plugin/hostapi/MANode.h"
#include "plugin/loader/Attach.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/theme/Truncated.h"

namespace velura {
namespace {

using namespace cocoa;

using SetTextColor = Override<"MADisplayNode", void(NSColor), "setTextColor:", "customSetTextColor:">;

/// The colours in which the host writes a level, by their red, green and blue bytes.
struct PeakRow {
  std::array<std::int64_t, 3> host;
  ThemeKey key;
};
constexpr PeakRow kPeakColours[] = {{{102, 255, 127}, ThemeKey::kNormalPeakLevelTitleColor},
                                    {{255, 214, 51}, ThemeKey::kWarningPeakLevelTitleColor},
                                    {{255, 255, 255}, ThemeKey::kMaxPeakLevelTitleColor}};

/// Nothing for a colour that has no components in RGB.
std::optional<std::array<std::int64_t, 3>> bytesOf(NSColor colour) {
  constexpr NSInteger kRgbComponents = 4;
  constexpr double kScale = 255;
  const bool isRgb =
      colour && colour.type() == NSColorTypeComponentBased && colour.numberOfComponents() == kRgbComponents;
  const NSColor rgb = isRgb ? colour : colour.colorUsingColorSpace(NSColorSpace::sRGBColorSpace());
  if (!rgb) return std::nullopt;
  return std::array<std::int64_t, 3>{truncated(rgb.redComponent() * kScale), truncated(rgb.greenComponent() * kScale),
                                     truncated(rgb.blueComponent() * kScale)};
}

NSColor peakColour(NSColor host) {
  const auto bytes = bytesOf(host);
  for (const PeakRow& row : kPeakColours) {
    if (bytes == row.host) return ThemeUtility::shared().colorForKey(row.key);
  }
  return {};
}

NSColor themedColour(MADisplayNode display, NSColor host) {
  if (display.isNamed<"peak">()) return peakColour(host);
  const bool isEmptyGroup =
      display.isNamed<"group">() && display.assetSetPath().isEqualToString(literal<"Displays.Empty">());
  return isEmptyGroup ? ThemeUtility::shared().colorForKey(ThemeKey::kEmptyGroupLabelColor) : NSColor();
}

void customSetTextColor(MADisplayNode display, NSColor colour) {
  const NSColor themed = themedColour(display, colour);
  SetTextColor::callHost(display, themed ? themed : colour);
}

}  // namespace

void attachMADisplayNodeThemeSupport() {
  CategoryDefinition("MADisplayNode")
      .replacement<SetTextColor, customSetTextColor>()
      .classMethod<"addSwizzleMethod", installOnce<SetTextColor>>();
}

}  // namespace velura
