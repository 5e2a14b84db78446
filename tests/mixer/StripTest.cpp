// Strips as the host draws them with the bundle loaded.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <set>

#include "cocoa/Call.h"
#include "cocoa/Exception.h"
#include "cocoa/Override.h"
#include "host/mixer/MANode.h"
#include "host/mixer/MATextNode.h"
#include "host/mixer/MixerData.h"
#include "tests/support/HostTest.h"

namespace {

using namespace cocoa;
using host::StripType;
using host::Track;
using namespace support;

constexpr Rgba kTrackColor{200, 100, 50};
const Rgba kHostStrip{62, 63, 66};
const Rgba kHostHighlight{92, 95, 102};

Track track(StripType type, bool folder = false) {
  Track made;
  made.type = type;
  made.folder = folder;
  made.name = "Track";
  made.color = host::SongColor{200, 100, 50};
  return made;
}

/// A host that shows one strip of each kind: audio, folder, aux, bus, instrument, and one of an unnamed kind.
class Strips : public HostTest {
 protected:
  enum Index : NSUInteger { kAudio, kFolder, kAux, kBus, kInstrument, kOther };

  void start(const ThemeFile& theme, const std::string& reference = {}, host::HostOptions options = {}) {
    host::Song song = songOf({track(StripType::kAudio), track(StripType::kAudio, true), track(StripType::kAux),
                              track(StripType::kBus), track(StripType::kInstrument), track(StripType::kOther)});
    startWith(writeTheme(theme.list(), reference), std::move(song), std::move(options));
  }
  [[nodiscard]] NSColor background(NSUInteger index) const { return call<"backgroundColor", NSColor>(strip(index)); }
  [[nodiscard]] NSColor highlighted(NSUInteger index) const {
    return call<"highlightedBackgroundColor", NSColor>(strip(index));
  }
};

TEST_F(Strips, TakeTheColorsOfTheirKind) {
  start(ThemeFile()
            .text("stripBackgroundColor", color(10, 11, 12))
            .text("folderStripBackgroundColor", color(20, 21, 22))
            .text("auxStripBackgroundColor", color(30, 31, 32))
            .text("stripHighlightBackgroundColor", color(110, 11, 12))
            .text("folderStripHighlightBackgroundColor", color(120, 21, 22))
            .text("stripBorderColor", color(1, 2, 3, 50)));
  for (const NSUInteger normal : {kAudio, kBus, kInstrument, kOther}) {
    EXPECT_EQ(rgba(background(normal)), (Rgba{10, 11, 12})) << normal;
    EXPECT_EQ(rgba(highlighted(normal)), (Rgba{110, 11, 12})) << normal;
  }
  EXPECT_EQ(rgba(background(kFolder)), (Rgba{20, 21, 22}));
  EXPECT_EQ(rgba(highlighted(kFolder)), (Rgba{120, 21, 22}));
  EXPECT_EQ(rgba(background(kAux)), (Rgba{30, 31, 32}));
  EXPECT_EQ(rgba(highlighted(kAux)), (Rgba{88, 92, 100})) << "an absent key leaves the host's own";
  EXPECT_EQ(rgba(call<"borderColor", NSColor>(strip(kAudio))), (Rgba{1, 2, 3, 50}));
  EXPECT_EQ(rgba(call<"customBackgroundColor", NSColor>(strip(kAudio))), kHostStrip);
}

TEST_F(Strips, TakeTheTrackColorAtTheOpacityOfTheirKind) {
  start(ThemeFile()
            .flag("useTrackColorAsStripBackground", true)
            .integer("UseTrackColor_MixerOpacity", 40)
            .integer("UseTrackColor_MixerHighlightedOpacity", 80)
            .integer("UseTrackColor_MixerFolderOpacity", 0)
            .integer("UseTrackColor_MixerAuxHighlightedOpacity", 7)
            .text("folderStripBackgroundColor", color(20, 21, 22)));
  const auto faded = [](long alpha) { return Rgba{200, 100, 50, alpha}; };
  EXPECT_EQ(rgba(background(kAudio)), faded(40));
  EXPECT_EQ(rgba(highlighted(kAudio)), faded(80));
  EXPECT_EQ(rgba(background(kFolder)), (Rgba{20, 21, 22})) << "opacity 0 leaves the track colour out";
  EXPECT_EQ(rgba(highlighted(kFolder)), faded(100)) << "100 unless the theme says otherwise";
  EXPECT_EQ(rgba(background(kAux)), faded(100)) << "from the data source: an aux strip colours no name";
  EXPECT_EQ(rgba(highlighted(kAux)), faded(7));
  EXPECT_EQ(rgba(background(kBus)), faded(40));
  EXPECT_EQ(rgba(background(kOther)), faded(40)) << "no name at all: from the data source";
}

TEST_F(Strips, LayTheTrackColorOverTheThemesGradient) {
  start(ThemeFile()
            .flag("useTrackColorAsStripBackground", true)
            .integer("UseTrackColor_MixerOpacity", 50)
            .text("mixerStripBGGradient", "LinearGradient:{{0,0,0,100},{0,0,0,100},V}")
            .text("mixerStripHighlightBGGradient", "LinearGradient:{{100,100,100,100},{100,100,100,100},V}")
            .text("UseTrackColorGradient_Mixer", "AutoGradient:{10,-10,V}"));
  EXPECT_TRUE(near(patternPixel(background(kAudio), 3, 100), {100, 50, 25}));
  EXPECT_TRUE(near(patternPixel(highlighted(kAudio), 3, 100), kTrackColor));
}

TEST_F(Strips, ShadeTheTrackColorWhereThereIsNoStripGradient) {
  start(ThemeFile()
            .flag("useTrackColorAsStripBackground", true)
            .integer("UseTrackColor_MixerOpacity", 50)
            .text("UseTrackColorGradient_Mixer", "AutoGradient:{{20},{-20},V}"));
  const NSColor pattern = background(kAudio);
  const auto height = static_cast<long>(patternSize(pattern).height);
  EXPECT_EQ(patternSize(pattern).width, 8);
  EXPECT_TRUE(near(patternPixel(pattern, 0, 0), {251, 125, 63, 50}, 2)) << patternPixel(pattern, 0, 0);
  EXPECT_TRUE(near(patternPixel(pattern, 0, height - 1), {149, 75, 37, 50}, 2));
}

TEST_F(Strips, ShowNoTrackColorThatTheNameFieldDoesNotShow) {
  start(ThemeFile().flag("useTrackColorAsStripBackground", true));
  const NSObject name = node(kAudio, "name");
  const std::pair<NSColor, Rgba> kCases[] = {
      {NSColor::colorWithSRGBRed(1, 0, 0, 1), {255, 0, 0}},
      {host::paletteColor(host::Palette::kStripBackground), kHostStrip},  // as that of the strip itself
      {host::paletteColor(host::Palette::kStripHighlight), kHostStrip},
      {NSColor::colorWithSRGBRed(1, 0, 0, 0), kHostStrip},
      {NSColor(), kTrackColor},  // the data source's
  };
  for (const auto& [behindTheName, expected] : kCases) {
    call<"setBackgroundColor:">(name, behindTheName);
    EXPECT_EQ(rgba(background(kAudio)), expected) << rgba(behindTheName);
  }
}

void raiseInstead(Class /*self*/) { NSException::raise(literal<"Refused">(), literal<"not now">()); }

TEST_F(Strips, AskTheDataSourceOnlyWhenTheWindowShowsTrackColors) {
  start(ThemeFile().flag("useTrackColorAsStripBackground", true));
  const auto colorOf = [&] { return rgba(call<"getStripColorFromDataSource", NSColor>(strip(kBus))); };
  const NSObject delegate = call<"delegate", NSObject>(application_->mixer().contentsView());
  auto& window = stateOf<host::CLgMixerWindow>(call<"mixerFENSTER", NSObject>(delegate));
  EXPECT_EQ(colorOf(), kTrackColor);
  window.showsTrackColors = false;
  EXPECT_EQ(colorOf(), rgba(NSColor()));
  const Class controller = metaclassOf(classNamed("ChannelStripConfigController"));
  class_replaceMethod(controller, selector<"createSaveConfigDict:">(),
                      reinterpret_cast<IMP>(+[](Class self, SEL, id) -> id { return raiseInstead(self), nullptr; }),
                      "@24@0:8@16");
  EXPECT_EQ(colorOf(), kTrackColor) << "what the host raises is let go, and the colours are allowed";
}

TEST_F(Strips, PutTheMixersBackgroundBehindThem) {
  struct Case {
    ThemeFile theme;
    Rgba expected;
  };
  const Rgba plain{9, 8, 7};
  const ThemeFile colors = ThemeFile().text("mixerBackgroundColor", color(9, 8, 7));
  const auto with = [&](const char* gradient) { return ThemeFile(colors).text("mixerStripBGGradient", gradient); };
  constexpr const char* kGradient = "LinearGradient:{{70,60,50,40},{0,0,0,100},V}";
  const Case kCases[] = {
      {ThemeFile(), {28, 28, 30}},
      {colors, plain},
      {with(kGradient), {70, 60, 50}},  // its first stop, opaque
      {with(kGradient).flag("mixerBGMatchGradient", false), plain},
      {with("AutoGradient:{10,-10,V}"), plain},  // there is no base
      {with("AutoGradient:{20,-10,V}").text("stripBackgroundColor", color(0, 0, 102)), {0, 0, 153}},
  };
  eachInChild(kCases, [&](const Case& c) {
    start(c.theme);
    EXPECT_EQ(rgba(call<"backgroundColor", NSColor>(application_->mixer().contentsView())), c.expected);
  });
}

TEST_F(Strips, LeaveAViewAloneThatTakesNoBackground) {
  start(ThemeFile().text("mixerBackgroundColor", color(9, 8, 7)));
  const Ref<NSView> view = NSView::withFrame(CGRectMake(0, 0, 10, 10));
  const Ref<NSObject> root = host::makeNode("MANode", "mixer", {});
  stateOf<host::MANode>(root.get()).ownView = view.get();
  const Ref<NSObject> bare = host::makeNode("MAStripNode", "strip", {});
  call<"addChild:">(root.get(), bare.get());
  EXPECT_FALSE(guarded([&] { call<"willUpdatePresentationObject">(bare.get()); }));
}

// ---- Empty slots --------------------------------------------------------------------------------

Ref<NSBitmapImageRep> drawnFrame(NSObject strip, bool knob) {
  const Ref<NSBitmapImageRep> bitmap =
      NSBitmapImageRep::withBitmapDataPlanes(nullptr, 40, 20, 8, 4, true, false, NSDeviceRGBColorSpace, 0, 32);
  const CGContextRef context = NSGraphicsContext::graphicsContextWithBitmapImageRep(bitmap).CGContext();
  const CGRect rect = CGRectMake(2, 2, 36, 16);
  if (knob) {
    call<"drawKnobFrame:inContext:">(strip, rect, context);
  } else {
    call<"drawSlotFrame:inContext:">(strip, rect, context);
  }
  return bitmap;
}

TEST_F(Strips, DrawEmptySlotsAndKnobs) {
  struct Case {
    ThemeFile theme;
    bool selected;
    bool knob;
    Rgba middle;
    bool fillsCorner;  // 4 points in, 1 up: inside a corner of radius 4, outside one of radius 8
  };
  const Rgba host{50, 51, 54};
  const Rgba hostSelected{74, 77, 83};
  const Rgba plain{10, 120, 30};
  const Rgba selected{200, 20, 30};
  const Rgba clear{0, 0, 0, 0};
  const ThemeFile colors =
      ThemeFile().text("emptySlotBGColor", color(10, 120, 30)).text("emptySlotSelectedBGColor", color(200, 20, 30));
  const auto rounder = [](ThemeFile theme, long radius) { return theme.integer("emptySlotBGCornerRadius", radius); };
  const Case kCases[] = {
      {ThemeFile(), false, false, host, true},
      {ThemeFile(), true, false, hostSelected, true},
      {ThemeFile(), false, true, host, false},
      {colors, false, false, plain, true},
      {colors, true, false, selected, true},
      {colors, false, true, plain, false},
      {colors, true, true, selected, false},
      {rounder(colors, 8), false, false, plain, false},
      {rounder(ThemeFile(), 8), false, false, clear, false},  // no colour: the edge alone
      {rounder(colors, 4000), false, false, plain, false},    // beyond the slot
  };
  eachInChild(kCases, [&](const Case& c) {
    start(c.theme);
    call<"setHighlightState:">(strip(kAudio), NSInteger(c.selected));
    const Ref<NSBitmapImageRep> bitmap = drawnFrame(strip(kAudio), c.knob);
    EXPECT_TRUE(near(pixel(bitmap, 20, 10), c.middle)) << pixel(bitmap, 20, 10);
    const Rgba corner = pixel(bitmap, 4, 16);
    EXPECT_EQ(corner.alpha > 50, c.fillsCorner) << corner;
    const Rgba edge = pixel(bitmap, 20, 1);  // half of the edge line lies outside of the rectangle
    EXPECT_TRUE(edge.alpha == 2 || edge.alpha == 3) << edge;
  });
}

CGImageRef titleImage(NSObject strip, const char* title, CGSize size, double scale) {
  return call<"cachedElementTitleImageForLocalizedTitle:imageSize:scale:", CGImageRef>(strip, string(title), size,
                                                                                       scale);
}

TEST_F(Strips, DrawTitlesOfEmptySlotsOncePerTitleAndSize) {
  start(ThemeFile().text("emptySlotButtonLabelColor", color(255, 0, 0)));
  const CGImageRef first = titleImage(strip(kAudio), "Audio FX", {60.5, 18.9}, 1);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(CGImageGetWidth(first), 60U);
  EXPECT_EQ(CGImageGetHeight(first), 18U);
  EXPECT_EQ(CGImageGetWidth(titleImage(strip(kAudio), "Audio FX", {60.5, 18.9}, 2)), 60U)
      << "the scale is no part of the key: the first bitmap is shown again";
  EXPECT_EQ(CGImageGetWidth(titleImage(strip(kAudio), "Audio FX", {60.6, 18.9}, 2)), 121U);
  EXPECT_EQ(CGImageGetWidth(titleImage(strip(kAudio), "Sends", {60.5, 18.9}, 2)), 121U);
  const auto bitmap = NSBitmapImageRep::withCGImage(first);
  const auto isRed = [](const Rgba& p) { return p.alpha > 20 && p.red > 240 && p.green < 15; };
  EXPECT_GT(std::ranges::count_if(pixels(bitmap), isRed), 10) << "drawn in the label colour";
  std::set<long> columns;
  std::set<long> rows;
  for (long i = 0; i < 60L * 18; ++i) {
    if (pixel(bitmap, i % 60, i / 60).alpha < 20) continue;
    columns.insert(i % 60);
    rows.insert(i / 60);
  }
  EXPECT_NEAR(static_cast<double>(*columns.begin() + *columns.rbegin()) / 2, 30, 1.5) << "centred";
  EXPECT_NEAR(static_cast<double>(*rows.begin() + *rows.rbegin()) / 2, 9, 2.5) << "in the middle of the slot";
  EXPECT_EQ(titleImage(strip(kAudio), "Huge", {1e9, 18}, 1), nullptr);
  EXPECT_EQ(titleImage(strip(kAudio), "NaN", {std::nan(""), 18}, 1), nullptr);
  EXPECT_NE(titleImage(strip(kAudio), "", {60, 18}, 1), nullptr) << "an empty title draws nothing";
  EXPECT_EQ(titleImage(strip(kAudio), "None", {0, 18}, 1), nullptr);
}

// ---- Texts ---------------------------------------------------------------------------------------

TEST_F(Strips, ColorTheirTexts) {
  start(ThemeFile()
            .text("nameAndNumberTitleColor", color(1, 0, 0))
            .text("nameAndNumberTitleHighlightColor", color(2, 0, 0))
            .text("typeAndNumberTitleColor", color(3, 0, 0))
            .text("pannerTitleColor", color(4, 0, 0))
            .text("pannerTitleHighlightColor", color(5, 0, 0)));
  const auto textColor = [&](NSObject text) { return rgba(call<"foregroundColor", NSColor>(text)); };
  const NSObject pan = node(kAudio, "pan");
  const Ref<NSObject> readout = host::makeNode("MATextNode", "panner readout", {});
  call<"addChild:">(pan, readout.get());
  const Ref<NSObject> other = host::makeNode("MATextNode", "libraryIndicator", {});
  struct Case {
    NSObject text;
    Rgba plain;
    Rgba highlighted;
  };
  const Rgba hostText = textColor(other.get());
  const Rgba hostLabel{150, 152, 158};
  const Case kCases[] = {{node(kAudio, "name"), {1, 0, 0}, {2, 0, 0}},
                         {node(kAudio, "number"), {1, 0, 0}, {2, 0, 0}},
                         {node(kAudio, "label"), {3, 0, 0}, hostLabel},
                         {readout.get(), {4, 0, 0}, {5, 0, 0}},
                         {other.get(), hostText, hostText}};
  for (const Case& c : kCases) EXPECT_EQ(textColor(c.text), c.plain) << toStdString(c.text.description());
  call<"setHighlightState:">(strip(kAudio), NSInteger(1));
  stateOf<host::MANode>(readout.get()).highlightState = 0;  // the knob's state decides, not its own
  for (const Case& c : kCases) EXPECT_EQ(textColor(c.text), c.highlighted) << toStdString(c.text.description());
}

TEST_F(Strips, ShowThroughBehindTextsThatHaveNoColorOfTheirOwn) {
  struct Case {
    ThemeFile theme;
    Rgba plain;
    Rgba selected;
  };
  const Rgba clear{0, 0, 0, 0};
  const Rgba plain{10, 20, 30};
  const Rgba selected{40, 50, 60};
  const ThemeFile colors = ThemeFile()
                               .text("stripBackgroundColor", color(10, 20, 30))
                               .text("stripHighlightBackgroundColor", color(40, 50, 60));
  const auto with = [&](const char* key, const char* value) { return ThemeFile(colors).text(key, value); };
  constexpr const char* kLinear = "LinearGradient:{{1,1,1,100},{2,2,2,100},V}";
  constexpr const char* kAuto = "AutoGradient:{9,-9,V}";
  constexpr const char* kTracks = "useTrackColorAsStripBackground";
  const Case kCases[] = {
      {ThemeFile(), kHostStrip, kHostHighlight},
      {colors, plain, selected},
      {with("mixerStripBGGradient", kLinear), clear, clear},
      {with("mixerStripHighlightBGGradient", kLinear), plain, clear},
      {with("mixerStripBevel", "Bevel:{R,2,30}"), clear, clear},
      {with("UseTrackColorGradient_Mixer", kAuto), plain, selected},  // unused
      {with("UseTrackColorGradient_Mixer", kAuto).flag(kTracks, true), clear, clear},
      {with("mixerStripHighlightBGGradient", kLinear).flag(kTracks, true), plain, selected},
  };
  eachInChild(kCases, [&](const Case& c) {
    start(c.theme);
    const auto behind = [&](const char* text) { return rgba(call<"backgroundColor", NSColor>(node(kAudio, text))); };
    EXPECT_EQ(behind("number"), c.plain);
    EXPECT_EQ(behind("name"), kTrackColor) << "a colour of its own stays";
    call<"setHighlightState:">(strip(kAudio), NSInteger(1));
    EXPECT_EQ(behind("number"), c.selected);
  });
}

TEST_F(Strips, AreRedrawnWhenTheirNameChangesColor) {
  start(ThemeFile().flag("useTrackColorAsStripBackground", true));
  const auto redrawn = [&](const char* text, NSColor behind) {
    call<"setNeedsDisplay:">(strip(kAudio), BOOL(0));
    call<"setBackgroundColor:">(node(kAudio, text), behind);
    return call<"needsDisplay", BOOL>(strip(kAudio)) != 0;
  };
  const NSColor red = NSColor::colorWithSRGBRed(1, 0, 0, 1);
  EXPECT_TRUE(redrawn("name", red));
  EXPECT_FALSE(redrawn("name", NSColor::colorWithSRGBRed(1, 0, 0, 1))) << "an equal colour changes nothing";
  EXPECT_FALSE(redrawn("number", red));
}

// ---- Installation --------------------------------------------------------------------------------

TEST_F(Strips, StayThemedWhenTheInstallerIsSentAgain) {
  start(ThemeFile().text("stripBackgroundColor", color(10, 11, 12)).text("nameAndNumberTitleColor", color(1, 2, 3)));
  for (const char* name : {"MAStripNode", "MATextNode", "NSColor"}) call<"addSwizzleMethod">(classNamed(name));
  EXPECT_EQ(rgba(background(kAudio)), (Rgba{10, 11, 12}));
  EXPECT_EQ(rgba(call<"foregroundColor", NSColor>(node(kAudio, "name"))), (Rgba{1, 2, 3}));
}

TEST_F(Strips, OfTheDefaultThemeHaveNoOverride) {
  startWith("default", sampleSong());
  const Method host = class_getInstanceMethod(classNamed("MAStripNode"), selector<"backgroundColor">());
  const Method custom = class_getInstanceMethod(classNamed("MAStripNode"), selector<"customBackgroundColor">());
  ASSERT_NE(custom, nullptr) << "the category is attached";
  EXPECT_NE(method_getImplementation(host), method_getImplementation(custom));
  EXPECT_EQ(rgba(background(1)), kHostStrip);
}

TEST_F(Strips, ColorTheTitlesOfTheHostsWindowsAndItsCatalogue) {
  start(ThemeFile()
            .text("windowTitleColor", color(250, 10, 20))
            .text("StepSequencerStepOn", color(1, 2, 3))
            .text("StepSequencerHeader_EmptyAreaBelow", color(4, 5, 6)));
  for (const auto kind : {host::WindowKind::kMixer, host::WindowKind::kArrange, host::WindowKind::kStepSequencer}) {
    const auto isTitle = [](const Rgba& p) { return near(p, {250, 10, 20}, 3); };
    EXPECT_GT(std::ranges::count_if(pixels(application_->draw(kind)), isTitle), 10) << "drawn in the theme's colour";
  }
  const auto catalogue = [](const char* catalogueName, const char* name) {
    return rgba(NSColor::colorWithCatalogName(string(catalogueName), string(name)));
  };
  EXPECT_EQ(catalogue("#$assets-mainBundleID", "StepSequencerStepOn"), (Rgba{1, 2, 3}));
  EXPECT_EQ(catalogue("#$assets-mainBundleID", "StepSequencerStepOff"), (Rgba{70, 72, 77})) << "the host's own";
  EXPECT_EQ(catalogue("System", "StepSequencerStepOn"), rgba(NSColor())) << "another catalogue is the host's alone";
  EXPECT_EQ(rgba(call<"stepSequencerRowHeadersBackgroundColor", NSColor>(classNamed("NSColor"))), (Rgba{4, 5, 6}));
}

TEST_F(Strips, AnswerTheHelpersOfTheirCategory) {
  start(ThemeFile());
  const auto children = call<"childrenArray", NSArray>(strip(kAudio));
  const auto found = [&](const char* name) {
    return call<"getNodeWithName:name:", NSObject>(strip(kAudio), children, string(name));
  };
  EXPECT_EQ(found("pan"), node(kAudio, "pan"));
  EXPECT_FALSE(found("Pan"));
  const auto text = send<NSObject>(classNamed("NSMutableString"), selector<"string">());
  NSObject parent = strip(kAudio);
  for (const char* name : {"one", "two", "three", "four"}) {
    const Ref<NSObject> child = host::makeNode("MANode", name, {});
    call<"addChild:">(parent, child.get());
    parent = child;
  }
  call<"vlrDumpNodeTree:depth:into:">(strip(kAudio), strip(kAudio), NSInteger(0), text);
  const std::string dump = toStdString(cast<NSString>(text));
  EXPECT_NE(dump.find("\n      MANode 'three'"), std::string::npos) << dump;
  EXPECT_EQ(dump.find("'four'"), std::string::npos) << "four levels are shown";
}

// ---- Diagnostics: these tests create files under /tmp and run alone --------------------------------

class SwitchFileStrips : public Strips {};

TEST_F(SwitchFileStrips, DumpsTwelveLayoutsOfStrips) {
  namespace fs = std::filesystem;
  constexpr const char* kSwitch = "/tmp/vlr_dump_strip_nodes";
  constexpr const char* kDump = "/tmp/vlr_strip_nodes_dump.txt";
  const std::string victim = writeTheme("") + "/victim";
  writeFile(victim, "untouched");
  writeFile(kSwitch, "");
  fs::remove(kDump);
  fs::create_symlink(victim, kDump);
  host::Song song;
  for (int i = 0; i < 20; ++i) {  // each with another number of plug-ins, or a send more: 20 layouts
    Track made = track(StripType::kAudio);
    made.audioPlugIns.resize(static_cast<std::size_t>(i % 5));
    made.sends.resize(static_cast<std::size_t>(i / 5 % 3));
    made.notes = i >= 15 ? "notes" : "";
    song.tracks.push_back(made);
  }
  startWith(writeTheme(ThemeFile().flag("x", true).list()), std::move(song));
  fs::remove(kSwitch);
  const std::string dump = fileContents(kDump);
  fs::remove(kDump);
  int sections = 0;
  for (std::size_t at = 0; (at = dump.find("==== strip '", at)) != std::string::npos; ++at) ++sections;
  EXPECT_EQ(sections, 12);
  EXPECT_TRUE(dump.starts_with("==== strip 'strip' frame={{0, 0}, {84, ")) << dump.substr(0, 80);
  EXPECT_NE(dump.find(" parent=MANode ====\nMAStripNode 'strip' frame={{"), std::string::npos);
  EXPECT_NE(dump.find("\n  MAFaderNode 'volumeFader' frame={{20, 98}, {26, 146}}\n    MAImageNode 'fader knob'"),
            std::string::npos);
  EXPECT_EQ(fileContents(victim), "untouched") << "a link is replaced, not followed";
}

TEST_F(SwitchFileStrips, DumpsIntoApplicationSupportWhereTheTemporaryFolderRefuses) {
  namespace fs = std::filesystem;
  constexpr const char* kSwitch = "/tmp/vlr_dump_strip_nodes";
  constexpr const char* kDump = "/tmp/vlr_strip_nodes_dump.txt";
  writeFile(kSwitch, "");
  fs::remove(kDump);
  fs::create_directories(std::string(kDump) + "/in the way");
  startWith(writeTheme(ThemeFile().flag("x", true).list()), songOf({track(StripType::kAudio)}));
  fs::remove(kSwitch);
  fs::remove_all(kDump);
  const NSArray paths(NSSearchPathForDirectoriesInDomains(NSApplicationSupportDirectory, NSUserDomainMask, BOOL(1)));
  const std::string folder = toStdString(cast<NSString>(paths.objectAtIndex(0)));
  EXPECT_TRUE(fileContents(folder + "/Velura/strip-nodes-dump.txt").starts_with("==== strip 'strip'"));
}

TEST_F(SwitchFileStrips, TurnsGradientsOff) {
  constexpr const char* kSwitch = "/tmp/vlr_gradients_off";
  writeFile(kSwitch, "");
  start(ThemeFile()
            .text("stripBackgroundColor", color(10, 20, 30))
            .text("mixerBackgroundColor", color(9, 8, 7))
            .text("mixerStripBGGradient", "LinearGradient:{{1,1,1,100},{2,2,2,100},V}"));
  EXPECT_EQ(rgba(background(kAudio)), (Rgba{10, 20, 30}));
  EXPECT_EQ(rgba(call<"backgroundColor", NSColor>(node(kAudio, "number"))), (Rgba{10, 20, 30}));
  EXPECT_EQ(rgba(call<"vlrMixerBackgroundColor", NSColor>(theme())), (Rgba{9, 8, 7}));
  std::filesystem::remove(kSwitch);
}

}  // namespace
