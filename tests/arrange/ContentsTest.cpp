// Workspace, global tracks and separators, and the marker bands between the regions.

#include <gtest/gtest.h>

#include "cocoa/ClassDefinition.h"
#include "host/arrange/CLgSectionView.h"
#include "tests/arrange/ArrangeContents.h"

namespace {

using namespace cocoa;
using host::WindowKind;
using namespace support;

constexpr Rgba kClear{0, 0, 0, 0};

// ---- Backgrounds --------------------------------------------------------------------------------------

TEST(ArrangeBackgrounds, FollowTheUsersChoiceOfWorkspace) {
  const ThemeFile both = ThemeFile()
                             .text("ArrangeWorkspaceColor", color(1, 2, 3))
                             .text("ArrangeWorkspaceBrightColor", color(101, 102, 103));
  const ThemeFile dark = ThemeFile().text("ArrangeWorkspaceColor", color(1, 2, 3));
  struct Case {
    const ThemeFile& theme;
    std::optional<long> choice;
    Rgba expected;
  };
  const Case kCases[] = {{both, std::nullopt, {1, 2, 3}},
                         {both, 0, {1, 2, 3}},
                         {both, 1, {101, 102, 103}},
                         {both, 2, kClear},
                         {both, -1, kClear},
                         {dark, 1, kClear}};
  eachInChild(kCases, [&](const Case& c) {
    host::Song song;
    song.tracks.resize(1);
    song.tracks[0].regions = {{.name = "", .start = 1, .length = 4}};
    const auto application = start(writeTheme(c.theme.list()), song, {}, {.tracksBackground = c.choice});
    const NSView contents = application->arrange().contents();
    const NSBitmapImageRep drawn = support::drawn(contents, contents.visibleRect());
    EXPECT_EQ(pixel(drawn, 500, 20), c.expected);
    EXPECT_EQ(pixel(drawn, 500, 300), c.expected);
    EXPECT_EQ(pixel(drawn, 60, 6), (Rgba{124, 124, 124})) << "a region on top";
  });
}

TEST(ArrangeBackgrounds, OfGlobalTracksAndSeparators) {
  const AutoreleasePool pool;
  const ThemeFile theme =
      ThemeFile().text("GlobalTracks_ContentBar_BG", color(1, 2, 3)).text("MainSeparators", color(4, 5, 6));
  struct Case {
    ThemeFile theme;
    Rgba bar;
    Rgba separators;
  };
  eachInChild({Case{theme, {1, 2, 3}, {4, 5, 6}}, Case{{}, kClear, {20, 20, 22}}}, [](const Case& c) {
    const auto application = start(writeTheme(c.theme.list()), host::Song());
    const NSView ruler = application->arrange().ruler();
    EXPECT_EQ(pixel(drawn(ruler, ruler.visibleRect()), 400, 70), c.bar) << "below the marker lane";
    const NSView window = application->window(WindowKind::kArrange).contentView();
    EXPECT_EQ(rgba(call<"backgroundColor", NSColor>(window)), c.separators);
    const auto other = newView("CLgSectionView");
    stateOf<host::CLgSectionView>(other).section = 3;
    ruler.addSubview(other);
    EXPECT_EQ(pixel(drawn(other, other->bounds()), 4, 4), kClear) << "another section";
    other->removeFromSuperview();
  });
}

// ---- Settings changes ---------------------------------------------------------------------------------

int told = 0;
void countInstead(NSView /*view*/, NSObject /*notification*/) { ++told; }
int timesTold() {
  told = 0;
  NSNotificationCenter::defaultCenter().postNotificationName(literal<"VLRGridSettingsDidChangeNotification">(),
                                                             NSObject());
  return told;
}

TEST_F(ArrangeContents, HearsOfSettingsOnceWhileItIsInAWindow) {
  start(ThemeFile(), host::Song());
  application_->settle(WindowKind::kArrange);
  EXPECT_FALSE(needsDisplay());
  timesTold();
  EXPECT_TRUE(needsDisplay());
  EXPECT_EQ(standin::dirtyRect(contents()), contents().bounds()) << "all of it";
  detail::replaceFunction<"vlr_gridSettingsDidChange:", countInstead>(classNamed("MAView"));
  EXPECT_EQ(timesTold(), 1);
  call<"vlr_registerForGridSettingsIfNeeded">(contents());
  EXPECT_EQ(timesTold(), 1) << "once, however often it asks";
  const Ref<NSView> kept = contents();
  const NSView clip = kept->superview();
  kept->removeFromSuperview();
  EXPECT_EQ(timesTold(), 0);
  clip.addSubview(kept);
  EXPECT_EQ(timesTold(), 1);
  {
    const AutoreleasePool pool;
    const auto gone = newView("ArrangeContentsSectionView");
    call<"vlr_registerForGridSettingsIfNeeded">(gone.get());
    EXPECT_EQ(timesTold(), 2);
  }
  EXPECT_EQ(timesTold(), 1) << "a view that is gone is not told";
}

// ---- Marker bands -------------------------------------------------------------------------------------

constexpr Rgba kRed{220, 40, 40, 50};
constexpr Rgba kBlue{40, 60, 230, 50};

/// 32 points a bar. Markers from bar 3: red with a name, grey, nothing, blue. Regions at bars 4 to 6 and 10 to
/// 14 on the first track, two that overlap on the second.
host::Song songOfMarkers() {
  host::Song song;
  song.arrange.markers = {{.name = "Intro", .start = 3, .end = 5, .color = host::SongColor{220, 40, 40}},
                          {.name = "", .start = 5, .end = 7},
                          {.name = "", .start = 9, .end = 12, .color = host::SongColor{40, 60, 230}}};
  song.tracks.resize(3);
  song.tracks[0].regions = {{.name = "", .start = 4, .length = 2}, {.name = "", .start = 10, .length = 4}};
  song.tracks[1].regions = {{.name = "", .start = 3, .length = 1.5}, {.name = "", .start = 3.5, .length = 1.5}};
  return song;
}

ThemeFile bands(bool enabled = true, double opacity = 0.5) {
  return ThemeFile().flag("markerBandsEnabled", enabled).number("markerBandsOpacity", opacity);
}

class MarkerBands : public ArrangeContents {
 protected:
  /// Whether the red and the blue marker have their bands, on the third track.
  [[nodiscard]] bool shows() const {
    const NSBitmapImageRep drawn = picture();
    const bool red = near(pixel(drawn, 80, 100), kRed);
    EXPECT_EQ(near(pixel(drawn, 270, 100), kBlue), red);
    return red;
  }
};

TEST_F(MarkerBands, TintWhatLiesBetweenTheRegions) {
  eachInChild({1.0, 2.0}, [&](const double scale) {
    start(bands(), songOfMarkers(), {.scale = scale});
    const NSBitmapImageRep drawn = picture();
    set(bands(false));
    const NSBitmapImageRep without = picture();
    const auto at = [&](NSBitmapImageRep bitmap, double x, double y) {
      return pixel(bitmap, static_cast<long>(x * scale), static_cast<long>(y * scale));
    };
    struct Place {
      double x;
      Rgba band;
    };
    const Place kPlaces[] = {{62.5, kClear}, {64.5, kRed},  {90.5, kRed},   {127, kRed},  {129, kClear}, {190, kClear},
                             {220, kClear},  {255, kClear}, {257.5, kBlue}, {350, kBlue}, {353, kClear}, {700, kClear}};
    for (const Place& place : kPlaces) {
      for (const double y : {95.0, 400.0}) {
        if (at(without, place.x, y) != kClear) continue;  // a line of the host's
        EXPECT_TRUE(near(at(drawn, place.x, y), place.band)) << place.x << at(drawn, place.x, y);
      }
    }
    for (const double x : {100.0, 127.0, 300.0}) EXPECT_EQ(at(drawn, x, 20), at(without, x, 20)) << "a region";
    EXPECT_EQ(at(drawn, 70, 60), at(without, 70, 60));
    EXPECT_NE(at(drawn, 90, 60), at(without, 90, 60)) << "where two regions lie, the band shows again";
  });
}

TEST_F(MarkerBands, AreThereAtAnyScroll) {
  host::Song song = songOfMarkers();
  song.arrange.bars = 200;
  start(bands(), song);
  for (const double scroll : {17.0, 100.0, 200.0}) {
    application_->arrange().setScroll(scroll);
    const NSBitmapImageRep drawn = picture();
    EXPECT_TRUE(near(pixel(drawn, static_cast<long>(270 - scroll), 100), kBlue)) << scroll;
    EXPECT_EQ(pixel(drawn, static_cast<long>(250 - scroll), 100), kClear);
    if (scroll > 80) continue;
    EXPECT_TRUE(near(pixel(drawn, static_cast<long>(90 - scroll), 100), kRed)) << scroll;
  }
}

TEST_F(MarkerBands, FollowTheirSwitchTheButtonAndTheirOpacity) {
  start(bands(), songOfMarkers());
  EXPECT_TRUE(shows());
  standin::setPressedMouseButtons(1);
  EXPECT_FALSE(shows());
  standin::setPressedMouseButtons(2);
  EXPECT_TRUE(shows()) << "not the primary button";
  standin::setPressedMouseButtons(0);
  set(bands(false));
  EXPECT_FALSE(shows());
  set(bands(true, 0.2));
  EXPECT_TRUE(near(pixel(picture(), 80, 100), {220, 40, 40, 20}, 3));
  set(bands(true, 0));
  EXPECT_EQ(pixel(picture(), 80, 100), kClear);
}

TEST_F(MarkerBands, StayAwayUnderTheDefaultTheme) {
  const std::string state = writeList("state.plist", ThemeFile().flag("isDefaultTheme", true));
  startWith(writeTheme(ThemeFile().list()), songOfMarkers(), {},
            {.grid = writeList("grid.plist", bands()), .state = state});
  EXPECT_FALSE(shows());
}

TEST_F(MarkerBands, OutliveTheirMarkersByASecond) {
  start(bands(), songOfMarkers());
  EXPECT_TRUE(shows());
  song().arrange.markers.clear();
  application_->arrange().songChanged();
  standin::setClock(kNow + 0.99);
  EXPECT_TRUE(shows()) << "the ruler may be on its way";
  standin::setClock(kNow + 1);
  EXPECT_FALSE(shows());
}

TEST_F(MarkerBands, AreRepaintedWhenTheyChange) {
  start(bands(), songOfMarkers());
  application_->settle(WindowKind::kArrange);
  struct Case {
    const char* what;
    host::SongColor color;
    double start;
    bool repaints;
  };
  const Case kCases[] = {{"the same", {220, 40, 40}, 3, false},
                         {"almost the same colour", {222, 43, 40}, 3, false},
                         {"another one", {220, 50, 40}, 3, true},
                         {"one point to the right", {220, 50, 40}, 3 + 1 / 32.0, false},
                         {"two points to the right", {220, 50, 40}, 3 + 2 / 32.0, true}};
  for (const Case& c : kCases) {
    song().arrange.markers[0].color = c.color;
    song().arrange.markers[0].start = c.start;
    song().arrange.markers[0].name = "";
    application_->arrange().songChanged();
    draw();
    EXPECT_FALSE(needsDisplay()) << c.what;
    standin::runMainQueue();
    if (&c == kCases) {  // without its name the marker is no longer split
      draw();
      continue;
    }
    EXPECT_EQ(needsDisplay(), c.repaints) << c.what;
    draw();
    EXPECT_EQ(standin::runMainQueue(), 0U) << c.what;
  }
}

TEST_F(MarkerBands, AreRedrawnAMomentAfterTheRulerHasChangedItsHeight) {
  start(bands(), songOfMarkers());
  draw();
  standin::runMainQueue();
  draw();
  EXPECT_NEAR(standin::timeUntilMainQueueWork().value_or(-1), 0.4, 1e-6) << "the first drawing counts as a change";
  const auto laidOut = [&](double by) {
    const NSView ruler = application_->arrange().ruler();
    const CGSize size = ruler.frame().size;
    ruler.setFrameSize({size.width, size.height + by});
    draw();
  };
  standin::setClock(kNow + 0.2);
  laidOut(2);  // one redraw is due already
  standin::setClock(kNow + 0.39);
  standin::runMainQueue();
  EXPECT_FALSE(needsDisplay());
  standin::setClock(kNow + 0.41);
  standin::runMainQueue();
  EXPECT_TRUE(needsDisplay());
  draw();
  EXPECT_FALSE(standin::timeUntilMainQueueWork());
  laidOut(1);
  EXPECT_FALSE(standin::timeUntilMainQueueWork()) << "one point is no change";
  laidOut(0.5);
  EXPECT_TRUE(standin::timeUntilMainQueueWork()) << "one and a half is";
}

TEST_F(MarkerBands, LeaveTheCycleRangeTinted) {
  host::Song song = songOfMarkers();
  song.arrange.cycle = {.start = 1, .end = 20, .on = true};
  start(bands(), song);
  EXPECT_TRUE(shows());
}

}  // namespace
