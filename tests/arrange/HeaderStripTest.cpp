// The strips behind track headers, as the host draws its column of headers with the bundle loaded.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "cocoa/Call.h"
#include "cocoa/ClassDefinition.h"
#include "host/arrange/LocalizedFormat.h"
#include "host/arrange/TrackRows.h"
#include "tests/host/ArrangeHost.h"
#include "tests/support/HostTest.h"

namespace {

using namespace cocoa;
using namespace support;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr Rgba kHostEmpty{97, 97, 97};
constexpr Rgba kEmpty{8, 16, 24};

/// A plain track, a selected one, a folder and a selected folder.
host::Song fourTracks() {
  host::Song song;
  for (int i = 0; i < 4; ++i) {
    host::Track& track = song.tracks.emplace_back();
    track.name = "T";
    track.selected = i % 2 != 0;
    track.folder = i >= 2;
    track.color = host::SongColor{200, 40 * i, 100};
  }
  song.tracks[1].height = 25;
  return song;
}
Rgba trackColor(std::size_t row) { return {200, 40 * static_cast<long>(row), 100}; }

/// A colour at an opacity on another.
Rgba blended(const Rgba& over, long opacity, const Rgba& under) {
  const auto mix = [&](long a, long b) { return (a * opacity + b * (100 - opacity) + 50) / 100; };
  return {mix(over.red, under.red), mix(over.green, under.green), mix(over.blue, under.blue)};
}

class HeaderStrips : public HostTest {
 protected:
  void start(const ThemeFile& theme, host::Song song = fourTracks(), host::HostOptions options = {}) {
    startWith(writeTheme(theme.list()), std::move(song), std::move(options));
  }
  [[nodiscard]] NSView headers() const { return application_->arrange().headers(); }
  NSBitmapImageRep picture() const { return drawn(headers(), headers().visibleRect()); }

  /// The header column's right edge, where the host draws nothing, beside each track and below the last.
  [[nodiscard]] std::vector<Rgba> edge() const {
    const NSBitmapImageRep drawn = picture();
    const host::TrackRows rows(application_->song());
    std::vector<Rgba> colors;
    for (std::size_t i = 0; i <= rows.count(); ++i) {
      const double y = i < rows.count() ? rows.top(i) + rows.height(i) / 2 : rows.total() + 5;
      colors.push_back(pixel(drawn, drawn.pixelsWide() - 1, static_cast<long>(y)));
    }
    return colors;
  }

  /// Has the header view paint a list of strips into a bitmap of 40 by 40 points.
  [[nodiscard]] Ref<NSBitmapImageRep> painted(NSArray list, bool flipped = false,
                                              CGRect dirty = CGRectMake(0, 0, 40, 40)) const {
    Ref<NSBitmapImageRep> bitmap =
        NSBitmapImageRep::withBitmapDataPlanes(nullptr, 40, 40, 8, 4, true, false, NSDeviceRGBColorSpace, 0, 0);
    const SavedGraphicsState saved;
    const auto plain = NSGraphicsContext::graphicsContextWithBitmapImageRep(bitmap);
    NSGraphicsContext::setCurrentContext(NSGraphicsContext::graphicsContextWithCGContext(plain.CGContext(), flipped));
    call<"drawStripColor:colorCollection:">(headers(), dirty, list);
    return bitmap;
  }
  static NSArray entry(CGRect rect, NSColor of, bool selected) {
    return arrayOf({NSValue::valueWithRect(rect), of, NSNumber::numberWithBool(selected)});
  }
  /// One strip over the whole bitmap.
  static NSArray whole(NSColor of, bool selected = false) {
    return arrayOf({entry(CGRectMake(0, 0, 40, 40), of, selected)});
  }
  static NSColor red(double alpha = 1) { return NSColor::colorWithSRGBRed(1, 0, 0, alpha); }
  /// The column of the colour bars, whether they are shown, and whether track numbers are; 2 where nothing is said.
  [[nodiscard]] std::tuple<NSInteger, int, int> column() const {
    BOOL bars = 2;
    BOOL numbers = 2;
    const auto found = call<"getXOffsetinTrack:showTrackNumP:", NSInteger>(headers(), &bars, &numbers);
    return {found, bars, numbers};
  }
};

ThemeFile fourColors() {
  return ThemeFile()
      .text("EmptyAreaBelow", color(8, 16, 24))
      .text("arrangeStripBackgroundColor", color(10, 0, 0))
      .text("arrangeStripHighlightBackgroundColor", color(20, 0, 0))
      .text("arrangeFolderStripBackgroundColor", color(30, 0, 0))
      .text("arrangeFolderSelectedStripBackgroundColor", color(40, 100, 0, 50));
}

TEST_F(HeaderStrips, TakeTheColorsOfTheirKind) {
  const ThemeFile two = ThemeFile()
                            .text("arrangeStripBackgroundColor", color(10, 0, 0))
                            .text("arrangeFolderSelectedStripBackgroundColor", color(40, 0, 0));
  const std::pair<ThemeFile, std::vector<Rgba>> kCases[] = {
      {fourColors(), {{10, 0, 0}, {20, 0, 0}, {30, 0, 0}, blended({40, 100, 0}, 50, kEmpty), kEmpty}},
      {two, {{10, 0, 0}, kHostEmpty, kHostEmpty, {40, 0, 0}, kHostEmpty}},
      {ThemeFile().text("EmptyAreaBelow", color(8, 16, 24)), {kEmpty, kEmpty, kEmpty, kEmpty, kEmpty}},
      {ThemeFile(), {kHostEmpty, kHostEmpty, kHostEmpty, kHostEmpty, kHostEmpty}},
  };
  for (const bool flipped : {false, true}) {
    eachInChild(kCases, [&](const auto& c) {
      start(c.first, fourTracks(), {.flippedHeaders = flipped});
      const auto shown = edge();
      for (std::size_t i = 0; i < shown.size(); ++i) {
        EXPECT_TRUE(near(shown[i], c.second[i])) << flipped << i << ": " << shown[i];
      }
    });
  }
}

TEST_F(HeaderStrips, AreLookedForOnlyUnderAThemeThatHasSome) {
  constexpr const char* kLine = "Velura Context is flipped. We need to handle this";
  const std::pair<ThemeFile, bool> kCases[] = {
      {ThemeFile().text("EmptyAreaBelow", color(8, 16, 24)), false},
      {ThemeFile().text("arrangeFolderStripBackgroundColor", color(1, 2, 3)), true},
      {ThemeFile().text("arrangeStripHighlightBackgroundColor", color(1, 2, 3)), true},
      {ThemeFile().text("arrangeStripBGGradient", "AutoGradient:{{10},{-10},V}"), true},
      {ThemeFile().text("arrangeStripHighlightBGGradient", "AutoGradient:{{10},{-10},V}"), true},
      {ThemeFile().text("arrangeStripBevel", "Bevel:{R,2,30}"), true},
      {ThemeFile().flag("useTrackColorAsArrangeStripBackground", true), true},
  };
  for (const bool flipped : {false, true}) {
    eachInChild(kCases, [&](const auto& c) {
      start(c.first, fourTracks(), {.flippedHeaders = flipped});
      testing::internal::CaptureStderr();
      picture();
      const std::string log = testing::internal::GetCapturedStderr();
      EXPECT_EQ(log.find(kLine) != std::string::npos, c.second && flipped) << log;
    });
  }
}

// ---- Track colours ------------------------------------------------------------------------------------

NSDictionary noConfiguration(Class /*self*/, NSObject /*window*/) { return {}; }
NSDictionary raisedConfiguration(Class /*self*/, NSObject /*window*/) {
  NSException::raise(literal<"Refused">(), literal<"not now">());
  return {};
}

TEST_F(HeaderStrips, SampleTheHostsColorBarsWhereTheyAre) {
  struct Case {
    host::HeaderSetup setup;
    host::HostOptions options;
    NSInteger column;
    bool seen;  // the tracks' own colours
  };
  const auto surfaces = [](int bars) { return host::HeaderSetup{.controlSurfaceBars = bars}; };
  const std::vector<Rgba> kTracks{trackColor(0), trackColor(1), trackColor(2), trackColor(3), kEmpty};
  std::vector<Case> cases = {
      {{.trackNumbers = true, .colorBars = false}, {}, 0, false},
      {{.colorBars = false, .controlSurfaceBars = 3}, {}, 0, false},
      {{}, {}, 2, true},
      {{.trackNumbers = false}, {}, 2, true},
      {surfaces(3), {.adapterBySong = true}, 16, true},
      {surfaces(3), {.modelAdapter = false}, 9, true},
      {{.trackNumbers = false, .controlSurfaceBars = 3}, {.modelAdapter = false}, 6, true},
  };
  for (int bars = 0; bars <= 7; ++bars) cases.push_back({surfaces(bars), {}, 1 + 5 * bars, bars < 7});
  eachInChild(cases, [&](const Case& c) {
    host::Song song = fourTracks();
    song.arrange.headers = c.setup;
    start(ThemeFile().flag("useTrackColorAsArrangeStripBackground", true).text("EmptyAreaBelow", color(8, 16, 24)),
          song, c.options);
    EXPECT_EQ(column(), std::tuple(c.column, c.setup.colorBars, c.setup.trackNumbers));
    EXPECT_EQ(edge(), c.seen ? kTracks : std::vector<Rgba>(5, kEmpty)) << c.column;
  });
}

TEST_F(HeaderStrips, SampleColumnOneWhereTheHostDoesNotTell) {
  start(ThemeFile().flag("useTrackColorAsArrangeStripBackground", true));
  const Class controller = metaclassOf(classNamed("TrackHeaderConfigController"));
  detail::replaceFunction<"createSaveConfigDict:", noConfiguration>(controller);
  EXPECT_EQ(std::get<0>(column()), 1);
  EXPECT_EQ(edge()[0], trackColor(0));
  detail::replaceFunction<"createSaveConfigDict:", raisedConfiguration>(controller);
  EXPECT_EQ(column(), std::tuple(1, false, false));
  EXPECT_EQ((call<"getXOffsetinTrack:showTrackNumP:", NSInteger>(headers(), static_cast<BOOL*>(nullptr),
                                                                 static_cast<BOOL*>(nullptr))),
            1);
}

TEST_F(HeaderStrips, UseTheThemesColorsWhereTheHostShowsNoBars) {
  host::Song song = fourTracks();
  song.arrange.headers.colorBars = false;
  start(fourColors().flag("useTrackColorAsArrangeStripBackground", true), song);
  EXPECT_THAT(edge(), ElementsAre(Rgba{10, 0, 0}, Rgba{20, 0, 0}, Rgba{30, 0, 0}, testing::_, kEmpty));
}

TEST_F(HeaderStrips, FadeTrackColorsByKind) {
  const auto withOpacities = [](const std::array<long, 4>& percents) {
    return ThemeFile()
        .flag("useTrackColorAsArrangeStripBackground", true)
        .text("EmptyAreaBelow", color(8, 16, 24))
        .integer("UseTrackColor_ArrangeOpacity", percents[0])
        .integer("UseTrackColor_ArrangeHighlightedOpacity", percents[1])
        .integer("UseTrackColor_ArrangeFolderOpacity", percents[2])
        .integer("UseTrackColor_ArrangeFolderHighlightedOpacity", percents[3]);
  };
  EXPECT_TRUE(inChild([&] {
    constexpr std::array<long, 4> kPercents{40, 80, 10, 60};
    start(withOpacities(kPercents));
    const auto shown = edge();
    for (std::size_t i = 0; i < 4; ++i) {
      EXPECT_TRUE(near(shown[i], blended(trackColor(i), kPercents[i], kEmpty), 2)) << i << shown[i];
    }
    return true;
  }));
  start(withOpacities({0, 0, 0, 0})
            .text("arrangeStripHighlightBackgroundColor", color(20, 0, 0))
            .text("arrangeFolderStripBackgroundColor", color(30, 0, 0))
            .text("arrangeFolderSelectedStripBackgroundColor", color(40, 0, 0)));
  EXPECT_THAT(edge(), ElementsAre(kEmpty, Rgba{20, 0, 0}, Rgba{30, 0, 0}, Rgba{40, 0, 0}, kEmpty))
      << "opacity 0 takes the theme's colour, and no strip is painted where there is none";
}

TEST_F(HeaderStrips, SampleWhateverPartOfTheColumnIsDrawn) {
  host::Song song;
  for (int i = 0; i < 60; ++i) {
    song.tracks.push_back(fourTracks().tracks[static_cast<std::size_t>(i % 4)]);
    song.tracks.back().height = 20 + 7 * (i % 3);
  }
  start(ThemeFile().flag("useTrackColorAsArrangeStripBackground", true), song);
  const host::TrackRows rows(song);
  const double height = headers().frame().size.height;
  for (const double down : {0.0, 333.0, 700.0}) {
    application_->arrange().setScroll(0, down);
    for (const double part : {3.0, 61.0, 200.0}) {
      const CGRect visible = headers().visibleRect();
      const CGRect dirty = CGRectMake(0, std::floor(visible.midY()), visible.size.width, part);
      const NSBitmapImageRep drawn = support::drawn(headers(), dirty);
      for (long y = 0; y < drawn.pixelsHigh(); ++y) {
        const double fromTop = height - (dirty.maxY() - static_cast<double>(y) - 0.5);
        const auto row = rows.rowAt(fromTop);
        if (fromTop > rows.top(row) + rows.height(row) - 1) continue;  // the line that the host draws between headers
        ASSERT_EQ(pixel(drawn, drawn.pixelsWide() - 1, y), trackColor(row % 4)) << down << " " << part << " " << y;
      }
    }
  }
}

TEST_F(HeaderStrips, AreListedAsRectangleColorAndSelection) {
  start(fourColors());
  const Ref<NSBitmapImageRep> bitmap =
      NSBitmapImageRep::withBitmapDataPlanes(nullptr, 4, 4, 8, 4, true, false, NSDeviceRGBColorSpace, 0, 0);
  const SavedGraphicsState saved;
  NSGraphicsContext::setCurrentContext(NSGraphicsContext::graphicsContextWithBitmapImageRep(bitmap));
  const auto list = call<"verifyColor:", NSArray>(headers(), headers().bounds());
  ASSERT_EQ(list.count(), 4U);
  const double height = headers().frame().size.height;
  const host::TrackRows rows(application_->song());
  for (NSUInteger i = 0; i < 4; ++i) {
    const auto strip = as<NSArray>(list.objectAtIndex(i));
    ASSERT_EQ(strip.count(), 3U);
    EXPECT_EQ(as<NSValue>(strip.objectAtIndex(0)).rectValue(),
              CGRectMake(0, height - rows.top(i) - rows.height(i), 220, rows.height(i)));
    EXPECT_EQ(rgba(as<NSColor>(strip.objectAtIndex(1))).red, 10 * (static_cast<long>(i) + 1));
    EXPECT_EQ(as<NSNumber>(strip.objectAtIndex(2)).boolValue(), i % 2 != 0);
  }
  application_->arrange().setScroll(0, 0);
  const auto table = call<"getTracksData", NSData>(headers());
  struct {
    std::uint64_t count;
    struct {
      double height;
      bool selected;
      bool folder;
    } tracks[4];
  } read{};
  ASSERT_EQ(table.length(), sizeof read);
  std::memcpy(&read, table.bytes(), sizeof read);
  EXPECT_EQ(read.count, 4U);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(read.tracks[i].height, rows.height(i));
    EXPECT_EQ(read.tracks[i].selected, i % 2 != 0);
    EXPECT_EQ(read.tracks[i].folder, i >= 2);
  }
}

// ---- Painting -----------------------------------------------------------------------------------------

TEST_F(HeaderStrips, ArePaintedFromEntriesOfTwoObjectsAndMore) {
  start(ThemeFile().text("arrangeStripHighlightBGGradient", "LinearGradient:{{0,0,255,100},{0,0,255,100},V}"));
  const auto quarter = [](double x, double y) { return CGRectMake(x, y, 20, 20); };
  const NSArray two = arrayOf({NSValue::valueWithRect(quarter(0, 0)), red()});
  const NSArray one = arrayOf({NSValue::valueWithRect(quarter(20, 20))});
  const auto bitmap = painted(
      arrayOf({two, entry(quarter(20, 0), red(), true), one, NSArray::array(), entry(quarter(0, 20), red(0.5), false)}),
      false, CGRectMake(0, 0, 40, 25));
  EXPECT_EQ(pixel(bitmap, 5, 35), (Rgba{255, 0, 0})) << "two objects: not selected";
  EXPECT_EQ(pixel(bitmap, 25, 35), (Rgba{0, 0, 255}));
  EXPECT_EQ(pixel(bitmap, 25, 5).alpha, 0);
  EXPECT_EQ(pixel(bitmap, 5, 2), (Rgba{255, 0, 0, 50})) << "the whole strip, beyond what is dirty";
  EXPECT_EQ(pixel(painted(arrayOf({entry(quarter(0, 20), red(), false)}), false, CGRectMake(0, 0, 40, 20)), 5, 5).alpha,
            0)
      << "a strip that is not dirty is left out";
}

TEST_F(HeaderStrips, ShowGradientsAlongTheirAngle) {
  struct Case {
    const char* direction;
    bool flipped;
    CGPoint dark;  // in pixels from the top left
    CGPoint light;
  };
  const Case kCases[] = {{"V", false, {20, 1}, {20, 38}},  {"V", true, {20, 38}, {20, 1}},
                         {"H", false, {1, 20}, {38, 20}},  {"H", true, {1, 20}, {38, 20}},
                         {"A45", false, {1, 38}, {38, 1}}, {"A45", true, {1, 1}, {38, 38}}};
  eachInChild(kCases, [&](const Case& c) {
    start(ThemeFile().text("arrangeStripBGGradient",
                           std::string("LinearGradient:{{0,0,0,100},{255,255,255,100},") + c.direction + "}"));
    const auto bitmap = painted(whole(red()), c.flipped);
    const auto at = [&](CGPoint p) { return pixel(bitmap, static_cast<long>(p.x), static_cast<long>(p.y)); };
    EXPECT_LT(at(c.dark).red, 20) << c.direction << at(c.dark);
    EXPECT_GT(at(c.light).red, 235) << c.direction << at(c.light);
    EXPECT_NEAR(static_cast<double>(at({20, 20}).red), 128, 6);
  });
}

/// A gradient of so many red stops.
std::string redStops(int count) {
  std::string text = "LinearGradient:{";
  for (int i = 0; i < count; ++i) text += "{255,0,0,100},";
  return text + "V}";
}

TEST_F(HeaderStrips, ChooseBetweenGradientAndColor) {
  constexpr Rgba kRed{255, 0, 0};
  constexpr Rgba kBlue{0, 0, 255};
  constexpr Rgba kHalf{128, 0, 128};  // blue, half of it over red
  constexpr Rgba kGlass{0, 0, 255, 50};
  constexpr const char* kAnchored = "LinearGradient:{{255,0,0,100,0},{255,0,0,100,@fader},V}";
  constexpr const char* kShaded = "AutoGradient:{{0},{1},V}";
  const ThemeFile tracks = ThemeFile().flag("useTrackColorAsArrangeStripBackground", true);
  const auto with = [](ThemeFile theme, const std::string& gradient) {
    return theme.text("arrangeStripBGGradient", gradient);
  };
  const auto withSelected = [](ThemeFile theme) { return theme.text("arrangeStripHighlightBGGradient", redStops(2)); };
  struct Case {
    ThemeFile theme;
    bool selected;
    double alpha;  // of the blue strip
    Rgba expected;
  };
  const Case kCases[] = {
      {with({}, redStops(24)), false, 1, kRed},
      {with({}, kAnchored), false, 1, kBlue},
      {with({}, redStops(2)), true, 1, kBlue},
      {withSelected({}), true, 1, kRed},
      {withSelected({}), false, 1, kBlue},
      {with({}, kShaded), false, 1, kBlue},  // shades the strip's own colour
      {with(tracks, redStops(2)), false, 0.5, kHalf},
      {with(tracks, redStops(2)), true, 0.5, kHalf},
      {withSelected(with(tracks, "LinearGradient:{{0,0,255,100},{0,0,255,100},V}")), true, 0.5, kHalf},
      {with(tracks, kShaded).text("arrangeStripBackgroundColor", color(255, 0, 0)), false, 0.5, kHalf},
      {with(tracks, kShaded).text("arrangeStripHighlightBackgroundColor", color(255, 0, 0)), true, 0.5, kHalf},
      {with(tracks, kShaded), false, 0.5, kGlass},  // nothing to shade
      {with(tracks, kAnchored), false, 0.5, kGlass},
      {ThemeFile().text("arrangeStripBackgroundColor", color(0, 255, 0)), false, 1, kBlue},
  };
  eachInChild(kCases, [&](const Case& c) {
    start(c.theme);
    const auto bitmap = painted(whole(NSColor::colorWithSRGBRed(0, 0, 1, c.alpha), c.selected));
    EXPECT_TRUE(near(pixel(bitmap, 20, 20), c.expected, 2)) << pixel(bitmap, 20, 20);
  });
}

TEST_F(HeaderStrips, DrawNoGroundForAGradientOfTooManyStops) {
  eachInChild({false, true}, [&](const bool tracks) {
    start(ThemeFile()
              .text("arrangeStripBGGradient", redStops(24))
              .text("arrangeStripBevel", "Bevel:{R,4,100}")
              .flag("useTrackColorAsArrangeStripBackground", tracks));
    // No string makes more than 24 stops; the lists of the gradient take one more.
    const auto gradient = call<"arrangeStripGradient", NSObject>(theme());
    cast<NSMutableArray>(call<"stopColors", NSArray>(gradient)).addObject(red());
    EXPECT_EQ(pixel(painted(whole(red())), 20, 20), tracks ? (Rgba{255, 0, 0}) : (Rgba{0, 0, 0, 0}))
        << "as many locations as stops are needed";
    cast<NSMutableArray>(call<"stopLocations", NSArray>(gradient)).addObject(NSNumber::numberWithDouble(1));
    const NSColor blue = NSColor::colorWithSRGBRed(0, 0, 1, 1);
    const auto bitmap = painted(whole(blue));
    EXPECT_EQ(pixel(bitmap, 20, 20), tracks ? (Rgba{0, 0, 255}) : (Rgba{0, 0, 0, 0}));
    EXPECT_EQ(pixel(bitmap, 20, 1), (Rgba{255, 255, 255})) << "the bevel stays";
  });
}

TEST_F(HeaderStrips, ShowBevelsInTheirUpperAndLowerBands) {
  constexpr Rgba kGrey{128, 128, 128};
  struct Case {
    const char* bevel;
    bool selected;
    bool flipped;
    double height;
    std::vector<long> rows;  // grey levels from the visual top
  };
  const Case kCases[] = {
      {"Bevel:{R,2,100,D}", false, false, 9, {255, 255, 128, 128, 128, 128, 128, 0, 0}},
      {"Bevel:{R,2,100,D}", false, true, 9, {255, 255, 128, 128, 128, 128, 128, 0, 0}},
      {"Bevel:{R,2,100,D}", true, false, 9, {0, 0, 128, 128, 128, 128, 128, 255, 255}},
      {"Bevel:{D,6,50,R}", false, false, 9, {64, 64, 64, 128, 128, 128, 191, 191, 191}},
  };
  eachInChild(kCases, [&](const Case& c) {
    start(ThemeFile().text("arrangeStripBevel", c.bevel));
    const NSColor grey = NSColor::colorWithSRGBRed(128 / 255.0, 128 / 255.0, 128 / 255.0, 1);
    const auto bitmap = painted(arrayOf({entry(CGRectMake(0, 0, 40, c.height), grey, c.selected)}), c.flipped);
    // A flipped context that turns nothing around: its top is the bitmap's bottom.
    for (long i = 0; i < 9; ++i) {
      const long y = c.flipped ? 39 - i : 31 + i;
      EXPECT_LE(std::labs(pixel(bitmap, 20, y).red - c.rows[static_cast<std::size_t>(i)]), 1)
          << c.bevel << " row " << i;
    }
    EXPECT_EQ(pixel(bitmap, 20, 35), kGrey);
  });
}

// ---- The track table ----------------------------------------------------------------------------------

TEST_F(HeaderStrips, SpareTheHostTheFormattingOfDescriptions) {
  start(fourColors().flag("useTrackColorAsArrangeStripBackground", true));
  application_->arrange().songChanged();
  const std::size_t before = host::formattedDescriptions();
  picture();
  EXPECT_EQ(host::formattedDescriptions(), before);
  EXPECT_FALSE(callBool<"isInDrawingMode">(theme().object));
  accessibilityChildren(headers());
  EXPECT_EQ(host::formattedDescriptions(), before + 4);

  using Format = id (*)(id, SEL, id, ...);
  const id strings = asObject(classNamed("NSString"));
  const SEL sel = selector<"localizedStringWithFormat:">();
  const auto format = reinterpret_cast<Format>(reinterpret_cast<void (*)()>(objc_msg_lookup(strings, sel)));
  const auto text = [&] {
    return toStdString(
        NSString(format(strings, sel, literal<"%ld|%@|%.2f|%s">().object, 12L, literal<"ü">().object, 1.5, "end")));
  };
  EXPECT_EQ(text(), "12|ü|1.50|end");
  call<"setIsInDrawingMode:">(theme(), BOOL(1));
  EXPECT_EQ(text(), "");
  call<"setIsInDrawingMode:">(theme(), BOOL(0));
  EXPECT_EQ(text(), "12|ü|1.50|end");
}

NSArray raisedChildren(NSView /*self*/) {
  NSException::raise(literal<"Refused">(), literal<"no headers now">());
  return {};
}

TEST_F(HeaderStrips, AreLeftOutWhenTheHostRaises) {
  start(fourColors());
  detail::replaceFunction<"accessibilityChildren", raisedChildren>(classNamed("ArrangeTrackHeaderSectionView"));
  testing::internal::CaptureStderr();
  const NSBitmapImageRep drawn = picture();
  EXPECT_THAT(testing::internal::GetCapturedStderr(),
              HasSubstr("[Velura] vlrBuildTrackCacheSynchronously: exception: Refused — no headers now"));
  EXPECT_EQ(pixel(drawn, 2, 10), trackColor(0)) << "the host's own drawing";
  EXPECT_EQ(pixel(drawn, drawn.pixelsWide() - 1, 10), kEmpty);
  EXPECT_FALSE(callBool<"isInDrawingMode">(theme().object));
  EXPECT_FALSE((call<"getTracksData", NSData>(headers())));
}

TEST_F(HeaderStrips, KeepTheTableOfAMousePress) {
  eachInChild({"12.2.9", "12.3", "13"}, [&](const std::string& version) {
    const bool keeps = version != "12.2.9";
    start(fourColors(), fourTracks(), {.version = version});
    const auto cached = [&] { return call<"vlrCachedTrackData", NSData>(headers()); };
    const CGRect frame = screenFrame(accessibilityChildren(headers())[0]);
    const CGPoint place{frame.midX(), frame.midY()};
    EXPECT_FALSE(cached());
    application_->arrange().press(place);
    EXPECT_EQ(cached().length(), keeps ? 72U : 0U);
    EXPECT_TRUE(application_->song().tracks[0].selected) << "the host has handled the press";
    EXPECT_EQ(edge()[0], keeps ? (Rgba{10, 0, 0}) : (Rgba{20, 0, 0})) << "as it was before the press";
    application_->arrange().release(place);
    EXPECT_FALSE(cached());
    EXPECT_EQ(edge()[0], (Rgba{20, 0, 0}));
    EXPECT_EQ(edge()[1], (Rgba{10, 0, 0}));
  });
}

TEST_F(HeaderStrips, StandBehindAnOpaqueNameEditor) {
  const Rgba host{255, 255, 255, 90};
  const std::pair<std::string, Rgba> kCases[] = {
      {writeTheme(ThemeFile().text("EmptyAreaBelow", color(8, 16, 24, 30)).list()), kEmpty},
      {writeTheme(ThemeFile().text("arrangeStripBackgroundColor", color(8, 16, 24)).list()), host},
      {"default", host},
      {"", host},
  };
  eachInChild(kCases, [&](const auto& c) {
    startWith(c.first, fourTracks());
    EXPECT_TRUE(application_->arrange().beginRename(0));
    EXPECT_EQ(rgba(application_->arrange().nameEditor().backgroundColor()), c.second);
    EXPECT_EQ(application_->arrange().nameEditor().superview(), headers());
    application_->arrange().endRename();
  });
  startWith(kCases[0].first, fourTracks());
  const auto other = newView<NSTextField>("GCMALineEditorTextField");
  application_->arrange().contents().addSubview(other);
  EXPECT_EQ(rgba(other->backgroundColor()), host) << "in another view";
  const auto opaque = newView<NSTextField>("GCMALineEditorTextField");
  opaque->setBackgroundColor(red());
  headers().addSubview(opaque);
  EXPECT_EQ(rgba(opaque->backgroundColor()), (Rgba{255, 0, 0})) << "opaque already";
}

TEST_F(HeaderStrips, UseACanvasOfTheColumnsHeight) {
  start(fourColors());
  const auto canvas = [&] {
    picture();
    return call<"backupImageRep", NSBitmapImageRep>(headers());
  };
  const NSBitmapImageRep first = canvas();
  ASSERT_TRUE(first);
  EXPECT_EQ(toStdString(first.className()), "MyNSBitmapImageRep");
  EXPECT_EQ(first.pixelsWide(), 32);
  EXPECT_EQ(first.pixelsHigh(), static_cast<NSInteger>(headers().frame().size.height));
  EXPECT_EQ(canvas(), first);
  const CGSize size = headers().frame().size;
  headers().setFrameSize({size.width, size.height + 10.7});
  EXPECT_EQ(canvas().pixelsHigh(), static_cast<NSInteger>(size.height + 10.7));
}

}  // namespace
