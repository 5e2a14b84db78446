#include "tests/goldens/KeyThemes.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>

#include "cli/KeyTheme.h"
#include "cli/PrivateFolders.h"
#include "plugin/language/ThemeKeys.h"

namespace goldens {
namespace {

using velura::ThemeKeyKind;
using velura::ThemeKeyRow;

/// What a theme has besides colours.
struct Variant {
  std::string_view name;
  bool images = false;
  bool gradients = false;
  bool trackColors = false;
};
constexpr Variant kVariants[] = {{.name = "keys"},
                                 {.name = "keys-images", .images = true, .gradients = true},
                                 {.name = "keys-tracks", .trackColors = true},
                                 {.name = "keys-over", .gradients = true, .trackColors = true}};

std::string text(const std::string& value) { return "<string>" + value + "</string>"; }
std::string number(std::size_t value) { return "<integer>" + std::to_string(value) + "</integer>"; }

/// Another colour for every key; neighbours in the table lie well apart. Track colours come with translucent ones.
std::string channels(std::size_t index, const char* separator, bool translucent) {
  std::string all;
  for (const std::size_t value : {index * 7 % 50 * 4 + 20, index / 50 * 40 + 7, index * 3 % 11 * 20 + 19}) {
    all += std::to_string(value) + separator;
  }
  return all + std::to_string(translucent ? 60 + index % 40 : 100);
}
std::string color(std::size_t index, bool translucent = false) {
  return text("sRGBColor:{" + channels(index, ", ", translucent) + "}");
}

std::string gradient(std::string_view key, std::size_t index) {
  if (key.starts_with("UseTrackColor")) return text("AutoGradient:{{" + std::to_string(20 + index % 20) + "},{-25},V}");
  const auto stop = [&](std::size_t place) { return "{" + channels(index + place, ",", false); };
  if (key.starts_with("arrange")) return text("LinearGradient:" + stop(0).insert(0, "{") + "}," + stop(9) + "},V}");
  return text("LinearGradient:{" + stop(0) + ",0}," + stop(9) + ",@audiofx}," + stop(18) + ",@fader}," + stop(27) +
              ",100},V,S6}");
}

/// Groups of some of the plug-ins that the songs use.
std::string plugInGroups() {
  std::string entries;
  std::size_t index = 0;
  for (const auto& [code, image] : {std::pair{"0x61756678:0x65713662:0x64656D6F", "AudioPlugIn_Rose"},
                                    {"0x61756678:0x64656C79:0x64656D6F", "AudioPlugIn_Amber"},
                                    {"0x61756D75:0x74696E65:0x64656D6F", "AudioPlugIn_Slate"}}) {
    entries.append("<key>").append(code).append("</key><dict><key>image</key>").append(text(image));
    for (const char* entry : {"onTextColorStr", "offTextColorStr", "dimTextColorStr", "onIconColor", "offIconColor"}) {
      entries.append("<key>").append(entry).append("</key>").append(color(++index * 31));
    }
    entries += "</dict>";
  }
  return "<dict>" + entries + "</dict>";
}

/// Images and meters are shared by every other kind of strip.
bool flag(const ThemeKeyRow& row, std::size_t index, const Variant& variant) {
  if (row.name.starts_with("useShared")) return variant.images && index % 2 == 0;
  if (row.name == "useImagesToDrawKnob") return variant.images;
  if (row.name == "mixerBGMatchGradient") return variant.images;
  if (row.name == "useCalibratedColor") return variant.trackColors;
  return variant.trackColors;  // whether track colours stand for those of strips
}

/// The value of a key, a property list element; "" where the theme leaves the key out.
std::string valueOf(const ThemeKeyRow& row, const Variant& variant) {
  const std::size_t index = velura::indexOf(velura::keyOf(row));
  switch (row.kind) {
    case ThemeKeyKind::kColor:
      return color(index, variant.trackColors);
    case ThemeKeyKind::kGradient:
      return variant.gradients || row.name.starts_with("UseTrackColor") ? gradient(row.name, index) : "";
    case ThemeKeyKind::kBevel:
      return variant.gradients ? text("Bevel:{R," + std::to_string(2 + index % 4) + ",60,D}") : "";
    case ThemeKeyKind::kFlag:
      return flag(row, index, variant) ? "<true/>" : "<false/>";
    case ThemeKeyKind::kPercentage:
      return number(15 + index * 13 % 80);
    case ThemeKeyKind::kPoints:
      return number(2 + index % 7);
    case ThemeKeyKind::kPluginGroups:
      return variant.images ? plugInGroups() : "";
  }
  return {};
}

/// Colours of the host's catalogue, which are no keys of the table.
constexpr const char* kCatalog[] = {"MixerToolbarBackground",
                                    "MixerToolbarEdge",
                                    "MixerToolbarText",
                                    "MixerToolbarActive",
                                    "StepSequencerRowHeader",
                                    "StepSequencerRowText",
                                    "StepSequencerStepOff",
                                    "StepSequencerStepOn",
                                    "StepSequencerStepAccent",
                                    "LibraryBackground",
                                    "LibraryHeader",
                                    "LibraryTitle",
                                    "LibraryText",
                                    "LibraryPicture",
                                    "LibrarySearchField",
                                    "LibrarySearchText",
                                    "LibrarySeparator"};

session::ThemeEntries entriesOf(const Variant& variant) {
  session::ThemeEntries entries;
  for (const ThemeKeyRow& row : velura::kThemeKeys) {
    const std::string value = valueOf(row, variant);
    if (!value.empty()) entries[std::string(row.name)] = value;
  }
  for (std::size_t i = 0; i < std::size(kCatalog); ++i) entries[kCatalog[i]] = color(13 * i + 5);
  return entries;
}

}  // namespace

bool isKeyTheme(const std::string& name) {
  return std::ranges::find(kVariants, name, &Variant::name) != std::end(kVariants);
}

std::string writeKeyTheme(const std::string& name) {
  const std::filesystem::path folder = std::filesystem::path(session::privateFolder()) / name;
  const Variant& variant = *std::ranges::find(kVariants, name, &Variant::name);
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "PluginHelper.plist") << session::themeList(entriesOf(variant));
  const char* companion = variant.images ? "ember" : "fjord";  // the one has images, the other has none
  std::filesystem::create_directory_symlink(
      std::filesystem::path(VELURA_SOURCE_DIR "/themes") / companion / "Companion.bundle", folder / "Companion.bundle");
  return folder;
}

}  // namespace goldens
