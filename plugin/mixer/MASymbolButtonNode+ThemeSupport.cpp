// Buttons with a glyph: mute, solo, record, input monitoring and others.

#include "plugin/hostapi/MANode.h"
#include "plugin/mixer/HostColor.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/text/ColoredText.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"MASymbolButtonNode"};

/// The glyph of a button that is on, and of one that is off but drawn in a colour, as while it blinks.
struct GlyphRow {
  NSString (*name)();
  ThemeKey on;
  ThemeKey colored;
};
constexpr GlyphRow kGlyphs[] = {
    {literal<"mute">, key<"MuteBlinkOffGlyphSymbolColor">, key<"MuteBlinkOnGlyphSymbolColor">},
    {literal<"solo">, key<"SoloBlinkOffGlyphSymbolColor">, key<"SoloBlinkOnGlyphSymbolColor">},
    {literal<"monitoring">, key<"InputMonitorBlinkOffGlyphSymbolColor">, key<"InputMonitorBlinkOnGlyphSymbolColor">},
    {literal<"record">, key<"RecordBlinkOnGlyphSymbolColor">, key<"RecordBlinkOffGlyphSymbolColor">},
};

ThemeKey glyphKey(MANode button, NSColor host) {
  constexpr NSInteger kOn = 1;
  const NSString name = button.name();
  for (const GlyphRow& row : kGlyphs) {
    if (!name.isEqualToString(row.name())) continue;
    if (button.state() == kOn) return row.on;
    return isGrey(host) ? key<"GlyphSymbolsColor"> : row.colored;
  }
  return key<"GlyphSymbolsColor">;
}

struct SetForegroundColor : HostOverride<kClass, "setForegroundColor:", void(NSColor)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerNodes);

  static void themed(MANode button, NSColor color) {
    const NSColor themed = ThemeUtility::shared().colorForKey(key<"GlyphSymbolsColor">);
    callHost(button, themed ? themed : color);
  }
};

struct SetSymbol : HostOverride<kClass, "setSymbol:", void(NSObject)> {
  static constexpr OpenWindow kOpenWindow = notReached(
      kSetOnce,
      "MASymbolButtonNode bounce, MASymbolButtonNode channelMode, MASymbolButtonNode dim, MASymbolButtonNode "
      "monitoring, MASymbolButtonNode mute, MASymbolButtonNode record, MASymbolButtonNode solo");

  static void themed(MANode button, NSObject symbol) {
    const auto text = as<NSAttributedString>(symbol);
    const NSColor color =
        text.length() == 0 ? NSColor() : ThemeUtility::shared().colorForKey(glyphKey(button, foregroundColorOf(text)));
    callHost(button, color ? NSObject(inColor(text, color)) : symbol);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MASymbolButtonNode =
    OverridesOf<kClass, SetForegroundColor, SetSymbol>::themedClass<>();
}  // namespace overrides

}  // namespace velura
