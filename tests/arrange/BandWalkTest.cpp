#include "plugin/arrange/BandWalk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/arrange/PaintedRuler.h"

namespace {

using namespace support;
using testing::ElementsAre;
using testing::IsEmpty;
using velura::BandColor;
using velura::BandSegment;
using velura::readMarkerLane;

constexpr RulerColor kRed{200, 40, 40};
constexpr RulerColor kGreen{40, 180, 60};
constexpr RulerColor kBlue{50, 70, 210};
constexpr RulerColor kGrey{120, 120, 120};

constexpr BandColor toBand(RulerColor color) { return {color.red, color.green, color.blue}; }
BandSegment colored(double start, RulerColor color) { return {start, toBand(color)}; }
BandSegment grey(double start) { return {start, std::nullopt}; }

PaintedRuler blank() { return {200, 60}; }
velura::MarkerLane read(const PaintedRuler& ruler, double left = 0) { return readMarkerLane(ruler.pixels(), left); }

TEST(BandWalk, ReadsMarkersAndGapsFromLeftToRight) {
  const PaintedRuler ruler =
      blank().fill(10, 60, 40, 58, kRed).fill(60, 110, 40, 58, kGreen).fill(130, 180, 40, 58, kBlue);
  const auto lane = readMarkerLane(ruler.pixels(300), 290);
  ASSERT_TRUE(lane.chosen);
  EXPECT_EQ(lane.chosen->rows, (velura::BandRows{40, 57}));
  EXPECT_EQ(lane.chosen->score, 3);
  EXPECT_THAT(lane.segments,
              ElementsAre(grey(10), colored(20, kRed), colored(70, kGreen), grey(120), colored(140, kBlue), grey(190)));
}

TEST(BandWalk, TellsColorsFromGreys) {
  const auto isColored = [](int r, int g, int b) {
    const std::uint8_t pixel[] = {static_cast<std::uint8_t>(r), static_cast<std::uint8_t>(g),
                                  static_cast<std::uint8_t>(b)};
    return velura::isColored(pixel);
  };
  EXPECT_TRUE(isColored(123, 100, 100));
  EXPECT_FALSE(isColored(122, 100, 100)) << "a spread of 22 is grey";
  EXPECT_TRUE(isColored(31, 0, 0));
  EXPECT_FALSE(isColored(30, 0, 0)) << "too dark";
  EXPECT_FALSE(isColored(250, 205, 205)) << "a saturation of 0.18 is grey";
  EXPECT_TRUE(isColored(250, 204, 204));
  EXPECT_FALSE(isColored(0, 0, 0));
}

TEST(BandWalk, IgnoresTheTopStripThinLinesAndLanesWithoutColor) {
  const auto top = read(blank().fill(0, 200, 14, 40, kRed));
  EXPECT_FALSE(top.chosen);
  EXPECT_TRUE(top.bands.front().inTopStrip);
  EXPECT_TRUE(read(blank().fill(0, 200, 15, 40, kRed)).chosen) << "below it";
  EXPECT_THAT(read(blank().fill(0, 200, 30, 31, kRed)).bands, IsEmpty()) << "thin";
  // 200 columns: 100 looked at, four coloured ones make a row coloured.
  EXPECT_THAT(read(blank().fill(0, 6, 40, 58, kRed)).bands, IsEmpty());
  EXPECT_EQ(read(blank().fill(0, 7, 40, 58, kRed)).bands.size(), 1U);
  EXPECT_EQ(read(blank()).rowThreshold, 4);
  EXPECT_EQ(read({1001, 60}).rowThreshold, 10) << "501 looked at";
}

TEST(BandWalk, ChoosesTheLaneOfMostColorsTheUpperOfEquals) {
  PaintedRuler ruler(200, 100);
  ruler.fill(0, 100, 20, 30, kRed).fill(100, 200, 20, 30, kGreen);
  ruler.fill(0, 100, 40, 50, kBlue).fill(100, 200, 40, 50, kGreen);
  EXPECT_EQ(read(ruler).chosen->rows.top, 20);
  ruler.fill(150, 200, 40, 50, kRed);
  EXPECT_EQ(read(ruler).chosen->rows.top, 40);
}

TEST(BandWalk, LettersNeitherSplitNorRecolorACell) {
  PaintedRuler ruler = blank();
  ruler.fill(0, 200, 40, 58, kRed);
  ruler.fill(20, 22, 44, 54, {255, 255, 255});  // a stem that covers part of the column
  ruler.fill(30, 33, 40, 58, {60, 200, 220});   // another colour for fewer than five columns
  ruler.fill(50, 51, 40, 58, kGrey);            // a column without colour
  EXPECT_THAT(read(ruler).segments, ElementsAre(colored(0, kRed), colored(51, kRed)));
  const auto interrupted = [](long end, RulerColor color) {
    return read(blank().fill(0, 200, 40, 58, kRed).fill(80, end, 40, 58, color)).segments;
  };
  EXPECT_THAT(interrupted(85, kGreen), ElementsAre(colored(0, kRed), colored(80, kGreen), colored(85, kRed)))
      << "five columns make a run";
  EXPECT_THAT(interrupted(84, kGrey), ElementsAre(colored(0, kRed), colored(84, kRed)));
  EXPECT_THAT(interrupted(85, kGrey), ElementsAre(colored(0, kRed), grey(80), colored(85, kRed)));
}

TEST(BandWalk, AColumnTakesTheMedianOfItsColoredPixels) {
  PaintedRuler ruler(40, 60);
  ruler.fill(0, 40, 40, 44, {90, 0, 0}).fill(0, 40, 44, 47, {150, 0, 0}).fill(0, 40, 47, 50, {210, 0, 0});
  EXPECT_THAT(velura::VLRMBWalkBand(ruler.pixels(), {40, 49}, 0), ElementsAre(colored(0, {150, 0, 0})));
  // A quarter of the pixels, and two at least, must be coloured.
  PaintedRuler sparse(40, 60);
  sparse.fill(0, 40, 40, 41, kRed);
  EXPECT_THAT(velura::VLRMBWalkBand(sparse.pixels(), {40, 43}, 0), ElementsAre(grey(0)));
  sparse.fill(0, 40, 41, 42, kRed);
  EXPECT_THAT(velura::VLRMBWalkBand(sparse.pixels(), {40, 47}, 0), ElementsAre(colored(0, kRed)));
  EXPECT_THAT(velura::VLRMBWalkBand(sparse.pixels(), {40, 51}, 0), ElementsAre(grey(0)));
}

TEST(BandWalk, LeavesOutWhatStartsLeftOfTheView) {
  const PaintedRuler ruler = blank().fill(0, 98, 40, 58, kRed).fill(98, 200, 40, 58, kBlue);
  EXPECT_THAT(read(ruler, 100).segments, ElementsAre(colored(-2, kBlue)));
  EXPECT_THAT(read(ruler, 100.5).segments, IsEmpty());
  EXPECT_FALSE(read(ruler, 100.5).chosen) << "no colour counts that is out of sight";
}

TEST(BandWalk, CountsColorsInCoarseStepsUpToTwentyFour) {
  const PaintedRuler alike = blank().fill(0, 100, 40, 58, {100, 20, 20}).fill(100, 200, 40, 58, {143, 20, 20});
  EXPECT_EQ(velura::distinctColorsAlong(alike.pixels(), {40, 57}, 0), 1);
  PaintedRuler many(3000, 60);
  for (long i = 0; i < 60; ++i) {
    const auto red = static_cast<std::uint8_t>(60 + i % 5 * 48);
    const auto green = static_cast<std::uint8_t>(i / 5 % 5 * 48);
    const auto blue = static_cast<std::uint8_t>(i % 2 * 255);
    many.fill(i * 50, i * 50 + 50, 40, 58, {red, green, blue});
  }
  EXPECT_EQ(velura::distinctColorsAlong(many.pixels(), {40, 57}, 0), 24);
}

TEST(BandWalk, SignatureRoundsPositionsAndColors) {
  EXPECT_EQ(velura::signatureOf({colored(21.9, {200, 40, 15}), grey(-1.5)}), "10:12,2,0;0:n;");
  EXPECT_EQ(velura::signatureOf({}), "");
  EXPECT_EQ(velura::signatureOf({grey(1e300)}), velura::signatureOf({grey(1e301)}));
}

TEST(BandWalk, SurvivesAnyPixels) {
  forAnyPixels([](const velura::RulerPixels& pixels) {
    EXPECT_LE(readMarkerLane(pixels, -50).segments.size(), static_cast<std::size_t>(pixels.width) * 2 + 2);
  });
  EXPECT_THAT(velura::VLRMBWalkBand(blank().pixels(), {-1, 5}, 0), IsEmpty());
  EXPECT_THAT(velura::VLRMBWalkBand(blank().pixels(), {5, 60}, 0), IsEmpty());
}

}  // namespace
