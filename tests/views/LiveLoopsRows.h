#pragma once
// The colour providers of the Live Loops grid: every method, and the key that takes its place.

#include <iterator>

namespace support {

struct LiveLoopsRow {
  const char* provider;
  const char* method;
  const char* key;
};

namespace providers {
inline constexpr const char* kGeneral = "LiveLoopsGeneralColors";
inline constexpr const char* kHeader = "LiveLoopsGridHeaderColors";
inline constexpr const char* kClock = "LiveLoopsGridClockColors";
inline constexpr const char* kDivider = "LiveLoopsDividerHeaderAndFooterColors";
inline constexpr const char* kButtons = "LiveLoopsRowTriggerColorUtility";
inline constexpr const char* kScene = "LiveLoopsSceneTriggerColors";
inline constexpr const char* kRow = "LiveLoopsRowTriggerColors";
}  // namespace providers

inline constexpr LiveLoopsRow kLiveLoopsRows[] = {
    {providers::kGeneral, "backgroundColor", "LiveLoopsBackgroundColor"},
    {providers::kGeneral, "backgroundColorInsideSubfolder", "LiveLoopsBGColorInsideSubfolder"},
    {providers::kHeader, "backgroundColor", "LiveLoopsGridHeaderBGColor"},
    {providers::kHeader, "lineColor", "LiveLoopsGridHeaderLineColor"},
    {providers::kHeader, "globalTrackPlaceholderBackgroundColor", "LiveLoopsGlobalTrackBGColor"},
    {providers::kHeader, "globalTrackPlaceholderBottomLineColor", "LiveLoopsGlobalTrackBottomLineColor"},
    {providers::kHeader, "globalTrackPlaceholderLineColor", "LiveLoopsGlobalTrackLineColor"},
    {providers::kClock, "backgroundColor", "LiveLoopsGridClockBackgroundColor"},
    {providers::kClock, "foregroundColor", "LiveLoopsGridClockForegroundColor"},
    {providers::kDivider, "basicBackgroundColor", "LiveLoopsDividerHnFBGColor"},
    {providers::kDivider, "backgroundPressedStateColor", "LiveLoopsDividerHnFPressedBGColor"},
    {providers::kDivider, "backgroundMouseoverColor", "LiveLoopsDividerHnFMouseoverBGColor"},
    {providers::kDivider, "glyphColor", "LiveLoopsDividerHnFGlyphColor"},
    {providers::kDivider, "borderColor", "LiveLoopsDividerHnFBorderColor"},
    {providers::kButtons, "basicBackgroundColor", "LiveLoopsDividerHnFBGColor"},
    {providers::kButtons, "backgroundPressedStateColor", "LiveLoopsDividerHnFPressedBGColor"},
    {providers::kButtons, "backgroundMouseoverColor", "LiveLoopsDividerHnFMouseoverBGColor"},
    {providers::kButtons, "glyphColor", "LiveLoopsDividerHnFGlyphColor"},
    {providers::kButtons, "borderColor", "LiveLoopsDividerHnFBorderColor"},
    {providers::kScene, "foregroundTextColor", "LiveLoopsSTTextColor"},
    {providers::kScene, "backgroundColor", "LiveLoopsSTBGColor"},
    {providers::kScene, "backgroundSelectedColor", "LiveLoopsSTSelectedBGColor"},
    {providers::kScene, "buttonGlyphColor", "LiveLoopsSTGlyphColor"},
    {providers::kScene, "mouseoverButtonBackgroundColor", "LiveLoopsSTMouseoverButtonBGColor"},
    {providers::kScene, "mouseoverButtonBackgroundColorForFocusScene", "LiveLoopsSTMouseoverButtonBGColorFocusScene"},
    {providers::kScene, "mousePressedButtonGlyphColor", "LiveLoopsSTButtonPressedGlyphColor"},
    {providers::kScene, "borderColor", "LiveLoopsSTBorderColor"},
    {providers::kScene, "flashColor", "LiveLoopsSTFlashColor"},
    {providers::kScene, "mouseoverColor", "LiveLoopsSTMouseOverColor"},
    {providers::kScene, "excessSceneTriggerBackgroundColor", "LiveLoopsSTExcessBGColor"},
    {providers::kRow, "glyphColor", "LiveLoopsRTGlyphColor"},
    {providers::kRow, "glyphHighlightedColor", "LiveLoopsRTGlyphHighlightColor"},
    {providers::kRow, "backgroundColor", "LiveLoopsRTBGColor"},
    {providers::kRow, "backgroundHighlightedColor", "LiveLoopsRTBGHighlightColor"},
    {providers::kRow, "mouseoverBackgroundColor", "LiveLoopsRTMouseoverBGColor"},
    {providers::kRow, "mouseoverBackgroundHighlightedColor", "LiveLoopsRTMouseoverHighlightedBGColor"},
    {providers::kRow, "pressedStateBackgroundColor", "LiveLoopsRTPressedBGColor"},
    {providers::kRow, "pressedStateBackgroundHighlightedColor", "LiveLoopsRTPressedHighlightedBGColor"},
    {providers::kRow, "borderColor", "LiveLoopsRTBorderColor"},
    {providers::kRow, "borderHighlightedColor", "LiveLoopsRTHighlightedBorderColor"},
    {providers::kRow, "rowSeparatorColor", "LiveLoopsRTRowSeparatorColor"},
    {providers::kRow, "rowSeparatorHighlightedColor", "LiveLoopsRTRowSeparatorHighlightedColor"},
    {providers::kRow, "excessBackgroundColor", "LiveLoopsRTExcessBGColor"},
};
static_assert(std::size(kLiveLoopsRows) == 43);

}  // namespace support
