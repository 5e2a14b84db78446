// NSColor and NSColorSpace.

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <map>
#include <utility>

#include "cocoa/AppKit.h"
#include "standin/color/Color.h"
#include "standin/color/Registration.h"
#include "standin/steering/Catalogue.h"

using namespace cocoa;

namespace standin {

namespace {

/// State of an NSColorSpace.
struct ColorSpaceObject : ObjectState {
  ColorSpace space = ColorSpace::kSRGB;
  NSInteger numberOfColorComponents() { return isRGB(space) ? 3 : 1; }
};

NSColorSpace sharedSpace(ColorSpace space) {
  static std::array<id, static_cast<std::size_t>(ColorSpace::kPattern) + 1> shared{};
  id& slot = shared.at(static_cast<std::size_t>(space));
  if (slot == nullptr) {
    slot = newObject<ColorSpaceObject>();
    stateOf<ColorSpaceObject>(slot).space = space;
  }
  return NSColorSpace(slot);
}

template <ColorSpace Space>
NSColorSpace spaceNamed(Class) {
  return sharedSpace(Space);
}

/// How a space is called in descriptions and by `colorSpaceName`.
struct SpaceNames {
  const char* described;
  NSString* name;
};
const SpaceNames& namesOf(ColorSpace space) {
  static const std::array<SpaceNames, static_cast<std::size_t>(ColorSpace::kPattern) + 1> kNames{{
      {"sRGB IEC61966-2.1 colorspace", &NSCalibratedRGBColorSpace},
      {"NSCalibratedRGBColorSpace", &NSCalibratedRGBColorSpace},
      {"NSDeviceRGBColorSpace", &NSDeviceRGBColorSpace},
      {"Generic Gray Gamma 2.2 Profile colorspace", &NSCalibratedWhiteColorSpace},
      {"NSCalibratedWhiteColorSpace", &NSCalibratedWhiteColorSpace},
      {"NSDeviceWhiteColorSpace", &NSDeviceWhiteColorSpace},
      {"NSPatternColorSpace", &NSPatternColorSpace},
  }};
  return kNames.at(static_cast<std::size_t>(space));
}

void appendNumber(std::string& text, double value) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  text += ' ';
  text.append(digits.data(), end.ptr);
}

struct Hsb {
  double hue;
  double saturation;
  double brightness;
};

Hsb hsbOf(const Rgba& c) {
  const double high = std::fmax(c.red, std::fmax(c.green, c.blue));
  const double low = std::fmin(c.red, std::fmin(c.green, c.blue));
  const double range = high - low;
  if (range == 0) return {0, 0, high};
  double sixth = 0;
  if (high == c.red) {
    sixth = (c.green - c.blue) / range;
  } else if (high == c.green) {
    sixth = (c.blue - c.red) / range + 2;
  } else {
    sixth = (c.red - c.green) / range + 4;
  }
  return {(sixth < 0 ? sixth + 6 : sixth) / 6, range / high, high};
}

Rgba rgbOf(const Hsb& c, double alpha) {
  const double hue = std::isfinite(c.hue) ? c.hue - std::floor(c.hue) : 0;
  const auto channel = [&](double offset) {
    const double place = std::fmod(offset + hue * 6, 6);
    const double part = std::fmax(0, std::fmin(1, std::fmin(place, 4 - place)));
    return c.brightness - c.brightness * c.saturation * part;
  };
  return {channel(5), channel(3), channel(1), alpha};
}

/// State of an NSColor. A catalogue colour carries the value that its names stand for.
struct Color : ObjectState {
  ColorValue value;
  Ref<NSImage> image;
  Ref<NSString> catalogName;
  Ref<NSString> colorName;
  CFRef<CGColorRef> made;  // by the first request

  [[nodiscard]] bool isCatalog() const { return static_cast<bool>(colorName); }
  [[nodiscard]] bool isPattern() const { return value.space == ColorSpace::kPattern && !isCatalog(); }

  /// The value of an RGB colour; other colours raise, as the platform's do.
  const ColorValue& requireRGB(const char* asked) {
    if (isCatalog() || !isRGB(value.space)) refuse(asked);
    return value;
  }
  const ColorValue& requireComponents(const char* asked) {
    if (isCatalog() || isPattern()) refuse(asked);
    return value;
  }
  void refuse(const char* asked) {
    const std::string reason = std::string("*** -") + asked + " not valid for the NSColor " +
                               toStdString(description()) + "; need to first convert colorspace.";
    NSException::raise(literal<"NSInvalidArgumentException">(), string(reason));
  }

  CGFloat red() { return requireRGB("redComponent").components[0]; }
  CGFloat green() { return requireRGB("greenComponent").components[1]; }
  CGFloat blue() { return requireRGB("blueComponent").components[2]; }
  CGFloat alpha() { return value.alpha(); }
  CGFloat hue() { return hsbOf(requireRGB("hueComponent").rgba()).hue; }
  CGFloat saturation() { return hsbOf(requireRGB("saturationComponent").rgba()).saturation; }
  CGFloat brightness() { return hsbOf(requireRGB("brightnessComponent").rgba()).brightness; }
  CGFloat white() {
    if (isCatalog() || !isGray(value.space)) refuse("whiteComponent");
    return value.components[0];
  }
  void getRGB(CGFloat* r, CGFloat* g, CGFloat* b, CGFloat* a) {
    const Rgba c = requireRGB("getRed:green:blue:alpha:").rgba();
    store({{r, c.red}, {g, c.green}, {b, c.blue}, {a, c.alpha}});
  }
  void getHSB(CGFloat* h, CGFloat* s, CGFloat* b, CGFloat* a) {
    const Rgba c = requireRGB("getHue:saturation:brightness:alpha:").rgba();
    const Hsb hsb = hsbOf(c);
    store({{h, hsb.hue}, {s, hsb.saturation}, {b, hsb.brightness}, {a, c.alpha}});
  }
  void getWhite(CGFloat* w, CGFloat* a) { store({{w, white()}, {a, value.alpha()}}); }
  static void store(std::initializer_list<std::pair<CGFloat*, double>> results) {
    for (const auto& [to, result] : results) {
      if (to != nullptr) *to = result;
    }
  }
  NSInteger numberOfComponents() { return static_cast<NSInteger>(requireComponents("numberOfComponents").count()); }
  void getComponents(CGFloat* out) {
    const ColorValue& mine = requireComponents("getComponents:");
    std::copy_n(mine.components.begin(), mine.count(), out);
  }

  NSColorType type() {
    return isCatalog() ? NSColorTypeCatalog : isPattern() ? NSColorTypePattern : NSColorTypeComponentBased;
  }
  NSString colorSpaceName() { return isCatalog() ? NSNamedColorSpace : *namesOf(value.space).name; }
  NSColorSpace colorSpace() {
    requireComponents("colorSpace");
    return sharedSpace(value.space);
  }
  NSString catalogNameComponent() {
    if (!isCatalog()) refuse("catalogNameComponent");
    return catalogName;
  }
  NSString colorNameComponent() {
    if (!isCatalog()) refuse("colorNameComponent");
    return colorName;
  }
  NSImage patternImage() {
    if (!isPattern()) refuse("patternImage");
    return image;
  }
  NSColor usingColorSpace(NSColorSpace space);
  NSColor withAlpha(CGFloat alpha);
  CGColorRef cgColor();
  NSString description();
  BOOL isEqual(NSObject other);
  NSUInteger hash();
  id copy(void*) { return send<id>(self, selector<"retain">()); }

  Paint paint() {
    if (value.space == ColorSpace::kPattern) return standin::paintOf(cgColor());
    return {value.rgba(), {}};
  }
};

/// Owned by the caller.
NSColor newColor(const ColorValue& value) {
  const id color = newObject<Color>();
  stateOf<Color>(color).value = value;
  return NSColor(color);
}
NSColor colorOf(const ColorValue& value) { return autoreleased(Ref<NSColor>::adopt(newColor(value))); }

NSColor Color::usingColorSpace(NSColorSpace space) {
  const auto* wanted = stateIfKind<ColorSpaceObject>(space);
  if (wanted == nullptr || value.space == ColorSpace::kPattern) return {};
  if (value.space == wanted->space && !isCatalog()) return NSColor(self);
  return colorOf(converted(value, wanted->space));
}

NSColor Color::withAlpha(CGFloat alpha) {
  if (isPattern()) return NSColor(self);
  ColorValue changed = value;
  changed.components[changed.count() - 1] = alpha;
  return colorOf(changed);
}

CGColorRef Color::cgColor() {
  if (!made) {
    made = CFRef<CGColorRef>::adopt(value.space == ColorSpace::kPattern ? makePatternColor(image, value.components[0])
                                                                        : makeColor(value));
  }
  return made;
}

NSString Color::description() {
  if (isCatalog()) {
    return string("Catalog color: " + toStdString(catalogName) + " " + toStdString(colorName));
  }
  std::string text = namesOf(value.space).described;
  if (isPattern()) {
    // The image's address tells patterns apart.
    return string(text + " image " + std::to_string(reinterpret_cast<std::uintptr_t>(image.get().object)));
  }
  for (std::size_t i = 0; i < value.count(); ++i) appendNumber(text, value.components[i]);
  return string(text);
}

BOOL Color::isEqual(NSObject other) {
  const auto* color = stateIfKind<Color>(other);
  if (color == nullptr || !(color->value == value) || color->isCatalog() != isCatalog()) return NO;
  return static_cast<BOOL>(
      color->image.get() == image.get() &&
      (!isCatalog() || (color->catalogName->isEqual(catalogName.get()) && color->colorName->isEqual(colorName.get()))));
}

NSUInteger Color::hash() {
  NSUInteger mixed = static_cast<NSUInteger>(value.space);
  for (const double component : value.components) {
    // Zero and minus zero are equal.
    mixed = mixed * 1000003U ^ std::bit_cast<std::uint64_t>(component + 0.0);
  }
  return mixed;
}

template <ColorSpace Space>
NSColor withRGB(Class, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return colorOf({Space, {red, green, blue, alpha}});
}
template <ColorSpace Space>
NSColor withGray(Class, CGFloat white, CGFloat alpha) {
  return colorOf({Space, {white, alpha}});
}
template <ColorSpace Space>
NSColor withHSB(Class, CGFloat hue, CGFloat saturation, CGFloat brightness, CGFloat alpha) {
  const Rgba c = rgbOf({hue, saturation, brightness}, alpha);
  return colorOf({Space, {c.red, c.green, c.blue, c.alpha}});
}

NSColor withPatternImage(Class, NSImage image) {
  if (!image) return {};
  const NSColor color = colorOf({ColorSpace::kPattern, {1}});
  stateOf<Color>(color).image = image;
  return color;
}

NSColor withCGColor(Class, CGColorRef color) {
  if (color == nullptr) return {};
  const ColorState& from = colorState(color);
  const NSColor made = colorOf(from.value);
  Color& state = stateOf<Color>(made);
  state.made = color;
  if (from.pattern) state.image = stateBehind<PatternState>(from.pattern.get()).image;
  return made;
}

using CatalogueKey = std::pair<std::string, std::string>;
std::map<CatalogueKey, Ref<NSColor>>& catalogues() {
  static auto* entries = new std::map<CatalogueKey, Ref<NSColor>>();  // outlives every late release
  return *entries;
}

/// The colour entered under the names; nil when there is none.
NSColor catalogueColor(NSString catalogue, NSString name) {
  const auto found = catalogues().find({toStdString(catalogue), toStdString(name)});
  // It may be entered anew while the caller holds the handle.
  return found == catalogues().end() ? NSColor() : autoreleased(Ref<NSColor>(found->second));
}

NSColor withCatalogName(Class, NSString catalog, NSString name) { return catalogueColor(catalog, name); }

/// Assets of bundles are no part of this; a name may still stand in the bundle's catalogue.
NSColor named(Class, NSString name, NSBundle bundle) {
  return catalogueColor(call<"bundleIdentifier", NSString>(bundle), name);
}

constexpr ColorValue gray(double white, double alpha) { return {ColorSpace::kGenericGray, {white, alpha}}; }
constexpr ColorValue rgb(double red, double green, double blue) { return {ColorSpace::kSRGB, {red, green, blue, 1}}; }

/// A colour that always is the same object.
template <ColorValue Value>
NSColor constantColor(Class) {
  static const NSColor shared = newColor(Value);
  return shared;
}

void addConstants(ClassDefinition<Color>& definition) {
  definition.classMethod<"blackColor", constantColor<gray(0, 1)>>()
      .classMethod<"whiteColor", constantColor<gray(1, 1)>>()
      .classMethod<"clearColor", constantColor<gray(0, 0)>>()
      .classMethod<"grayColor", constantColor<gray(0.5, 1)>>()
      .classMethod<"darkGrayColor", constantColor<gray(1.0 / 3, 1)>>()
      .classMethod<"lightGrayColor", constantColor<gray(2.0 / 3, 1)>>()
      .classMethod<"redColor", constantColor<rgb(1, 0, 0)>>()
      .classMethod<"greenColor", constantColor<rgb(0, 1, 0)>>()
      .classMethod<"blueColor", constantColor<rgb(0, 0, 1)>>()
      .classMethod<"yellowColor", constantColor<rgb(1, 1, 0)>>()
      .classMethod<"cyanColor", constantColor<rgb(0, 1, 1)>>()
      .classMethod<"magentaColor", constantColor<rgb(1, 0, 1)>>()
      .classMethod<"orangeColor", constantColor<rgb(1, 0.5, 0)>>();
}

void addMakers(ClassDefinition<Color>& definition) {
  definition.classMethod<"colorWithSRGBRed:green:blue:alpha:", withRGB<ColorSpace::kSRGB>>()
      .classMethod<"colorWithRed:green:blue:alpha:", withRGB<ColorSpace::kSRGB>>()
      .classMethod<"colorWithCalibratedRed:green:blue:alpha:", withRGB<ColorSpace::kCalibratedRGB>>()
      .classMethod<"colorWithDeviceRed:green:blue:alpha:", withRGB<ColorSpace::kDeviceRGB>>()
      .classMethod<"colorWithHue:saturation:brightness:alpha:", withHSB<ColorSpace::kSRGB>>()
      .classMethod<"colorWithCalibratedHue:saturation:brightness:alpha:", withHSB<ColorSpace::kCalibratedRGB>>()
      .classMethod<"colorWithWhite:alpha:", withGray<ColorSpace::kGenericGray>>()
      .classMethod<"colorWithCalibratedWhite:alpha:", withGray<ColorSpace::kCalibratedWhite>>()
      .classMethod<"colorWithDeviceWhite:alpha:", withGray<ColorSpace::kDeviceWhite>>()
      .classMethod<"colorWithPatternImage:", withPatternImage>()
      .classMethod<"colorWithCGColor:", withCGColor>()
      .classMethod<"colorWithCatalogName:colorName:", withCatalogName>()
      .classMethod<"colorNamed:bundle:", named>();
}

}  // namespace

Paint paintOf(NSColor color) {
  auto* state = stateIfKind<Color>(color);
  return state == nullptr ? Paint{{0, 0, 0, 0}, {}} : state->paint();
}

std::optional<Rgba> rgbaOf(NSColor color) {
  const auto* state = stateIfKind<Color>(color);
  if (state == nullptr || state->value.space == ColorSpace::kPattern) return std::nullopt;
  return state->value.rgba();
}

void registerCatalogueColor(const char* catalogue, const char* name, NSColor color) {
  const auto* source = stateIfKind<Color>(color);
  if (source == nullptr) return;
  const NSColor entry = newColor(source->value);
  Color& state = stateOf<Color>(entry);
  state.image = source->image;
  state.catalogName = makeString(catalogue);
  state.colorName = makeString(name);
  catalogues().insert_or_assign({catalogue, name}, Ref<NSColor>::adopt(entry));
}

void registerColorSpaces() {
  ClassDefinition<ColorSpaceObject>("NSColorSpace", "NSObject")
      .classMethod<"sRGBColorSpace", spaceNamed<ColorSpace::kSRGB>>()
      .classMethod<"deviceRGBColorSpace", spaceNamed<ColorSpace::kDeviceRGB>>()
      .classMethod<"genericRGBColorSpace", spaceNamed<ColorSpace::kCalibratedRGB>>()
      .classMethod<"genericGrayColorSpace", spaceNamed<ColorSpace::kGenericGray>>()
      .classMethod<"genericGamma22GrayColorSpace", spaceNamed<ColorSpace::kGenericGray>>()
      .classMethod<"deviceGrayColorSpace", spaceNamed<ColorSpace::kDeviceWhite>>()
      .method<"numberOfColorComponents", &ColorSpaceObject::numberOfColorComponents>()
      .registered();
}

void registerColors() {
  ClassDefinition<Color> definition("NSColor", "NSObject");
  addMakers(definition);
  addConstants(definition);
  definition.method<"type", &Color::type>()
      .method<"colorSpaceName", &Color::colorSpaceName>()
      .method<"colorSpace", &Color::colorSpace>()
      .method<"catalogNameComponent", &Color::catalogNameComponent>()
      .method<"colorNameComponent", &Color::colorNameComponent>()
      .method<"patternImage", &Color::patternImage>()
      .method<"redComponent", &Color::red>()
      .method<"greenComponent", &Color::green>()
      .method<"blueComponent", &Color::blue>()
      .method<"alphaComponent", &Color::alpha>()
      .method<"hueComponent", &Color::hue>()
      .method<"saturationComponent", &Color::saturation>()
      .method<"brightnessComponent", &Color::brightness>()
      .method<"whiteComponent", &Color::white>()
      .method<"getRed:green:blue:alpha:", &Color::getRGB>()
      .method<"getHue:saturation:brightness:alpha:", &Color::getHSB>()
      .method<"getWhite:alpha:", &Color::getWhite>()
      .method<"numberOfComponents", &Color::numberOfComponents>()
      .method<"getComponents:", &Color::getComponents>()
      .method<"colorUsingColorSpace:", &Color::usingColorSpace>()
      .method<"colorWithAlphaComponent:", &Color::withAlpha>()
      .method<"CGColor", &Color::cgColor>()
      .method<"description", &Color::description>()
      .method<"isEqual:", &Color::isEqual>()
      .method<"hash", &Color::hash>()
      .method<"copyWithZone:", &Color::copy>()
      .registered();
}

}  // namespace standin
