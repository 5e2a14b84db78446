// A host that tells nonsense, and one with more than anybody needs.

#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <random>

#include "cocoa/ClassDefinition.h"
#include "tests/arrange/ArrangeContents.h"

namespace {

using namespace cocoa;
using namespace support;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// An accessibility element that answers whatever a test wants.
struct OddElement : ObjectState {
  Ref<NSObject> children;
  Ref<NSObject> size;
  Ref<NSObject> position;
  Ref<NSObject> description;
  Ref<NSObject> role;
  bool selected = false;

  NSObject attribute(NSString name) {
    const std::string wanted = toStdString(name);
    return wanted == "AXSize"          ? size.get()
           : wanted == "AXPosition"    ? position.get()
           : wanted == "AXDescription" ? description.get()
           : wanted == "AXRole"        ? role.get()
           : wanted == "AXChildren"    ? children.get()
                                       : NSObject();
  }
};

Ref<NSObject> element(NSObject size = {}, NSObject position = {}, NSObject children = {}, NSObject role = {}) {
  const auto made = newObject("OddElement");
  auto& state = stateOf<OddElement>(made);
  state.size = size;
  state.position = position;
  state.children = children;
  state.role = role;
  return made;
}
NSObject sized(double width, double height) { return NSValue::valueWithSize({width, height}); }
NSObject placed(double x, double y) { return NSValue::valueWithPoint({x, y}); }

id given = nullptr;  // what the views answer as their children
NSObject givenChildren(NSView /*self*/) { return NSObject(given); }

class HostileHost : public ArrangeContents {
 protected:
  void open(host::Song song = {}, host::HostOptions options = {}) {
    ClassDefinition<OddElement>("OddElement", "NSObject")
        .getter<"accessibilityChildren", &OddElement::children>()
        .getter<"accessibilityRole", &OddElement::role>()
        .getter<"isSelected", &OddElement::selected>()
        .method<"accessibilityAttributeValue:", &OddElement::attribute>()
        .registered();
    start(ThemeFile().flag("enabled", true).flag("markerBandsEnabled", true).integer("colorMode", 2), std::move(song),
          std::move(options),
          ThemeFile()
              .flag("useTrackColorAsArrangeStripBackground", true)
              .text("EmptyAreaBelow", color(8, 16, 24))
              .text("arrangeStripBackgroundColor", color(1, 2, 3))
              .text("arrangeStripBGGradient", "LinearGradient:{{0,0,0,100},{255,255,255,100},V}")
              .text("arrangeStripBevel", "Bevel:{R,2,30}"));
  }
  /// Has both views answer these children from now on.
  static void answer(NSObject children) {
    given = children.object;
    detail::replaceFunction<"accessibilityChildren", givenChildren>(classNamed("ArrangeContentsSectionView"));
    detail::replaceFunction<"accessibilityChildren", givenChildren>(classNamed("ArrangeTrackHeaderSectionView"));
  }
  [[nodiscard]] bool draws() const {
    settledPicture();
    return bool(application_->draw(host::WindowKind::kArrange));
  }
};

TEST_F(HostileHost, MayTellAnythingOfItsElements) {
  host::Song song;
  song.tracks.resize(2);
  song.arrange.markers = {{.name = "", .start = 3, .end = 5, .color = host::SongColor{220, 40, 40}}};
  open(song);
  const auto everything = NSMutableArray::array();
  const double kNumbers[] = {0, -1, 1e-300, 12.5, 1e9, 1e18, 1e300, -1e300, kNaN, kInfinity, -kInfinity};
  for (const double a : kNumbers) {
    for (const double b : kNumbers) {
      everything.addObject(element(sized(a, b), placed(b, a), {}, NSAccessibilityLayoutItemRole));
    }
  }
  const NSArray kOdd = arrayOf({string("text"), NSNumber::numberWithDouble(5), NSNull::null(), NSArray::array(),
                                NSValue::valueWithRect(CGRectMake(1, 2, 3, 4)), NSValue::valueWithPointer(nullptr),
                                NSObject(asObject(classNamed("NSString")))});
  for (const NSObject odd : items(kOdd)) {
    everything.addObject(element(odd, odd, odd, odd));
    everything.addObject(element(sized(5, 5), odd, {}, NSAccessibilityLayoutItemRole));
    everything.addObject(element(odd, placed(5, 5), {}, NSAccessibilityLayoutItemRole));
    everything.addObject(odd);
  }
  const Ref<NSObject> row = element({}, {}, everything);
  for (const NSObject children :
       {NSObject(everything), NSObject(arrayOf({row})), NSObject(), NSObject(string("no list"))}) {
    answer(children);
    EXPECT_TRUE(draws());
  }
}

TEST_F(HostileHost, MayNestItsElementsWithoutEnd) {
  host::Song song;
  song.tracks.resize(1);
  song.arrange.markers = {{.name = "", .start = 1, .end = 30, .color = host::SongColor{220, 40, 40}}};
  open(song);
  const CGRect screen =
      contents().window().convertRectToScreen(contents().convertRectToView(CGRectMake(300, 200, 40, 40), NSView()));
  const auto regionAtDepth = [&](int depth) {
    Ref<NSObject> inside = element(NSValue::valueWithSize(screen.size), NSValue::valueWithPoint(screen.origin), {},
                                   NSAccessibilityLayoutItemRole);
    for (int i = 1; i < depth; ++i) inside = element({}, {}, arrayOf({inside}));
    return arrayOf({inside});
  };
  for (const int depth : {1, 7, 8, 100}) {
    answer(regionAtDepth(depth));
    EXPECT_TRUE(draws());
    EXPECT_EQ(pixel(picture(), 321, 221).alpha == 0, depth < 8) << "a band stays off a region at depth " << depth;
  }
  // Elements that hold themselves.
  const Ref<NSObject> loop = element();
  stateOf<OddElement>(loop).children = arrayOf({loop, loop, loop});
  answer(stateOf<OddElement>(loop).children.get());
  EXPECT_TRUE(draws());
  stateOf<OddElement>(loop).children = Ref<NSObject>();
}

TEST_F(HostileHost, MayHaveARulerOfNoSize) {
  open(sampleSong());
  const Ref<NSView> ruler = application_->arrange().ruler();
  for (const CGSize size : {CGSize{0, 0}, CGSize{1, 1}, CGSize{3, 76}, CGSize{2048, 3}, CGSize{2048, 1}, CGSize{4, 4},
                            CGSize{2048, 11}, CGSize{2048, 400}}) {
    ruler->setFrameSize(size);
    EXPECT_TRUE(draws()) << size.width << "x" << size.height;
  }
  const NSView headers = application_->arrange().headers();
  for (const double height : {0.0, 0.5, 1.0, 20'000.0}) {
    headers.setFrameSize({220, height});
    EXPECT_TRUE(draws()) << height;
  }
  ruler->removeFromSuperview();
  EXPECT_TRUE(draws());
}

TEST_F(HostileHost, MayGiveAnySettings) {
  open(sampleSong());
  const char* kKeys[] = {"barOpacity",   "beatOpacity",      "divOpacity",        "barWidth",
                         "beatWidth",    "divWidth",         "lineGray",          "masterOpacity",
                         "tintVibrance", "adaptiveStrength", "markerBandsOpacity"};
  for (const char* value : {"nan", "inf", "-inf", "1e308", "-1e308", "1e-320", "0"}) {
    for (const int mode : {0, 1, 2}) {
      ThemeFile grid = ThemeFile().flag("enabled", true).flag("markerBandsEnabled", true).integer("colorMode", mode);
      for (const char* key : kKeys) grid.text(key, value);
      set(grid);
      EXPECT_TRUE(draws()) << value;
    }
  }
}

NSBitmapImageRep raisedBitmap(NSView /*self*/, CGRect /*rect*/) {
  NSException::raise(literal<"Refused">(), literal<"no picture now">());
  return {};
}

TEST_F(HostileHost, MayRaiseWhileItsColorsAreRead) {
  open(sampleSong());
  picture();
  const Class view = classNamed("ArrangeContentsSectionView");
  detail::replaceFunction<"bitmapImageRepForCachingDisplayInRect:", raisedBitmap>(view);
  EXPECT_GT(standin::runMainQueue(), 0U);
  const auto window = application_->draw(host::WindowKind::kArrange);
  set(ThemeFile());
  const auto without = application_->draw(host::WindowKind::kArrange);
  EXPECT_FALSE(areSame(window, without)) << "grid and bands are still drawn";
}

NSString raisedRole(NSObject /*self*/) {
  NSException::raise(literal<"Refused">(), literal<"no role now">());
  return {};
}

TEST_F(HostileHost, MayRaiseWhileItsRegionsAreFound) {
  open(sampleSong());
  const auto shown = [&](bool grid, bool bands) {
    set(ThemeFile().flag("enabled", grid).flag("markerBandsEnabled", bands).integer("colorMode", 0));
    return picture();
  };
  const NSBitmapImageRep lines = shown(true, false);
  detail::replaceFunction<"accessibilityRole", raisedRole>(classNamed("MAAccessibilityElement"));
  EXPECT_TRUE(areSame(shown(true, false), lines)) << "the grid asks for no roles";
  EXPECT_FALSE(areSame(shown(true, true), lines)) << "bands without regions";
  EXPECT_FALSE(areSame(shown(true, true), shown(false, true))) << "and the grid over them";
}

TEST_F(HostileHost, MayShowThousandsOfTracksAndRegions) {
  host::Song song;
  std::mt19937 random(5);
  for (int i = 0; i < 5'000; ++i) {
    host::Track& track = song.tracks.emplace_back();
    track.name = "T";
    track.selected = i % 5 == 0;
    track.folder = i % 7 == 0;
    track.color = host::SongColor{i % 256, 90, 160};
    for (int k = 0; k < 4; ++k) {
      track.regions.push_back({.name = "R", .start = 1 + 8.0 * k + static_cast<double>(random() % 8), .length = 4});
    }
  }
  for (int i = 0; i < 60; ++i) {
    song.arrange.markers.push_back(
        {.name = "M", .start = 1.0 + i, .end = 2.0 + i, .color = host::SongColor{220, 40 * (i % 5), 40}});
  }
  open(std::move(song));
  const auto begin = std::chrono::steady_clock::now();
  application_->settle(host::WindowKind::kArrange);
  application_->arrange().setScroll(200, 100'000);
  EXPECT_TRUE(draws());
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
#if !defined(__SANITIZE_ADDRESS__)
  EXPECT_LT(seconds, 30);
#endif
  RecordProperty("seconds", std::to_string(seconds));
  const NSBitmapImageRep with = picture();
  set(ThemeFile());
  EXPECT_FALSE(areSame(with, picture()));
}

}  // namespace
