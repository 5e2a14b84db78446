#include "plugin/gradient/PatternRenderer.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "cocoa/ClassDefinition.h"
#include "plugin/gradient/FillOver.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/theme/VLRStripBevel.h"
#include "plugin/theme/VLRStripGradient.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr double kSmallestSide = 2;
constexpr double kLargestSide = 4096;
constexpr double kRepeatedSide = 8;  // points across a pattern that repeats in that direction
constexpr double kVertical = 180;
constexpr double kHorizontal = 90;
constexpr double kBandsPerBevelWidth = 160;  // a bevel of width 1 takes this fraction of the image's width
constexpr NSUInteger kMostCachedPatterns = 64;

/// Text that names a look: equal for equal looks, different for different ones.
class PatternKey {
 public:
  PatternKey() { text_.reserve(512); }
  void separate() { text_ += '|'; }
  void add(std::string_view text) { text_ += text; }
  void add(long number) {
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    text_.append(digits, end);
  }
  void addFixed(double number, int decimals) {
    char digits[48];
    const int length = std::snprintf(digits, sizeof digits, "%.*f", decimals, number);
    text_.append(digits, static_cast<std::size_t>(std::max(length, 0)));
  }
  /// A double as its bits: shorter than its decimals, and exact.
  void addExact(double number) {
    static constexpr char kDigits[] = "0123456789abcdef";
    std::uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    char digits[16];
    for (char& digit : digits) {
      digit = kDigits[bits >> 60U];
      bits <<= 4U;
    }
    text_.append(digits, sizeof digits);
  }
  void addColor(NSColor color);
  [[nodiscard]] const std::string& text() const { return text_; }

 private:
  std::string text_;
};

/// A letter for a colour space of which there is one object; nothing for any other.
std::string_view nameOfSpace(NSColorSpace space) {
  if (space == NSColorSpace::sRGBColorSpace()) return "s";
  if (space == NSColorSpace::genericRGBColorSpace()) return "c";
  if (space == NSColorSpace::deviceRGBColorSpace()) return "d";
  if (space == NSColorSpace::genericGrayColorSpace()) return "w";
  return {};
}

/// A component colour is described by its space and components; another by its own description.
void PatternKey::addColor(NSColor color) {
  constexpr NSInteger kMostComponents = 4;
  const bool hasComponents = color.type() == NSColorTypeComponentBased;
  const std::string_view space = hasComponents ? nameOfSpace(color.colorSpace()) : std::string_view();
  const NSInteger count = hasComponents ? color.numberOfComponents() : 0;
  if (space.empty() || count > kMostComponents) {
    text_ += toStdString(color.description());
    return;
  }
  double components[kMostComponents]{};
  color.getComponents(components);
  text_ += space;
  for (NSInteger i = 0; i < count; ++i) {
    text_ += ' ';
    addExact(components[i]);
  }
}

/// What of a look is really drawn.
struct Plan {
  bool gradient = false;
  bool bevel = false;
  double angle = kVertical;
  CGSize imageSize;
};

bool isRenderable(double side) { return side >= kSmallestSide && side <= kLargestSide; }

Plan patternPlanFor(const PatternLook& look) {
  Plan plan;
  plan.gradient = look.stops != nullptr && look.stops->count >= kFewestStops;
  plan.bevel = look.bevel != nullptr && look.bevelStyle != 0;
  plan.angle = plan.gradient ? look.angleDegrees : kVertical;
  plan.imageSize = {std::ceil(look.size.width), std::ceil(look.size.height)};
  if (!plan.bevel && plan.angle == kVertical) plan.imageSize.width = kRepeatedSide;
  if (!plan.bevel && plan.angle == kHorizontal) plan.imageSize.height = kRepeatedSide;
  return plan;
}

void addStops(PatternKey& key, const GradientStops& stops) {
  for (std::size_t i = 0; i < stops.count; ++i) {
    if (i != 0) key.add(";");
    key.addColor(stops.colors[i]);
  }
  key.separate();
  for (std::size_t i = 0; i < stops.count; ++i) {
    if (i != 0) key.add(";");
    key.addExact(stops.locations[i]);
  }
}

PatternKey keyFor(const PatternLook& look, const Plan& plan) {
  PatternKey key;
  if (plan.gradient) {
    addStops(key, *look.stops);
  } else {
    key.add("solid|");
    if (look.base) key.addColor(look.base);
  }
  key.separate();
  key.add(static_cast<long>(std::ceil(look.size.width)));
  key.separate();
  key.add(static_cast<long>(std::ceil(look.size.height)));
  key.separate();
  key.addFixed(plan.angle, 1);
  key.separate();
  key.add(look.bevel != nullptr ? look.bevelStyle : 0L);
  key.separate();
  key.addFixed(plan.bevel ? look.bevel->width : 0, 0);
  key.separate();
  key.addFixed(plan.bevel ? look.bevel->strength : 0, 0);
  key.separate();
  if (look.overlay) {
    key.addColor(look.overlay);
  } else {
    key.add("noov");
  }
  return key;
}

void drawBase(const PatternLook& look, const Plan& plan, CGRect whole) {
  if (plan.gradient) {
    const GradientStops& stops = *look.stops;
    id colors[kMostStops];
    for (std::size_t i = 0; i < stops.count; ++i) colors[i] = stops.colors[i].object;
    const Ref<NSGradient> gradient = NSGradient::withColors(NSArray::arrayWithObjects(colors, stops.count),
                                                            stops.locations.data(), NSColorSpace::sRGBColorSpace());
    if (gradient) gradient->drawInRect(whole, std::fmod(std::fmod(90 - plan.angle, 360) + 360, 360));
  } else if (look.base) {
    fillOver(whole, look.base);
  }
}

/// Only the left and right edges are bevelled.
void drawBevel(const PatternLook& look, CGSize size) {
  constexpr NSInteger kRaised = 1;
  const double band = size.width * look.bevel->width / kBandsPerBevelWidth;
  const double alpha = look.bevel->strength / 100;
  const NSColor light = NSColor::whiteColor().colorWithAlphaComponent(alpha);
  const NSColor dark = NSColor::blackColor().colorWithAlphaComponent(alpha);
  const bool raised = look.bevelStyle == kRaised;
  fillOver(CGRectMake(0, 0, band, size.height), raised ? light : dark);
  fillOver(CGRectMake(size.width - band, 0, band, size.height), raised ? dark : light);
}

NSColor rendered(const PatternLook& look, const Plan& plan) {
  const CGRect whole{{0, 0}, plan.imageSize};
  const Ref<NSImage> image = NSImage::withSize(plan.imageSize);
  image->lockFocus();
  drawBase(look, plan, whole);
  if (look.overlay) fillOver(whole, look.overlay);
  if (plan.bevel) drawBevel(look, plan.imageSize);
  image->unlockFocus();
  return NSColor::colorWithPatternImage(image);
}

/// The stops of two parallel arrays; nothing when they do not match, or are too few or too many.
bool readStops(NSArray colors, NSArray locations, GradientStops& out) {
  const NSUInteger count = colors.count();
  if (count < kFewestStops || count > kMostStops || count != locations.count()) return false;
  for (NSUInteger i = 0; i < count; ++i) {
    out.append(cast<NSColor>(colors.objectAtIndex(i)), cast<NSNumber>(locations.objectAtIndex(i)).doubleValue());
  }
  return true;
}

}  // namespace

NSColor patternColor(const PatternLook& look) {
  return patternColor(look, ThemeUtility::shared().gradientPatternCache);
}

NSColor patternColor(const PatternLook& look, NSMutableDictionary cache) {
  if (!isRenderable(look.size.width) || !isRenderable(look.size.height)) return look.base;
  const Plan plan = patternPlanFor(look);
  if (!look.overlay && !plan.gradient) {
    if (!plan.bevel) return look.base;
    if (!look.base) return {};
  }
  const Ref<NSString> key = makeString(keyFor(look, plan).text());
  // Retained for the caller: the cache may be emptied before the caller is done with the colour.
  if (Ref<NSColor> cached = cast<NSColor>(cache.objectForKey(key.get()))) return autoreleased(std::move(cached));
  const NSColor pattern = rendered(look, plan);
  if (!pattern || !key) return pattern;
  if (cache.count() > kMostCachedPatterns) cache.removeAllObjects();
  cache.setObject(pattern, key.get());
  return pattern;
}

namespace {

NSColor patternColorForGradient(NSObject theme, NSObject gradient, NSColor base, CGSize size, NSArray stopColors,
                                NSArray stopLocations, NSObject bevel, NSInteger bevelStyle, NSColor overlay) {
  PatternLook look{.base = base, .size = size, .bevelStyle = bevelStyle, .overlay = overlay};
  GradientStops stops;
  if (const auto* parsed = stateIfKind<VLRStripGradient>(gradient); parsed != nullptr) {
    look.angleDegrees = parsed->angleDegrees;
    if (readStops(stopColors, stopLocations, stops)) look.stops = &stops;
  }
  look.bevel = stateIfKind<VLRStripBevel>(bevel);
  return patternColor(look, stateOf<ThemeUtility>(theme).gradientPatternCache);
}

NSColor patternColorWithoutOverlay(NSObject theme, NSObject gradient, NSColor base, CGSize size, NSArray stopColors,
                                   NSArray stopLocations, NSObject bevel, NSInteger bevelStyle) {
  return patternColorForGradient(theme, gradient, base, size, stopColors, stopLocations, bevel, bevelStyle, NSColor());
}

}  // namespace

void attachThemeUtilityPatterns() {
  CategoryDefinition("ThemeUtility")
      .method<"patternColorForGradient:baseColor:size:stopColors:stopLocations:bevel:bevelStyle:overlayColor:",
              patternColorForGradient>()
      .method<"patternColorForGradient:baseColor:size:stopColors:stopLocations:bevel:bevelStyle:",
              patternColorWithoutOverlay>();
}

}  // namespace velura
