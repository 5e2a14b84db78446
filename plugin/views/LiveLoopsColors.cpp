// The colours of the Live Loops grid, which the host asks of a handful of classes: one table.

#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"

namespace velura {
namespace {

using namespace cocoa;

/// A colour of the host, the key that takes its place, and the replacement's name.
template <FixedString Method, ThemeKey Key, FixedString Replacement = replacementNameOf(Method)>
struct Color {
  template <FixedString Provider>
  struct Getter : ThemedColor<Provider, Method, Key, NSColor, Replacement> {
    static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kLiveLoops);
  };
};

/// A class of the host that answers colours.
template <FixedString Provider, class... Colors>
using ColorProvider = OverridesOf<Provider, typename Colors::template Getter<Provider>...>;

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

namespace overrides {
extern constinit const ThemedClass LiveLoopsGeneralColors = General::themedClass<>();
extern constinit const ThemedClass LiveLoopsGridHeaderColors = GridHeader::themedClass<>();
extern constinit const ThemedClass LiveLoopsGridClockColors = GridClock::themedClass<>();
extern constinit const ThemedClass LiveLoopsDividerHeaderAndFooterColors =
    DividerColors<"LiveLoopsDividerHeaderAndFooterColors">::themedClass<>();
extern constinit const ThemedClass LiveLoopsSceneTriggerColors = SceneTrigger::themedClass<>();
extern constinit const ThemedClass LiveLoopsRowTriggerColors = RowTrigger::themedClass<>();
extern constinit const ThemedClass LiveLoopsRowTriggerColorUtility =
    DividerColors<"LiveLoopsRowTriggerColorUtility">::themedClass<>();
}  // namespace overrides

}  // namespace velura
