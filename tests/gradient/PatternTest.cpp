// Patterns as the renderer hands them out, through its message.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

#include "cocoa/Call.h"
#include "tests/support/HostTest.h"

namespace {

using namespace cocoa;
using namespace support;

struct Request {
  const char* gradient = nullptr;
  NSColor base;
  CGSize size{84, 300};
  std::vector<NSColor> colors;
  std::vector<double> locations;
  const char* bevel = nullptr;
  NSInteger style = 0;
  NSColor overlay;
};

class Patterns : public HostTest {
 protected:
  void SetUp() override { startWith(writeTheme(ThemeFile().flag("x", true).list()), songOf({})); }
  [[nodiscard]] NSColor pattern(const Request& request) const {
    const auto parsed = [](const char* cls, const char* maker, const char* text) {
      return text == nullptr ? NSObject() : send<NSObject>(classNamed(cls), sel_registerName(maker), string(text));
    };
    const auto colors = NSMutableArray::array();
    for (const NSColor each : request.colors) colors.addObject(each);
    const auto locations = NSMutableArray::array();
    for (const double each : request.locations) locations.addObject(NSNumber::numberWithDouble(each));
    return call<"patternColorForGradient:baseColor:size:stopColors:stopLocations:bevel:bevelStyle:overlayColor:",
                NSColor>(theme(), parsed("VLRStripGradient", "gradientFromString:", request.gradient), request.base,
                         request.size, static_cast<NSArray>(colors), static_cast<NSArray>(locations),
                         parsed("VLRStripBevel", "bevelFromString:", request.bevel), request.style, request.overlay);
  }
  [[nodiscard]] NSMutableDictionary cache() const { return call<"gradientPatternCache", NSMutableDictionary>(theme()); }
  /// The fields of the one key in the cache.
  [[nodiscard]] std::vector<std::string> keyFields() const {
    const NSArray keys = cache().allKeys();
    EXPECT_EQ(keys.count(), 1U);
    std::istringstream text(toStdString(cast<NSString>(keys.objectAtIndex(0))));
    std::vector<std::string> fields;
    for (std::string field; std::getline(text, field, '|');) fields.push_back(field);
    return fields;
  }
  /// A half veiled grey.
  [[nodiscard]] NSColor veiled(double height) const {
    return pattern({.base = grey(0.5), .size = {84, height}, .overlay = grey(1, 0.5)});
  }
  static NSColor grey(double level, double alpha = 1) { return NSColor::colorWithSRGBRed(level, level, level, alpha); }
};

constexpr const char* kVertical = "LinearGradient:{{0,0,0,100},{0,0,0,100},V}";
constexpr const char* kHorizontal = "LinearGradient:{{0,0,0,100},{0,0,0,100},H}";
constexpr const char* kBevel = "Bevel:{R,4,50}";

TEST_F(Patterns, AreNotMadeWhereThereIsNothingToRender) {
  const NSColor base = grey(0.5);
  const NSColor veil = grey(1, 0.5);
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  struct Case {
    const char* what;
    Request request;
    bool answersBase;  // else nil
  };
  const Case kCases[] = {
      {"too narrow", {.base = base, .size = {1.99, 300}, .overlay = veil}, true},
      {"too wide", {.base = base, .size = {4096.5, 300}, .overlay = veil}, true},
      {"too low", {.base = base, .size = {84, 1}, .overlay = veil}, true},
      {"not a number", {.base = base, .size = {84, kNaN}, .overlay = veil}, true},
      {"infinite", {.base = base, .size = {84, INFINITY}, .overlay = veil}, true},
      {"negative", {.base = base, .size = {-84, 300}, .overlay = veil}, true},
      {"base alone", {.base = base}, true},
      {"stops without a gradient", {.base = base, .colors = {base, veil}, .locations = {0, 1}}, true},
      {"one stop", {.gradient = kVertical, .base = base, .colors = {base}, .locations = {0}}, true},
      {"25 stops",
       {.gradient = kVertical,
        .base = base,
        .colors = std::vector<NSColor>(25, base),
        .locations = std::vector<double>(25, 0.5)},
       true},
      {"more colours than locations",
       {.gradient = kVertical, .base = base, .colors = {base, base, base}, .locations = {0, 1}},
       true},
      {"a bevel of no style", {.base = base, .bevel = kBevel}, true},
      {"a style without a bevel", {.base = base, .style = 1}, true},
      {"nothing at all", {}, false},
      {"a bevel alone", {.bevel = kBevel, .style = 1}, false},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(pattern(c.request), c.answersBase ? c.request.base : NSColor()) << c.what;
    EXPECT_EQ(cache().count(), 0U) << c.what;
  }
}

TEST_F(Patterns, HaveTheSizeTheirContentNeeds) {
  const NSColor base = grey(0.5);
  const auto stops = [&](Request request) {
    request.colors = {grey(0), grey(1)};
    request.locations = {0, 1};
    return request;
  };
  constexpr CGSize kAsked{100.4, 300.2};
  struct Case {
    const char* what;
    Request request;
    CGSize size;
  };
  const Case kCases[] = {
      {"solid", {.base = base, .size = kAsked, .overlay = grey(1, 0.5)}, {8, 301}},
      {"vertical", stops({.gradient = kVertical, .size = kAsked}), {8, 301}},
      {"horizontal", stops({.gradient = kHorizontal, .size = kAsked}), {101, 8}},
      {"upwards", stops({.gradient = "LinearGradient:{{0,0,0,1},{0,0,0,1},A0}", .size = kAsked}), {101, 301}},
      {"oblique", stops({.gradient = "LinearGradient:{{0,0,0,1},{0,0,0,1},A45}", .size = kAsked}), {101, 301}},
      {"bevelled", {.base = base, .size = kAsked, .bevel = kBevel, .style = 2}, {101, 301}},
      {"bevelled, vertical", stops({.gradient = kVertical, .size = kAsked, .bevel = kBevel, .style = 1}), {101, 301}},
      {"smallest", {.base = base, .size = {2, 2}, .overlay = grey(1, 0.5)}, {8, 2}},
      {"largest", {.base = base, .size = {4096, 4096}, .overlay = grey(1, 0.5)}, {8, 4096}},
  };
  for (const Case& c : kCases) EXPECT_EQ(patternSize(pattern(c.request)), c.size) << c.what;
}

TEST_F(Patterns, RunAlongTheCompassBearing) {
  struct Case {
    const char* direction;
    Rgba topLeft, topRight, bottomLeft, bottomRight;
  };
  const Rgba first{255, 0, 0};
  const Rgba last{0, 0, 255};
  const Rgba middle{128, 0, 128};
  const Case kCases[] = {
      {"V", first, first, last, last},    {"H", first, last, first, last},       {"A0", last, last, first, first},
      {"A270", last, first, last, first}, {"A135", first, middle, middle, last}, {"A-45", last, middle, middle, first},
  };
  for (const Case& c : kCases) {
    const std::string text = std::string("LinearGradient:{{0,0,0,1},{0,0,0,1},") + c.direction + "}";
    const NSColor made =
        pattern({.gradient = text.c_str(),
                 .size = {200, 200},
                 .colors = {NSColor::colorWithSRGBRed(1, 0, 0, 1), NSColor::colorWithSRGBRed(0, 0, 1, 1)},
                 .locations = {0, 1}});
    const long right = static_cast<long>(patternSize(made).width) - 1;
    const long bottom = static_cast<long>(patternSize(made).height) - 1;
    EXPECT_TRUE(near(patternPixel(made, 0, 0), c.topLeft, 3)) << c.direction << patternPixel(made, 0, 0);
    EXPECT_TRUE(near(patternPixel(made, right, 0), c.topRight, 3)) << c.direction;
    EXPECT_TRUE(near(patternPixel(made, 0, bottom), c.bottomLeft, 3)) << c.direction;
    EXPECT_TRUE(near(patternPixel(made, right, bottom), c.bottomRight, 3)) << c.direction;
  }
}

TEST_F(Patterns, StackBaseOverlayAndBevel) {
  const NSColor made = pattern({.base = grey(0),
                                .size = {160, 40},
                                .bevel = "Bevel:{R,4,100}",
                                .style = 1,
                                .overlay = NSColor::colorWithSRGBRed(1, 0, 0, 0.5)});
  EXPECT_TRUE(near(patternPixel(made, 80, 20), {128, 0, 0}));
  EXPECT_EQ(patternPixel(made, 3, 20), (Rgba{255, 255, 255})) << "a band of 160 * 4 / 160 points";
  EXPECT_TRUE(near(patternPixel(made, 4, 20), {128, 0, 0}));
  EXPECT_EQ(patternPixel(made, 159, 20), (Rgba{0, 0, 0}));
  const NSColor sunk = pattern({.base = grey(0.5), .size = {160, 40}, .bevel = "Bevel:{R,4,50}", .style = 7});
  EXPECT_TRUE(near(patternPixel(sunk, 0, 20), {64, 64, 64})) << "any style but 1 is sunk";
  EXPECT_TRUE(near(patternPixel(sunk, 159, 20), {191, 191, 191}));
  const NSColor veil = pattern({.overlay = grey(1, 0.25)});
  EXPECT_EQ(patternPixel(veil, 0, 0).alpha, 25) << "an overlay over nothing stays transparent";
}

TEST_F(Patterns, AreCachedByEverythingThatTheyShow) {
  const auto request = [] {
    return Request{.gradient = kVertical,
                   .base = grey(0.5),
                   .size = {100.4, 300.2},
                   .colors = {grey(0), grey(1)},
                   .locations = {0, 1},
                   .bevel = "Bevel:{R,2,30}",
                   .style = 1,
                   .overlay = grey(1, 0.5)};
  };
  const NSColor first = pattern(request());
  EXPECT_EQ(pattern(request()), first);
  Request same = request();
  same.base = grey(0.9);  // hidden by the gradient
  same.size = {101, 301};
  EXPECT_EQ(pattern(same), first);
  using Change = void (*)(Request&);
  constexpr Change kChanges[] = {
      [](Request& r) { r.colors[0] = grey(0.001); },
      [](Request& r) { r.locations[1] = 0.999999; },
      [](Request& r) { r.size.width = 101.1; },
      [](Request& r) { r.size.height = 301.1; },
      [](Request& r) { r.gradient = kHorizontal; },
      [](Request& r) { r.style = 2; },
      [](Request& r) { r.bevel = "Bevel:{R,3,30}"; },
      [](Request& r) { r.bevel = "Bevel:{R,2,31}"; },
      [](Request& r) { r.overlay = grey(1, 0.51); },
      [](Request& r) { r.overlay = NSColor(); },
      [](Request& r) { r.colors[0] = NSColor::colorWithCalibratedRed(0, 0, 0, 1); },
  };
  for (const Change change : kChanges) {
    Request changed = request();
    change(changed);
    EXPECT_FALSE(pattern(changed) == first);
    EXPECT_EQ(pattern(changed), pattern(changed));
  }
  EXPECT_EQ(cache().count(), 1 + std::size(kChanges));
}

TEST_F(Patterns, NameTheirFieldsInTheKey) {
  static_cast<void>(pattern({.base = grey(0.5), .size = {100.4, 300.2}, .overlay = grey(1, 0.5)}));
  auto fields = keyFields();
  ASSERT_EQ(fields.size(), 9U);
  EXPECT_EQ(fields[0], "solid");
  EXPECT_EQ((std::vector<std::string>(fields.begin() + 2, fields.end() - 1)),
            (std::vector<std::string>{"101", "301", "180.0", "0", "0", "0"}));
  cache().removeAllObjects();
  static_cast<void>(pattern({.gradient = kHorizontal,
                             .size = {84, 300},
                             .colors = {grey(0), grey(1)},
                             .locations = {0, 1},
                             .bevel = "Bevel:{R,2,30}",
                             .style = 2}));
  fields = keyFields();
  EXPECT_EQ((std::vector<std::string>(fields.begin() + 2, fields.end())),
            (std::vector<std::string>{"84", "300", "90.0", "2", "2", "30", "noov"}));
}

TEST_F(Patterns, AreForgottenAllAtOnceWhenTooMany) {
  const Ref<NSColor> first = veiled(100);
  for (int i = 1; i < 65; ++i) static_cast<void>(veiled(100.0 + i));
  EXPECT_EQ(cache().count(), 65U);
  EXPECT_EQ(veiled(100), first.get());
  static_cast<void>(veiled(500));
  EXPECT_EQ(cache().count(), 1U) << "the 66th look empties the cache before it is stored";
  EXPECT_NE(veiled(100), first.get());
}

TEST_F(Patterns, OutliveTheCacheThatTheyCameFrom) {
  const auto askInPool = [&](double height) {
    const AutoreleasePool inner;
    static_cast<void>(veiled(height));
  };
  askInPool(100);
  const NSColor held = veiled(100);  // from the cache, which alone owns it now
  for (int i = 1; i <= 66; ++i) askInPool(100.0 + i);
  EXPECT_TRUE(near(patternPixel(held, 0, 0), {191, 191, 191}));
}

}  // namespace
