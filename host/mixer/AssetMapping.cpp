#include "host/mixer/AssetMapping.h"

#include <array>
#include <charconv>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "host/palette/Palette.h"
#include "standin/steering/MainBundle.h"

namespace host {
namespace {

using namespace cocoa;

constexpr std::array<const char*, 4> kLevelGradients{"LevelLinear", "LevelLinearOutput", "LevelExponential",
                                                     "LevelExponentialOutput"};

NSDictionary entry(NSDictionary list, std::string_view key) { return as<NSDictionary>(list.objectForKey(string(key))); }

/// A colour like "#4A90D9"; nil for anything else.
Ref<NSColor> colorNamed(NSObject value) {
  const std::string text = toStdString(as<NSString>(value));
  unsigned bytes = 0;
  if (text.size() != 7 || text[0] != '#') return {};
  const auto parsed = std::from_chars(text.data() + 1, text.data() + text.size(), bytes, 16);
  if (parsed.ec != std::errc() || parsed.ptr != text.data() + text.size()) return {};
  const auto component = [&](unsigned shift) { return static_cast<double>(bytes >> shift & 0xFFU) / 255; };
  return NSColor::colorWithSRGBRed(component(16), component(8), component(0), 1);
}

ButtonBody bodyOf(NSDictionary list) {
  ButtonBody body{colorNamed(list.objectForKey(literal<"top">())), colorNamed(list.objectForKey(literal<"bottom">()))};
  if (!body.top) body.top = paletteColor(Palette::kButtonTop);
  if (!body.bottom) body.bottom = paletteColor(Palette::kButtonBottom);
  return body;
}

Ref<NSGradient> gradientOf(NSArray stops) {
  const auto colors = NSMutableArray::array();
  std::vector<CGFloat> locations;
  for (const NSObject stop : items(stops)) {
    const auto list = as<NSDictionary>(stop);
    const Ref<NSColor> color = colorNamed(list.objectForKey(literal<"color">()));
    const auto location = as<NSNumber>(list.objectForKey(literal<"location">()));
    if (!color || !location) continue;
    colors.addObject(color);
    locations.push_back(location.doubleValue());
  }
  return NSGradient::withColors(colors, locations.data(), NSColorSpace::sRGBColorSpace());
}

/// What the mapping says, read once. Empty where the framework is not beside the program.
struct Assets {
  std::map<std::string, ButtonAsset, std::less<>> buttons;
  std::array<Ref<NSGradient>, kLevelGradients.size()> levels;

  Assets() {
    const NSString path = NSBundle::bundleForClass(classNamed("MALevelNodeTextureCache"))
                              .pathForResource(literal<"MAMixerAssetMapping">(), literal<"plist">());
    if (!path) return;
    const auto list = call<"dictionaryWithContentsOfFile:", NSDictionary>(classOf<NSDictionary>(), path);
    const NSDictionary sets = entry(list, "AssetSets");
    const NSDictionary looks = entry(sets, "Buttons");
    for (const NSString name : items<NSString>(looks.allKeys())) {
      const auto look = as<NSDictionary>(looks.objectForKey(name));
      buttons["Buttons." + toStdString(name)] = {bodyOf(entry(look, "on")), bodyOf(entry(look, "off"))};
    }
    const NSDictionary meters = entry(entry(sets, "Gradients"), "LevelMeter");
    for (std::size_t i = 0; i < kLevelGradients.size(); ++i) {
      const NSDictionary meter = entry(meters, kLevelGradients[i]);
      levels[i] = gradientOf(as<NSArray>(meter.objectForKey(literal<"gradient">())));
    }
  }
};

const Assets& assets() {
  static const auto* read = new Assets();  // outlives every late release
  return *read;
}

constexpr const char* kMixerClasses[] = {"MANode",
                                         "MAStripNode",
                                         "MAButtonNode",
                                         "MASymbolButtonNode",
                                         "MATextNode",
                                         "MADisplayNode",
                                         "MAImageNode",
                                         "MAKnobNode",
                                         "MAStereoPannerNode",
                                         "MAPlanarPannerNode",
                                         "MAFaderNode",
                                         "MALevelNode",
                                         "MALevelNodeTextureCache",
                                         "MALevelNodeBackgroundTextureCache",
                                         "MAScaleNode",
                                         "MAScaleTick",
                                         "MAEQThumbnailNode",
                                         "MAGainReductionMeterNode"};

}  // namespace

const ButtonAsset& buttonAsset(std::string_view path) {
  static const auto* plain = new ButtonAsset{bodyOf({}), bodyOf({})};
  const auto& buttons = assets().buttons;
  auto found = buttons.find(path);
  if (found == buttons.end()) found = buttons.find("Buttons.Default");
  return found == buttons.end() ? *plain : found->second;
}

NSGradient levelGradient(NSInteger mixerLevelType) {
  const auto index = static_cast<std::size_t>(mixerLevelType - 1);
  return index < kLevelGradients.size() ? assets().levels[index].get() : NSGradient();
}

void placeMixerClasses() {
  std::error_code failure;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", failure);
  const NSBundle framework = NSBundle::bundleWithPath(string((program.parent_path() / "MAMixer.framework").string()));
  if (!framework) return;
  for (const char* name : kMixerClasses) standin::setBundleOfClass(classNamed(name), framework);
}

}  // namespace host
