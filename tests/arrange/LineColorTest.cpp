#include <gtest/gtest.h>

#include "plugin/arrange/Median.h"
#include "plugin/arrange/RegionLineColor.h"

namespace {

using velura::adaptiveGrey;
using velura::LineColor;
using velura::tintOf;

void expectNear(const LineColor& actual, const LineColor& expected) {
  EXPECT_NEAR(actual.red, expected.red, 1e-9);
  EXPECT_NEAR(actual.green, expected.green, 1e-9);
  EXPECT_NEAR(actual.blue, expected.blue, 1e-9);
}
LineColor greyOf(double level) { return {level, level, level}; }

TEST(LineColor, AdaptiveGreyKeepsItsDistanceFromTheRegion) {
  expectNear(adaptiveGrey(greyOf(0.9), 0.5), greyOf(0.9 - 0.725));
  expectNear(adaptiveGrey(greyOf(0.5), 0), greyOf(0.05));
  expectNear(adaptiveGrey(greyOf(0.2), 0), greyOf(0.65));
  expectNear(adaptiveGrey(greyOf(0.4), 1), greyOf(1));
  expectNear(adaptiveGrey(greyOf(0.6), 1), greyOf(0));
  // Green weighs most: a plain green is light, a plain blue dark.
  expectNear(adaptiveGrey({0, 1, 0}, 0), greyOf(0.7152 - 0.45));
  expectNear(adaptiveGrey({0, 0, 1}, 0), greyOf(0.0722 + 0.45));
}

TEST(LineColor, TintIsLighterOnDarkRegionsAndDarkerOnLightOnes) {
  // Dark blue: saturation 1 → min(1.0 * 0.85, 1), brightness 0.5 + 0.45.
  expectNear(tintOf({0, 0, 0.5}, 0.5), {0.95 * 0.15, 0.95 * 0.15, 0.95});
  // A dull dark red keeps a saturation of at least 0.35.
  expectNear(tintOf({0.2, 0.18, 0.18}, 0.5), {0.65, 0.65 * 0.65, 0.65 * 0.65});
  // Light yellow: saturation 0.5 → 0.575, brightness 1 - 0.45.
  expectNear(tintOf({1, 1, 0.5}, 0.5), {0.55, 0.55, 0.55 * 0.425});
  EXPECT_NEAR(tintOf({0.5, 0.55, 0.5}, 0.5).green, 0.12, 1e-9) << "never darker than 0.12";
  // Vibrance scales the saturation from 0.4 to 1.6, up to full.
  EXPECT_NEAR(tintOf({0, 0, 0.5}, 0).red, 0.95 * (1 - 0.4 * 0.85), 1e-9);
  EXPECT_NEAR(tintOf({0, 0, 0.5}, 1).red, 0, 1e-9);
}

TEST(LineColor, GreyRegionsTakeAGreyWhateverTheVibrance) {
  expectNear(tintOf(greyOf(0.8), 1), greyOf(0.3));
  expectNear(tintOf(greyOf(0.3), 0), greyOf(0.8));
  expectNear(tintOf(greyOf(0), 1), greyOf(0.5));
  EXPECT_NE(tintOf({0.5, 0.5, 0.479}, 0.5), greyOf(tintOf({0.5, 0.5, 0.479}, 0.5).red)) << "0.042 is a hue";
}

TEST(LineColor, MedianIsTheUpperOfTwo) {
  std::vector<double> numbers{3, 1, 2, 4};
  EXPECT_EQ(velura::VLRBGMedian(numbers), 3);
  EXPECT_EQ(numbers, (std::vector<double>{1, 2, 3, 4})) << "sorted in place";
  std::vector<double> none;
  EXPECT_EQ(velura::VLRBGMedian(none), 0);
}

}  // namespace
