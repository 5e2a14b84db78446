// Texts of a mixer strip: their colour, and what lies behind name, number and notes.

#include "plugin/hostapi/MANode.h"
#include "plugin/mixer/MAStripNode+ThemeSupport.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/theme/GradientSwitch.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/theme/VLRStripBevel.h"

namespace velura {
namespace {

using namespace cocoa;

using Text = MATextNode;
constexpr FixedString kClass = Text::kClassName;

enum class HighlightOf { kItself, kParent };

/// Which texts take which colours, and whose selection decides.
struct TextRow {
  NSString (*name)();
  HighlightOf highlight;
  ThemeKey plain;
  ThemeKey highlighted;
};

constexpr TextRow kTexts[] = {
    {literal<"label">, HighlightOf::kItself, key<"typeAndNumberTitleColor">, key<"typeAndNumberTitleHighlightColor">},
    {literal<"knob readout">, HighlightOf::kParent, key<"pannerTitleColor">, key<"pannerTitleHighlightColor">},
    {literal<"panner readout">, HighlightOf::kParent, key<"pannerTitleColor">, key<"pannerTitleHighlightColor">},
    {literal<"name">, HighlightOf::kItself, key<"nameAndNumberTitleColor">, key<"nameAndNumberTitleHighlightColor">},
    {literal<"number">, HighlightOf::kItself, key<"nameAndNumberTitleColor">, key<"nameAndNumberTitleHighlightColor">},
    {literal<"notes">, HighlightOf::kItself, key<"nameAndNumberTitleColor">, key<"nameAndNumberTitleHighlightColor">},
};

struct ForegroundColor : HostOverride<kClass, "foregroundColor", NSColor()> {
  static constexpr OpenWindow kOpenWindow = notReached(
      kPassedOver, "MATextNode label, MATextNode name, MATextNode notes, MATextNode number, MATextNode panner readout");

  static NSColor themed(Text text) {
    const NSString name = text.name();
    for (const TextRow& row : kTexts) {
      if (!name.isEqualToString(row.name())) continue;
      const bool highlighted =
          row.highlight == HighlightOf::kParent ? text.parent().isHighlighted() : text.isHighlighted();
      const NSColor themed = ThemeUtility::shared().colorForKey(highlighted ? row.highlighted : row.plain);
      if (themed) return themed;
      break;
    }
    return callHost(text);
  }
};

bool showsStripBehind(Text text) {
  return text.isNamed<"name">() || text.isNamed<"notes">() || text.isNamed<"number">();
}

/// Whether a gradient or a bevel of the theme shows behind the text.
bool isStripStyled(const ThemeUtility& theme, bool highlighted) {
  bool hasGradient = static_cast<bool>(theme.mixerStripGradient);
  if (theme.useTrackColorAsStripBackground) {
    hasGradient = hasGradient || theme.mixerAutoGradient;
  } else if (highlighted) {
    hasGradient = hasGradient || theme.mixerStripHighlightGradient;
  }
  const VLRStripBevel* bevel = theme.bevel(theme.mixerStripBevel);
  return hasGradient || (bevel != nullptr && bevel->styleForHighlighted(highlighted) != 0);
}

struct BackgroundColor : HostOverride<kClass, "backgroundColor", NSColor()> {
  static constexpr OpenWindow kOpenWindow = notReached(kPassedOver);

  static NSColor themed(Text text) {
    const NSColor host = callHost(text);
    const auto strip = as<MAStripNode>(text.parent());
    if (!strip || !showsStripBehind(text)) return host;
    const bool plain =
        host && (host.isEqual(hostHighlightedBackgroundColor(strip)) || host.isEqual(hostBackgroundColor(strip)));
    if (!plain) return host;
    const ThemeUtility& theme = ThemeUtility::shared();
    const bool highlighted = strip.isHighlighted();
    if (isStripStyled(theme, highlighted) && !VLRGradientsDisabled()) return NSColor::clearColor();
    const NSColor themed =
        theme.colorForKey(highlighted ? key<"stripHighlightBackgroundColor"> : key<"stripBackgroundColor">);
    return themed ? themed : host;
  }
};

struct SetBackgroundColor : HostOverride<kClass, "setBackgroundColor:", void(NSColor)> {
  static constexpr OpenWindow kOpenWindow = notReached(kPassedOver);

  static void themed(Text text, NSColor color) {
    if (ThemeUtility::shared().useTrackColorAsStripBackground && text.isNamed<"name">() &&
        !color.isEqual(BackgroundColor::callHost(text))) {
      text.parent().setNeedsDisplay(true);
    }
    callHost(text, color);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MATextNode =
    OverridesOf<kClass, ForegroundColor, SetBackgroundColor, BackgroundColor>::themedClass<>();
}  // namespace overrides

}  // namespace velura
