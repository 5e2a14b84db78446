// Displays of a strip: its group, and its highest level.

#include <array>
#include <cstdint>
#include <optional>

#include "plugin/hostapi/MANode.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/text/Truncated.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

using Display = MADisplayNode;
constexpr FixedString kClass = Display::kClassName;

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

NSColor themedColor(Display display, NSColor host) {
  if (display.isNamed<"peak">()) return peakColor(host);
  const bool isEmptyGroup =
      display.isNamed<"group">() && display.assetSetPath().isEqualToString(literal<"Displays.Empty">());
  return isEmptyGroup ? ThemeUtility::shared().colorForKey(key<"emptyGroupLabelColor">) : NSColor();
}

struct SetTextColor : HostOverride<kClass, "setTextColor:", void(NSColor)> {
  static constexpr OpenWindow kOpenWindow = notReached(kSetOnce, "MADisplayNode group, MADisplayNode peak");

  static void themed(Display display, NSColor color) {
    const NSColor themed = themedColor(display, color);
    callHost(display, themed ? themed : color);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MADisplayNode = OverridesOf<kClass, SetTextColor>::themedClass<>();
}  // namespace overrides

}  // namespace velura
