#include "plugin/theme/ThemeUtility.h"

#include <mutex>
#include <vector>

#include "plugin/language/ColorString.h"
#include "plugin/language/TrackTypes.h"
#include "plugin/text/StringBytes.h"
#include "plugin/theme/GradientSwitch.h"
#include "plugin/theme/SelectedTheme.h"
#include "plugin/theme/ThemeFiles.h"
#include "plugin/theme/ThemeValues.h"

namespace velura {

using namespace cocoa;

namespace {

struct FlagSetting {
  ThemeKey key;
  bool ThemeUtility::*field;
};
constexpr FlagSetting kFlags[] = {
    {key<"useTrackColorAsStripBackground">, &ThemeUtility::useTrackColorAsStripBackground},
    {key<"useCalibratedColor">, &ThemeUtility::useCalibratedColor},
    {key<"useTrackColorAsArrangeStripBackground">, &ThemeUtility::useTrackColorAsArrangeStripBackground},
    {key<"mixerBGMatchGradient">, &ThemeUtility::mixerBGMatchGradient},
};

struct NumberSetting {
  ThemeKey key;
  std::uint64_t ThemeUtility::*field;
};
constexpr NumberSetting kNumbers[] = {
    {key<"UseTrackColor_ArrangeOpacity">, &ThemeUtility::arrangeOpacity},
    {key<"UseTrackColor_ArrangeHighlightedOpacity">, &ThemeUtility::arrangeHighlightedOpacity},
    {key<"UseTrackColor_ArrangeFolderOpacity">, &ThemeUtility::arrangeFolderOpacity},
    {key<"UseTrackColor_ArrangeFolderHighlightedOpacity">, &ThemeUtility::arrangeFolderHighlightedOpacity},
    {key<"UseTrackColor_MixerOpacity">, &ThemeUtility::mixerOpacity},
    {key<"UseTrackColor_MixerHighlightedOpacity">, &ThemeUtility::mixerHighlightedOpacity},
    {key<"UseTrackColor_MixerFolderOpacity">, &ThemeUtility::mixerFolderOpacity},
    {key<"UseTrackColor_MixerFolderHighlightedOpacity">, &ThemeUtility::mixerFolderHighlightedOpacity},
    {key<"UseTrackColor_MixerAuxOpacity">, &ThemeUtility::mixerAuxOpacity},
    {key<"UseTrackColor_MixerAuxHighlightedOpacity">, &ThemeUtility::mixerAuxHighlightedOpacity},
    {key<"emptySlotBGCornerRadius">, &ThemeUtility::emptySlotCornerRadius},
};

struct ObjectSetting {
  ThemeKey key;
  Ref<NSObject> ThemeUtility::*field;
};
constexpr ObjectSetting kGradients[] = {
    {key<"mixerStripBGGradient">, &ThemeUtility::mixerStripGradient},
    {key<"mixerStripHighlightBGGradient">, &ThemeUtility::mixerStripHighlightGradient},
    {key<"arrangeStripBGGradient">, &ThemeUtility::arrangeStripGradient},
    {key<"arrangeStripHighlightBGGradient">, &ThemeUtility::arrangeStripHighlightGradient},
    {key<"UseTrackColorGradient_Mixer">, &ThemeUtility::mixerAutoGradient},
    {key<"UseTrackColorGradient_Arrange">, &ThemeUtility::arrangeAutoGradient},
};
constexpr ObjectSetting kBevels[] = {
    {key<"mixerStripBevel">, &ThemeUtility::mixerStripBevel},
    {key<"arrangeStripBevel">, &ThemeUtility::arrangeStripBevel},
};

void setBit(std::uint32_t& record, unsigned bit, std::optional<bool> on) {
  const std::uint32_t mask = std::uint32_t{1} << bit;
  if (on) record = *on ? record | mask : record & ~mask;
}

void applySharedImages(const ThemeValues& values, ThemeUtility& theme) {
  for (const TrackTypeRow& row : kTrackTypes) {
    setBit(theme.useDifferentPannerTypes, row.sharedBit, values.flag(row.sharedPanner));
    setBit(theme.useDifferentFaderTypes, row.sharedBit, values.flag(row.sharedFader));
  }
}

/// A type without a name of its own uses the shared images.
BOOL isShared(std::uint32_t record, NSInteger type) {
  const TrackTypeRow* row = rowOf(TrackType(type));
  return row == nullptr || (record >> row->sharedBit & 1U) != 0;
}

/// A group of plug-ins with the colours of its colour strings added.
NSObject withColors(NSObject group, const ThemeUtility& theme) {
  const auto stored = as<NSDictionary>(group);
  if (!stored) return group;
  const NSMutableDictionary completed = NSMutableDictionary::dictionaryWithDictionary(stored);
  for (const PluginGroupColor& color : kPluginGroupColors) {
    const NSColor made = theme.fromString(as<NSString>(stored.objectForKey(string(color.stored))));
    if (made) completed.setObject(made, string(color.added));
  }
  return completed;
}

/// What waits for the theme, in the order in which it came.
std::vector<void (*)(NSObject)>& observers() {
  static std::vector<void (*)(NSObject)> list;
  return list;
}

NSObject sharedInstance(Class /*self*/) { return NSObject(ThemeUtility::shared().self); }

}  // namespace

ThemeUtility& ThemeUtility::makeShared() {
  static std::once_flag once;
  std::call_once(once, [] {
    const id made = send<id>(send<id>(DefinedClass<ThemeUtility>::cls, selector<"alloc">()), selector<"init">());
    shared_.store(&stateOf<ThemeUtility>(made), std::memory_order_release);
  });
  return *shared_.load(std::memory_order_acquire);
}

void ThemeUtility::whenMade(void (*observe)(NSObject theme)) { observers().push_back(observe); }

id ThemeUtility::init() {
  const AutoreleasePool pool;
  superSend<ThemeUtility, id>(self, selector<"init">());
  imageCache = make<NSMutableDictionary>();
  gradientPatternCache = make<NSMutableDictionary>();
  setColorCollection(NSDictionary::dictionary());
  apply(loadThemeSettings());
  for (const auto observe : observers()) observe(NSObject(self));
  return self;
}

void ThemeUtility::apply(NSDictionary theme) {
  if (!theme) return;
  const ThemeValues values(theme);
  if (VLRIsCustomThemeSelected()) {
    useImagesToDraw = values.flag(key<"useImagesToDrawKnob">).value_or(useImagesToDraw);
  }
  for (const auto& [key, field] : kFlags) this->*field = values.flag(key).value_or(this->*field);
  for (const auto& [key, field] : kNumbers) {
    if (const auto number = values.number(key)) this->*field = static_cast<std::uint64_t>(*number);
  }
  applySharedImages(values, *this);
  applyGradientsAndBevels(theme);
  applyPluginGroups(theme);
  applyColors(theme);
}

void ThemeUtility::applyGradientsAndBevels(NSDictionary theme) {
  const ThemeValues values(theme);
  for (const auto& [key, field] : kGradients) this->*field = VLRStripGradient::gradientFromString(values.object(key));
  for (const auto& [key, field] : kBevels) this->*field = VLRStripBevel::bevelFromString(values.object(key));
}

void ThemeUtility::applyPluginGroups(NSDictionary theme) {
  const auto stored = as<NSDictionary>(ThemeValues(theme).object(key<"PluginGroupMapV2">));
  if (!stored) return;
  const auto groups = make<NSMutableDictionary>();
  for (const NSObject key : items(stored.allKeys()))
    groups->setObject(withColors(stored.objectForKey(key), *this), key);
  pluginGroupsMap = groups.get();
}

void ThemeUtility::applyColors(NSDictionary theme) {
  const auto colors = make<NSMutableDictionary>();
  for (const NSObject key : items(theme.allKeys())) {
    const NSColor color = fromString(as<NSString>(theme.objectForKey(key)));
    if (color) colors->setObject(color, key);
  }
  setColorCollection(colors.get());
}

void ThemeUtility::setColorCollection(NSDictionary collection) {
  colorCollection_ = collection;
  for (const ThemeKeyRow& row : kThemeKeys) {
    if (row.kind == ThemeKeyKind::kColor) colors_[indexOf(keyOf(row))] = colorForKey(string(row.name));
  }
}

NSColor ThemeUtility::colorForKey(NSString key) const {
  return key ? cast<NSColor>(colorCollection_->objectForKey(key)) : NSColor();
}

NSColor ThemeUtility::fromString(NSString text) const {
  const auto color = parseColorString(utf8Bytes(text));
  return color ? colorWithRed(color->red, color->green, color->blue, color->alpha) : NSColor();
}

NSColor ThemeUtility::colorWithRed(std::int64_t red, std::int64_t green, std::int64_t blue, std::int64_t alpha) const {
  constexpr double kComponentScale = 255;
  constexpr double kAlphaScale = 100;
  const double r = static_cast<double>(red) / kComponentScale;
  const double g = static_cast<double>(green) / kComponentScale;
  const double b = static_cast<double>(blue) / kComponentScale;
  const double a = static_cast<double>(alpha) / kAlphaScale;
  return useCalibratedColor ? NSColor::colorWithCalibratedRed(r, g, b, a) : NSColor::colorWithSRGBRed(r, g, b, a);
}

BOOL ThemeUtility::useSharedPannerType(NSInteger type) const { return isShared(useDifferentPannerTypes, type); }
BOOL ThemeUtility::useSharedFaderType(NSInteger type) const { return isShared(useDifferentFaderTypes, type); }

NSColor ThemeUtility::mixerBackgroundColor() const {
  const NSColor base = colorForKey(key<"mixerBackgroundColor">);
  if (!mixerBGMatchGradient || VLRGradientsDisabled()) return base;
  const VLRStripGradient* strip = gradient(mixerStripGradient);
  if (strip == nullptr) return base;
  const NSArray colors = strip->stopColorsForBase(colorForKey(key<"stripBackgroundColor">));
  return colors.count() == 0 ? base : cast<NSColor>(colors.objectAtIndex(0)).colorWithAlphaComponent(1);
}

void defineThemeUtility() {
  if (DefinedClass<ThemeUtility>::cls != nullptr) return;
  using ColorByName = NSColor (ThemeUtility::*)(NSString) const;
  ClassDefinition<ThemeUtility>("ThemeUtility", "NSObject")
      .classMethod<"sharedInstance", sharedInstance>()
      .method<"init", &ThemeUtility::init>()
      .method<"colorForKey:", static_cast<ColorByName>(&ThemeUtility::colorForKey)>()
      .method<"liveLoopsColorForKey:", static_cast<ColorByName>(&ThemeUtility::colorForKey)>()
      .method<"fromString:", &ThemeUtility::fromString>()
      .method<"colorWithRed:green:blue:alpha:", &ThemeUtility::colorWithRed>()
      .method<"useSharedPannerType:", &ThemeUtility::useSharedPannerType>()
      .method<"useSharedFaderType:", &ThemeUtility::useSharedFaderType>()
      .method<"vlrMixerBackgroundColor", &ThemeUtility::mixerBackgroundColor>()
      .method<"colorCollection", &ThemeUtility::colorCollection>()
      .method<"setColorCollection:", &ThemeUtility::setColorCollection>()
      .property<"useDifferentPannerTypes", "setUseDifferentPannerTypes:", &ThemeUtility::useDifferentPannerTypes>()
      .property<"useDifferentFaderTypes", "setUseDifferentFaderTypes:", &ThemeUtility::useDifferentFaderTypes>()
      .property<"useImagesToDraw", "setUseImagesToDraw:", &ThemeUtility::useImagesToDraw>()
      .property<"useTrackColorAsStripBackground",
                "setUseTrackColorAsStripBackground:", &ThemeUtility::useTrackColorAsStripBackground>()
      .property<"useCalibratedColor", "setUseCalibratedColor:", &ThemeUtility::useCalibratedColor>()
      .property<"useTrackColorAsArrangeStripBackground",
                "setUseTrackColorAsArrangeStripBackground:", &ThemeUtility::useTrackColorAsArrangeStripBackground>()
      .property<"isInDrawingMode", "setIsInDrawingMode:", &ThemeUtility::isInDrawingMode>()
      .property<"mixerBGMatchGradient", "setMixerBGMatchGradient:", &ThemeUtility::mixerBGMatchGradient>()
      .property<"arrangeOpacity", "setArrangeOpacity:", &ThemeUtility::arrangeOpacity>()
      .property<"arrangeHighlightedOpacity",
                "setArrangeHighlightedOpacity:", &ThemeUtility::arrangeHighlightedOpacity>()
      .property<"arrangeFolderOpacity", "setArrangeFolderOpacity:", &ThemeUtility::arrangeFolderOpacity>()
      .property<"arrangeFolderHighlightedOpacity",
                "setArrangeFolderHighlightedOpacity:", &ThemeUtility::arrangeFolderHighlightedOpacity>()
      .property<"mixerOpacity", "setMixerOpacity:", &ThemeUtility::mixerOpacity>()
      .property<"mixerHighlightedOpacity", "setMixerHighlightedOpacity:", &ThemeUtility::mixerHighlightedOpacity>()
      .property<"mixerFolderOpacity", "setMixerFolderOpacity:", &ThemeUtility::mixerFolderOpacity>()
      .property<"mixerFolderHighlightedOpacity",
                "setMixerFolderHighlightedOpacity:", &ThemeUtility::mixerFolderHighlightedOpacity>()
      .property<"mixerAuxOpacity", "setMixerAuxOpacity:", &ThemeUtility::mixerAuxOpacity>()
      .property<"mixerAuxHighlightedOpacity",
                "setMixerAuxHighlightedOpacity:", &ThemeUtility::mixerAuxHighlightedOpacity>()
      .property<"imageCache", "setImageCache:", &ThemeUtility::imageCache>()
      .property<"emptySlotCornerRadius", "setEmptySlotCornerRadius:", &ThemeUtility::emptySlotCornerRadius>()
      .property<"pluginGroupsMap", "setPluginGroupsMap:", &ThemeUtility::pluginGroupsMap>()
      .property<"mixerStripGradient", "setMixerStripGradient:", &ThemeUtility::mixerStripGradient>()
      .property<"mixerStripHighlightGradient",
                "setMixerStripHighlightGradient:", &ThemeUtility::mixerStripHighlightGradient>()
      .property<"arrangeStripGradient", "setArrangeStripGradient:", &ThemeUtility::arrangeStripGradient>()
      .property<"arrangeStripHighlightGradient",
                "setArrangeStripHighlightGradient:", &ThemeUtility::arrangeStripHighlightGradient>()
      .property<"mixerAutoGradient", "setMixerAutoGradient:", &ThemeUtility::mixerAutoGradient>()
      .property<"arrangeAutoGradient", "setArrangeAutoGradient:", &ThemeUtility::arrangeAutoGradient>()
      .property<"gradientPatternCache", "setGradientPatternCache:", &ThemeUtility::gradientPatternCache>()
      .property<"mixerStripBevel", "setMixerStripBevel:", &ThemeUtility::mixerStripBevel>()
      .property<"arrangeStripBevel", "setArrangeStripBevel:", &ThemeUtility::arrangeStripBevel>()
      .registered();
}

}  // namespace velura
