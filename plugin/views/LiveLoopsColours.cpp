// The colours of the Live Loops grid, which the host asks of a handful of classes: one table.

#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;
using enum ThemeKey;

/// "custom" and the name of a host method, its first letter raised.
template <std::size_t N>
consteval auto customNameOf(const FixedString<N>& method) {
  constexpr std::string_view kCustom = "custom";
  char name[kCustom.size() + N]{};
  std::ranges::copy(kCustom, name);
  std::copy_n(method.text, N, name + kCustom.size());
  char& first = name[kCustom.size()];
  if (first >= 'a' && first <= 'z') first = static_cast<char>(first - 'a' + 'A');
  return FixedString(name);
}

/// A colour of the host, the key that takes its place, and the replacement's name.
template <FixedString Method, ThemeKey Key, FixedString Replacement = customNameOf(Method)>
struct Colour {
  template <FixedString Provider>
  using Pair = Override<Provider, NSColor(), Method, Replacement>;

  template <FixedString Provider>
  static NSColor custom(NSObject provider) {
    const NSColor themed = ThemeUtility::shared().colorForKey(Key);
    return themed ? themed : Pair<Provider>::callHost(provider);
  }
};

/// A class of the host that answers colours.
template <FixedString Provider, class... Colours>
struct ColourProvider {
  static void attach() {
    CategoryDefinition category(Provider.text);
    (category.replacement<typename Colours::template Pair<Provider>, Colours::template custom<Provider>>(), ...);
    category.classMethod<"addSwizzleMethod", installOnce<typename Colours::template Pair<Provider>...>>();
  }
};

using General = ColourProvider<"LiveLoopsGeneralColors",                              //
                               Colour<"backgroundColor", kLiveLoopsBackgroundColor>,  //
                               Colour<"backgroundColorInsideSubfolder", kLiveLoopsBGColorInsideSubfolder>>;

using GridHeader = ColourProvider<"LiveLoopsGridHeaderColors",                             //
                                  Colour<"backgroundColor", kLiveLoopsGridHeaderBGColor>,  //
                                  Colour<"lineColor", kLiveLoopsGridHeaderLineColor>,      //
                                  Colour<"globalTrackPlaceholderBackgroundColor", kLiveLoopsGlobalTrackBGColor,
                                         "customglobalTrackPlaceholderBackgroundColor">,
                                  Colour<"globalTrackPlaceholderBottomLineColor", kLiveLoopsGlobalTrackBottomLineColor>,
                                  Colour<"globalTrackPlaceholderLineColor", kLiveLoopsGlobalTrackLineColor>>;

using GridClock = ColourProvider<"LiveLoopsGridClockColors",                                     //
                                 Colour<"backgroundColor", kLiveLoopsGridClockBackgroundColor>,  //
                                 Colour<"foregroundColor", kLiveLoopsGridClockForegroundColor>>;

/// Row triggers share the keys of the divider.
template <FixedString Provider>
using DividerColours = ColourProvider<Provider,                                                     //
                                      Colour<"basicBackgroundColor", kLiveLoopsDividerHnFBGColor>,  //
                                      Colour<"backgroundPressedStateColor", kLiveLoopsDividerHnFPressedBGColor>,
                                      Colour<"backgroundMouseoverColor", kLiveLoopsDividerHnFMouseoverBGColor>,
                                      Colour<"glyphColor", kLiveLoopsDividerHnFGlyphColor>,
                                      Colour<"borderColor", kLiveLoopsDividerHnFBorderColor>>;

using SceneTrigger =
    ColourProvider<"LiveLoopsSceneTriggerColors",                         //
                   Colour<"foregroundTextColor", kLiveLoopsSTTextColor>,  //
                   Colour<"backgroundColor", kLiveLoopsSTBGColor>,        //
                   Colour<"backgroundSelectedColor", kLiveLoopsSTSelectedBGColor>,
                   Colour<"buttonGlyphColor", kLiveLoopsSTGlyphColor>,
                   Colour<"mouseoverButtonBackgroundColor", kLiveLoopsSTMouseoverButtonBGColor>,
                   Colour<"mouseoverButtonBackgroundColorForFocusScene", kLiveLoopsSTMouseoverButtonBGColorFocusScene>,
                   Colour<"mousePressedButtonGlyphColor", kLiveLoopsSTButtonPressedGlyphColor>,
                   Colour<"borderColor", kLiveLoopsSTBorderColor>, Colour<"flashColor", kLiveLoopsSTFlashColor>,
                   Colour<"mouseoverColor", kLiveLoopsSTMouseOverColor>,
                   Colour<"excessSceneTriggerBackgroundColor", kLiveLoopsSTExcessBGColor>>;

using RowTrigger =
    ColourProvider<"LiveLoopsRowTriggerColors",                   //
                   Colour<"glyphColor", kLiveLoopsRTGlyphColor>,  //
                   Colour<"glyphHighlightedColor", kLiveLoopsRTGlyphHighlightColor>,
                   Colour<"backgroundColor", kLiveLoopsRTBGColor>,
                   Colour<"backgroundHighlightedColor", kLiveLoopsRTBGHighlightColor>,
                   Colour<"mouseoverBackgroundColor", kLiveLoopsRTMouseoverBGColor>,
                   Colour<"mouseoverBackgroundHighlightedColor", kLiveLoopsRTMouseoverHighlightedBGColor>,
                   Colour<"pressedStateBackgroundColor", kLiveLoopsRTPressedBGColor>,
                   Colour<"pressedStateBackgroundHighlightedColor", kLiveLoopsRTPressedHighlightedBGColor>,
                   Colour<"borderColor", kLiveLoopsRTBorderColor>,
                   Colour<"borderHighlightedColor", kLiveLoopsRTHighlightedBorderColor>,
                   Colour<"rowSeparatorColor", kLiveLoopsRTRowSeparatorColor>,
                   Colour<"rowSeparatorHighlightedColor", kLiveLoopsRTRowSeparatorHighlightedColor>,
                   Colour<"excessBackgroundColor", kLiveLoopsRTExcessBGColor>>;

}  // namespace

void attachLiveLoopsGeneralColors() { General::attach(); }
void attachLiveLoopsGridHeaderColors() { GridHeader::attach(); }
void attachLiveLoopsGridClockColors() { GridClock::attach(); }
void attachLiveLoopsDividerHeaderAndFooterColors() {
  DividerColours<"LiveLoopsDividerHeaderAndFooterColors">::attach();
}
void attachLiveLoopsRowTriggerColorUtility() { DividerColours<"LiveLoopsRowTriggerColorUtility">::attach(); }
void attachLiveLoopsSceneTriggerColors() { SceneTrigger::attach(); }
void attachLiveLoopsRowTriggerColors() { RowTrigger::attach(); }

}  // namespace velura
