// Buttons with a glyph: mute, solo, record, input monitoring and others.

#include "cocoa/Override.h"
#include "plugin/hostapi/MANode.h"
#include "plugin/loader/Attach.h"
#include "plugin/mixer/ColouredText.h"
#include "plugin/mixer/HostColour.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

using SetForegroundColor =
    Override<"MASymbolButtonNode", void(NSColor), "setForegroundColor:", "customSetForegroundColor:">;
using SetSymbol = Override<"MASymbolButtonNode", void(NSObject), "setSymbol:", "customSetSymbol:">;

/// The glyph of a button that is on, and of one that is off but drawn in a colour, as while it blinks.
struct GlyphRow {
  NSString (*name)();
  ThemeKey on;
  ThemeKey coloured;
};
using enum ThemeKey;
constexpr GlyphRow kGlyphs[] = {
    {literal<"mute">, kMuteBlinkOffGlyphSymbolColor, kMuteBlinkOnGlyphSymbolColor},
    {literal<"solo">, kSoloBlinkOffGlyphSymbolColor, kSoloBlinkOnGlyphSymbolColor},
    {literal<"monitoring">, kInputMonitorBlinkOffGlyphSymbolColor, kInputMonitorBlinkOnGlyphSymbolColor},
    {literal<"record">, kRecordBlinkOnGlyphSymbolColor, kRecordBlinkOffGlyphSymbolColor},
};

ThemeKey glyphKey(MANode button, NSColor host) {
  constexpr NSInteger kOn = 1;
  const NSString name = button.name();
  for (const GlyphRow& row : kGlyphs) {
    if (!name.isEqualToString(row.name())) continue;
    if (button.state() == kOn) return row.on;
    return isGrey(host) ? kGlyphSymbolsColor : row.coloured;
  }
  return kGlyphSymbolsColor;
}

void customSetForegroundColor(MANode button, NSColor colour) {
  const NSColor themed = ThemeUtility::shared().colorForKey(kGlyphSymbolsColor);
  SetForegroundColor::callHost(button, themed ? themed : colour);
}

void customSetSymbol(MANode button, NSObject symbol) {
  const auto text = as<NSAttributedString>(symbol);
  const NSColor colour =
      text.length() == 0 ? NSColor() : ThemeUtility::shared().colorForKey(glyphKey(button, foregroundColourOf(text)));
  SetSymbol::callHost(button, colour ? NSObject(inColour(text, colour)) : symbol);
}

}  // namespace

void attachMASymbolButtonNodeThemeSupport() {
  CategoryDefinition("MASymbolButtonNode")
      .replacement<SetForegroundColor, customSetForegroundColor>()
      .replacement<SetSymbol, customSetSymbol>()
      .classMethod<"addSwizzleMethod", installOnce<SetForegroundColor, SetSymbol>>();
}

}  // namespace velura
