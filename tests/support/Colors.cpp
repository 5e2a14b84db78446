#include "tests/support/Colors.h"

#include <cmath>
#include <cstdlib>

namespace support {

using namespace cocoa;

Rgba rgba(NSColor color) {
  if (!color) return {-1, -1, -1, -1};
  if (color.type() == NSColorTypePattern) return {-2, -2, -2, -2};
  double red = 0;
  double green = 0;
  double blue = 0;
  double alpha = 0;
  color.colorUsingColorSpace(NSColorSpace::sRGBColorSpace()).getRed(&red, &green, &blue, &alpha);
  return {std::lround(red * 255), std::lround(green * 255), std::lround(blue * 255), std::lround(alpha * 100)};
}

Rgba pixel(NSBitmapImageRep bitmap, long x, long y) { return rgba(bitmap.colorAtX(x, y)); }

Rgba rgba(CGColorRef color) { return rgba(NSColor::colorWithCGColor(color)); }

Rgba patternPixel(NSColor pattern, long x, long y) {
  if (rgba(pattern).red != -2) return rgba(pattern);
  NSRect whole{{0, 0}, pattern.patternImage().size()};
  const CGImageRef image = pattern.patternImage().CGImageForProposedRect(&whole, NSGraphicsContext(), NSDictionary());
  return pixel(NSBitmapImageRep::withCGImage(image), x, y);
}

std::vector<Rgba> pixels(NSBitmapImageRep bitmap) {
  std::vector<Rgba> all;
  for (long y = 0; y < bitmap.pixelsHigh(); ++y) {
    for (long x = 0; x < bitmap.pixelsWide(); ++x) all.push_back(pixel(bitmap, x, y));
  }
  return all;
}

CGSize patternSize(NSColor pattern) { return rgba(pattern).red == -2 ? pattern.patternImage().size() : CGSize(); }

bool near(const Rgba& a, const Rgba& b, long tolerance) {
  return std::labs(a.red - b.red) <= tolerance && std::labs(a.green - b.green) <= tolerance &&
         std::labs(a.blue - b.blue) <= tolerance && std::labs(a.alpha - b.alpha) <= tolerance;
}

}  // namespace support
