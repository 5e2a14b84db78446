#include "cli/KeyTheme.h"

#include "plugin/theme/TrackTypes.h"

namespace session {
namespace {

using velura::ThemeKey;
using velura::ThemeKeyKind;
using velura::ThemeKeyRow;
using enum velura::ThemeKey;

constexpr const char* kOn = "<true/>";
constexpr const char* kOff = "<false/>";
constexpr const char* kVivid = "<string>sRGBColor:{255, 40, 160, 100}</string>";
constexpr const char* kOtherVivid = "<string>sRGBColor:{40, 220, 255, 100}</string>";
constexpr const char* kQuiet = "<string>sRGBColor:{70, 74, 84, 100}</string>";
/// Repeated, so that any part of a strip shows a whole turn.
constexpr const char* kStripGradient =
    "<string>LinearGradient:{{255,40,160,100,0},{40,220,255,100,8},{255,40,160,100,16},{40,220,255,100,24},"
    "{255,40,160,100,32},{40,220,255,100,40},{255,40,160,100,48},{40,220,255,100,56},{255,40,160,100,64},"
    "{40,220,255,100,72},{255,40,160,100,80},{40,220,255,100,88},{255,40,160,100,100},V}</string>";
constexpr const char* kHeaderGradient = "<string>LinearGradient:{{255,40,160,100},{40,220,255,100},V}</string>";
constexpr const char* kAutoGradient =
    "<string>AutoGradient:{{30,0},{-30,8},{30,16},{-30,24},{30,32},{-30,40},{30,48},{-30,56},{30,64},{-30,72},"
    "{30,80},{-30,88},{30,100},V}</string>";
constexpr const char* kPlugInGroups =
    "<dict><key>0x61756678:0x65713662:0x64656D6F</key><dict><key>image</key><string>AudioPlugIn_Rose</string>"
    "<key>onTextColorStr</key><string>sRGBColor:{255, 255, 255, 100}</string>"
    "<key>onIconColor</key><string>sRGBColor:{120, 255, 210, 100}</string></dict></dict>";

struct KindValue {
  ThemeKeyKind kind;
  const char* value;
};
constexpr KindValue kValues[] = {
    {ThemeKeyKind::kColour, kVivid},
    {ThemeKeyKind::kGradient, kStripGradient},
    {ThemeKeyKind::kBevel, "<string>Bevel:{R,6,80}</string>"},
    {ThemeKeyKind::kFlag, kOn},
    {ThemeKeyKind::kPercentage, "<integer>25</integer>"},
    {ThemeKeyKind::kPoints, "<integer>9</integer>"},
    {ThemeKeyKind::kPluginGroups, kPlugInGroups},
};

struct KeyValue {
  ThemeKey key;
  const char* value;
};
/// Values other than those of their kinds.
constexpr KeyValue kOwnValues[] = {
    {kMixerBGMatchGradient, kOff},
    {kUseTrackColorGradientMixer, kAutoGradient},
    {kArrangeStripBGGradient, kHeaderGradient},
    {kArrangeStripHighlightBGGradient, kHeaderGradient},
};

struct Partner {
  ThemeKey of;
  ThemeKey key;
  const char* value;
};
constexpr Partner kPartners[] = {
    {kUseCalibratedColor, kStripBackgroundColor, "<string>sRGBColor:{60, 120, 200, 100}</string>"},
    {kMixerBGMatchGradient, kMixerStripBGGradient, kHeaderGradient},
    {kMixerBGMatchGradient, kMixerBackgroundColor, kOtherVivid},
    {kUseTrackColorMixerOpacity, kUseTrackColorAsStripBackground, kOn},
    {kUseTrackColorMixerHighlightedOpacity, kUseTrackColorAsStripBackground, kOn},
    {kUseTrackColorMixerFolderOpacity, kUseTrackColorAsStripBackground, kOn},
    {kUseTrackColorMixerFolderHighlightedOpacity, kUseTrackColorAsStripBackground, kOn},
    {kUseTrackColorMixerAuxOpacity, kUseTrackColorAsStripBackground, kOn},
    {kUseTrackColorMixerAuxHighlightedOpacity, kUseTrackColorAsStripBackground, kOn},
    {kUseTrackColorGradientMixer, kUseTrackColorAsStripBackground, kOn},
    {kUseTrackColorArrangeOpacity, kUseTrackColorAsArrangeStripBackground, kOn},
    {kUseTrackColorArrangeHighlightedOpacity, kUseTrackColorAsArrangeStripBackground, kOn},
    {kUseTrackColorArrangeFolderOpacity, kUseTrackColorAsArrangeStripBackground, kOn},
    {kUseTrackColorArrangeFolderHighlightedOpacity, kUseTrackColorAsArrangeStripBackground, kOn},
    {kArrangeStripBGGradient, kArrangeStripBackgroundColor, kQuiet},
    {kArrangeStripHighlightBGGradient, kArrangeStripHighlightBackgroundColor, kQuiet},
    {kArrangeStripBevel, kArrangeStripBackgroundColor, kQuiet},
    {kEmptyAreaBelow, kArrangeStripBackgroundColor, kQuiet},
    {kEmptyAreaBelow, kArrangeStripHighlightBackgroundColor, kQuiet},
    {kEmptyAreaBelow, kArrangeFolderStripBackgroundColor, kQuiet},
    {kEmptyAreaBelow, kArrangeFolderSelectedStripBackgroundColor, kQuiet},
    {kEmptySlotBGCornerRadius, kEmptySlotBGColor, kVivid},
    {kSurroundPannerKnobBackgroundColor, kSurroundPannerKnobGridColor, kQuiet},
    {kSurroundPannerKnobGridColor, kSurroundPannerKnobBackgroundColor, kQuiet},
};

std::string name(ThemeKey key) { return std::string(rowOf(key).name); }

/// Keys that exist once for each kind of strip.
void addPartnersOfKind(ThemeKey key, const velura::TrackTypeRow& kind, KeyTheme& theme) {
  constexpr std::size_t kMeterColours = 5;
  const bool isMeterColour =
      indexOf(key) >= indexOf(kind.lowestMeterColour) && indexOf(key) < indexOf(kind.lowestMeterColour) + kMeterColours;
  if (key == kind.sharedPanner) theme.without[name(kUseImagesToDrawKnob)] = kOn;
  if (key == kind.sharedMeter) theme.with[name(key)] = kOff;
  if (isMeterColour) theme.without[name(kind.sharedMeter)] = kOff;
  if (key != kind.sharedMeter && !isMeterColour) return;
  for (std::size_t i = 0; i < kMeterColours; ++i) {
    const auto colour = ThemeKey(indexOf(kind.lowestMeterColour) + i);
    theme.without[name(colour)] = isMeterColour || i % 2 != 0 ? kQuiet : kVivid;
  }
}

}  // namespace

KeyTheme themeShowing(const ThemeKeyRow& row) {
  KeyTheme theme;
  theme.with[std::string(row.name)] = std::ranges::find(kValues, row.kind, &KindValue::kind)->value;
  for (const KeyValue& own : kOwnValues) {
    if (own.key == row.key) theme.with[std::string(row.name)] = own.value;
  }
  for (const Partner& partner : kPartners) {
    if (partner.of == row.key) theme.without[name(partner.key)] = partner.value;
  }
  for (const velura::TrackTypeRow& kind : velura::kTrackTypes) addPartnersOfKind(row.key, kind, theme);
  theme.with.insert(theme.without.begin(), theme.without.end());
  theme.needsImages = row.section == velura::ThemeSection::kImages;
  if (row.key == kArrangeWorkspaceBrightColor) theme.renderOptions = {"--tracks-background", "1"};
  if (row.key == kSendsOnFaderPopupMenuArrowColorOn) theme.song = "songs/night-drive.json";
  return theme;
}

std::string themeList(const ThemeEntries& entries) {
  std::string list = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>\n";
  for (const auto& [key, value] : entries) list.append("<key>").append(key).append("</key>").append(value).append("\n");
  return list + "</dict></plist>\n";
}

}  // namespace session
