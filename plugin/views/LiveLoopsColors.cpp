// The colours of the Live Loops grid, which the host asks of a handful of classes: one table.

#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

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
struct Color {
  template <FixedString Provider>
  using Pair = Override<Provider, NSColor(), Method, Replacement>;

  template <FixedString Provider>
  static NSColor custom(NSObject provider) {
    const NSColor themed = ThemeUtility::shared().colorForKey(Key);
    return themed ? themed : Pair<Provider>::callHost(provider);
  }
};

/// A class of the host that answers colours.
template <FixedString Provider, class... Colors>
struct ColorProvider {
  static void attach() {
    CategoryDefinition category(Provider.text);
    (category.replacement<typename Colors::template Pair<Provider>, Colors::template custom<Provider>>(), ...);
    category.classMethod<"addSwizzleMethod", installOnce<typename Colors::template Pair<Provider>...>>();
  }
};

using General = ColorProvider<"LiveLoopsGeneralColors",                                   //
                              Color<"backgroundColor", key<"LiveLoopsBackgroundColor">>,  //
                              Color<"backgroundColorInsideSubfolder", key<"LiveLoopsBGColorInsideSubfolder">>>;

using GridHeader =
    ColorProvider<"LiveLoopsGridHeaderColors",                                  //
                  Color<"backgroundColor", key<"LiveLoopsGridHeaderBGColor">>,  //
                  Color<"lineColor", key<"LiveLoopsGridHeaderLineColor">>,      //
                  Color<"globalTrackPlaceholderBackgroundColor", key<"LiveLoopsGlobalTrackBGColor">,
                        "customglobalTrackPlaceholderBackgroundColor">,
                  Color<"globalTrackPlaceholderBottomLineColor", key<"LiveLoopsGlobalTrackBottomLineColor">>,
                  Color<"globalTrackPlaceholderLineColor", key<"LiveLoopsGlobalTrackLineColor">>>;

using GridClock = ColorProvider<"LiveLoopsGridClockColors",                                          //
                                Color<"backgroundColor", key<"LiveLoopsGridClockBackgroundColor">>,  //
                                Color<"foregroundColor", key<"LiveLoopsGridClockForegroundColor">>>;

/// Row triggers share the keys of the divider.
template <FixedString Provider>
using DividerColors = ColorProvider<Provider,                                                          //
                                    Color<"basicBackgroundColor", key<"LiveLoopsDividerHnFBGColor">>,  //
                                    Color<"backgroundPressedStateColor", key<"LiveLoopsDividerHnFPressedBGColor">>,
                                    Color<"backgroundMouseoverColor", key<"LiveLoopsDividerHnFMouseoverBGColor">>,
                                    Color<"glyphColor", key<"LiveLoopsDividerHnFGlyphColor">>,
                                    Color<"borderColor", key<"LiveLoopsDividerHnFBorderColor">>>;

using SceneTrigger = ColorProvider<
    "LiveLoopsSceneTriggerColors",                              //
    Color<"foregroundTextColor", key<"LiveLoopsSTTextColor">>,  //
    Color<"backgroundColor", key<"LiveLoopsSTBGColor">>,        //
    Color<"backgroundSelectedColor", key<"LiveLoopsSTSelectedBGColor">>,
    Color<"buttonGlyphColor", key<"LiveLoopsSTGlyphColor">>,
    Color<"mouseoverButtonBackgroundColor", key<"LiveLoopsSTMouseoverButtonBGColor">>,
    Color<"mouseoverButtonBackgroundColorForFocusScene", key<"LiveLoopsSTMouseoverButtonBGColorFocusScene">>,
    Color<"mousePressedButtonGlyphColor", key<"LiveLoopsSTButtonPressedGlyphColor">>,
    Color<"borderColor", key<"LiveLoopsSTBorderColor">>, Color<"flashColor", key<"LiveLoopsSTFlashColor">>,
    Color<"mouseoverColor", key<"LiveLoopsSTMouseOverColor">>,
    Color<"excessSceneTriggerBackgroundColor", key<"LiveLoopsSTExcessBGColor">>>;

using RowTrigger =
    ColorProvider<"LiveLoopsRowTriggerColors",                        //
                  Color<"glyphColor", key<"LiveLoopsRTGlyphColor">>,  //
                  Color<"glyphHighlightedColor", key<"LiveLoopsRTGlyphHighlightColor">>,
                  Color<"backgroundColor", key<"LiveLoopsRTBGColor">>,
                  Color<"backgroundHighlightedColor", key<"LiveLoopsRTBGHighlightColor">>,
                  Color<"mouseoverBackgroundColor", key<"LiveLoopsRTMouseoverBGColor">>,
                  Color<"mouseoverBackgroundHighlightedColor", key<"LiveLoopsRTMouseoverHighlightedBGColor">>,
                  Color<"pressedStateBackgroundColor", key<"LiveLoopsRTPressedBGColor">>,
                  Color<"pressedStateBackgroundHighlightedColor", key<"LiveLoopsRTPressedHighlightedBGColor">>,
                  Color<"borderColor", key<"LiveLoopsRTBorderColor">>,
                  Color<"borderHighlightedColor", key<"LiveLoopsRTHighlightedBorderColor">>,
                  Color<"rowSeparatorColor", key<"LiveLoopsRTRowSeparatorColor">>,
                  Color<"rowSeparatorHighlightedColor", key<"LiveLoopsRTRowSeparatorHighlightedColor">>,
                  Color<"excessBackgroundColor", key<"LiveLoopsRTExcessBGColor">>>;

}  // namespace

void attachLiveLoopsGeneralColors() { General::attach(); }
void attachLiveLoopsGridHeaderColors() { GridHeader::attach(); }
void attachLiveLoopsGridClockColors() { GridClock::attach(); }
void attachLiveLoopsDividerHeaderAndFooterColors() { DividerColors<"LiveLoopsDividerHeaderAndFooterColors">::attach(); }
void attachLiveLoopsRowTriggerColorUtility() { DividerColors<"LiveLoopsRowTriggerColorUtility">::attach(); }
void attachLiveLoopsSceneTriggerColors() { SceneTrigger::attach(); }
void attachLiveLoopsRowTriggerColors() { RowTrigger::attach(); }

}  // namespace velura
