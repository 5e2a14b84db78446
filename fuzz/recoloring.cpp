// Any bytes as a bitmap of any layout, and any rules. The quick ways must do what the plain way does.

#include "plugin/imaging/Recoloring.h"

#include "fuzz/Fuzzing.h"
#include "fuzz/Pictures.h"

namespace {

using velura::BitmapPixels;
using velura::RecolorRule;

/// Paints with the bytes of the colour, whatever the layout: enough to see which pixels are painted how.
void paint(const BitmapPixels& bitmap, const std::array<double, 4>& color, long x, long y) {
  std::uint8_t* pixel = bitmap.bytes + y * bitmap.bytesPerRow + bitmap.bitsPerPixel * x / 8;
  for (std::size_t i = 0; i < static_cast<std::size_t>(bitmap.hasAlpha ? 4 : 3); ++i) {
    const double scaled = color[i] * 200;
    pixel[i] = static_cast<std::uint8_t>(scaled > 0 ? std::min(scaled, 255.0) : 0);
  }
}

bool contains(double low, double size, long at) {
  return low <= static_cast<double>(at) && static_cast<double>(at) < low + size;
}

bool matches(const RecolorRule& rule, const velura::PixelValue& value, long x, long y) {
  return contains(rule.rect.origin.x, rule.rect.size.width, x) &&
         contains(rule.rect.origin.y, rule.rect.size.height, y) && rule.source[0] * 255 == value[0] &&
         rule.source[1] * 255 == value[1] && rule.source[2] * 255 == value[2] &&
         (!rule.sourceAlpha || *rule.sourceAlpha * 255 == value[3]);
}

void recolorPlainly(const BitmapPixels& bitmap, const std::vector<RecolorRule>& rules) {
  if (!bitmap.isReadable()) return;
  for (long y = 0; y < bitmap.height; ++y) {
    for (long x = 0; x < bitmap.width; ++x) {
      const auto value = velura::pixelValue(bitmap, x, y);
      const auto rule =
          std::find_if(rules.begin(), rules.end(), [&](const RecolorRule& each) { return matches(each, value, x, y); });
      if (value[3] == 0 || rule == rules.end() || !rule->suggested) continue;
      auto color = *rule->suggested;
      color[3] = velura::outputAlpha(color[3], rule->ignoreAlpha, value[3]);
      paint(bitmap, color, x, y);
    }
  }
}

double coordinate(fuzzing::Bytes& input) {
  return input.number(0, 9) == 0 ? input.any() : static_cast<double>(input.number(0, 160) - 30) / 2;
}
double component(fuzzing::Bytes& input) {
  return input.number(0, 9) == 0 ? input.any() : static_cast<double>(input.number(0, 255)) / 255;
}

RecolorRule anyRule(fuzzing::Bytes& input) {
  RecolorRule rule;
  rule.rect = {{coordinate(input), coordinate(input)}, {coordinate(input), coordinate(input)}};
  for (double& each : rule.source) each = component(input);
  if (input.number(0, 1) == 0) rule.source = {1, 1, 1};
  if (input.number(0, 2) == 0) rule.sourceAlpha = component(input);
  if (input.number(0, 3) != 0)
    rule.suggested = {component(input), component(input), component(input), component(input)};
  rule.ignoreAlpha = component(input);
  return rule;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzzing::Bytes input(data, size);
  BitmapPixels bitmap{.bytes = nullptr,
                      .format = static_cast<std::uint64_t>(input.number(0, 3)),
                      .width = input.number(0, 70),
                      .height = input.number(0, 6),
                      .bytesPerRow = 0,
                      .bitsPerPixel = input.number(1, 9) * (input.number(0, 9) == 0 ? 7 : 8),
                      .hasAlpha = input.number(0, 3) != 0};
  bitmap.bytesPerRow = (bitmap.width * bitmap.bitsPerPixel + 7) / 8 + input.number(0, 5);
  std::vector<RecolorRule> rules;
  for (long i = input.number(0, 5); i > 0; --i) rules.push_back(anyRule(input));
  const auto bytes = input.repeated(static_cast<std::size_t>(bitmap.bytesPerRow * bitmap.height));
  auto quick = bytes;
  bitmap.bytes = quick.data();
  velura::recolor(bitmap, rules,
                  [&](const std::array<double, 4>& color, long x, long y) { paint(bitmap, color, x, y); });
  if (bitmap.bitsPerPixel % 8 != 0) return 0;  // pixels share bytes: the order of painting shows
  auto plain = bytes;
  BitmapPixels other = bitmap;
  other.bytes = plain.data();
  recolorPlainly(other, rules);
  fuzzing::require(quick == plain);
  return 0;
}
