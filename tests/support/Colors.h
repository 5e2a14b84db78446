#pragma once
// Colours as tests compare them.

#include <ostream>
#include <vector>

#include "cocoa/AppKit.h"

namespace support {

/// Red, green and blue from 0 to 255 and alpha in percent, rounded.
struct Rgba {
  long red = 0;
  long green = 0;
  long blue = 0;
  long alpha = 100;
  friend bool operator==(const Rgba&, const Rgba&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Rgba& c) {
    return out << '(' << c.red << ", " << c.green << ", " << c.blue << ", " << c.alpha << "%)";
  }
};

/// A component colour; all -1 for nil, all -2 for a pattern.
Rgba rgba(NSColor color);
Rgba rgba(CGColorRef color);

/// A pixel of a pattern colour's image, counted from its top left.
Rgba patternPixel(NSColor pattern, long x, long y);
/// The point size of a pattern colour's image; empty when it is no pattern.
CGSize patternSize(NSColor pattern);

/// A pixel of a bitmap.
Rgba pixel(NSBitmapImageRep bitmap, long x, long y);

/// Every pixel, row by row from the top.
std::vector<Rgba> pixels(NSBitmapImageRep bitmap);

/// Whether every component lies within `tolerance` of the other's.
bool near(const Rgba& a, const Rgba& b, long tolerance = 1);

}  // namespace support
