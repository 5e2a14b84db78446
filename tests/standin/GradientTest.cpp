// Linear gradients: directions, stops, edges.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "Canvas.h"

namespace {

using namespace cocoa;
using namespace support;

Ref<NSGradient> gradient(std::initializer_list<NSColor> colors, std::initializer_list<double> locations) {
  std::vector<id> objects;
  for (const NSColor& color : colors) objects.push_back(color.object);
  return NSGradient::withColors(NSArray::arrayWithObjects(objects.data(), objects.size()), locations.begin(),
                                NSColorSpace::sRGBColorSpace());
}

unsigned red(std::uint32_t pixel) { return pixel >> 24U; }

TEST(Gradient, RunsCounterclockwiseFromTheRight) {
  const AutoreleasePool pool;
  struct Direction {
    double angle;
    double alongX;
    double alongY;  // up
  };
  const double half = std::sqrt(0.5);
  const Direction directions[] = {{0, 1, 0},        {90, 0, 1},          {180, -1, 0}, {270, 0, -1},
                                  {45, half, half}, {225, -half, -half}, {-90, 0, -1}, {450, 0, 1}};
  constexpr int kWidth = 24;
  constexpr int kHeight = 16;
  const auto ramp = gradient({NSColor::colorWithSRGBRed(0, 0, 0, 1), NSColor::colorWithSRGBRed(1, 0, 0, 1)}, {0, 1});
  for (const Direction& d : directions) {
    const Canvas canvas(kWidth, kHeight);
    ramp->drawInRect({{0, 0}, {kWidth, kHeight}}, d.angle);
    const double length = std::abs(d.alongX) * kWidth + std::abs(d.alongY) * kHeight;
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) {
        const double along = (x + 0.5 - kWidth / 2.0) * d.alongX + (kHeight / 2.0 - y - 0.5) * d.alongY;
        EXPECT_NEAR(red(canvas.at(x, y)), (along / length + 0.5) * 255, 0.6) << d.angle << ' ' << x << ' ' << y;
      }
    }
  }
}

TEST(Gradient, PlacesItsStops) {
  const AutoreleasePool pool;
  struct Case {
    const char* name;
    Ref<NSGradient> made;
    const char* art;
  };
  const NSColor r = letter('R'), g = letter('G'), b = letter('B'), clear = letter('.');
  const Case cases[] = {
      {"hard steps", gradient({r, r, g, g}, {0, 0.5, 0.5, 1}), "RRRRGGGG\n"},
      {"sorted first, equal places in their order", gradient({g, r, r, g}, {1, 0.5, 0, 0.5}), "RRRRGGGG\n"},
      {"beyond the outer stops", gradient({r, b}, {0.5, 0.5}), "RRRRBBBB\n"},
      {"a single colour", gradient({b}, {0.3}), "BBBBBBBB\n"},
      {"places outside of 0 to 1 count as the nearest", gradient({g, g}, {-3, 7}), "GGGGGGGG\n"},
      {"three in a row", gradient({r, g, g, b}, {0.25, 0.25, 0.75, 0.75}), "RRGGGGBB\n"},
      {"clear stops leave what is there", gradient({clear, clear, r, r}, {0, 0.5, 0.5, 1}), "....RRRR\n"},
  };
  for (const Case& c : cases) {
    const Canvas canvas(8, 1);
    c.made->drawInRect({{0, 0}, {8, 1}}, 0);
    EXPECT_EQ(canvas.art(), c.art) << c.name;
  }
}

TEST(Gradient, MixesStraightColorsAndRoundsOnce) {
  const AutoreleasePool pool;
  const Canvas canvas(2, 1);
  gradient({NSColor::colorWithSRGBRed(1, 0, 0, 1), NSColor::colorWithSRGBRed(0, 0, 1, 0)}, {0, 1})
      ->drawInRect({{0, 0}, {2, 1}}, 0);
  // A quarter of the way: red 0.75, blue 0.25, alpha 0.75.
  EXPECT_EQ(canvas.at(0, 0), 0x8f0030bfU);
  EXPECT_EQ(canvas.at(1, 0), 0x10003040U);
}

TEST(Gradient, RefusesBadArguments) {
  const AutoreleasePool pool;
  const NSColor r = letter('R');
  const NSColor pattern = NSColor::colorWithPatternImage(imageOf({"R"}));
  EXPECT_FALSE(gradient({}, {}));
  EXPECT_FALSE(gradient({r, pattern}, {0, 1}));
  EXPECT_FALSE(gradient({r, r}, {0, std::numeric_limits<double>::quiet_NaN()}));
  EXPECT_FALSE(NSGradient::withColors(NSArray::arrayWithObjects(&r.object, 1), nullptr, {}));
  EXPECT_FALSE(NSGradient::withStartingColor(r, {}));
  const Canvas canvas(2, 2);
  gradient({r, r}, {0, 1})->drawInRect({{0, 0}, {2, 2}}, std::numeric_limits<double>::infinity());
  gradient({r, r}, {0, 1})->drawInRect({{0, 0}, {-2, 2}}, 0);
  EXPECT_EQ(canvas.art(), "..\n..\n");
}

TEST(Gradient, StaysInsideShapesAndClips) {
  const AutoreleasePool pool;
  const auto plain = gradient({letter('R'), letter('R')}, {0, 1});
  const Canvas canvas(5, 5);
  plain->drawInBezierPath(NSBezierPath::bezierPathWithRect({{1, 1}, {3, 3}}), 45);
  EXPECT_EQ(canvas.art(), ".....\n.RRR.\n.RRR.\n.RRR.\n.....\n");
  const Canvas lines(6, 1);
  const auto core = CFRef<CGGradientRef>::adopt([] {
    const CGFloat components[] = {0, 1, 0, 1, 0, 1, 0, 1};
    const auto space = CFRef<CGColorSpaceRef>::adopt(CGColorSpaceCreateDeviceRGB());
    return CGGradientCreateWithColorComponents(space, components, nullptr, 2);
  }());
  CGContextDrawLinearGradient(lines.context(), core, {2, 0}, {4, 0}, kCGGradientDrawsAfterEndLocation);
  EXPECT_EQ(lines.art(), "..GGGG\n");
  CGContextDrawLinearGradient(lines.context(), core, {2, 0}, {2, 0}, kCGGradientDrawsBeforeStartLocation);
  EXPECT_EQ(lines.art(), "..GGGG\n") << "no direction, no gradient";
}

}  // namespace
