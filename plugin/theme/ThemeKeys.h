#pragma once
// Every key of a theme settings file, spelled once. The loader, the look-ups by index, the kept keys and
// the documentation for theme authors come from this table.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace velura {

/// A key as an index into `kThemeKeys`. Named after the key it stands for.
enum class ThemeKey : std::uint8_t {
  kWindowTitleColor,
  kUseCalibratedColor,
  kStripBackgroundColor,
  kStripHighlightBackgroundColor,
  kFolderStripBackgroundColor,
  kFolderStripHighlightBackgroundColor,
  kAuxStripBackgroundColor,
  kAuxStripHighlightBackgroundColor,
  kStripBorderColor,
  kMixerBackgroundColor,
  kMixerBGMatchGradient,
  kMixerStripBGGradient,
  kMixerStripHighlightBGGradient,
  kMixerStripBevel,
  kUseTrackColorAsStripBackground,
  kUseTrackColorMixerOpacity,
  kUseTrackColorMixerHighlightedOpacity,
  kUseTrackColorMixerFolderOpacity,
  kUseTrackColorMixerFolderHighlightedOpacity,
  kUseTrackColorMixerAuxOpacity,
  kUseTrackColorMixerAuxHighlightedOpacity,
  kUseTrackColorGradientMixer,
  kUseTrackColorAsArrangeStripBackground,
  kUseTrackColorArrangeOpacity,
  kUseTrackColorArrangeHighlightedOpacity,
  kUseTrackColorArrangeFolderOpacity,
  kUseTrackColorArrangeFolderHighlightedOpacity,
  kUseTrackColorGradientArrange,
  kEmptySlotBGColor,
  kEmptySlotSelectedBGColor,
  kEmptySlotButtonLabelColor,
  kEmptySlotBGCornerRadius,
  kNameAndNumberTitleColor,
  kNameAndNumberTitleHighlightColor,
  kTypeAndNumberTitleColor,
  kTypeAndNumberTitleHighlightColor,
  kPannerTitleColor,
  kPannerTitleHighlightColor,
  kPluginGroupMapV2,
  kInputInstButtonDimTitleColor,
  kOnOffToolbarIconsOnBackgroundColor,
  kOnOffToolbarIconsOnSymbolsColor,
  kOnOffToolbarIconsOffSymbolsColor,
  kSurroundPannerKnobBackgroundColor,
  kSurroundPannerKnobGridColor,
  kUseImagesToDrawKnob,
  kUseSharedPannerAudio,
  kUseSharedPannerInstrument,
  kUseSharedPannerAux,
  kUseSharedPannerBus,
  kUseSharedPannerStereoOut,
  kUseSharedPannerMaster,
  kUseSharedPannerFolder,
  kUseSharedFaderAudio,
  kUseSharedFaderInstrument,
  kUseSharedFaderAux,
  kUseSharedFaderBus,
  kUseSharedFaderStereoOut,
  kUseSharedFaderMaster,
  kUseSharedFaderFolder,
  kScaleTickMarkColor,
  kScale0DBTickMarkColor,
  kScaleNumberColor,
  kScaleTickMarkHighlightColor,
  kScale0DBTickMarkHighlightColor,
  kScaleNumberHighlightColor,
  kNormalPeakLevelTitleColor,
  kWarningPeakLevelTitleColor,
  kMaxPeakLevelTitleColor,
  kGainReductionBackgroundColor,
  kArrangeStripBGGradient,
  kArrangeStripHighlightBGGradient,
  kArrangeStripBevel,
  kArrangeStripBackgroundColor,
  kArrangeStripHighlightBackgroundColor,
  kArrangeFolderStripBackgroundColor,
  kArrangeFolderSelectedStripBackgroundColor,
  kArrangeWorkspaceColor,
  kArrangeWorkspaceBrightColor,
  kEmptyAreaBelow,
  kGlobalTracksContentBarBG,
  kMainSeparators,
  kStepSequencerHeaderEmptyAreaBelow,
  kLiveLoopsBackgroundColor,
  kLiveLoopsRTBGColor,
  kLibrarySoundPacksFilterPopUpTextColor
};

/// What the value of a key must be.
enum class ThemeKeyKind : std::uint8_t {
  kColour,        // "sRGBColor:{255, 128, 0, 100}"
  kGradient,      // "LinearGradient:{...}" or "AutoGradient:{...}"
  kBevel,         // "Bevel:{R,2,30}"
  kFlag,          // a boolean
  kPercentage,    // a whole number
  kPoints,        // a whole number
  kPluginGroups,  // a dictionary of dictionaries
};

/// Groups the keys for theme authors.
enum class ThemeSection : std::uint8_t {
  kGeneral,
  kMixerStrips,
  kTrackColours,
  kEmptySlots,
  kText,
  kButtons,
  kKnobs,
  kImages,
  kMeters,
  kArrange,
  kLiveLoops,
  kBrowsers
};

/// Whether a colour counts even where it equals the reference theme's: the host has no single colour of its
/// own there that it would otherwise show.
enum class Kept : bool { kNo, kYes };

/// Whether something of the plug-in acts on the key yet. The others are loaded all the same.
enum class Used : bool { kNotYet, kYes };

struct ThemeKeyRow {
  ThemeKey key;
  std::string_view name;
  ThemeKeyKind kind;
  ThemeSection section;
  std::string_view effect;  // what it colours or changes: a sentence for theme authors
  Kept kept = Kept::kNo;
  Used used = Used::kYes;
  std::string_view hostVersion{};  // the oldest host on which it has an effect; any if empty
};

// clang-format off
inline constexpr auto kThemeKeys = [] {
  using enum ThemeKey;
  using enum ThemeKeyKind;
  using enum ThemeSection;
  return std::to_array<ThemeKeyRow>({
    {kWindowTitleColor, "windowTitleColor", kColour, kGeneral,
     "Titles of windows and panels."},
    {kUseCalibratedColor, "useCalibratedColor", kFlag, kGeneral,
     "Whether colour strings make calibrated RGB colours instead of sRGB ones."},

    {kStripBackgroundColor, "stripBackgroundColor", kColour, kMixerStrips,
     "Background of a strip, and of its name, number and notes."},
    {kStripHighlightBackgroundColor, "stripHighlightBackgroundColor", kColour, kMixerStrips,
     "Background of a selected strip, and of its name, number and notes."},
    {kFolderStripBackgroundColor, "folderStripBackgroundColor", kColour, kMixerStrips,
     "Background of a folder strip."},
    {kFolderStripHighlightBackgroundColor, "folderStripHighlightBackgroundColor", kColour, kMixerStrips,
     "Background of a selected folder strip."},
    {kAuxStripBackgroundColor, "auxStripBackgroundColor", kColour, kMixerStrips,
     "Background of an aux strip."},
    {kAuxStripHighlightBackgroundColor, "auxStripHighlightBackgroundColor", kColour, kMixerStrips,
     "Background of a selected aux strip."},
    {kStripBorderColor, "stripBorderColor", kColour, kMixerStrips,
     "Border between strips."},
    {kMixerBackgroundColor, "mixerBackgroundColor", kColour, kMixerStrips,
     "Area behind the strips."},
    {kMixerBGMatchGradient, "mixerBGMatchGradient", kFlag, kMixerStrips,
     "Whether the area behind the strips takes the first colour of the strip gradient; on unless set."},
    {kMixerStripBGGradient, "mixerStripBGGradient", kGradient, kMixerStrips,
     "Gradient of the strips, from top to bottom."},
    {kMixerStripHighlightBGGradient, "mixerStripHighlightBGGradient", kGradient, kMixerStrips,
     "Gradient of selected strips; without it they show the plain one."},
    {kMixerStripBevel, "mixerStripBevel", kBevel, kMixerStrips,
     "Bevelled edges of the strips."},

    {kUseTrackColorAsStripBackground, "useTrackColorAsStripBackground", kFlag, kTrackColours,
     "Whether strips take the colour of their track."},
    {kUseTrackColorMixerOpacity, "UseTrackColor_MixerOpacity", kPercentage, kTrackColours,
     "Opacity of the track colour on strips; 100 unless set, and 0 leaves the track colour out."},
    {kUseTrackColorMixerHighlightedOpacity, "UseTrackColor_MixerHighlightedOpacity", kPercentage, kTrackColours,
     "Opacity of the track colour on selected strips; 100 unless set, and 0 leaves the track colour out."},
    {kUseTrackColorMixerFolderOpacity, "UseTrackColor_MixerFolderOpacity", kPercentage, kTrackColours,
     "Opacity of the track colour on folder strips; 100 unless set, and 0 leaves the track colour out."},
    {kUseTrackColorMixerFolderHighlightedOpacity,
     "UseTrackColor_MixerFolderHighlightedOpacity", kPercentage, kTrackColours,
     "Opacity of the track colour on selected folder strips; 100 unless set, and 0 leaves the track colour out."},
    {kUseTrackColorMixerAuxOpacity, "UseTrackColor_MixerAuxOpacity", kPercentage, kTrackColours,
     "Opacity of the track colour on aux strips; 100 unless set, and 0 leaves the track colour out."},
    {kUseTrackColorMixerAuxHighlightedOpacity, "UseTrackColor_MixerAuxHighlightedOpacity", kPercentage, kTrackColours,
     "Opacity of the track colour on selected aux strips; 100 unless set, and 0 leaves the track colour out."},
    {kUseTrackColorGradientMixer, "UseTrackColorGradient_Mixer", kGradient, kTrackColours,
     "Gradient of strips that take the colour of their track, usually an automatic one."},
    {kUseTrackColorAsArrangeStripBackground, "useTrackColorAsArrangeStripBackground", kFlag, kTrackColours,
     "Whether track headers of the arrange area take the colour of their track."},
    {kUseTrackColorArrangeOpacity, "UseTrackColor_ArrangeOpacity", kPercentage, kTrackColours,
     "Opacity of the track colour on track headers; 100 unless set."},
    {kUseTrackColorArrangeHighlightedOpacity, "UseTrackColor_ArrangeHighlightedOpacity", kPercentage, kTrackColours,
     "Opacity of the track colour on selected track headers; 100 unless set."},
    {kUseTrackColorArrangeFolderOpacity, "UseTrackColor_ArrangeFolderOpacity", kPercentage, kTrackColours,
     "Opacity of the track colour on headers of folder tracks; 100 unless set."},
    {kUseTrackColorArrangeFolderHighlightedOpacity,
     "UseTrackColor_ArrangeFolderHighlightedOpacity", kPercentage, kTrackColours,
     "Opacity of the track colour on selected headers of folder tracks; 100 unless set."},
    {kUseTrackColorGradientArrange, "UseTrackColorGradient_Arrange", kGradient, kTrackColours,
     "Gradient of track headers that take the colour of their track.", Kept::kNo, Used::kNotYet},

    {kEmptySlotBGColor, "emptySlotBGColor", kColour, kEmptySlots,
     "Fill of empty slots and empty send knobs.", Kept::kYes},
    {kEmptySlotSelectedBGColor, "emptySlotSelectedBGColor", kColour, kEmptySlots,
     "Fill of empty slots and empty send knobs of a selected strip.", Kept::kYes},
    {kEmptySlotButtonLabelColor, "emptySlotButtonLabelColor", kColour, kEmptySlots,
     "Titles of empty slots."},
    {kEmptySlotBGCornerRadius, "emptySlotBGCornerRadius", kPoints, kEmptySlots,
     "Corner radius of empty slots, in points; 4 unless set."},

    {kNameAndNumberTitleColor, "nameAndNumberTitleColor", kColour, kText,
     "Name, number and notes of a strip."},
    {kNameAndNumberTitleHighlightColor, "nameAndNumberTitleHighlightColor", kColour, kText,
     "Name, number and notes of a selected strip."},
    {kTypeAndNumberTitleColor, "typeAndNumberTitleColor", kColour, kText,
     "Label with the type and number of a track."},
    {kTypeAndNumberTitleHighlightColor, "typeAndNumberTitleHighlightColor", kColour, kText,
     "Label with the type and number of a selected track."},
    {kPannerTitleColor, "pannerTitleColor", kColour, kText,
     "Read-outs of knobs and panners."},
    {kPannerTitleHighlightColor, "pannerTitleHighlightColor", kColour, kText,
     "Read-outs of knobs and panners of a selected strip."},

    {kPluginGroupMapV2, "PluginGroupMapV2", kPluginGroups, kButtons,
     "Groups of plug-ins with looks of their own.", Kept::kNo, Used::kNotYet},
    {kInputInstButtonDimTitleColor, "InputInstButtonDimTitleColor", kColour, kButtons,
     "Title of an instrument slot, dimmed or in low latency mode.", Kept::kYes, Used::kNotYet},
    {kOnOffToolbarIconsOnBackgroundColor, "On_OffToolbarIcons_OnBackgroundColor", kColour, kButtons,
     "Background of toolbar icons that are on.", Kept::kYes, Used::kNotYet},
    {kOnOffToolbarIconsOnSymbolsColor, "On_OffToolbarIcons_OnSymbolsColor", kColour, kButtons,
     "Symbols of toolbar icons that are on.", Kept::kYes, Used::kNotYet},
    {kOnOffToolbarIconsOffSymbolsColor, "On_OffToolbarIcons_OffSymbolsColor", kColour, kButtons,
     "Symbols of toolbar icons that are off.", Kept::kYes, Used::kNotYet},

    {kSurroundPannerKnobBackgroundColor, "surroundPannerKnobBackgroundColor", kColour, kKnobs,
     "Background of surround panners.", Kept::kYes, Used::kNotYet},
    {kSurroundPannerKnobGridColor, "surroundPannerKnobGridColor", kColour, kKnobs,
     "Grid of surround panners.", Kept::kYes, Used::kNotYet},

    {kUseImagesToDrawKnob, "useImagesToDrawKnob", kFlag, kImages,
     "Whether knobs, panners and caps are drawn from images.", Kept::kNo, Used::kNotYet},
    {kUseSharedPannerAudio, "useSharedPanner?audio", kFlag, kImages,
     "Whether audio strips use the panner images that all strips share.", Kept::kNo, Used::kNotYet},
    {kUseSharedPannerInstrument, "useSharedPanner?instrument", kFlag, kImages,
     "Whether software instrument strips use the panner images that all strips share.", Kept::kNo, Used::kNotYet},
    {kUseSharedPannerAux, "useSharedPanner?aux", kFlag, kImages,
     "Whether aux strips use the panner images that all strips share.", Kept::kNo, Used::kNotYet},
    {kUseSharedPannerBus, "useSharedPanner?bus", kFlag, kImages,
     "Whether bus strips use the panner images that all strips share.", Kept::kNo, Used::kNotYet},
    {kUseSharedPannerStereoOut, "useSharedPanner?stereo_out", kFlag, kImages,
     "Whether stereo output strips use the panner images that all strips share.", Kept::kNo, Used::kNotYet},
    {kUseSharedPannerMaster, "useSharedPanner?master", kFlag, kImages,
     "Whether master strips use the panner images that all strips share.", Kept::kNo, Used::kNotYet},
    {kUseSharedPannerFolder, "useSharedPanner?folder", kFlag, kImages,
     "Whether folder strips use the panner images that all strips share.", Kept::kNo, Used::kNotYet},
    {kUseSharedFaderAudio, "useSharedFader?audio", kFlag, kImages,
     "Whether audio strips keep the fader cap that all strips share.", Kept::kNo, Used::kNotYet},
    {kUseSharedFaderInstrument, "useSharedFader?instrument", kFlag, kImages,
     "Whether software instrument strips keep the fader cap that all strips share.", Kept::kNo, Used::kNotYet},
    {kUseSharedFaderAux, "useSharedFader?aux", kFlag, kImages,
     "Whether aux strips keep the fader cap that all strips share.", Kept::kNo, Used::kNotYet},
    {kUseSharedFaderBus, "useSharedFader?bus", kFlag, kImages,
     "Whether bus strips keep the fader cap that all strips share.", Kept::kNo, Used::kNotYet},
    {kUseSharedFaderStereoOut, "useSharedFader?stereo_out", kFlag, kImages,
     "Whether stereo output strips keep the fader cap that all strips share.", Kept::kNo, Used::kNotYet},
    {kUseSharedFaderMaster, "useSharedFader?master", kFlag, kImages,
     "Whether master strips keep the fader cap that all strips share.", Kept::kNo, Used::kNotYet},
    {kUseSharedFaderFolder, "useSharedFader?folder", kFlag, kImages,
     "Whether folder strips keep the fader cap that all strips share.", Kept::kNo, Used::kNotYet},

    {kScaleTickMarkColor, "scaleTickMarkColor", kColour, kMeters,
     "Tick marks of scales.", Kept::kNo, Used::kNotYet},
    {kScale0DBTickMarkColor, "scale0DBTickMarkColor", kColour, kMeters,
     "Tick mark at 0 dB.", Kept::kNo, Used::kNotYet},
    {kScaleNumberColor, "scaleNumberColor", kColour, kMeters,
     "Numbers of scales.", Kept::kNo, Used::kNotYet},
    {kScaleTickMarkHighlightColor, "scaleTickMarkHighlightColor", kColour, kMeters,
     "Tick marks of scales of a selected strip.", Kept::kYes, Used::kNotYet},
    {kScale0DBTickMarkHighlightColor, "scale0DBTickMarkHighlightColor", kColour, kMeters,
     "Tick mark at 0 dB of a selected strip.", Kept::kYes, Used::kNotYet},
    {kScaleNumberHighlightColor, "scaleNumberHighlightColor", kColour, kMeters,
     "Numbers of scales of a selected strip.", Kept::kYes, Used::kNotYet},
    {kNormalPeakLevelTitleColor, "normalPeakLevelTitleColor", kColour, kMeters,
     "Peak level that is low.", Kept::kYes, Used::kNotYet},
    {kWarningPeakLevelTitleColor, "warningPeakLevelTitleColor", kColour, kMeters,
     "Peak level that comes close to the maximum.", Kept::kYes, Used::kNotYet},
    {kMaxPeakLevelTitleColor, "maxPeakLevelTitleColor", kColour, kMeters,
     "Peak level at its maximum.", Kept::kYes, Used::kNotYet},
    {kGainReductionBackgroundColor, "GainReductionBackgroundColor", kColour, kMeters,
     "Background of gain reduction meters.", Kept::kYes, Used::kNotYet},

    {kArrangeStripBGGradient, "arrangeStripBGGradient", kGradient, kArrange,
     "Gradient of track headers."},
    {kArrangeStripHighlightBGGradient, "arrangeStripHighlightBGGradient", kGradient, kArrange,
     "Gradient of selected track headers."},
    {kArrangeStripBevel, "arrangeStripBevel", kBevel, kArrange,
     "Bevelled edges of track headers."},
    {kArrangeStripBackgroundColor, "arrangeStripBackgroundColor", kColour, kArrange,
     "Background of track headers.", Kept::kYes},
    {kArrangeStripHighlightBackgroundColor, "arrangeStripHighlightBackgroundColor", kColour, kArrange,
     "Background of selected track headers.", Kept::kYes},
    {kArrangeFolderStripBackgroundColor, "arrangeFolderStripBackgroundColor", kColour, kArrange,
     "Background of headers of folder tracks.", Kept::kYes},
    {kArrangeFolderSelectedStripBackgroundColor, "arrangeFolderSelectedStripBackgroundColor", kColour, kArrange,
     "Background of selected headers of folder tracks.", Kept::kYes},
    {kArrangeWorkspaceColor, "ArrangeWorkspaceColor", kColour, kArrange,
     "Workspace between the regions.", Kept::kYes},
    {kArrangeWorkspaceBrightColor, "ArrangeWorkspaceBrightColor", kColour, kArrange,
     "Workspace between the regions while the host shows it bright.", Kept::kYes},
    {kEmptyAreaBelow, "EmptyAreaBelow", kColour, kArrange,
     "Empty area below the last track.", Kept::kYes},
    {kGlobalTracksContentBarBG, "GlobalTracks_ContentBar_BG", kColour, kArrange,
     "Contents of the global tracks.", Kept::kYes},
    {kMainSeparators, "MainSeparators", kColour, kArrange,
     "Separators between the areas of a window."},
    {kStepSequencerHeaderEmptyAreaBelow, "StepSequencerHeader_EmptyAreaBelow", kColour, kArrange,
     "Row headers of the step sequencer."},

    {kLiveLoopsBackgroundColor, "LiveLoopsBackgroundColor", kColour, kLiveLoops,
     "Background of the Live Loops grid.", Kept::kYes, Used::kNotYet},
    {kLiveLoopsRTBGColor, "LiveLoopsRTBGColor", kColour, kLiveLoops,
     "Background of the row triggers of Live Loops.", Kept::kYes, Used::kNotYet},

    {kLibrarySoundPacksFilterPopUpTextColor, "LibrarySoundPacksFilterPopUpTextColor", kColour, kBrowsers,
     "Filter menu of the sound library.", Kept::kYes, Used::kNotYet},
  });
}();
// clang-format on

inline constexpr std::size_t kThemeKeyCount = kThemeKeys.size();

constexpr std::size_t indexOf(ThemeKey key) { return static_cast<std::size_t>(key); }
constexpr const ThemeKeyRow& rowOf(ThemeKey key) { return kThemeKeys[indexOf(key)]; }

namespace detail {

/// The keys in the order of their names.
inline constexpr auto kThemeKeysByName = [] {
  std::array<ThemeKey, kThemeKeyCount> keys{};
  std::ranges::transform(kThemeKeys, keys.begin(), &ThemeKeyRow::key);
  std::ranges::sort(keys, {}, [](ThemeKey key) { return rowOf(key).name; });
  return keys;
}();

constexpr bool areThemeKeysInOrder() {
  for (std::size_t i = 0; i < kThemeKeyCount; ++i) {
    if (indexOf(kThemeKeys[i].key) != i) return false;
  }
  return true;
}
static_assert(areThemeKeysInOrder(), "the rows must stand in the order of ThemeKey");
static_assert(std::ranges::adjacent_find(kThemeKeysByName, {}, [](ThemeKey key) { return rowOf(key).name; }) ==
                  kThemeKeysByName.end(),
              "two rows have one name");
static_assert(std::ranges::count(kThemeKeys, Kept::kYes, &ThemeKeyRow::kept) == 26, "26 keys are kept");

}  // namespace detail

/// The colour strings that a plug-in group may hold, and the entries under which their colours are added.
struct PluginGroupColour {
  std::string_view stored;
  std::string_view added;
};
inline constexpr std::array<PluginGroupColour, 3> kPluginGroupColours{
    {{"offTextColorStr", "offTextColor"}, {"onTextColorStr", "onTextColor"}, {"dimTextColorStr", "dimTextColor"}}};

/// The key of that name, exactly; nothing for a name that only exists at run time.
constexpr std::optional<ThemeKey> keyNamed(std::string_view name) {
  const auto nameOf = [](ThemeKey key) { return rowOf(key).name; };
  const auto* const found = std::ranges::lower_bound(detail::kThemeKeysByName, name, {}, nameOf);
  const bool known = found != detail::kThemeKeysByName.end() && nameOf(*found) == name;
  return known ? std::optional(*found) : std::nullopt;
}

}  // namespace velura
