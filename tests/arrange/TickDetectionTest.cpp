#include "plugin/arrange/TickDetection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "tests/arrange/PaintedRuler.h"

namespace {

using namespace support;
using testing::ElementsAre;
using testing::IsEmpty;
using velura::detectTicks;
using velura::RulerTicks;

constexpr RulerColour kFaint{100, 100, 100};  // 40 above the background: below the first threshold only

/// Bars of 16 every 80 pixels, beats of 10, divisions of 5 every 10.
PaintedRuler musicalRuler(RulerColour colour = {200, 200, 200}) {
  PaintedRuler ruler(240, 38);
  for (long x = 0; x < 240; x += 10) ruler.tick(x, x % 80 == 0 ? 16 : x % 20 == 0 ? 10 : 5, colour);
  return ruler;
}

TEST(TickDetection, TellsBarsBeatsAndDivisionsApartByHeight) {
  const RulerTicks ticks = detectTicks(musicalRuler().pixels(1000), 1000);
  EXPECT_THAT(ticks.bars, ElementsAre(1000, 1080, 1160));
  EXPECT_EQ(ticks.beats.size(), 9U);
  EXPECT_EQ(ticks.beats.front(), 1020);
  EXPECT_EQ(ticks.divisions.size(), 12U);
  EXPECT_EQ(ticks.divisions.front(), 1010);
}

TEST(TickDetection, LooksAgainForFaintTicks) {
  EXPECT_EQ(detectTicks(musicalRuler(kFaint).pixels(), 0).count(), 24U);
  // 27 above the background is too faint for the second look as well.
  EXPECT_EQ(detectTicks(musicalRuler({87, 87, 87}).pixels(), 0).count(), 0U);
  // Three clear ticks end the search for faint ones.
  PaintedRuler mixed(120, 38);
  for (long x = 10; x < 40; x += 10) mixed.tick(x, 9);
  for (long x = 50; x < 110; x += 10) mixed.tick(x, 9, kFaint);
  EXPECT_EQ(detectTicks(mixed.pixels(), 0).count(), 3U);
}

TEST(TickDetection, ToleratesThreePixelsOfBackgroundInATick) {
  const auto heightOver = [](long gap) {
    PaintedRuler ruler(60, 38);
    for (long x = 10; x < 60; x += 10) ruler.tick(x, 4);
    ruler.tick(30, 4 + gap + 5).fill(30, 31, 38 - 4 - gap, 38 - 4, {60, 60, 60});
    return detectTicks(ruler.pixels(), 0);
  };
  // With the gap bridged, the tick is 9 high: a bar among beats.
  EXPECT_THAT(heightOver(3).bars, ElementsAre(30));
  EXPECT_EQ(heightOver(4).bars.size(), 5U);
}

TEST(TickDetection, KeepsOneOfNeighbouringColumns) {
  PaintedRuler wide(120, 38);
  for (long x = 10; x < 120; x += 20) wide.tick(x, 8, {200, 200, 200}, 2);
  EXPECT_THAT(detectTicks(wide.pixels(), 0).bars, ElementsAre(10, 30, 50, 70, 90, 110)) << "ties go to the left";
  PaintedRuler uneven(120, 38);
  for (long x = 10; x < 120; x += 20) uneven.tick(x, 8).tick(x + 1, 9);
  EXPECT_THAT(detectTicks(uneven.pixels(), 0).bars, ElementsAre(11, 31, 51, 71, 91, 111));
  // At two pixels a point the reach is three columns.
  PaintedRuler dense(240, 76, {60, 60, 60}, 2);
  for (long x = 20; x < 240; x += 40) dense.tick(x, 16).tick(x + 3, 16).tick(x + 7, 16);
  const auto bars = detectTicks(dense.pixels(), 0).bars;
  EXPECT_EQ(bars.size(), 12U);
  EXPECT_EQ(bars[0], 10);
  EXPECT_EQ(bars[1], 13.5);
}

TEST(TickDetection, DropsWhatLiesLeftOfTheView) {
  PaintedRuler ruler(120, 38);
  for (long x = 1; x < 120; x += 10) ruler.tick(x, 8);
  EXPECT_EQ(detectTicks(ruler.pixels(), 13).bars.front(), 11) << "two points of tolerance";
  EXPECT_EQ(detectTicks(ruler.pixels(), 13.5).bars.front(), 21);
}

TEST(TickDetection, SearchesTheUpperRowsAndHangingTicksWhenTheLowerRowsHaveFew) {
  PaintedRuler upper(120, 40);
  for (long x = 10; x < 120; x += 10) upper.fill(x, x + 1, 12, 20, {200, 200, 200});
  EXPECT_EQ(detectTicks(upper.pixels(), 0).bars.size(), 11U) << "ticks that stand on the middle";
  PaintedRuler hanging(120, 40);
  for (long x = 10; x < 120; x += 10) hanging.fill(x, x + 1, 18, 26, {200, 200, 200});
  hanging.fill(55, 56, 18, 40, {200, 200, 200});  // a line all through
  const auto bars = detectTicks(hanging.pixels(), 0).bars;
  EXPECT_EQ(bars.size(), 11U);
  EXPECT_THAT(bars, testing::Not(testing::Contains(55)));
}

TEST(TickDetection, StrayMarksMakeNoLevelOfTheirOwn) {
  PaintedRuler ruler(400, 38);
  for (long x = 0; x < 400; x += 40) ruler.tick(x, 16);
  for (long x = 10; x < 400; x += 40) ruler.tick(x, 6);
  ruler.tick(205, 11);  // one mark of a height between the two
  const RulerTicks ticks = detectTicks(ruler.pixels(), 0);
  EXPECT_THAT(ticks.bars, testing::Contains(205)) << "a tie goes to the taller level";
  EXPECT_EQ(ticks.beats.size(), 10U);
  EXPECT_THAT(ticks.divisions, IsEmpty());
  // A fourth level has no name: its ticks are left out.
  PaintedRuler four(400, 44);
  for (long x = 0; x < 400; x += 10) four.tick(x, x % 80 == 0 ? 18 : x % 40 == 0 ? 13 : x % 20 == 0 ? 8 : 4);
  EXPECT_EQ(detectTicks(four.pixels(), 0).count(), 20U);
}

TEST(TickDetection, SurvivesAnyPixels) {
  std::mt19937 random(7);
  for (const long width : {1L, 2L, 3L, 40L, 20'000L}) {
    for (const long height : {1L, 2L, 9L, 11L, 76L}) {
      std::vector<std::uint8_t> bytes(static_cast<std::size_t>(width * height * 4));
      for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random());
      for (const double scale : {1e-9, 0.5, 2.0, 1e12}) {
        const velura::RulerPixels pixels{bytes.data(), width, height, width * 4, 4, scale, -50};
        EXPECT_LE(detectTicks(pixels, -1e9).count(), static_cast<std::size_t>(width));
      }
    }
  }
  EXPECT_EQ(detectTicks({}, 0).count(), 0U);
}

}  // namespace
