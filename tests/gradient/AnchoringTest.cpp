// Gradients tied to the sections of a strip, in a node tree of the host with the bundle loaded.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "cocoa/Call.h"
#include "host/mixer/MANode.h"
#include "standin/steering/Clock.h"
#include "tests/support/HostTest.h"

namespace {

using namespace cocoa;
using namespace support;
using testing::DoubleNear;
using testing::Pointwise;

/// A mixer of bare strips, 600 points high, whose sections the test places itself.
class Anchoring : public HostTest {
 protected:
  void SetUp() override { standin::setClock(1000); }
  void start(const ThemeFile& theme) {
    startWith(writeTheme(theme.list()), songOf({host::Track{}}));
    root_ = host::makeNode("MANode", "mixer", CGRectMake(0, 0, 800, 600));
  }
  NSObject addStrip(double height = 600) {
    const Ref<NSObject> strip = host::makeNode("MAStripNode", "strip", CGRectMake(0, 0, 84, height));
    call<"addChild:">(root_.get(), strip.get());
    return strip;
  }
  static NSObject addSection(NSObject strip, const char* name, double bottom, double height) {
    const Ref<NSObject> section = host::makeNode("MANode", name, CGRectMake(0, bottom, 80, height));
    call<"addChild:">(strip, section.get());
    return section;
  }
  static double boundary(NSObject strip, const char* anchor) {
    return call<"vlrBoundaryYForAnchor:", double>(strip, string(anchor));
  }
  static NSObject gradient(const char* text) {
    return call<"gradientFromString:", NSObject>(classNamed("VLRStripGradient"), string(text));
  }
  /// The resolved locations; empty when the gradient cannot be resolved.
  static std::vector<double> locations(NSObject strip, const char* text, NSColor base = NSColor()) {
    id colors = nullptr;
    id places = nullptr;
    std::vector<double> found;
    if (call<"vlrResolveGradient:baseColor:outColors:outLocations:", BOOL>(strip, gradient(text), base, &colors,
                                                                           &places) == 0) {
      return found;
    }
    for (const NSNumber place : items<NSNumber>(NSArray(places))) found.push_back(place.doubleValue());
    EXPECT_EQ(NSArray(colors).count(), found.size());
    return found;
  }
  Ref<NSObject> root_;
};

struct AnchorCase {
  const char* anchor;
  std::vector<const char*> above;
  std::vector<const char*> below;
  double fallback;
};

const std::vector<AnchorCase>& anchors() {
  static const std::vector<AnchorCase> all = {
      {"gainreduction", {"setting", "libraryIndicator"}, {"gainReductionMeter"}, 535},
      {"eq", {"gainReductionMeter", "setting", "libraryIndicator"}, {"equalizerThumbnail"}, 524},
      {"midifx", {"setting", "gainReductionMeter", "equalizerThumbnail", "libraryIndicator"}, {"midiPlugIn"}, 480},
      {"input", {"midiPlugIn", "equalizerThumbnail"}, {"input", "channelMode"}, 465},
      {"audiofx",
       {"input", "channelMode", "midiPlugIn", "equalizerThumbnail"},
       {"audioPlugIn", "masteringAssistant"},
       440},
      {"inserts",
       {"setting", "gainReductionMeter", "equalizerThumbnail", "libraryIndicator"},
       {"midiPlugIn", "input", "audioPlugIn", "sendButton", "output", "channelMode", "masteringAssistant"},
       490},
      {"sends",
       {"midiPlugIn", "input", "audioPlugIn", "channelMode", "masteringAssistant"},
       {"sendButton", "output"},
       395},
      {"automation",
       {"midiPlugIn", "input", "audioPlugIn", "sendButton", "output", "channelMode", "masteringAssistant"},
       {"group", "automation", "icon"},
       344},
      {"pan", {"group", "automation", "icon", "sendButton", "output"}, {"pan"}, 297},
      {"fader",
       {"group", "automation", "icon", "pan"},
       {"peak", "volume", "volumeFader", "volumeScale", "level", "levelScale"},
       254},
      {"name", {"mute", "bounce", "solo", "dim"}, {"name", "notes"}, 48},
  };
  return all;
}

TEST_F(Anchoring, FindsEveryBorderFromEitherSide) {
  start(ThemeFile());
  for (const AnchorCase& c : anchors()) {
    for (const char* above : c.above) {
      for (const char* below : c.below) {
        call<"removeAllChildren">(root_.get());
        const NSObject one = addStrip();
        const NSObject two = addStrip();
        const NSObject other = addStrip();
        addSection(one, above, 320, 20);
        addSection(one, below, 100, 180);
        addSection(two, below, 280, 30);  // the border is found over all strips
        addSection(two, above, 400, 20);
        addSection(other, above, 10, 0);  // not shown
        addSection(other, "unknown", 250, 200);
        standin::setClock(CFAbsoluteTimeGetCurrent() + 3);
        EXPECT_EQ(boundary(two, c.anchor), 315) << c.anchor << ": " << above << " over " << below;
      }
    }
  }
}

TEST_F(Anchoring, FallsBackWhereSectionsAreMissingOrOverlap) {
  start(ThemeFile());
  for (const AnchorCase& c : anchors()) {
    for (const char* what : {"none", "above", "below", "overlap", "touch"}) {
      call<"removeAllChildren">(root_.get());
      standin::setClock(CFAbsoluteTimeGetCurrent() + 3);
      const NSObject strip = addStrip();
      const std::string kind = what;
      if (kind != "none" && kind != "below") addSection(strip, c.above.front(), 300, 20);
      if (kind == "below" || kind == "overlap") addSection(addStrip(), c.below.front(), 290, 20);
      if (kind == "touch") addSection(strip, c.below.front(), 280, 20);
      EXPECT_EQ(boundary(strip, c.anchor), kind == "touch" ? 300 : c.fallback) << c.anchor << ", " << what;
    }
  }
  EXPECT_EQ(boundary(addStrip(), "Fader"), -1);
  EXPECT_EQ(boundary(addStrip(), ""), -1);
}

TEST_F(Anchoring, RemembersBordersOfOneLayoutForTwoSeconds) {
  start(ThemeFile());
  const NSObject strip = addStrip();
  addSection(strip, "icon", 320, 20);
  const NSObject pan = addSection(strip, "pan", 280, 30);
  const auto move = [&](double bottom) { call<"setFrame:">(pan, CGRectMake(0, bottom, 80, 30)); };
  EXPECT_EQ(boundary(strip, "pan"), 315);
  move(260);
  EXPECT_EQ(boundary(strip, "pan"), 315) << "remembered";
  standin::setClock(1002);
  EXPECT_EQ(boundary(strip, "pan"), 315) << "two seconds are not yet over";
  standin::setClock(1002.01);
  EXPECT_EQ(boundary(strip, "pan"), 305) << "time";

  move(240);
  const NSObject second = addStrip();
  EXPECT_EQ(boundary(strip, "pan"), 295) << "the number of strips";

  move(220);
  call<"setFrame:">(second, CGRectMake(0, 0, 84, 500));
  EXPECT_EQ(boundary(second, "pan"), 285) << "the height";
  move(200);
  EXPECT_EQ(boundary(strip, "pan"), 275) << "the height, back again: a moved section is noticed";
  addSection(second, "pan", 290, 20);
  call<"setFrame:">(second, CGRectMake(0, 0, 84, 480));
  EXPECT_EQ(boundary(second, "pan"), 315) << "the asking strip's own sections count";

  const Ref<NSObject> elsewhere = host::makeNode("MANode", "mixer", CGRectMake(0, 0, 800, 600));
  const Ref<NSObject> other = host::makeNode("MAStripNode", "strip", CGRectMake(0, 0, 84, 480));
  call<"addChild:">(elsewhere.get(), other.get());
  call<"addChild:">(elsewhere.get(), host::makeNode("MAStripNode", "strip", CGRectMake(0, 0, 84, 480)).get());
  EXPECT_EQ(boundary(other.get(), "pan"), 297) << "the mixer";
}

TEST_F(Anchoring, TakesOverNoBorderThatIsOlderThanTwoSeconds) {
  start(ThemeFile());
  const NSObject tall = addStrip();
  const NSObject small = addStrip(500);
  const NSObject third = addStrip();
  addSection(tall, "icon", 320, 20);
  addSection(tall, "pan", 280, 30);
  const NSObject later = addSection(third, "pan", 200, 30);
  EXPECT_EQ(boundary(tall, "pan"), 315);
  standin::setClock(1001.9);
  EXPECT_EQ(boundary(small, "pan"), 315) << "taken over for the other height";
  call<"setFrame:">(later, CGRectMake(0, 288, 80, 30));
  standin::setClock(1002.5);
  EXPECT_EQ(boundary(small, "pan"), 319) << "two seconds after the walk, not after the taking over";
}

TEST_F(Anchoring, AsksAboutSectionsThatAreGoneWithoutHarm) {
  start(ThemeFile());
  const NSObject tall = addStrip();
  const NSObject small = addStrip(500);
  addSection(tall, "icon", 320, 20);
  addSection(tall, "pan", 280, 30);
  EXPECT_EQ(boundary(tall, "pan"), 315);
  call<"removeAllChildren">(tall);  // the sections that decided the border are disposed of
  EXPECT_EQ(boundary(small, "pan"), 297);
}

/// A gradient of stops at some places; the first is (1, 1, 1), the second (2, 2, 2), and so on.
std::string stopsAt(const std::vector<const char*>& places, const char* end = "V") {
  std::string text = "LinearGradient:{";
  int level = 0;
  for (const char* place : places) {
    const std::string grey = std::to_string(++level);
    text.append("{").append(grey).append(",").append(grey).append(",").append(grey).append(",100,");
    text.append(place).append("},");
  }
  return text + end + "}";
}

TEST_F(Anchoring, PlacesSortsAndSmoothsStops) {
  start(ThemeFile());
  struct Case {
    std::string gradient;
    double height;
    std::vector<double> expected;
  };
  const double fader = 1 - 254 / 600.0;
  const Case kCases[] = {
      {stopsAt({"30", "60"}), 1, {0.3, 0.6}},
      {stopsAt({"0", "@fader", "100"}), 600, {0, fader, 1}},
      {stopsAt({"0", "90", "@fader"}), 600, {0, fader, 0.9}},
      {stopsAt({"50", "@eq"}), 300, {0, 0.5}},  // beyond the strip
      {stopsAt({"0", "50", "50", "100"}, "V,S6"), 600, {0, 0.495, 0.505, 1}},
      // Never past the neighbours: the second edge meets the stop that the first one moved.
      {stopsAt({"49", "50", "50", "51"}, "V,S60"), 600, {0.49, 0.49, 0.49, 0.56}},
      {stopsAt({"50", "50", "50"}, "V,S6"), 600, {0.495, 0.495, 0.505}},  // from those already moved
      {stopsAt({"0", "0"}, "V,S6"), 600, {0, 0.005}},
      {stopsAt({"0", "@fader"}), 1.9, {}},  // too low for an anchor
      {"LinearGradient:{{1,1,1,100},{2,2,2,100},V,S4}", 1.9, {}},
      {"AutoGradient:{10,-10,V}", 600, {}},  // there is no base
  };
  for (const Case& c : kCases) {
    EXPECT_THAT(locations(addStrip(c.height), c.gradient.c_str()), Pointwise(DoubleNear(1e-9), c.expected))
        << c.gradient << " at " << c.height;
  }
  EXPECT_EQ(locations(addStrip(), "AutoGradient:{10,-10,V}", NSColor::whiteColor()).size(), 2U);
  id colors = nullptr;
  id places = nullptr;
  static_cast<void>(call<"vlrResolveGradient:baseColor:outColors:outLocations:", BOOL>(
      addStrip(), gradient(stopsAt({"0", "90", "@fader"}).c_str()), NSColor(), &colors, &places));
  EXPECT_EQ(rgba(cast<NSColor>(NSArray(colors).objectAtIndex(1))), (Rgba{3, 3, 3}))
      << "the colours move with their locations";
}

TEST_F(Anchoring, FailsOnABorderBelowTheStrip) {
  start(ThemeFile());
  const NSObject strip = addStrip();
  addSection(strip, "icon", -20, 10);
  addSection(strip, "pan", -60, 10);
  EXPECT_EQ(boundary(strip, "pan"), -35);
  EXPECT_TRUE(locations(strip, "LinearGradient:{{1,1,1,100,0},{2,2,2,100,@pan},V}").empty());
  call<"removeAllChildren">(root_.get());
  const NSObject endless = addStrip();
  addSection(endless, "icon", INFINITY, 10);
  addSection(endless, "pan", -INFINITY, 10);
  EXPECT_TRUE(locations(endless, "LinearGradient:{{1,1,1,100,0},{2,2,2,100,@pan},V}").empty()) << "no number";
}

TEST_F(Anchoring, DrawsTheRestWhereTheGradientFails) {
  start(ThemeFile().text("mixerStripBGGradient",
                         "LinearGradient:{{250,0,0,100,0},{250,0,0,100,50},{250,0,0,100,@pan},V}"));
  const NSObject strip = addStrip();
  addSection(strip, "icon", -20, 10);
  addSection(strip, "pan", -60, 10);
  const auto pattern = call<"vlrApplyStripGradient:highlighted:overlayColor:", NSColor>(
      strip, NSColor::colorWithSRGBRed(0, 0, 0.8, 1), BOOL(0), NSColor::colorWithSRGBRed(0, 0.4, 0, 0.5));
  EXPECT_TRUE(near(patternPixel(pattern, 0, 0), {0, 51, 102})) << "base and overlay alone";
}

// ---- Which gradient a strip takes ------------------------------------------------------------------

/// What a strip is given for a base, a state and an overlay: the base itself, nothing, or the colour at the
/// middle of its top row.
std::string applied(NSObject strip, NSColor base, bool highlighted, NSColor overlay) {
  const auto result =
      call<"vlrApplyStripGradient:highlighted:overlayColor:", NSColor>(strip, base, BOOL(highlighted), overlay);
  if (!result) return "nil";
  if (result == base) return "base";
  std::ostringstream text;
  text << patternPixel(result, static_cast<long>(patternSize(result).width) / 2, 0);
  return text.str();
}

TEST_F(Anchoring, ChoosesTheGradientOfTheStrip) {
  const std::string plain = "LinearGradient:{{10,10,10,100},{10,10,10,100},V}";
  const std::string selected = "LinearGradient:{{20,20,20,100},{20,20,20,100},V}";
  const ThemeFile both =
      ThemeFile().text("mixerStripBGGradient", plain).text("mixerStripHighlightBGGradient", selected);
  const NSColor base = NSColor::colorWithSRGBRed(0.4, 0.4, 0.4, 1);
  const NSColor veil = NSColor::colorWithSRGBRed(1, 0, 0, 1);
  const NSColor none;
  struct Case {
    ThemeFile theme;
    NSColor base;
    bool highlighted;
    NSColor overlay;
    const char* expected;
  };
  const ThemeFile tracks = ThemeFile(both).flag("useTrackColorAsStripBackground", true);
  const ThemeFile autos = ThemeFile(tracks).text("UseTrackColorGradient_Mixer", "AutoGradient:{20,-20,V}");
  const NSColor glass = NSColor::colorWithSRGBRed(1, 0, 0, 0);
  const Case kCases[] = {
      {ThemeFile(), base, false, none, "base"},
      {ThemeFile(), none, false, none, "nil"},
      {both, base, false, none, "(10, 10, 10, 100%)"},
      {both, base, true, none, "(20, 20, 20, 100%)"},
      {ThemeFile().text("mixerStripBGGradient", plain), base, true, none, "(10, 10, 10, 100%)"},
      {ThemeFile().text("mixerStripHighlightBGGradient", selected), base, false, none, "base"},
      {both, none, false, none, "nil"},
      {tracks, base, false, none, "base"},  // without an auto gradient
      {autos, base, false, none, "(153, 153, 153, 100%)"},
      {autos, base, true, glass, "(20, 20, 20, 100%)"},  // the theme's gradient below an overlay
      {autos, base, false, veil, "(255, 0, 0, 100%)"},
      {ThemeFile(), none, false, veil, "(255, 0, 0, 100%)"},
      {ThemeFile().text("mixerStripBevel", "Bevel:{R,2,100}"), none, false, none, "nil"},
  };
  eachInChild(kCases, [&](const Case& c) {
    const AutoreleasePool pool;
    start(c.theme);
    EXPECT_EQ(applied(addStrip(), c.base, c.highlighted, c.overlay), c.expected);
  });
}

TEST_F(Anchoring, GivesTheBevelOfTheState) {
  start(ThemeFile().text("mixerStripBevel", "Bevel:{R,2,100,D}"));
  const NSObject strip = addStrip();
  const NSColor base = NSColor::colorWithSRGBRed(0.4, 0.4, 0.4, 1);
  for (const bool highlighted : {false, true}) {
    const auto pattern = call<"vlrApplyStripGradient:highlighted:", NSColor>(strip, base, BOOL(highlighted));
    EXPECT_EQ(patternSize(pattern), (CGSize{84, 600}));
    const long light = highlighted ? 0 : 255;
    EXPECT_EQ(patternPixel(pattern, 0, 300), (Rgba{light, light, light}));
    EXPECT_EQ(patternPixel(pattern, 83, 300), (Rgba{255 - light, 255 - light, 255 - light}));
    EXPECT_EQ(patternPixel(pattern, 42, 0), (Rgba{102, 102, 102})) << "the top is not bevelled";
  }
}

}  // namespace
