// Gradient and bevel strings.

#include <gtest/gtest.h>

#include <chrono>

#include "plugin/language/BevelString.h"
#include "plugin/language/GradientString.h"

namespace velura {
namespace {

using Locations = std::vector<double>;

std::string linearOf(int stops) {
  std::string text = "LinearGradient:{";
  for (int i = 0; i < stops; ++i) text += "{1,2,3,4},";
  return text + "V}";
}

TEST(GradientString, ReadsColorsInOrder) {
  const auto gradient = parseGradient("LinearGradient:{{62,62,66,100},{ 40, 300,-44,+5 x},H,S4}");
  ASSERT_TRUE(gradient);
  EXPECT_EQ(gradient->mode, GradientMode::kLinear);
  EXPECT_EQ(gradient->colors, (std::vector<StopColor>{{62, 62, 66, 100}, {40, 300, -44, 5}}));
  EXPECT_EQ(gradient->locations, (Locations{0, 1}));
  EXPECT_FALSE(gradient->hasAnchors);
  EXPECT_EQ(gradient->angleDegrees, 90);
  EXPECT_EQ(gradient->smoothingPoints, 4);
}

TEST(GradientString, DirectionCountsForTwoPlainStopsOnly) {
  const std::pair<std::string, double> cases[] = {
      {"LinearGradient:{{1,1,1,1},{2,2,2,2},V}", 180},
      {"LinearGradient:{{1,1,1,1},{2,2,2,2},H}", 90},
      {"LinearGradient:{{1,1,1,1},{2,2,2,2},A-90}", 270},
      {"LinearGradient:{{1,1,1,1},{2,2,2,2},A450}", 90},
      {"LinearGradient:{{1,1,1,1},{2,2,2,2},A-360}", 0},
      {"LinearGradient:{{1,1,1,1},{2,2,2,2},A-0}", 0},
      {"LinearGradient:{{1,1,1,1},{2,2,2,2},A36000000000000000000000000000000000000000000000000007}", 7},
      {"LinearGradient:{{1,1,1,1},{2,2,2,2},{3,3,3,3},H}", 180},
      {"LinearGradient:{{1,1,1,1,0},{2,2,2,2,@fader},H}", 180},
      {"AutoGradient:{10,-10,H}", 90},
      {"AutoGradient:{10,-10,A-1}", 359},
      {"AutoGradient:{{1},{2},{3},H}", 180},
  };
  for (const auto& [text, degrees] : cases) {
    const auto gradient = parseGradient(text);
    ASSERT_TRUE(gradient) << text;
    EXPECT_EQ(gradient->angleDegrees, degrees) << text;
  }
}

TEST(GradientString, PlacesStops) {
  const std::pair<std::string, Locations> cases[] = {
      {"{1},{2},{3},{4},{5},V}", {0, 0.25, 0.5, 0.75, 1}},
      {"{1,150},{2,-20},V}", {0, 1}},
      {"{1,12.5},{2,+.25e2},V}", {0.0025, 0.125}},
      {"{1,},{2,x},{3,99999999999999999999999999999},V}", {0, 0, 1}},
      {"{1,-0},{2,100.0000},V}", {0, 1}},
      {"{1,@fader},{2,10},{3, @eq},V}", {-1, 0.1, 0}},
  };
  for (const auto& [stops, locations] : cases) {
    const auto gradient = parseGradient("AutoGradient:{" + stops);
    ASSERT_TRUE(gradient) << stops;
    EXPECT_EQ(gradient->locations, locations) << stops;
  }
}

TEST(GradientString, SortsPlainPositionsAndKeepsTheOrderOfEqualOnes) {
  const auto gradient = parseGradient("LinearGradient:{{1,0,0,1,50},{2,0,0,1,50},{3,0,0,1,10},V}");
  ASSERT_TRUE(gradient);
  EXPECT_EQ(gradient->locations, (Locations{0.1, 0.5, 0.5}));
  EXPECT_EQ(gradient->colors[0].red, 3);
  EXPECT_EQ(gradient->colors[1].red, 1);
  EXPECT_EQ(gradient->colors[2].red, 2);
}

TEST(GradientString, AnchorsKeepTheWrittenOrder) {
  std::string text = "AutoGradient:{{9,90},";
  for (const std::string_view name : kStripAnchorNames) text.append("{1,@").append(name).append("},");
  const auto gradient = parseGradient(text + "{3,10},V}");
  ASSERT_TRUE(gradient);
  EXPECT_TRUE(gradient->hasAnchors);
  EXPECT_EQ(gradient->locations.front(), 0.9);
  EXPECT_EQ(gradient->locations.back(), 0.1);
  for (std::size_t i = 0; i < kStripAnchorNames.size(); ++i) {
    EXPECT_EQ(gradient->locations[i + 1], -1);
    EXPECT_EQ(gradient->anchors[i + 1], static_cast<StripAnchor>(i));
  }
  EXPECT_FALSE(gradient->anchors.front());
}

TEST(GradientString, AutoGradientsHaveTwoForms) {
  const auto gradient = parseGradient("AutoGradient:{10,-10,V}");
  ASSERT_TRUE(gradient);
  EXPECT_EQ(gradient->mode, GradientMode::kAuto);
  EXPECT_EQ(gradient->deltas, (std::vector<std::int64_t>{10, -10}));
  EXPECT_EQ(gradient->locations, (Locations{0, 1}));
  EXPECT_EQ(gradient->anchors.size(), 2U);
  EXPECT_EQ(parseGradient("AutoGradient:{{10},{-10},V,S6}")->smoothingPoints, 6);
  EXPECT_EQ(parseGradient("AutoGradient:{99999999999999999999,-99999999999999999999,V}")->deltas,
            (std::vector<std::int64_t>{INT64_MAX, INT64_MIN}));
}

TEST(GradientString, TheNumberOfStopsIs2To24) {
  EXPECT_FALSE(parseGradient(linearOf(0)));
  EXPECT_FALSE(parseGradient(linearOf(1)));
  EXPECT_TRUE(parseGradient(linearOf(2)));
  EXPECT_EQ(parseGradient(linearOf(24))->colors.size(), 24U);
  EXPECT_FALSE(parseGradient(linearOf(25)));
}

TEST(GradientString, RefusesEveryOtherText) {
  for (const std::string text :
       {"", "LinearGradient:", "LinearGradient:{}", "LinearGradient: {{1,1,1,1},{2,2,2,2},V}",
        "linearGradient:{{1,1,1,1},{2,2,2,2},V}", " LinearGradient:{{1,1,1,1},{2,2,2,2},V}",
        "LinearGradient:{10,-10,V}", "LinearGradient:{{1,1,1,1,0},{2,2,2,2,@Fader},V}",
        "LinearGradient:{{1,1,1,1,0},{2,2,2,2,@fader },V}", "LinearGradient:{{1,1,1,1,0},{2,2,2,2,@},V}"}) {
    EXPECT_FALSE(parseGradient(text)) << text;
  }
  for (const std::string rest :
       {",{2,2,2,2},V} ", ",{2,2,2,2},V}\n", ",{2,2,2,2}}", ",{2,2,2,2},}", "{2,2,2,2},V}", ",{2,2,2,2}V}",
        ", {2,2,2,2},V}", ",{2,2,2,2}, V}", ",{2,2,2,2},v}", ",{2,2,2,2},A}", ",{2,2,2,2},A+9}", ",{2,2,2,2},A1.5}",
        ",{2,2,2,2},V,S}", ",{2,2,2,2},V,S-1}", ",{2,2,2,2},V,S4,}", ",{},V}", ",{2,2,2},V}", ",{2,2,2,2,2,2},V}",
        ",{2,2,2,2,50},V}"}) {
    EXPECT_FALSE(parseGradient("LinearGradient:{{1,1,1,1}" + rest)) << rest;
  }
  for (const std::string rest : {"0,0,V}", "-0,00,V}", "{0},{0},{0},V}", "{12},{0,40},{-18},V}", "{1,2,3},{1},V}",
                                 "1,V}", "1,2}", "1,2,V,S4}", "+1,2,V}", "1, 2,V}", "--1,2,V}", ",2,V}"}) {
    EXPECT_FALSE(parseGradient("AutoGradient:{" + rest)) << rest;
  }
  EXPECT_FALSE(parseGradient(std::string("LinearGradient:{{1,1,1,1},{2,2,2,2},V}\0x", 40))) << "beyond a zero";
}

TEST(GradientString, AMegabyteParsesOrFailsAtOnce) {
  const auto megabyteOf = [](char byte) { return std::string(1 << 20, byte); };
  const std::string nines = megabyteOf('9');
  std::string groups;
  for (int i = 0; i < 1 << 18; ++i) groups += "{1},";
  const std::string texts[] = {
      "LinearGradient:{" + megabyteOf('{'),
      "LinearGradient:{" + megabyteOf('}'),
      "LinearGradient:{{" + megabyteOf(',') + "},",
      "AutoGradient:{" + groups,
      "AutoGradient:{" + groups + "V}",
      "AutoGradient:{" + megabyteOf('-'),
      "AutoGradient:{{" + nines + "},{" + megabyteOf('{') + "},A" + nines + "}",
      "AutoGradient:{{1," + nines + "},{1,0." + nines + "},V,S" + nines + "}",
  };
  const auto start = std::chrono::steady_clock::now();
  int parsed = 0;
  for (const std::string& text : texts) parsed += parseGradient(text) ? 1 : 0;
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
  EXPECT_EQ(parsed, 2);
}

TEST(BevelString, ReadsAndClamps) {
  const std::string digits(1000, '9');
  const std::pair<std::string, std::tuple<NSInteger, NSInteger, double, double>> cases[] = {
      {"Bevel:{R,2,30}", {1, 1, 2, 30}},
      {"Bevel:{R,2,30,D}", {1, 2, 2, 30}},
      {"Bevel:{D,2,30,R}", {2, 1, 2, 30}},
      {"Bevel:{D,9,150}", {2, 2, 6, 100}},
      {"Bevel:{R,0,20}", {1, 1, 1, 20}},
      {"Bevel:{R,003,020}", {1, 1, 3, 20}},
      {"Bevel:{D," + digits + "," + digits + ",D}", {2, 2, 6, 100}},
  };
  for (const auto& [text, expected] : cases) {
    const auto bevel = parseBevel(text);
    ASSERT_TRUE(bevel) << text;
    EXPECT_EQ(std::tuple(bevel->style, bevel->selectedStyle, bevel->width, bevel->strength), expected) << text;
  }
}

TEST(BevelString, RefusesEveryOtherText) {
  for (const std::string text :
       {"", "Bevel:", "Bevel:{R,2,0}", "Bevel:{X,2,20}", "Bevel:{R,-2,20}", "Bevel:{R,2,20", "Bevel:{R,2,20} ",
        "Bevel:{R,2,20,}", "Bevel:{R,2,20,X}", "Bevel:{R,2,20,D,D}", "Bevel: {R,2,20}", "bevel:{R,2,20}",
        "Bevel:{R, 2,20}", "Bevel:{R,,20}", "Bevel:{R,2}", "Bevel:{,2,20}", "Bevel:{RD,2,20}", "Bevel:{R,2,000}"}) {
    EXPECT_FALSE(parseBevel(text)) << text;
  }
}

}  // namespace
}  // namespace velura
