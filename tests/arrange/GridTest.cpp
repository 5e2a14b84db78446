// Bar, beat and division lines over the host's regions.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "host/arrange/Timeline.h"
#include "plugin/arrange/RegionLineColor.h"
#include "tests/arrange/ArrangeContents.h"

namespace {

using namespace cocoa;
using namespace support;
using testing::IsEmpty;

constexpr host::SongColor kBase{120, 60, 40};
constexpr Rgba kBody{84, 42, 28};  // of a region in that colour, below its title

/// A track with a region from bar 1 to 5 and one from bar 7 to 8, at 64 points a bar; the same on a second
/// track, two bars later.
host::Song songOfRegions() {
  host::Song song;
  song.arrange.zoom = 64;
  song.tracks.resize(2);
  for (int i = 0; i < 2; ++i) {
    host::Track& track = song.tracks[static_cast<std::size_t>(i)];
    track.color = kBase;
    track.regions = {{.name = "", .start = 1.0 + 2 * i, .length = 4}, {.name = "", .start = 7.0 + 2 * i, .length = 1}};
  }
  return song;
}

/// White lines of every kind, as strong as they can be.
ThemeFile strong() {
  return ThemeFile().flag("enabled", true).number("barOpacity", 1).number("beatOpacity", 1).number("divOpacity", 1);
}
ThemeFile only(const char* kind) {
  ThemeFile grid = strong();
  for (const std::string each : {"bar", "beat", "div"}) grid.flag(each + "Enabled", each == kind);
  return grid;
}

class Grid : public ArrangeContents {
 protected:
  NSBitmapImageRep without() const {
    const ThemeFile off;
    set(off);
    return picture();
  }
  /// The view's x of the columns that differ from the host's own drawing, in points.
  std::set<long> lines(const ThemeFile& grid, long y) const {
    const NSBitmapImageRep host = without();
    set(grid);
    return changedColumns(picture(), host, y);
  }
};

TEST_F(Grid, HasItsLinesAtTheSongsPositionsInsideRegionsAlone) {
  struct Case {
    double zoom;
    double scroll;
    int beats;
    int divisions;
  };
  const Case kCases[] = {{16, 0, 4, 4},    {33.3, 100.25, 3, 2}, {64, 0, 4, 4},     {64, 777, 4, 4},
                         {90.7, 50, 7, 3}, {110, 2000.75, 4, 4}, {500, 31.4, 5, 16}};
  eachInChild({1.0, 2.0}, [&](const double scale) {
    host::Song made = songOfRegions();
    made.tracks.resize(1);
    made.tracks[0].regions = {{.name = "", .start = 2.13, .length = 3.21}, {.name = "", .start = 6, .length = 40}};
    start(strong(), made, {.scale = scale});
    for (const Case& c : kCases) {
      const AutoreleasePool pool;
      song().arrange.beatsPerBar = c.beats;
      song().arrange.division = c.divisions;
      application_->arrange().setZoom(c.zoom);
      application_->arrange().setScroll(c.scroll);
      const CGRect visible = contents().visibleRect();
      // Near the end of a region, or of what shows, a line may be there in part.
      const auto isCutOff = [&](double x) {
        return x < visible.minX() + 3 || x > visible.maxX() - 3 ||
               std::ranges::any_of(song().tracks[0].regions, [&](const host::Region& region) {
                 return std::abs(x - (region.end() - 1) * c.zoom) < 2;
               });
      };
      const std::pair<const char*, std::vector<double>> kKinds[] = {
          {"bar", barPositions(song())}, {"beat", beatPositions(song())}, {"div", divisionPositions(song())}};
      const NSBitmapImageRep host = without();
      for (const auto& [kind, positions] : kKinds) {
        std::set<long> expected;
        for (const double position : positions) {
          const double x = std::floor(position);
          const bool drawn = std::ranges::any_of(song().tracks[0].regions, [&](const host::Region& region) {
            const double left = (region.start - 1) * c.zoom;
            return x + 0.5 >= left + 2 && x + 0.5 <= left + region.length * c.zoom;
          });
          const long column = std::lround((x - visible.minX()) * scale);
          for (long i = 0; drawn && i < std::lround(scale); ++i) expected.insert(column + i);
        }
        set(only(kind));
        std::set<long> found = changedColumns(picture(), host, std::lround(33 * scale));
        for (std::set<long>* columns : {&found, &expected}) {
          std::erase_if(*columns, [&](long x) { return isCutOff(static_cast<double>(x) / scale + visible.minX()); });
        }
        EXPECT_EQ(found, expected) << kind << " at zoom " << c.zoom << ", scroll " << c.scroll << ", " << scale;
      }
    }
  });
}

TEST_F(Grid, KeepsClearOfARegionsTopAndLeftEdge) {
  host::Song made = songOfRegions();
  made.tracks[1].regions = {{.name = "", .start = 2, .length = 1},
                            {.name = "", .start = 4 - 1.4 / 64, .length = 1},
                            {.name = "", .start = 6 - 2.4 / 64, .length = 1}};
  start(ThemeFile(), made);
  EXPECT_THAT(lines(only("bar"), 33), testing::ElementsAre(64, 128, 192)) << "neither at 0 nor at 256, outside of it";
  EXPECT_THAT(lines(only("bar"), 73), testing::ElementsAre(320)) << "2 points from the left edge there is a line";
  for (const long y : {0L, 1L, 39L}) EXPECT_THAT(lines(only("bar"), y), IsEmpty()) << y;
  for (const long y : {2L, 38L}) EXPECT_THAT(lines(only("bar"), y), testing::Contains(64)) << y;
  const NSBitmapImageRep host = without();
  set(strong());
  const NSBitmapImageRep drawn = picture();
  for (const long y : {45L, 60L}) {
    for (const long x : changedColumns(drawn, host, y)) {
      EXPECT_TRUE((x >= 66 && x < 128) || (x >= 192 && x < 255) || (x >= 319 && x < 382)) << x;
    }
  }
  for (long y = 80; y < host.pixelsHigh(); ++y) EXPECT_THAT(changedColumns(drawn, host, y), IsEmpty()) << y;
}

TEST_F(Grid, HasLinesOfEveryWidthOpacityAndGrey) {
  start(ThemeFile(), songOfRegions());
  struct Case {
    const char* what;
    ThemeFile grid;
    Rgba line;      // at bar 2
    double beside;  // how much of it the columns beside it have
  };
  const auto white = [](double alpha) {
    const auto mix = [alpha](long under) {
      return std::lround(255 * alpha + static_cast<double>(under) * (1 - alpha));
    };
    return Rgba{mix(kBody.red), mix(kBody.green), mix(kBody.blue)};
  };
  const Case kCases[] = {
      {"as set", only("bar"), white(1), 0},
      {"an opacity", only("bar").number("barOpacity", 0.5), white(0.5), 0},
      {"of the master's", only("bar").number("barOpacity", 0.5).number("masterOpacity", 0.5), white(0.25), 0},
      {"more than full", only("bar").number("barOpacity", 7).number("masterOpacity", 0.5), white(1), 0},
      {"none", only("bar").number("barOpacity", 0), kBody, 0},
      {"less than none", only("bar").number("barOpacity", -1), kBody, 0},
      {"hardly any", only("bar").number("barOpacity", 0.001), kBody, 0},
      {"no width", only("bar").number("barWidth", 0), kBody, 0},
      {"half a point", only("bar").number("barWidth", 0.5), white(0.5), 0},
      {"2 points", only("bar").number("barWidth", 2), white(1), 0.5},
      {"at most 2.5 points", only("bar").number("barWidth", 9), white(1), 0.75},
      {"grey", only("bar").number("lineGray", 0.2), {51, 51, 51}, 0},
      {"blacker than black", only("bar").number("lineGray", -3), {0, 0, 0}, 0},
      {"beats and divisions remain", strong().number("barWidth", 0), kBody, 0},
  };
  for (const Case& c : kCases) {
    set(c.grid);
    const NSBitmapImageRep drawn = picture();
    EXPECT_TRUE(near(pixel(drawn, 64, 37), c.line, 2)) << c.what << pixel(drawn, 64, 37);
    for (const long x : {63L, 65L}) EXPECT_TRUE(near(pixel(drawn, x, 37), white(c.beside), 3)) << c.what;
  }
  EXPECT_EQ(pixel(picture(), 80, 37), (Rgba{255, 255, 255})) << "the beats of the last case";
  EXPECT_EQ(pixel(picture(), 68, 37), (Rgba{255, 255, 255})) << "and its divisions";
}

Rgba asPixel(const velura::LineColor& color) {
  const auto byte = [](double channel) { return std::lround(channel * 255); };
  return {byte(color.red), byte(color.green), byte(color.blue)};
}
velura::LineColor bodyOf(const host::SongColor& base) {
  const auto body = [](int channel) { return std::round(channel * 0.7) / 255; };
  return {body(base.red), body(base.green), body(base.blue)};
}

TEST_F(Grid, TakesItsColorsFromTheRegions) {
  constexpr host::SongColor kBases[] = {kBase, {250, 240, 200}, {100, 100, 100}, {255, 255, 255}};
  host::Song made;
  made.arrange.zoom = 64;
  for (const host::SongColor& base : kBases) {
    host::Track& track = made.tracks.emplace_back();
    track.color = base;
    track.height = 60;
    track.regions = {{.name = "", .start = 1, .length = 4}};
  }
  start(ThemeFile(), made);
  struct Case {
    int mode;
    double strength;
    double vibrance;
  };
  for (const Case& c : {Case{1, 0, 0.5}, Case{1, 0.5, 0.5}, Case{2, 0, 0}, Case{2, 1, 0.7}, Case{2, 1, 1}}) {
    set(only("bar")
            .integer("colorMode", c.mode)
            .number("adaptiveStrength", c.strength)
            .number("tintVibrance", c.vibrance)
            .number("lineGray", 0.9));
    picture();
    ASSERT_GT(standin::runMainQueue(), 0U) << "colours are asked for at once under other settings";
    EXPECT_TRUE(needsDisplay());
    const NSBitmapImageRep drawn = picture();
    for (long i = 0; i < 4; ++i) {
      const velura::LineColor body = bodyOf(kBases[i]);
      const auto expected = c.mode == 1 ? velura::adaptiveGrey(body, c.strength) : velura::tintOf(body, c.vibrance);
      EXPECT_TRUE(near(pixel(drawn, 128, 60 * i + 57), asPixel(expected), 3))
          << "mode " << c.mode << " region " << i << pixel(drawn, 128, 60 * i + 57) << asPixel(expected);
    }
    EXPECT_EQ(standin::runMainQueue(), 0U) << "known colours are kept";
  }
  set(only("bar").number("lineGray", 0.9));
  EXPECT_EQ(pixel(picture(), 128, 57), (Rgba{230, 230, 230})) << "grey again";
}

TEST_F(Grid, ReadsColorsAnewAfterTwoSecondsAndWhenRegionsComeAndGo) {
  start(only("bar").integer("colorMode", 2), songOfRegions());
  settledPicture();
  EXPECT_EQ(standin::runMainQueue(), 0U);
  standin::setClock(kNow + 1.9);
  picture();
  EXPECT_EQ(standin::runMainQueue(), 0U);
  song().tracks[0].regions.pop_back();
  application_->arrange().songChanged();
  picture();
  EXPECT_EQ(standin::runMainQueue(), 1U) << "one region less";
  picture();
  EXPECT_EQ(standin::runMainQueue(), 0U);
  song().tracks[0].color = host::SongColor{20, 200, 20};
  application_->arrange().songChanged();
  standin::setClock(kNow + 3.95);
  draw();
  const Rgba before = pixel(picture(), 64, 37);
  EXPECT_EQ(standin::runMainQueue(), 1U) << "two seconds later";
  EXPECT_TRUE(needsDisplay());
  EXPECT_NE(pixel(picture(), 64, 37), before);
  draw();
  standin::setClock(kNow + 7);
  draw();
  EXPECT_EQ(standin::runMainQueue(), 1U);
  EXPECT_FALSE(needsDisplay()) << "the same colours";
  standin::setClock(kNow + 10);
  picture();
  standin::setPressedMouseButtons(1);
  standin::runMainQueue();
  standin::setPressedMouseButtons(0);
  picture();
  EXPECT_EQ(standin::runMainQueue(), 0U) << "a read that the mouse has prevented counts";
}

TEST_F(Grid, KeepsItsGreyInRegionsOfWhichHardlyAnythingShows) {
  host::Song made = songOfRegions();
  made.tracks[0].height = 12;
  made.tracks[1].height = 8;  // regions of 7 points
  start(only("bar").integer("colorMode", 1).number("lineGray", 0.9), made);
  const NSBitmapImageRep drawn = settledPicture();
  EXPECT_NE(pixel(drawn, 64, 9), (Rgba{230, 230, 230}));
  EXPECT_EQ(pixel(drawn, 192, 16), (Rgba{230, 230, 230}));
  draw();
  standin::setClock(kNow + 3);
  draw();
  standin::runMainQueue();
  EXPECT_FALSE(needsDisplay()) << "no colour is no change";
}

TEST_F(Grid, StandsStillWhileTheButtonIsHeld) {
  start(only("bar"), songOfRegions());
  const auto whites = [&](long y) {
    const NSBitmapImageRep drawn = picture();
    std::set<long> found;
    for (long x = 0; x < drawn.pixelsWide(); ++x) {
      if (pixel(drawn, x, y) == Rgba{255, 255, 255}) found.insert(x);
    }
    return found;
  };
  const std::set<long> old{64, 128, 192};
  EXPECT_EQ(whites(37), old);
  standin::setPressedMouseButtons(1);
  song().tracks[0].regions[0].start = 2;
  application_->arrange().songChanged();
  EXPECT_EQ(whites(37), old) << "regions as they were";
  draw();
  EXPECT_NEAR(standin::timeUntilMainQueueWork().value_or(-1), 0.15, 1e-6);
  standin::setClock(kNow + 0.2);
  standin::runMainQueue();
  EXPECT_FALSE(needsDisplay()) << "still held";
  standin::setPressedMouseButtons(0);
  standin::setClock(kNow + 0.34);
  standin::runMainQueue();
  EXPECT_FALSE(needsDisplay());
  standin::setClock(kNow + 0.36);
  standin::runMainQueue();
  EXPECT_TRUE(needsDisplay());
  EXPECT_FALSE(standin::timeUntilMainQueueWork()) << "one look at the mouse at a time";
  EXPECT_EQ(whites(37), (std::set<long>{128, 192, 256}));
}

TEST_F(Grid, IsNotBegunWhileTheButtonIsHeld) {
  start(strong(), songOfRegions());
  standin::setPressedMouseButtons(1);
  const NSBitmapImageRep held = picture();
  standin::setPressedMouseButtons(0);
  EXPECT_TRUE(areSame(held, without()));

  set(strong());
  EXPECT_FALSE(areSame(picture(), held));
  standin::setPressedMouseButtons(1);
  const auto other = newView("ArrangeContentsSectionView", CGRectMake(0, 0, 300, 100));
  contents().superview().addSubview(other);
  const NSBitmapImageRep alone = drawn(other, other->bounds());
  EXPECT_EQ(pixel(alone, 64, 37).alpha, 0) << "in a view that the lines are not of";
  other->removeFromSuperview();
  standin::setPressedMouseButtons(0);
}

TEST_F(Grid, StaysAwayFromTheCycleRange) {
  host::Song made = songOfRegions();
  made.arrange.cycle = {.start = 1, .end = 20, .on = true};
  start(strong(), made);
  const NSBitmapImageRep themed = picture();
  const NSBitmapImageRep host = without();
  EXPECT_FALSE(areSame(themed, host));
  for (long y = 80; y < host.pixelsHigh(); ++y) EXPECT_THAT(changedColumns(themed, host, y), IsEmpty()) << y;
  EXPECT_THAT(changedColumns(themed, host, 33), testing::Each(testing::Lt(448L)));
}

}  // namespace
