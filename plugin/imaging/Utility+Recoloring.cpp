#include "plugin/imaging/Utility+Recoloring.h"

#include <vector>

#include "cocoa/ClassDefinition.h"
#include "plugin/imaging/MyNSBitmapImageRep.h"
#include "plugin/imaging/Recoloring.h"
#include "plugin/imaging/RectToSourceColorData.h"
#include "plugin/text/Truncated.h"

namespace velura {
namespace {

using namespace cocoa;

NSColor pixelColor(double red, double green, double blue, double alpha) {
  return NSColor::colorWithCalibratedRed(red, green, blue, alpha);
}

/// Red, green, blue and alpha; nothing for a colour that has none, such as a pattern.
std::optional<std::array<double, 4>> componentsOf(NSColor color) {
  if (!color || color.type() == NSColorTypePattern) return std::nullopt;
  constexpr NSInteger kRgbComponents = 4;
  const bool isRgb = color.type() == NSColorTypeComponentBased && color.numberOfComponents() == kRgbComponents;
  const NSColor rgb = isRgb ? color : color.colorUsingColorSpace(NSColorSpace::deviceRGBColorSpace());
  if (!rgb) return std::nullopt;
  std::array<double, 4> components{};
  rgb.getRed(&components[0], &components[1], &components[2], &components[3]);
  return components;
}

std::vector<RecolorRule> rulesOf(NSArray list) {
  std::vector<RecolorRule> rules;
  for (const NSObject each : items(list)) {
    const auto* data = stateIfKind<RectToSourceColorData>(each);
    const auto source = data == nullptr ? std::nullopt : componentsOf(data->sourceColor);
    if (!source) continue;
    RecolorRule rule{.rect = data->mRect,
                     .source = {(*source)[0], (*source)[1], (*source)[2]},
                     .sourceAlpha = std::nullopt,
                     .suggested = componentsOf(data->suggestedColor),
                     .ignoreAlpha = data->ignoreAlphaValue};
    if (data->compareAlphaValue) rule.sourceAlpha = (*source)[3];
    rules.push_back(rule);
  }
  return rules;
}

BitmapPixels pixelsOf(NSBitmapImageRep bitmap) {
  return {.bytes = bitmap.bitmapData(),
          .format = bitmap.bitmapFormat(),
          .width = bitmap.pixelsWide(),
          .height = bitmap.pixelsHigh(),
          .bytesPerRow = bitmap.bytesPerRow(),
          .bitsPerPixel = bitmap.bitsPerPixel(),
          .hasAlpha = bitmap.hasAlpha()};
}

std::array<long, 4> scaledColor(NSBitmapImageRep bitmap, long x, long y) {
  constexpr double kScale = 255;
  std::array<long, 4> scaled{};
  if (const auto components = componentsOf(bitmap.colorAtX(x, y))) {
    std::ranges::transform(*components, scaled.begin(), [](double each) { return truncated(each * kScale); });
  }
  return scaled;
}

void colorAt(Class /*self*/, NSInteger x, NSInteger y, unsigned char* value, unsigned char* pixels,
             NSUInteger bitmapFormat, NSInteger bytesPerRow, NSInteger bitsPerPixel, BOOL hasAlpha) {
  const BitmapPixels bitmap{.bytes = pixels,
                            .format = bitmapFormat,
                            .width = x + 1,
                            .height = y + 1,
                            .bytesPerRow = bytesPerRow,
                            .bitsPerPixel = bitsPerPixel,
                            .hasAlpha = hasAlpha != 0};
  std::ranges::copy(pixelValue(bitmap, x, y), value);
}

CGImageRef transformed(Class /*self*/, CGImageRef image, NSArray rules) { return applyTransformation(image, rules); }
void transformBitmap(Class /*self*/, NSBitmapImageRep bitmap, NSArray rules) {
  applyTransformationToBitmap(bitmap, rules);
}
NSColor pixelColorWith(Class /*self*/, double red, double green, double blue, double alpha) {
  return pixelColor(red, green, blue, alpha);
}

}  // namespace

CGImageRef applyTransformation(CGImageRef image, NSArray rules) {
  if (image == nullptr) return nullptr;
  const Ref<NSBitmapImageRep> bitmap = MyNSBitmapImageRep::withCGImage(image);
  if (!bitmap) return nullptr;
  applyTransformationToBitmap(bitmap, rules);
  return CGImageRetain(bitmap->CGImage());
}

void applyTransformationToBitmap(NSBitmapImageRep bitmap, NSArray list) {
  constexpr NSInteger kColorSamples = 3;
  if (!bitmap || bitmap.isPlanar() || bitmap.samplesPerPixel() < kColorSamples) return;
  const std::vector<RecolorRule> rules = rulesOf(list);
  const PaintPixel paint = [bitmap](const std::array<double, 4>& color, long x, long y) {
    bitmap.setColor(pixelColor(color[0], color[1], color[2], color[3]), x, y);
  };
  if ((bitmap.bitmapFormat() & NSBitmapFormatFloatingPointSamples) == 0) {
    return recolor(pixelsOf(bitmap), rules, paint);
  }
  const ReadPixel read = [bitmap](long x, long y) { return scaledColor(bitmap, x, y); };
  recolorByColors(bitmap.pixelsWide(), bitmap.pixelsHigh(), rules, read, paint);
}

void attachUtilityRecoloring() {
  CategoryDefinition("Utility")
      .classMethod<"applyTransformation:colorCollection:", transformed>()
      .classMethod<"applyTransformationToBitMap:colorCollection:", transformBitmap>()
      .classMethod<"colorAtX:y:RGBAValue:pixels:bitmapFormat:bytesPerRow:bitsPerPixel:hasAlpha:", colorAt>()
      .classMethod<"pixelColorWithRed:green:blue:alpha:", pixelColorWith>();
}

}  // namespace velura
