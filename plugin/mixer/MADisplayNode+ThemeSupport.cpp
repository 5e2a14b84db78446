// Displays of a strip: its group, and its highest level.

#include <array>
#include <cstdint>
#include <optional>

#include "cocoa/Override.h"
#include "plugin/hostapi/MANode.h"
#include "plugin/loader/Attach.h"
#include "plugin/text/Truncated.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

using SetTextColor = Override<"MADisplayNode", void(NSColor), "setTextColor:", "customSetTextColor:">;

/// The colours in which the host writes a level, by their red, green and blue bytes.
struct PeakRow {
  std::array<std::int64_t, 3> host;
  ThemeKey key;
};
constexpr PeakRow kPeakColors[] = {{{102, 255, 127}, key<"normalPeakLevelTitleColor">},
                                   {{255, 214, 51}, key<"warningPeakLevelTitleColor">},
                                   {{255, 255, 255}, key<"maxPeakLevelTitleColor">}};

/// Nothing for a colour that has no components in RGB.
std::optional<std::array<std::int64_t, 3>> bytesOf(NSColor color) {
  constexpr NSInteger kRgbComponents = 4;
  constexpr double kScale = 255;
  const bool isRgb = color && color.type() == NSColorTypeComponentBased && color.numberOfComponents() == kRgbComponents;
  const NSColor rgb = isRgb ? color : color.colorUsingColorSpace(NSColorSpace::sRGBColorSpace());
  if (!rgb) return std::nullopt;
  return std::array<std::int64_t, 3>{truncated(rgb.redComponent() * kScale), truncated(rgb.greenComponent() * kScale),
                                     truncated(rgb.blueComponent() * kScale)};
}

NSColor peakColor(NSColor host) {
  const auto bytes = bytesOf(host);
  for (const PeakRow& row : kPeakColors) {
    if (bytes == row.host) return ThemeUtility::shared().colorForKey(row.key);
  }
  return {};
}

NSColor themedColor(MADisplayNode display, NSColor host) {
  if (display.isNamed<"peak">()) return peakColor(host);
  const bool isEmptyGroup =
      display.isNamed<"group">() && display.assetSetPath().isEqualToString(literal<"Displays.Empty">());
  return isEmptyGroup ? ThemeUtility::shared().colorForKey(key<"emptyGroupLabelColor">) : NSColor();
}

void customSetTextColor(MADisplayNode display, NSColor color) {
  const NSColor themed = themedColor(display, color);
  SetTextColor::callHost(display, themed ? themed : color);
}

}  // namespace

void attachMADisplayNodeThemeSupport() {
  CategoryDefinition("MADisplayNode")
      .replacement<SetTextColor, customSetTextColor>()
      .classMethod<"addSwizzleMethod", installOnce<SetTextColor>>();
}

}  // namespace velura
