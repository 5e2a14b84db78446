// The arrange window: headers, regions, what assistive software and other parts of the host see of them.

#include <gtest/gtest.h>

#include <cmath>

#include "cocoa/Dispatch.h"
#include "host/arrange/Timeline.h"
#include "standin/steering/Display.h"
#include "standin/steering/RunLoop.h"
#include "tests/host/ArrangeHost.h"

namespace {

using namespace cocoa;
using host::WindowKind;
using namespace support;

host::Song songOfTracks(std::size_t tracks, std::size_t regions) {
  host::Song song;
  for (std::size_t i = 0; i < tracks; ++i) {
    host::Track& track = song.tracks.emplace_back();
    track.name = "T" + std::to_string(i);
    track.color = host::SongColor{200, static_cast<int>(i % 200), 40};
    for (std::size_t k = 0; k < regions; ++k) {
      track.regions.push_back({.name = "R", .start = 1 + 4 * static_cast<double>(k), .length = 4});
    }
  }
  return song;
}

TEST(ArrangeAccessibility, ElementsOutliveWhatTheyStandFor) {
  Ref<NSArray> kept;
  Ref<NSObject> row;
  {
    const auto application = arrangeHost(songOfTracks(2, 2));
    const AutoreleasePool pool;
    kept = call<"accessibilityChildren", NSArray>(application->arrange().contents());
    row = kept->objectAtIndex(0);
    const Ref<NSObject> region = accessibilityChildren(row)[0];
    application->arrange().setZoom(50);
    EXPECT_FALSE(attribute(region, "AXPosition")) << "what it stood for lies elsewhere now";
    kept = call<"accessibilityChildren", NSArray>(application->arrange().contents());
    row = kept->objectAtIndex(1);
  }
  EXPECT_FALSE(attribute(row, "AXPosition"));
  EXPECT_EQ(accessibilityChildren(row).size(), 0U) << "not asked before, and nothing to ask any more";
}

TEST(ArrangeMouse, DragsTheRegionUnderThePointerBeatByBeat) {
  const AutoreleasePool pool;
  host::Song song = songOfTracks(2, 1);
  song.tracks[1].regions.push_back({.name = "other", .start = 9, .length = 2, .selected = true});
  const auto application = arrangeHost(song);
  host::ArrangeWindow& arrange = application->arrange();
  const auto frame = [&] {
    return screenFrame(accessibilityChildren(accessibilityChildren(arrange.contents())[1])[0]);
  };
  const CGRect before = frame();
  const double beat = application->song().arrange.zoom / 4;
  arrange.press({before.midX(), before.midY()});
  EXPECT_TRUE(application->song().tracks[1].regions[0].selected);
  EXPECT_FALSE(application->song().tracks[1].regions[1].selected);
  arrange.drag({before.midX() + 5.3 * beat, before.midY() + 200});
  EXPECT_EQ(application->song().tracks[1].regions[0].start, 1 + 5 / 4.0);
  EXPECT_DOUBLE_EQ(frame().minX(), before.minX() + 5 * beat);
  EXPECT_TRUE(standin::windowNeedsDisplay(arrange.window()));
  arrange.drag({before.midX() - 900, before.midY()});
  EXPECT_EQ(application->song().tracks[1].regions[0].start, 1) << "not before the song";
  arrange.drag({before.midX() + 48 * beat, before.midY()});
  arrange.release({before.midX() + 48 * beat, before.midY()});
  EXPECT_EQ(application->song().tracks[1].regions[1].start, 13) << "in the order of time again";
  arrange.press({before.midX(), before.minY() - 150});
  arrange.drag({before.midX() + 50, before.minY() - 150});
  arrange.release({before.midX(), before.minY()});
  EXPECT_EQ(application->song().tracks[1].regions[1].start, 13) << "nothing was under the pointer";
}

TEST(ArrangeMouse, SelectsTheTrackOfTheHeaderUnderIt) {
  for (const bool flipped : {false, true}) {
    const AutoreleasePool pool;
    const auto application = arrangeHost(songOfTracks(30, 0), {.flippedHeaders = flipped});
    host::ArrangeWindow& arrange = application->arrange();
    arrange.setScroll(0, 300);
    const auto select = [&](std::size_t row) {
      const CGRect frame = screenFrame(accessibilityChildren(arrange.headers())[row]);
      arrange.press({frame.midX(), frame.midY()});
      arrange.release({frame.midX(), frame.midY()});
    };
    for (const std::size_t row : {12U, 15U}) {
      select(row);
      for (std::size_t i = 0; i < 30; ++i) EXPECT_EQ(application->song().tracks[i].selected, i == row);
      EXPECT_TRUE(callBool<"isSelected">(accessibilityChildren(arrange.headers())[row].object));
    }
  }
}

TEST(ArrangeNames, AreEditedInPlace) {
  const auto application = arrangeHost(songOfTracks(3, 0));
  host::ArrangeWindow& arrange = application->arrange();
  EXPECT_FALSE(arrange.beginRename(3));
  ASSERT_TRUE(arrange.beginRename(1));
  const Ref<NSTextField> editor = arrange.nameEditor();
  EXPECT_EQ(toStdString(editor->className()), "GCMALineEditorTextField");
  EXPECT_EQ(editor->superview(), arrange.headers());
  EXPECT_LT(editor->backgroundColor().alphaComponent(), 1);
  EXPECT_EQ(toStdString(editor->stringValue()), "T1");
  const CGRect header = screenFrame(accessibilityChildren(arrange.headers())[1]);
  const CGRect place = editor->convertRectToView(editor->bounds(), NSView());
  EXPECT_TRUE(place.minY() >= header.minY() && place.maxY() <= header.maxY());
  editor->setStringValue(literal<"Bass">());
  arrange.endRename();
  EXPECT_FALSE(editor->superview());
  EXPECT_EQ(application->song().tracks[1].name, "Bass");
}

TEST(ArrangeWindow, SettlesOnceNothingIsDueAnyMore) {
  const auto application = arrangeHost(songOfTracks(3, 2));
  const NSWindow window = application->window(WindowKind::kArrange);
  const NSView contents = application->arrange().contents();
  int ran = 0;
  async(dispatch_get_main_queue(), [&] {
    ++ran;
    asyncAfter(0.4, dispatch_get_main_queue(), [&] {
      ++ran;
      contents.setNeedsDisplay(true);
    });
  });
  application->settle(WindowKind::kArrange);
  EXPECT_EQ(ran, 2);
  EXPECT_FALSE(standin::windowNeedsDisplay(window));
  EXPECT_FALSE(standin::timeUntilMainQueueWork());
}

TEST(ArrangeWindow, HoldsThousandsOfTracksAndTensOfThousandsOfRegions) {
  const auto application = arrangeHost(songOfTracks(5'000, 4));
  EXPECT_FALSE(session::windowAsPng(*application, WindowKind::kArrange).empty());
  EXPECT_LE(application->window(WindowKind::kArrange).frame().size.height, 1'000);
  application->arrange().setScroll(1e300, 1e300);
  EXPECT_FALSE(session::windowAsPng(*application, WindowKind::kArrange).empty());
  const AutoreleasePool pool;
  std::size_t regions = 0;
  for (const NSObject row : accessibilityChildren(application->arrange().contents())) {
    regions += accessibilityChildren(row).size();
  }
  EXPECT_EQ(regions, 20'000U);
  const auto headers = accessibilityChildren(application->arrange().headers());
  ASSERT_EQ(headers.size(), 5'000U);
  const CGRect clip = application->arrange().headers().superview().frame();
  EXPECT_NEAR(screenFrame(headers.back()).minY(), clip.minY(), 1) << "the last track is the lowest that shows";
}

TEST(ArrangeWindow, DrawsSongsWithNextToNothing) {
  host::Song odd = songOfTracks(1, 0);
  odd.arrange.zoom = host::kLargestZoom;
  odd.arrange.scroll = 1e9;
  odd.arrange.cycle = {.start = 5, .end = 5, .on = true};
  odd.arrange.markers = {{.name = "no length", .start = 2, .end = 2}};
  odd.tracks[0].height = 12;
  odd.tracks[0].regions = {{.name = "no length", .start = 1, .length = 0},
                           {.name = "", .start = 9'000, .length = 9'000}};
  for (const host::Song& song : {host::Song{}, odd}) {
    const auto application = arrangeHost(song);
    EXPECT_FALSE(session::windowAsPng(*application, WindowKind::kArrange).empty());
    accessibilityChildren(application->arrange().contents());
    application->arrange().setZoom(0);
    application->arrange().setScroll(std::nan(""), -1e300);
    EXPECT_EQ(application->song().arrange.zoom, host::kSmallestZoom);
    EXPECT_EQ(application->song().arrange.scroll, 0);
  }
}

}  // namespace
