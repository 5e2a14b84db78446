// Gradients and bevels as objects, and the switch file.

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include "cocoa/Call.h"
#include "plugin/theme/GradientSwitch.h"
#include "plugin/theme/VLRStripBevel.h"
#include "plugin/theme/VLRStripGradient.h"
#include "standin/steering/Clock.h"
#include "tests/support/Theme.h"

namespace velura {
namespace {

using namespace cocoa;

class GradientObject : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    defineVLRStripGradient();
    defineVLRStripBevel();
  }
  static NSObject gradient(NSObject value) {
    return call<"gradientFromString:", NSObject>(classNamed("VLRStripGradient"), value);
  }
  static NSObject bevel(NSObject value) {
    return call<"bevelFromString:", NSObject>(classNamed("VLRStripBevel"), value);
  }
  AutoreleasePool pool_;
};

std::string hexOf(NSColor color) {
  char text[32];
  std::snprintf(text, sizeof text, "%.3f %.3f %.3f %.3f", color.redComponent(), color.greenComponent(),
                color.blueComponent(), color.alphaComponent());
  return text;
}

TEST_F(GradientObject, DerivesColorsFromTheBase) {
  const NSObject automatic = gradient(string("AutoGradient:{{20},{-100},V}"));
  EXPECT_EQ((call<"mode", NSInteger>(automatic)), 1);
  EXPECT_FALSE((call<"stopColors", NSArray>(automatic)));
  EXPECT_FALSE((call<"stopColorsForBase:", NSArray>(automatic, NSColor())));
  const auto stops = call<"stopColorsForBase:", NSArray>(automatic, NSColor::colorWithSRGBRed(0.6, 0.3, 0.3, 0.25));
  ASSERT_EQ(stops.count(), 2U);
  EXPECT_EQ(hexOf(cast<NSColor>(stops.objectAtIndex(0))), "0.800 0.400 0.400 0.250");
  EXPECT_EQ(hexOf(cast<NSColor>(stops.objectAtIndex(1))), "0.000 0.000 0.000 0.250");
  const auto shifted = [&](NSColor base, NSInteger delta) {
    return call<"colorForBase:delta:", NSColor>(automatic, base, delta);
  };
  EXPECT_EQ(hexOf(shifted(NSColor::colorWithSRGBRed(1, 1, 1, 1), 20)), "1.000 1.000 1.000 1.000");
  EXPECT_EQ(hexOf(shifted(NSColor::colorWithSRGBRed(0.5, 0.5, 0.5, 1), NSInteger(INT64_MAX))),
            "1.000 1.000 1.000 1.000");
  EXPECT_EQ(
      hexOf(shifted(NSColor::colorWithCalibratedWhite(0, 0.5), 0).colorUsingColorSpace(NSColorSpace::sRGBColorSpace())),
      "0.000 0.000 0.000 0.500");
  // A pattern has no components: it comes back as it is.
  const NSColor pattern = NSColor::colorWithPatternImage(NSImage::withSize({2, 2}));
  EXPECT_EQ(shifted(pattern, 10), pattern);
}

TEST_F(GradientObject, NothingButAStringMakesOne) {
  const unsigned short surrogate[] = {0xD800, 'x'};
  const auto broken = call<"stringWithCharacters:length:", NSString>(
      classNamed("NSString"), static_cast<const void*>(surrogate), NSUInteger(2));
  const unsigned short zero[] = {'B', 'e', 'v', 'e', 'l', ':', '{', 'R', ',', '2', ',', '3', '}', 0, 'x'};
  const auto longer = call<"stringWithCharacters:length:", NSString>(
      classNamed("NSString"), static_cast<const void*>(zero), NSUInteger(std::size(zero)));
  const NSObject values[] = {
      NSObject(), NSNumber::numberWithLong(3), NSArray::array(), NSNull::null(), string(""), broken, longer};
  for (const NSObject value : values) {
    EXPECT_FALSE(gradient(value));
    EXPECT_FALSE(bevel(value));
  }
}

TEST_F(GradientObject, ABevelTellsItsStylesWidthAndStrength) {
  const NSObject turning = bevel(string("Bevel:{R,2,30,D}"));
  EXPECT_EQ((call<"styleForHighlighted:", NSInteger>(turning, BOOL(0))), 1);
  EXPECT_EQ((call<"styleForHighlighted:", NSInteger>(turning, BOOL(1))), 2);
  EXPECT_EQ((call<"width", double>(turning)), 2);
  EXPECT_EQ((call<"strength", double>(turning)), 30);
}

TEST(SwitchFile, IsTestedAtMostOnceASecond) {
  constexpr const char* kFile = "/tmp/vlr_gradients_off";
  std::filesystem::remove(kFile);
  standin::setClock(1000);
  EXPECT_FALSE(VLRGradientsDisabled());
  support::writeFile(kFile, "");
  standin::setClock(1001);
  EXPECT_FALSE(VLRGradientsDisabled()) << "the second is not over yet";
  standin::setClock(1001.1);
  EXPECT_TRUE(VLRGradientsDisabled());
  std::filesystem::remove(kFile);
  standin::setClock(1002);
  EXPECT_TRUE(VLRGradientsDisabled());
  standin::setClock(1002.2);
  EXPECT_FALSE(VLRGradientsDisabled());
}

}  // namespace
}  // namespace velura
