// The ruler of the arrange window: where its ticks stand, and the lanes below.

#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "host/arrange/CLgSectionView.h"
#include "host/arrange/Timeline.h"
#include "tests/host/ArrangeHost.h"

namespace {

using namespace cocoa;
using namespace support;

/// Ticks as a reader of pixels finds them: the height in points of what stands on the baseline, by the place of
/// its left edge in the ruler.
std::map<double, double> standingTicks(NSView ruler, double scale) {
  const CGRect visible = ruler.visibleRect();
  const NSBitmapImageRep strip = drawn(ruler, CGRectMake(visible.minX(), 0, visible.size.width, host::kRulerBaseline));
  const auto brightness = [&](long x, long y) { return pixel(strip, x, y).green; };
  const long ground = brightness(strip.pixelsWide() - 1, 0);
  const long bottom = strip.pixelsHigh() - 1;
  constexpr long kClear = 60;
  std::map<double, double> found;
  for (long x = 0; x < strip.pixelsWide(); ++x) {
    long height = 0;
    while (height <= bottom && brightness(x, bottom - height) - ground > kClear) ++height;
    const bool continues = x > 0 && brightness(x - 1, bottom) - ground > kClear;
    if (height > 0 && !continues) {
      found[visible.minX() + static_cast<double>(x) / scale] = static_cast<double>(height) / scale;
    }
  }
  return found;
}

TEST(Ruler, ShowsBarsBeatsAndDivisionsAtTheirPlacesAtAnyZoomScrollAndScale) {
  struct Case {
    double zoom;
    double scroll;
    int beats;
    int divisions;
  };
  const Case kCases[] = {{4, 0, 4, 4},      {7.3, 11, 4, 4},  {20, 415.5, 4, 4},    {33.3, 1000.25, 3, 2},
                         {64, 777, 4, 4},   {90.7, 50, 7, 3}, {110, 2000.75, 4, 4}, {500, 31.4, 5, 16},
                         {2000, 8e5, 4, 4}, {48, 1e12, 6, 1}};
  for (const double scale : {1.0, 2.0}) {
    for (const Case& c : kCases) {
      const AutoreleasePool pool;
      host::Song song = sampleSong();
      song.arrange.beatsPerBar = c.beats;
      song.arrange.division = c.divisions;
      const auto application = arrangeHost(song, {.scale = scale});
      application->arrange().setZoom(c.zoom);
      application->arrange().setScroll(c.scroll);
      std::map<double, double> expected;
      const CGRect visible = application->arrange().ruler().visibleRect();
      const auto expect = [&](const std::vector<double>& places, double height) {
        for (const double place : places) {
          // A tick is a point wide and begins in the pixel that its place lies in.
          const double left = std::floor(place * scale) / scale;
          if (left + 1 > visible.minX() && left < visible.maxX()) expected[std::max(left, visible.minX())] = height;
        }
      };
      expect(divisionPositions(application->song()), host::kDivisionTickHeight);
      expect(beatPositions(application->song()), host::kBeatTickHeight);
      expect(barPositions(application->song()), host::kBarTickHeight);
      EXPECT_FALSE(expected.empty());
      EXPECT_EQ(standingTicks(application->arrange().ruler(), scale), expected)
          << c.zoom << " points a bar, scrolled to " << c.scroll << ", " << scale << " pixels a point";
    }
  }
}

TEST(Ruler, LeavesOutTicksThatWouldStandTooClose) {
  struct Case {
    double zoom;
    std::size_t perBar;
  };
  for (const Case& c : {Case{19.9, 1}, {20, 4}, {63, 4}, {64, 16}}) {
    host::Song song;
    song.arrange.zoom = c.zoom;
    song.arrange.bars = 10;
    EXPECT_EQ(host::Timeline(song.arrange).ticks(0, 1e9).size(), 10 * c.perBar) << c.zoom;
    EXPECT_EQ(barPositions(song).size(), 10U);
    EXPECT_DOUBLE_EQ(barPositions(song)[3], 3 * c.zoom) << "bar 4";
  }
}

bool isGrey(const Rgba& c) { return std::max({c.red, c.green, c.blue}) - std::min({c.red, c.green, c.blue}) <= 4; }

TEST(Ruler, ColorsNothingButMarkersAndTheCycle) {
  for (const double scale : {1.0, 2.0}) {
    const auto application = arrangeHost(sampleSong(), {.scale = scale});
    const NSView ruler = application->arrange().ruler();
    const CGRect visible = ruler.visibleRect();
    const NSBitmapImageRep picture = drawn(ruler, visible);
    constexpr double kTopStrip = 15;
    for (long y = static_cast<long>(kTopStrip * scale); y < picture.pixelsHigh(); ++y) {
      const double place = static_cast<double>(y) / scale;
      const bool inLane = place >= host::kMarkerLaneTop && place < host::kMarkerLaneBottom;
      long colored = 0;
      for (long x = 0; x < picture.pixelsWide(); ++x) colored += isGrey(pixel(picture, x, y)) ? 0 : 1;
      EXPECT_EQ(colored > 0, inLane) << "row " << place;
    }
    // Every marker has its colour from edge to edge; without one, and where no marker is, the lane is grey.
    const long row = static_cast<long>((host::kMarkerLaneBottom - 1) * scale);
    std::vector<bool> marked(static_cast<std::size_t>(picture.pixelsWide()));
    for (const host::Marker& marker : application->song().arrange.markers) {
      const host::Timeline timeline(application->song().arrange);
      const long from = std::lround(timeline.x(marker.start) * scale);
      const long to = std::min(std::lround(timeline.x(marker.end) * scale), static_cast<long>(picture.pixelsWide()));
      for (long x = from; x < to && marker.color; ++x) {
        marked[static_cast<std::size_t>(x)] = true;
        ASSERT_EQ(pixel(picture, x, row), songColor(*marker.color)) << marker.name << " at " << x;
      }
    }
    for (long x = 0; x < picture.pixelsWide(); ++x) {
      ASSERT_TRUE(marked[static_cast<std::size_t>(x)] || isGrey(pixel(picture, x, row))) << x;
    }
    EXPECT_EQ(pixel(picture, picture.pixelsWide() / 2, static_cast<long>(67 * scale)).alpha, 0)
        << "what lies behind the lowest lane shows";
  }
}

}  // namespace
