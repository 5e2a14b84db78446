#include "plugin/arrange/TickDetection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/arrange/PaintedRuler.h"

namespace {

using namespace support;
using testing::ElementsAre;
using testing::IsEmpty;
using velura::RulerTicks;

constexpr RulerColor kFaint{100, 100, 100};  // 40 above the background: below the first threshold only

RulerTicks read(const PaintedRuler& ruler, double left = 0) { return velura::detectTicks(ruler.pixels(), left); }

/// Ticks of one height every so many columns, from the first column to the end.
PaintedRuler ticksEvery(long step, long first, long end, long height) {
  PaintedRuler ruler(end, 38);
  for (long x = first; x < end; x += step) ruler.tick(x, height);
  return ruler;
}

/// Bars of 16 every 80 pixels, beats of 10, divisions of 5 every 10.
PaintedRuler musicalRuler(RulerColor color = {200, 200, 200}) {
  PaintedRuler ruler(240, 38);
  for (long x = 0; x < 240; x += 10) ruler.tick(x, x % 80 == 0 ? 16 : x % 20 == 0 ? 10 : 5, color);
  return ruler;
}

TEST(TickDetection, TellsBarsBeatsAndDivisionsApartByHeight) {
  const RulerTicks ticks = velura::detectTicks(musicalRuler().pixels(1000), 1000);
  EXPECT_THAT(ticks.bars, ElementsAre(1000, 1080, 1160));
  EXPECT_EQ(ticks.beats.size(), 9U);
  EXPECT_EQ(ticks.beats.front(), 1020);
  EXPECT_EQ(ticks.divisions.size(), 12U);
  EXPECT_EQ(ticks.divisions.front(), 1010);
}

TEST(TickDetection, LooksAgainForFaintTicks) {
  EXPECT_EQ(read(musicalRuler(kFaint)).count(), 24U);
  EXPECT_EQ(read(musicalRuler({87, 87, 87})).count(), 0U) << "27 above the background is too faint then as well";
  // Three clear ticks end the search for faint ones.
  PaintedRuler mixed(120, 38);
  for (long x = 10; x < 40; x += 10) mixed.tick(x, 9);
  for (long x = 50; x < 110; x += 10) mixed.tick(x, 9, kFaint);
  EXPECT_EQ(read(mixed).count(), 3U);
}

TEST(TickDetection, ToleratesThreePixelsOfBackgroundInATick) {
  const auto heightOver = [](long gap) {
    return read(ticksEvery(10, 10, 60, 4).tick(30, 4 + gap + 5).fill(30, 31, 38 - 4 - gap, 38 - 4, {60, 60, 60}));
  };
  // With the gap bridged, the tick is 9 high: a bar among beats.
  EXPECT_THAT(heightOver(3).bars, ElementsAre(30));
  EXPECT_EQ(heightOver(4).bars.size(), 5U);
}

TEST(TickDetection, KeepsOneOfNeighbouringColumns) {
  PaintedRuler pairs = ticksEvery(20, 10, 120, 8);
  for (long x = 11; x < 120; x += 20) pairs.tick(x, 8);
  EXPECT_THAT(read(pairs).bars, ElementsAre(10, 30, 50, 70, 90, 110)) << "ties go to the left";
  for (long x = 11; x < 120; x += 20) pairs.tick(x, 9);
  EXPECT_THAT(read(pairs).bars, ElementsAre(11, 31, 51, 71, 91, 111));
  // At two pixels a point the reach is three columns.
  PaintedRuler dense(240, 76, {60, 60, 60}, 2);
  for (long x = 20; x < 240; x += 40) dense.tick(x, 16).tick(x + 3, 16).tick(x + 7, 16);
  const auto bars = read(dense).bars;
  EXPECT_EQ(bars.size(), 12U);
  EXPECT_EQ(bars[0], 10);
  EXPECT_EQ(bars[1], 13.5);
}

TEST(TickDetection, DropsWhatLiesLeftOfTheView) {
  const PaintedRuler ruler = ticksEvery(10, 1, 120, 8);
  EXPECT_EQ(read(ruler, 13).bars.front(), 11) << "two points of tolerance";
  EXPECT_EQ(read(ruler, 13.5).bars.front(), 21);
}

TEST(TickDetection, SearchesTheUpperRowsAndHangingTicksWhenTheLowerRowsHaveFew) {
  PaintedRuler upper(120, 40);
  for (long x = 10; x < 120; x += 10) upper.fill(x, x + 1, 12, 20, {200, 200, 200});
  EXPECT_EQ(read(upper).bars.size(), 11U) << "ticks that stand on the middle";
  PaintedRuler hanging(120, 40);
  for (long x = 10; x < 120; x += 10) hanging.fill(x, x + 1, 18, 26, {200, 200, 200});
  hanging.fill(55, 56, 18, 40, {200, 200, 200});  // a line all through
  const auto bars = read(hanging).bars;
  EXPECT_EQ(bars.size(), 11U);
  EXPECT_THAT(bars, testing::Not(testing::Contains(55)));
}

TEST(TickDetection, StrayMarksMakeNoLevelOfTheirOwn) {
  PaintedRuler ruler = ticksEvery(40, 0, 400, 16);
  for (long x = 10; x < 400; x += 40) ruler.tick(x, 6);
  ruler.tick(205, 11);  // one mark of a height between the two
  const RulerTicks ticks = read(ruler);
  EXPECT_THAT(ticks.bars, testing::Contains(205)) << "a tie goes to the taller level";
  EXPECT_EQ(ticks.beats.size(), 10U);
  EXPECT_THAT(ticks.divisions, IsEmpty());
  // A fourth level has no name: its ticks are left out.
  PaintedRuler four(400, 44);
  for (long x = 0; x < 400; x += 10) four.tick(x, x % 80 == 0 ? 18 : x % 40 == 0 ? 13 : x % 20 == 0 ? 8 : 4);
  EXPECT_EQ(read(four).count(), 20U);
}

TEST(TickDetection, SurvivesAnyPixels) {
  forAnyPixels([](const velura::RulerPixels& pixels) {
    EXPECT_LE(velura::detectTicks(pixels, -1e9).count(), static_cast<std::size_t>(pixels.width));
  });
  EXPECT_EQ(velura::detectTicks({}, 0).count(), 0U);
}

}  // namespace
