// The arrange window: headers, regions, what assistive software and other parts of the host see of them.

#include <gtest/gtest.h>

#include <cmath>

#include "cocoa/ClassDefinition.h"
#include "cocoa/Dispatch.h"
#include "host/Look.h"
#include "host/arrange/LocalizedFormat.h"
#include "host/arrange/Timeline.h"
#include "host/arrange/TrackRows.h"
#include "standin/Display.h"
#include "standin/RunLoop.h"
#include "tests/host/ArrangeHost.h"
#include "tests/support/HostTest.h"

namespace {

using namespace cocoa;
using host::Look;
using host::look;
using host::WindowKind;
using namespace support;

host::Song songOfTracks(std::size_t tracks, std::size_t regions) {
  host::Song song;
  for (std::size_t i = 0; i < tracks; ++i) {
    host::Track& track = song.tracks.emplace_back();
    track.name = "T" + std::to_string(i);
    track.colour = host::SongColour{200, static_cast<int>(i % 200), 40};
    for (std::size_t k = 0; k < regions; ++k) {
      track.regions.push_back({.name = "R", .start = 1 + 4 * static_cast<double>(k), .length = 4});
    }
  }
  return song;
}

TEST(ArrangeHeaders, ShowColourBarsWhereTheirSetUpSays) {
  struct Case {
    bool numbers;
    bool colourBars;
    std::optional<int> surfaces;
    bool adapter;
    long column;  // in the colour bar; -1 where there is none
  };
  const Case kCases[] = {
      {true, true, std::nullopt, true, 2},
      {false, true, std::nullopt, true, 1},
      {true, true, 0, true, 1},
      {true, true, 1, true, 6},
      {false, true, 3, true, 16},
      {true, true, 12, true, 61},
      {false, true, 2, false, 6},
      {true, true, 2, false, 9},
      {true, false, 3, true, -1},
  };
  for (const Case& c : kCases) {
    // Which classes a host has is settled once a process.
    EXPECT_TRUE(inChild([&] {
      host::Song song = songOfTracks(3, 0);
      song.arrange.headers = {c.numbers, c.colourBars, c.surfaces};
      const auto application = arrangeHost(song, {.modelAdapter = c.adapter});
      EXPECT_EQ(classNamed("MAMixerModelAdapter") != nullptr, c.adapter);
      const NSView headers = application->arrange().headers();
      const NSBitmapImageRep picture = drawn(headers, headers.visibleRect());
      const host::TrackRows rows(song);
      for (std::size_t i = 0; i < 3; ++i) {
        const long y = static_cast<long>(rows.top(i)) + 2;
        const Rgba expected = songColour(*song.tracks[i].colour);
        if (c.column >= 0) {
          EXPECT_EQ(pixel(picture, c.column, y), expected) << c.column;
        }
        for (long x = 0; x < 30 && c.column < 0; ++x) EXPECT_NE(pixel(picture, x, y), expected);
        EXPECT_EQ(pixel(picture, picture.pixelsWide() - 1, y).alpha, 0) << "the header's own background lies behind";
      }
      return true;
    }));
  }
}

TEST(ArrangeHeaders, LieOnPlainStripsAndLookTheSameWhenTheyCountFromTheTop) {
  host::Song song = songOfTracks(4, 0);
  song.tracks[1].selected = true;
  song.tracks[2].folder = song.tracks[3].folder = song.tracks[3].selected = true;
  song.tracks[2].height = 25;
  const auto picture = [&song](bool flipped) {
    const auto application = arrangeHost(song, {.scale = 2, .flippedHeaders = flipped});
    EXPECT_EQ(application->arrange().headers().isFlipped(), flipped);
    return session::windowAsPng(*application, WindowKind::kArrange);
  };
  EXPECT_TRUE(picture(false) == picture(true));

  const auto application = arrangeHost(song);
  const NSWindow window = application->window(WindowKind::kArrange);
  const auto bitmap = application->draw(WindowKind::kArrange);
  const auto elements = accessibilityChildren(application->arrange().headers());
  constexpr Look kStrips[] = {Look::kArrangeStrip, Look::kArrangeStripSelected, Look::kArrangeFolderStrip,
                              Look::kArrangeFolderStripSelected};
  ASSERT_EQ(elements.size(), std::size(kStrips));
  for (std::size_t i = 0; i < elements.size(); ++i) {
    const CGRect frame = screenFrame(elements[i]);
    const CGPoint corner{frame.maxX() - 0.5, frame.maxY() - 0.5};
    EXPECT_EQ(screenPixel(window, bitmap, corner), rgba(look(kStrips[i]))) << i;
  }
  const CGRect last = screenFrame(elements.back());
  EXPECT_EQ(screenPixel(window, bitmap, {last.midX(), last.minY() - 5}), (Rgba{97, 97, 97, 100}));
}

TEST(ArrangeAccessibility, ListsTheHeadersFromTheTopDown) {
  const AutoreleasePool pool;
  const auto application = arrangeHost(sampleSong());
  application->arrange().setScroll(0, 120);
  const host::Song& song = application->song();
  const auto elements = accessibilityChildren(application->arrange().headers());
  ASSERT_EQ(elements.size(), song.tracks.size());
  const host::TrackRows rows(song);
  for (std::size_t i = 0; i < elements.size(); ++i) {
    const NSObject element = elements[i];
    const CGRect frame = screenFrame(element);
    EXPECT_EQ(frame.size, (CGSize{220, rows.height(i)}));
    EXPECT_EQ(frame.maxY(), screenFrame(elements[0]).maxY() - rows.top(i));
    EXPECT_EQ(asks<"isSelected">(element.object), song.tracks[i].selected);
    EXPECT_EQ(textOf(element, "AXDescription"), "Track " + std::to_string(i + 1) + " “" + song.tracks[i].name + "”");
    std::size_t triangles = 0;
    const auto parts = accessibilityChildren(element);
    for (const NSObject part : parts) triangles += textOf(part, "AXRole") == "AXDisclosureTriangle" ? 1U : 0U;
    EXPECT_EQ(triangles, song.tracks[i].folder ? 1U : 0U);
    EXPECT_GE(parts.size(), 4U);
    EXPECT_EQ(textOf(parts.back(), "AXRole"), "AXButton");
  }
  EXPECT_FALSE(attribute(elements[0], "AXNothing"));
}

std::size_t timesFormatted(NSView headers) {
  const std::size_t before = host::formattedDescriptions();
  accessibilityChildren(headers);
  return host::formattedDescriptions() - before;
}

NSString nothingFormatted(Class /*self*/) { return literal<"">(); }

TEST(ArrangeAccessibility, FormatsADescriptionOnceItIsAnyText) {
  const auto application = arrangeHost(songOfTracks(5, 0));
  const NSView headers = application->arrange().headers();
  const Method method = class_getClassMethod(classNamed("NSString"), selector<"localizedStringWithFormat:">());
  const IMP own = method_getImplementation(method);
  using Empty = NSString (*)(Class);
  const Empty empty = nothingFormatted;
  method_setImplementation(method, reinterpret_cast<IMP>(reinterpret_cast<void (*)()>(empty)));
  EXPECT_EQ(timesFormatted(headers), 0U);
  method_setImplementation(method, own);
  EXPECT_EQ(timesFormatted(headers), 5U);
  EXPECT_EQ(timesFormatted(headers), 0U);
  application->arrange().songChanged();
  EXPECT_EQ(timesFormatted(headers), 5U);
}

TEST(ArrangeAccessibility, ListsEveryRegionWhereItIsDrawn) {
  for (const double scale : {1.0, 2.0}) {
    const AutoreleasePool pool;
    const auto application = arrangeHost(sampleSong(), {.scale = scale});
    application->arrange().setScroll(133, 40);
    const host::Song& song = application->song();
    const NSWindow window = application->window(WindowKind::kArrange);
    const auto bitmap = application->draw(WindowKind::kArrange);
    const auto rows = accessibilityChildren(application->arrange().contents());
    ASSERT_EQ(rows.size(), song.tracks.size() + 1);
    long seen = 0;
    for (std::size_t i = 0; i < song.tracks.size(); ++i) {
      EXPECT_EQ(textOf(rows[i], "AXRole"), "AXGroup");
      const auto regions = accessibilityChildren(rows[i]);
      ASSERT_EQ(regions.size(), song.tracks[i].regions.size()) << song.tracks[i].name;
      for (std::size_t k = 0; k < regions.size(); ++k) {
        const host::Region& region = song.tracks[i].regions[k];
        EXPECT_EQ(textOf(regions[k], "AXRole"), "AXLayoutItem");
        EXPECT_EQ(textOf(regions[k], "AXDescription"), region.name);
        const CGRect frame = screenFrame(regions[k]);
        EXPECT_DOUBLE_EQ(frame.size.width, region.length * song.arrange.zoom);
        // A plain region's title bar has its colour; the name begins five points in.
        const CGPoint inTitle{frame.minX() + 3.5, frame.maxY() - 6};
        const bool plain = !region.selected && !region.muted && !region.loop;
        const CGRect shown = application->arrange().contents().superview().frame();
        if (!plain || inTitle.x < shown.minX() || inTitle.x > shown.maxX() || inTitle.y > shown.maxY() ||
            inTitle.y < shown.minY() || frame.size.width < 60) {
          continue;
        }
        ++seen;
        const auto colour = region.colour ? region.colour : song.tracks[i].colour;
        const Rgba expected = colour ? songColour(*colour) : Rgba{124, 124, 124, 100};
        EXPECT_EQ(screenPixel(window, bitmap, inTitle), expected) << region.name;
      }
    }
    EXPECT_GT(seen, 20);
    const auto cycle = accessibilityChildren(rows.back());
    ASSERT_EQ(cycle.size(), 1U);
    EXPECT_EQ(textOf(cycle[0], "AXDescription"), "cycle region");
    EXPECT_DOUBLE_EQ(screenFrame(cycle[0]).size.width, 8 * song.arrange.zoom);
  }
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

NSDictionary headerSetUp(host::Application& application) {
  const NSObject fenster = call<"fenster", NSObject>(application.arrange().arrangeView());
  return call<"createSaveConfigDict:", NSDictionary>(asObject(classNamed("TrackHeaderConfigController")), fenster);
}

TEST(ArrangeDocument, TellsHowItsHeadersAreSetUp) {
  for (const bool shown : {true, false}) {
    host::Song song = songOfTracks(1, 0);
    song.arrange.headers.trackNumbers = song.arrange.headers.colourBars = shown;
    if (shown) song.arrange.headers.controlSurfaceBars = 0;
    const auto application = arrangeHost(song);
    const NSDictionary setUp = headerSetUp(*application);
    const auto switches = as<NSArray>(setUp.objectForKey(literal<"trackelemShow">()));
    EXPECT_EQ(as<NSNumber>(setUp.objectForKey(literal<"isshowtrnums">())).boolValue(), shown);
    ASSERT_GE(switches.count(), 20U);
    for (const NSUInteger index : {12U, 14U}) {
      EXPECT_EQ(as<NSNumber>(switches.objectAtIndex(index)).boolValue(), shown) << index;
    }
  }
  const Ref<NSObject> stranger = make<NSObject>();
  EXPECT_FALSE((call<"createSaveConfigDict:", NSDictionary>(asObject(classNamed("TrackHeaderConfigController")),
                                                            stranger.get())));
}

TEST(ArrangeDocument, IsKnownToTheMixersModelByNumberOrByItself) {
  eachInChild({false, true}, [&](const bool bySong) {
    host::Song song = songOfTracks(1, 0);
    song.arrange.headers.controlSurfaceBars = 7;
    const auto application = arrangeHost(song, {.adapterBySong = bySong});
    const NSView contents = application->arrange().contents();
    const auto document = call<"songDocument", NSObject>(call<"docManager", NSObject>(contents));
    const auto number = call<"songID", NSInteger>(document);
    const id made = call<"alloc", id>(asObject(classNamed("MAMixerModelAdapter")));
    EXPECT_EQ(respondsTo(made, selector<"initWithSongID:">()), !bySong);
    EXPECT_EQ(respondsTo(made, selector<"initWithSong:">()), bySong);
    const id adapter = bySong ? call<"initWithSong:", id>(made, call<"song", NSObject>(contents))
                              : call<"initWithSongID:", id>(made, number);
    EXPECT_EQ((call<"numberOfControlSurfaceBars", NSInteger>(adapter)), 7);
    const id other = call<"alloc", id>(asObject(classNamed("MAMixerModelAdapter")));
    const id none =
        bySong ? call<"initWithSong:", id>(other, NSObject()) : call<"initWithSongID:", id>(other, number + 1);
    EXPECT_EQ(none, nullptr);
  });
}

/// Keeps what it is told of.
struct OpenObserver : ObjectState {
  Ref<NSObject> document;
  NSUInteger views = 0;
  void opened(NSNotification notification) {
    document = notification.userInfo().objectForKey(literal<"CLgSongDocument">());
    const auto manager = call<"unilibDocManager", NSObject>(document.get());
    for (const NSObject view : items(call<"visibleUnilibViews", NSArray>(manager))) {
      views += toStdString(view.className()) == "CLgArrangeView" ? 1U : 0U;
    }
  }
};

TEST(ArrangeDocument, AnnouncesItselfWithItsViews) {
  ClassDefinition<OpenObserver>("ArrangeTestObserver", "NSObject")
      .method<"opened:", &OpenObserver::opened>()
      .registered();
  const auto observer = Ref<NSObject>::adopt(NSObject(call<"new", id>(asObject(classNamed("ArrangeTestObserver")))));
  NSNotificationCenter::defaultCenter().addObserver(
      observer, selector<"opened:">(), literal<"CLgDocumentControllerNotification_documentDidOpen">(), NSObject());
  const auto application = arrangeHost(songOfTracks(1, 0));
  NSNotificationCenter::defaultCenter().removeObserver(observer);
  EXPECT_EQ(stateOf<OpenObserver>(observer).document.get(), application->arrange().document());
  EXPECT_EQ(stateOf<OpenObserver>(observer).views, 1U);
  const NSView arrange = application->arrange().arrangeView();
  const NSWindow window = application->window(WindowKind::kArrange);
  EXPECT_TRUE(arrange.isDescendantOf(call<"mainSplitView", NSView>(window.windowController())));
  EXPECT_EQ((call<"sectionView:", NSView>(arrange, NSInteger(2))), application->arrange().ruler());
  EXPECT_FALSE((call<"sectionView:", NSView>(arrange, NSInteger(7))));
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
      EXPECT_TRUE(asks<"isSelected">(accessibilityChildren(arrange.headers())[row].object));
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
