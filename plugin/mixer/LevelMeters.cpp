#include "plugin/mixer/LevelMeters.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <optional>
#include <string>

#include "plugin/language/ColorString.h"
#include "plugin/plist/PropertyListReader.h"
#include "plugin/text/StringBytes.h"
#include "plugin/text/Truncated.h"
#include "plugin/theme/ThemeFiles.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/theme/ThemeValues.h"

namespace velura {
namespace {

using namespace cocoa;

/// The styles in the order of their numbers.
constexpr std::array kStyles{TrackType::kAudio,     TrackType::kInstrument, TrackType::kAux,   TrackType::kBus,
                             TrackType::kStereoOut, TrackType::kMaster,     TrackType::kFolder};

// ---- Colours ------------------------------------------------------------------------------------------

struct ReferenceTheme {
  Ref<NSDictionary> values = readReferenceTheme();
};

/// What the reference theme has under a key.
NSObject vlrLevelMeterDefaultColor(NSString key) {
  return ThemeUtility::shared().derived<ReferenceTheme>().values->objectForKey(key);
}

NSColor defaultColor(ThemeKey key) {
  constexpr int kFewestComponents = 3;
  ColorComponents color{.alpha = 100};
  const auto text = as<NSString>(vlrLevelMeterDefaultColor(string(rowOf(key).name)));
  if (scanColorString(utf8Bytes(text), color) < kFewestComponents) return {};
  return NSColor::colorWithSRGBRed(color.red / 255.0, color.green / 255.0, color.blue / 255.0, color.alpha / 100.0);
}

std::optional<MeterColors> colorsOf(TrackType type, const ThemeValues& settings) {
  const TrackTypeRow& row = *rowOf(type);
  if (settings.flag(row.sharedMeter).value_or(true)) return std::nullopt;
  MeterColors colors;
  for (std::size_t i = 0; i < colors.size(); ++i) {
    const auto key = ThemeKey(indexOf(row.lowestMeterColor) + i);
    const NSColor themed = ThemeUtility::shared().colorForKey(key);
    colors[i] = themed ? themed : defaultColor(key);
    if (!colors[i]) return std::nullopt;
  }
  return colors;
}

using ColorTable = std::array<std::optional<MeterColors>, kStyles.size()>;
ColorTable colorTable() {
  const AutoreleasePool pool;
  const ThemeValues settings(loadThemeSettings());
  ColorTable table;
  std::ranges::transform(kStyles, table.begin(), [&](TrackType type) { return colorsOf(type, settings); });
  return table;
}

// ---- Locations ----------------------------------------------------------------------------------------

struct BaseTypeRow {
  NSString (*asset)();
  MeterLocations fallback;
};
constexpr MeterLocations kLinear{0, 0.67, 0.82, 0.92, 0.92};
constexpr MeterLocations kExponential{0, 0.55, 0.70, 0.87, 0.87};
/// The host's meters, in the order of their numbers from 1 on.
constexpr std::array<BaseTypeRow, 4> kBaseTypes{{{literal<"LevelLinear">, kLinear},
                                                 {literal<"LevelLinearOutput">, kLinear},
                                                 {literal<"LevelExponential">, kExponential},
                                                 {literal<"LevelExponentialOutput">, kExponential}}};

NSDictionary entry(NSDictionary dictionary, NSString key) { return as<NSDictionary>(dictionary.objectForKey(key)); }

/// What the host's framework says of its meters; nil when it says nothing.
NSDictionary levelMeterAssets(NSDictionary mapping) {
  const NSDictionary sets = entry(mapping, literal<"AssetSets">());
  return entry(entry(sets, literal<"Gradients">()), literal<"LevelMeter">());
}

MeterLocations locationsOf(const BaseTypeRow& row, NSDictionary assets) {
  MeterLocations locations{};
  std::size_t found = 0;
  for (const NSObject stop : items(as<NSArray>(entry(assets, row.asset()).objectForKey(literal<"gradient">())))) {
    const auto location = as<NSNumber>(as<NSDictionary>(stop).objectForKey(literal<"location">()));
    if (!location) continue;
    if (found < locations.size()) locations[found] = location.doubleValue();
    ++found;
  }
  return found == locations.size() ? locations : row.fallback;
}

std::array<MeterLocations, kBaseTypes.size()> locationTable() {
  const AutoreleasePool pool;
  const auto bundle = callClass<NSBundle, "bundleForClass:">(classNamed("MALevelNodeTextureCache"));
  const std::string path = utf8Bytes(bundle.pathForResource(literal<"MAMixerAssetMapping">(), literal<"plist">()));
  const Ref<NSObject> mapping = path.empty() ? Ref<NSObject>() : readPropertyList(path.c_str());
  std::array<MeterLocations, kBaseTypes.size()> table{};
  std::ranges::transform(kBaseTypes, table.begin(), [&](const BaseTypeRow& row) {
    return locationsOf(row, levelMeterAssets(as<NSDictionary>(mapping)));
  });
  return table;
}

// ---- Pictures -----------------------------------------------------------------------------------------

constexpr NSInteger kLongestSide = 16'384;  // pixels

/// Draws into a new bitmap of whole pixels; null when its size is none or there is no memory for it.
template <class Draw>
Ref<NSBitmapImageRep> drawnBitmap(NSInteger width, NSInteger height, Draw&& draw) {
  if (width < 1 || height < 1 || width > kLongestSide || height > kLongestSide) return {};
  auto bitmap =
      NSBitmapImageRep::withBitmapDataPlanes(nullptr, width, height, 8, 4, true, false, NSDeviceRGBColorSpace, 0, 0);
  if (!bitmap) return {};
  const NSGraphicsContext context = NSGraphicsContext::graphicsContextWithBitmapImageRep(bitmap);
  if (!context) return {};
  const SavedGraphicsState saved;
  NSGraphicsContext::setCurrentContext(context);
  draw(CGRectMake(0, 0, static_cast<double>(width), static_cast<double>(height)));
  return bitmap;
}

/// A grey in red, green and blue: a gradient takes colours of one kind.
NSColor inRgb(NSColor color) {
  constexpr NSInteger kRgbComponents = 3;
  const bool isRgb = color.type() == NSColorTypeComponentBased && color.numberOfComponents() >= kRgbComponents;
  return isRgb ? color : color.colorUsingColorSpace(NSColorSpace::deviceRGBColorSpace());
}

Ref<NSBitmapImageRep> meterBitmap(const MeterColors& colors, const MeterLocations& locations, CGSize size,
                                  CGFloat scale) {
  constexpr NSUInteger kBeforeAndAfter = NSGradientDrawsBeforeStartingLocation | NSGradientDrawsAfterEndingLocation;
  const NSMutableArray list = NSMutableArray::array();
  for (const Ref<NSColor>& color : colors) {
    const NSColor rgb = inRgb(color);
    if (!rgb) return {};
    list.addObject(rgb);
  }
  const auto gradient = NSGradient::withColors(list, locations.data(), NSColorSpace::deviceRGBColorSpace());
  if (!gradient) return {};
  const auto pixels = [scale](CGFloat points) { return std::max<NSInteger>(1, truncated(points * scale)); };
  return drawnBitmap(pixels(size.width), pixels(size.height), [&](CGRect whole) {
    const bool isLying = whole.size.width > whole.size.height;
    gradient->drawFromPoint({0, 0}, {isLying ? whole.maxX() : 0, isLying ? 0 : whole.maxY()}, kBeforeAndAfter);
  });
}

/// What is known of meters under the theme in force.
struct Meters {
  ColorTable colors = colorTable();
  std::array<MeterLocations, kBaseTypes.size()> locations = locationTable();
};
Meters& meters() { return ThemeUtility::shared().derived<Meters>(); }

struct Texture {
  NSInteger type = 0;
  CGSize size;
  CGFloat scale = 0;
  CFRef<CGImageRef> image;
};

struct Textures {
  std::map<std::string, CFRef<CGImageRef>> byKey;
  Texture last;  // meters of one size follow each other: the key is written out for another one only
};

/// Emptied when it holds more than this as one more is stored.
constexpr std::size_t kMostTextures = 64;

std::string textureKey(MeterType type, CGSize size, CGFloat scale) {
  char text[128];
  const int length = std::snprintf(text, sizeof text, "%ld-%lld-%.1f-%.1f-%.2f", type.style,
                                   static_cast<long long>(type.base), size.width, size.height, scale);
  return {text, std::min(sizeof text - 1, static_cast<std::size_t>(std::max(length, 0)))};
}

}  // namespace

NSInteger meterStyleOf(TrackType type) {
  const auto* const found = std::ranges::find(kStyles, type);
  return found == kStyles.end() ? -1 : found - kStyles.begin();
}

const MeterColors* vlrLevelMeterColorsForTypeIndex(NSInteger style) {
  const ColorTable& table = meters().colors;
  if (style < 0 || static_cast<std::size_t>(style) >= table.size()) return nullptr;
  const auto& colors = table[static_cast<std::size_t>(style)];
  return colors ? &*colors : nullptr;
}

const MeterLocations& vlrLevelMeterLocationsForBaseType(NSInteger base) {
  return meters().locations[static_cast<std::size_t>(std::clamp<NSInteger>(base, 1, kBaseTypes.size()) - 1)];
}

CGImageRef vlrLevelMeterTexture(MeterType type, CGSize size, CGFloat scale) {
  const MeterColors* colors = vlrLevelMeterColorsForTypeIndex(type.style);
  if (colors == nullptr || !type.isThemed()) return nullptr;
  auto& [cache, last] = ThemeUtility::shared().derived<Textures>();
  if (last.image && last.type == type.number() && last.size == size && last.scale == scale) return last.image;
  std::string key = textureKey(type, size, scale);
  if (const auto known = cache.find(key); known != cache.end()) {
    last = {type.number(), size, scale, known->second};
    return last.image;
  }
  const auto bitmap = meterBitmap(*colors, vlrLevelMeterLocationsForBaseType(type.base), size, scale);
  const CFRef<CGImageRef> image = bitmap ? bitmap->CGImage() : nullptr;
  if (!image) return nullptr;
  if (cache.size() > kMostTextures) cache.clear();
  return cache.emplace(std::move(key), image).first->second;
}

CGImageRef levelMeterBackground(CGSize size, CGFloat scale) {
  constexpr double kRadius = 3;  // pixels
  const NSColor color = ThemeUtility::shared().colorForKey(key<"VUMeterBackground">);
  if (!color) return nullptr;
  const auto bitmap = drawnBitmap(truncated(size.width * scale), truncated(size.height * scale), [&](CGRect whole) {
    color.setFill();
    NSBezierPath::bezierPathWithRoundedRect(whole, kRadius, kRadius).fill();
  });
  return bitmap ? bitmap->CGImage() : nullptr;
}

}  // namespace velura
