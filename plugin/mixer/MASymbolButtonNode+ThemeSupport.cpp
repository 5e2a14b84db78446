// Buttons with a glyph: mute, solo, record, input monitoring and others.

#include "cocoa/Override.h"
#include "plugin/hostapi/MANode.h"
#include "plugin/loader/Attach.h"
#include "plugin/mixer/HostColor.h"
#include "plugin/text/ColoredText.h"
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

void customSetForegroundColor(MANode button, NSColor color) {
  const NSColor themed = ThemeUtility::shared().colorForKey(key<"GlyphSymbolsColor">);
  SetForegroundColor::callHost(button, themed ? themed : color);
}

void customSetSymbol(MANode button, NSObject symbol) {
  const auto text = as<NSAttributedString>(symbol);
  const NSColor color =
      text.length() == 0 ? NSColor() : ThemeUtility::shared().colorForKey(glyphKey(button, foregroundColorOf(text)));
  SetSymbol::callHost(button, color ? NSObject(inColor(text, color)) : symbol);
}

}  // namespace

void attachMASymbolButtonNodeThemeSupport() {
  CategoryDefinition("MASymbolButtonNode")
      .replacement<SetForegroundColor, customSetForegroundColor>()
      .replacement<SetSymbol, customSetSymbol>()
      .classMethod<"addSwizzleMethod", installOnce<SetForegroundColor, SetSymbol>>();
}

}  // namespace velura
