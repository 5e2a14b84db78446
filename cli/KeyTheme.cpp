#include "cli/KeyTheme.h"

#include "plugin/language/TrackTypes.h"

namespace session {
namespace {

using velura::key;
using velura::ThemeKey;
using velura::ThemeKeyKind;
using velura::ThemeKeyRow;

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
    {ThemeKeyKind::kColor, kVivid},
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
    {key<"mixerBGMatchGradient">, kOff},
    {key<"UseTrackColorGradient_Mixer">, kAutoGradient},
    {key<"arrangeStripBGGradient">, kHeaderGradient},
    {key<"arrangeStripHighlightBGGradient">, kHeaderGradient},
};

struct Partner {
  ThemeKey of;
  ThemeKey key;
  const char* value;
};
constexpr Partner kPartners[] = {
    {key<"useCalibratedColor">, key<"stripBackgroundColor">, "<string>sRGBColor:{60, 120, 200, 100}</string>"},
    {key<"mixerBGMatchGradient">, key<"mixerStripBGGradient">, kHeaderGradient},
    {key<"mixerBGMatchGradient">, key<"mixerBackgroundColor">, kOtherVivid},
    {key<"UseTrackColor_MixerOpacity">, key<"useTrackColorAsStripBackground">, kOn},
    {key<"UseTrackColor_MixerHighlightedOpacity">, key<"useTrackColorAsStripBackground">, kOn},
    {key<"UseTrackColor_MixerFolderOpacity">, key<"useTrackColorAsStripBackground">, kOn},
    {key<"UseTrackColor_MixerFolderHighlightedOpacity">, key<"useTrackColorAsStripBackground">, kOn},
    {key<"UseTrackColor_MixerAuxOpacity">, key<"useTrackColorAsStripBackground">, kOn},
    {key<"UseTrackColor_MixerAuxHighlightedOpacity">, key<"useTrackColorAsStripBackground">, kOn},
    {key<"UseTrackColorGradient_Mixer">, key<"useTrackColorAsStripBackground">, kOn},
    {key<"UseTrackColor_ArrangeOpacity">, key<"useTrackColorAsArrangeStripBackground">, kOn},
    {key<"UseTrackColor_ArrangeHighlightedOpacity">, key<"useTrackColorAsArrangeStripBackground">, kOn},
    {key<"UseTrackColor_ArrangeFolderOpacity">, key<"useTrackColorAsArrangeStripBackground">, kOn},
    {key<"UseTrackColor_ArrangeFolderHighlightedOpacity">, key<"useTrackColorAsArrangeStripBackground">, kOn},
    {key<"arrangeStripBGGradient">, key<"arrangeStripBackgroundColor">, kQuiet},
    {key<"arrangeStripHighlightBGGradient">, key<"arrangeStripHighlightBackgroundColor">, kQuiet},
    {key<"arrangeStripBevel">, key<"arrangeStripBackgroundColor">, kQuiet},
    {key<"EmptyAreaBelow">, key<"arrangeStripBackgroundColor">, kQuiet},
    {key<"EmptyAreaBelow">, key<"arrangeStripHighlightBackgroundColor">, kQuiet},
    {key<"EmptyAreaBelow">, key<"arrangeFolderStripBackgroundColor">, kQuiet},
    {key<"EmptyAreaBelow">, key<"arrangeFolderSelectedStripBackgroundColor">, kQuiet},
    {key<"emptySlotBGCornerRadius">, key<"emptySlotBGColor">, kVivid},
    {key<"surroundPannerKnobBackgroundColor">, key<"surroundPannerKnobGridColor">, kQuiet},
    {key<"surroundPannerKnobGridColor">, key<"surroundPannerKnobBackgroundColor">, kQuiet},
};

std::string name(ThemeKey key) { return std::string(rowOf(key).name); }

/// Keys that exist once for each kind of strip.
void addPartnersOfKind(ThemeKey key, const velura::TrackTypeRow& kind, KeyTheme& theme) {
  constexpr std::size_t kMeterColors = 5;
  const bool isMeterColor =
      indexOf(key) >= indexOf(kind.lowestMeterColor) && indexOf(key) < indexOf(kind.lowestMeterColor) + kMeterColors;
  if (key == kind.sharedPanner) theme.without[name(velura::key<"useImagesToDrawKnob">)] = kOn;
  if (key == kind.sharedMeter) theme.with[name(key)] = kOff;
  if (isMeterColor) theme.without[name(kind.sharedMeter)] = kOff;
  if (key != kind.sharedMeter && !isMeterColor) return;
  for (std::size_t i = 0; i < kMeterColors; ++i) {
    const auto color = ThemeKey(indexOf(kind.lowestMeterColor) + i);
    theme.without[name(color)] = isMeterColor || i % 2 != 0 ? kQuiet : kVivid;
  }
}

}  // namespace

KeyTheme themeShowing(const ThemeKeyRow& row) {
  KeyTheme theme;
  theme.with[std::string(row.name)] = std::ranges::find(kValues, row.kind, &KindValue::kind)->value;
  for (const KeyValue& own : kOwnValues) {
    if (own.key == keyOf(row)) theme.with[std::string(row.name)] = own.value;
  }
  for (const Partner& partner : kPartners) {
    if (partner.of == keyOf(row)) theme.without[name(partner.key)] = partner.value;
  }
  for (const velura::TrackTypeRow& kind : velura::kTrackTypes) addPartnersOfKind(keyOf(row), kind, theme);
  theme.with.insert(theme.without.begin(), theme.without.end());
  theme.needsImages = row.section == velura::ThemeSection::kImages;
  if (keyOf(row) == key<"ArrangeWorkspaceBrightColor">) theme.renderOptions = {"--tracks-background", "1"};
  if (keyOf(row) == key<"sendsOnFaderPopupMenuArrowColorOn">) theme.song = "songs/night-drive.json";
  return theme;
}

std::string themeList(const ThemeEntries& entries) {
  std::string list = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>\n";
  for (const auto& [key, value] : entries) list.append("<key>").append(key).append("</key>").append(value).append("\n");
  return list + "</dict></plist>\n";
}

}  // namespace session
