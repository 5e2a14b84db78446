// Colours: what is equal, what raises, what converts.

#include <gtest/gtest.h>

#include "Canvas.h"
#include "cocoa/Exception.h"
#include "standin/steering/Catalogue.h"

namespace {

using namespace cocoa;
using namespace support;

struct Named {
  const char* name;
  NSColor color;
};

std::vector<Named> differentColors() {
  static const auto image = imageOf({"R"});
  static const auto other = imageOf({"R"});
  for (const char* name : {"one", "two"}) {
    standin::registerCatalogueColor("Catalogue", name, NSColor::colorWithSRGBRed(1, 0, 0, 1));
  }
  return {{"sRGB", NSColor::colorWithSRGBRed(1, 0, 0, 1)},
          {"sRGB, other alpha", NSColor::colorWithSRGBRed(1, 0, 0, 0.5)},
          {"calibrated", NSColor::colorWithCalibratedRed(1, 0, 0, 1)},
          {"device", NSColor::colorWithDeviceRed(1, 0, 0, 1)},
          {"grey", NSColor::colorWithWhite(1, 1)},
          {"calibrated grey", NSColor::colorWithCalibratedWhite(1, 1)},
          {"device grey", NSColor::colorWithDeviceWhite(1, 1)},
          {"pattern", NSColor::colorWithPatternImage(image)},
          {"pattern of another image", NSColor::colorWithPatternImage(other)},
          {"catalogue", NSColor::colorWithCatalogName(string("Catalogue"), string("one"))},
          {"catalogue, other name", NSColor::colorWithCatalogName(string("Catalogue"), string("two"))}};
}

TEST(Color, EqualsOnlyItsLike) {
  const AutoreleasePool pool;
  const auto colors = differentColors();
  const auto again = differentColors();
  for (std::size_t i = 0; i < colors.size(); ++i) {
    for (std::size_t j = 0; j < colors.size(); ++j) {
      const bool same = i == j;
      EXPECT_EQ(colors[i].color.isEqual(again[j].color), same) << colors[i].name << " and " << colors[j].name;
      EXPECT_EQ(colors[i].color.description().isEqual(again[j].color.description()), same)
          << colors[i].name << " and " << colors[j].name << ": descriptions tell apart what differs";
    }
    EXPECT_EQ(colors[i].color.hash(), again[i].color.hash()) << colors[i].name;
  }
  EXPECT_FALSE(NSColor::colorWithSRGBRed(1, 0, 0, 1) == NSColor::colorWithSRGBRed(1, 0, 0, 1)) << "equal, not one";
  EXPECT_FALSE(colors[0].color.isEqual(literal<"red">()));
}

TEST(Color, RaisesForWhatItHasNot) {
  const AutoreleasePool pool;
  enum : unsigned { kRGB = 1, kWhite = 2, kCount = 4, kNames = 8, kPattern = 16 };
  struct Case {
    NSColor color;
    NSColorType type;
    unsigned answers;
    NSInteger components;
  };
  const auto all = differentColors();
  const Case cases[] = {{all[0].color, NSColorTypeComponentBased, kRGB | kCount, 4},
                        {all[4].color, NSColorTypeComponentBased, kWhite | kCount, 2},
                        {all[7].color, NSColorTypePattern, kPattern, 0},
                        {all[9].color, NSColorTypeCatalog, kNames, 0}};
  for (const Case& c : cases) {
    EXPECT_EQ(c.color.type(), c.type);
    const auto raises = [&](auto question) {
      const auto raised = guarded([&] { static_cast<void>(question()); });
      EXPECT_TRUE(!raised || raised->name == "NSInvalidArgumentException");
      return raised.has_value();
    };
    EXPECT_EQ(raises([&] { return c.color.redComponent(); }), (c.answers & kRGB) == 0);
    EXPECT_EQ(raises([&] { return c.color.brightnessComponent(); }), (c.answers & kRGB) == 0);
    EXPECT_EQ(raises([&] { return c.color.whiteComponent(); }), (c.answers & kWhite) == 0);
    EXPECT_EQ(raises([&] { return c.color.numberOfComponents(); }), (c.answers & kCount) == 0);
    EXPECT_EQ(raises([&] { return c.color.colorNameComponent(); }), (c.answers & kNames) == 0);
    EXPECT_EQ(raises([&] { return c.color.patternImage(); }), (c.answers & kPattern) == 0);
    if ((c.answers & kCount) != 0) {
      EXPECT_EQ(c.color.numberOfComponents(), c.components);
    }
    EXPECT_EQ(c.color.alphaComponent(), 1) << "every colour has an alpha";
  }
}

TEST(Color, ConvertsByKeepingValues) {
  const AutoreleasePool pool;
  const NSColor gray = NSColor::colorWithCalibratedWhite(0.25, 0.5);
  const NSColor rgb = gray.colorUsingColorSpace(NSColorSpace::sRGBColorSpace());
  CGFloat v[4];
  rgb.getComponents(v);
  EXPECT_EQ(std::vector<CGFloat>(v, v + 4), (std::vector<CGFloat>{0.25, 0.25, 0.25, 0.5}));
  EXPECT_EQ(rgb.colorSpace(), NSColorSpace::sRGBColorSpace());
  EXPECT_EQ(rgb.colorUsingColorSpace(NSColorSpace::sRGBColorSpace()), rgb) << "nothing to convert: the same object";
  EXPECT_FALSE(differentColors()[7].color.colorUsingColorSpace(NSColorSpace::sRGBColorSpace())) << "a pattern";
  EXPECT_EQ(differentColors()[9].color.colorUsingColorSpace(NSColorSpace::sRGBColorSpace()).redComponent(), 1);
  EXPECT_EQ(gray.colorWithAlphaComponent(0.75).alphaComponent(), 0.75);
  EXPECT_EQ(NSColor::blackColor(), NSColor::blackColor());
  EXPECT_FALSE(NSColor::colorWithCatalogName(string("Catalogue"), string("none")));
}

TEST(Color, PassesThroughCoreGraphics) {
  const AutoreleasePool pool;
  for (const Named& each : differentColors()) {
    const CGColorRef made = each.color.CGColor();
    EXPECT_EQ(made, each.color.CGColor()) << each.name << ": made once";
    EXPECT_EQ(CGColorGetAlpha(made), each.color.alphaComponent()) << each.name;
    EXPECT_EQ(CGColorGetPattern(made) != nullptr, each.color.type() == NSColorTypePattern) << each.name;
    const NSColor back = NSColor::colorWithCGColor(made);
    EXPECT_EQ(back.isEqual(each.color), each.color.type() != NSColorTypeCatalog) << each.name;
    const auto faded = CFRef<CGColorRef>::adopt(CGColorCreateCopyWithAlpha(made, 0.25));
    EXPECT_EQ(CGColorGetAlpha(faded), 0.25) << each.name;
    EXPECT_EQ(CGColorEqualToColor(faded, made), false) << each.name;
  }
  EXPECT_FALSE(NSColor::colorWithCGColor(nullptr));
}

TEST(Pattern, StartsAtTheLowerLeftAndKeepsPointSize) {
  const AutoreleasePool pool;
  const NSColor pattern = NSColor::colorWithPatternImage(imageOf({"RG", "BW"}));
  const Canvas canvas(5, 3);
  canvas.fill(pattern, {{1, 0}, {4, 3}});
  EXPECT_EQ(canvas.art(), ".WBWB\n.GRGR\n.WBWB\n");
  const Canvas twice(4, 4, 1);
  const auto layer = CALayer::layer();
  layer.setBounds({{0, 0}, {2, 2}});
  layer.setBackgroundColor(pattern.CGColor());
  CGContextScaleCTM(twice.context(), 2, 2);
  layer.renderInContext(twice.context());
  EXPECT_EQ(twice.art(), "RRGG\nRRGG\nBBWW\nBBWW\n") << "two pixels a point";
}

}  // namespace
