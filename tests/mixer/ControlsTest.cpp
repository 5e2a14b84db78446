// The controls of a strip as the host draws them with the bundle loaded, one track for every case of a table.

#include <gtest/gtest.h>

#include <functional>

#include "cocoa/Call.h"
#include "cocoa/QuartzCore.h"
#include "host/mixer/MALevelNode.h"
#include "host/mixer/MAScaleNode.h"
#include "plugin/mixer/LevelMeters.h"
#include "tests/support/HostTest.h"
#include "tests/support/KeyColors.h"

namespace {

using namespace cocoa;
using host::PlugInSlot;
using host::StripType;
using host::Track;
using namespace support;

constexpr host::ComponentCodes kGrouped{0x61756678, 0x64656C79, 0x64656D6F};

Track instrument(PlugInSlot slot) {
  Track made;
  made.type = StripType::kInstrument;
  static_cast<PlugInSlot&>(made.instrument) = std::move(slot);
  return made;
}

class Controls : public HostTest {
 protected:
  void start(const ThemeFile& theme, std::vector<Track> tracks, host::HostOptions options = {},
             const std::string& reference = {}) {
    startFrom(writeTheme(theme.list(), reference), std::move(tracks), std::move(options));
  }
  void startFrom(const std::string& theme, std::vector<Track> tracks, host::HostOptions options = {}) {
    host::Song song;
    song.tracks = std::move(tracks);
    for (Track& track : song.tracks) track.name = "Track";
    startWith(theme, std::move(song), std::move(options));
    static_cast<void>(application_->draw(host::WindowKind::kMixer));
  }
  /// The colour of the title that the host draws.
  static NSColor titleColor(NSObject button) {
    const auto title = call<"attributedTitleForState:", NSAttributedString>(button, call<"state", NSInteger>(button));
    return cast<NSColor>(title.attribute(NSForegroundColorAttributeName, 0, nullptr));
  }
  /// What a node's layer shows at a point of it, at one pixel a point.
  static Rgba shownAt(NSObject node, double x, double y) {
    const auto layer = call<"presentationObject", CALayer>(node);
    const auto image = bridged<CGImageRef>(layer.contents());
    if (image == nullptr) return rgba(NSColor());
    return pixel(NSBitmapImageRep::withCGImage(image), std::lround(x), std::lround(y));
  }
};

// ---- Titles -------------------------------------------------------------------------------------------

using Set = std::function<void(Track&)>;

Set insert(PlugInSlot slot) {
  slot.name = "A";
  return [=](Track& track) { track.audioPlugIns = {slot}; };
}
Set midi(PlugInSlot slot) {
  slot.name = "M";
  return [=](Track& track) {
    track = instrument({.name = "Keys"});
    track.midiPlugIns = {slot};
  };
}
Set played(PlugInSlot slot, bool audio = false) {
  slot.name = "I";
  return [=](Track& track) {
    track = instrument(slot);
    track.instrument.audio = audio;
  };
}
Set bus(host::SendSlot slot) {
  slot.bus = "B";
  return [=](Track& track) { track.sends = {slot}; };
}
Set automation(const char* mode) {
  return [=](Track& track) { track.automation = mode; };
}

struct TitleCase {
  const char* button;
  Set set;
  const char* key;
  const char* selectedKey = key;
};

const std::vector<TitleCase>& titleCases() {
  static const std::vector<TitleCase> cases{
      {"audioPlugIn", insert({}), "audioFXInsertButtonTitleColor", "audioFXInsertButtonTitleHighlightColor"},
      {"audioPlugIn", insert({.bypassed = true}), "audioFXInsertButtonBypassTitleColor",
       "audioFXInsertButtonBypassHighlightTitleColor"},
      {"audioPlugIn", insert({.lowLatency = true}), "audioFXInsertButtonLowLatencyTitleColor",
       "audioFXInsertButtonLowLatencyTitleHighlightColor"},
      {"audioPlugIn", insert({.bypassed = true, .lowLatency = true}), "audioFXInsertButtonLowLatencyTitleColor",
       "audioFXInsertButtonLowLatencyTitleHighlightColor"},
      {"audioPlugIn", insert({.dimmed = true}), "audioFXInsertButtonTitleDimColor"},
      {"audioPlugIn", insert({.bypassed = true, .dimmed = true}), "audioFXInsertButtonTitleDimColor"},
      {"midiPlugIn", midi({}), "midiButtonTitleColor", "midiButtonTitleHighlightColor"},
      {"midiPlugIn", midi({.bypassed = true}), "midiButtonBypassTitleColor", "midiButtonBypassHighlightTitleColor"},
      {"midiPlugIn", midi({.dimmed = true}), "midiButtonDimTitleColor", "midiButtonDimHighlightTitleColor"},
      {"input", played({}), "InputInstButtonTitleColor", "InputInstButtonTitleHighlightColor"},
      {"input", played({.bypassed = true}), "InputInstButtonBypassTitleColor",
       "InputInstButtonBypassHighlightTitleColor"},
      {"input", played({.lowLatency = true}), "InputInstButtonDimTitleColor"},
      {"input", played({}, true), "InputInstButtonTitleColor", "InputInstButtonTitleHighlightColor"},
      {"input", [](Track& track) { track.type = StripType::kInstrument; }, "emptySlotButtonLabelColor"},
      {"sendButton", bus({}), "sendButtonTitleColor", "sendButtonTitleHighlightColor"},
      {"sendButton", bus({.onFader = true}), "sendButtonTitleColor", "sendButtonTitleHighlightColor"},
      {"sendButton", bus({.bypassed = true}), "sendButtonBypassTitleColor", "sendButtonBypassHighlightTitleColor"},
      {"sendButton", bus({.lowLatency = true}), "sendButtonLowLatencyTitleColor",
       "sendButtonLowLatencyTitleHighlightColor"},
      {"input", [](Track& track) { track.input = "In 1"; }, "inputButtonTitleColor"},
      {"output", [](Track& track) { track.output = "Out"; }, "outputButtonTitleColor"},
      {"setting", [](Track& track) { track.setting = "Loud"; }, "settingButtonTitleColor"},
      {"setting", [](Track&) {}, "settingOffButtonTitleColor"},
      {"automation", automation("Read"), "automationReadTitleColor"},
      {"automation", automation("Touch"), "automationTouchTitleColor"},
      {"automation", automation("Latch"), "automationLatchTitleColor"},
      {"automation", automation("Write"), "automationWriteTitleColor"},
      {"automation", [](Track&) {}, "automationBypassColor"},
  };
  return cases;
}

TEST_F(Controls, WriteTheirTitlesInTheColorOfTheirKindAndState) {
  std::vector<Track> tracks;
  for (const TitleCase& c : titleCases()) {
    for (const bool selected : {false, true}) {
      Track& track = tracks.emplace_back();
      c.set(track);
      track.selected = selected;
    }
  }
  start(allColors(), std::move(tracks));
  for (std::size_t i = 0; i < titleCases().size(); ++i) {
    const TitleCase& c = titleCases()[i];
    EXPECT_EQ(rgba(titleColor(node(2 * i, c.button))), colorOf(c.key)) << i << c.key;
    EXPECT_EQ(rgba(titleColor(node(2 * i + 1, c.button))), colorOf(c.selectedKey)) << i << c.selectedKey;
  }
}

TEST_F(Controls, FollowTheStateOfTheirButtonsWhileTheyAreShown) {
  Track track;
  track.audioPlugIns = {{.name = "A"}};
  track.sends = {{.bus = "B"}};
  start(allColors(), {track});
  const auto& mixer = application_->mixer();
  mixer.setPlugIn(0, 0, {.name = "Other", .bypassed = true});
  mixer.setSend(0, 0, 0.5, true);
  mixer.setSelected(0, true);
  static_cast<void>(application_->draw(host::WindowKind::kMixer));
  EXPECT_EQ(rgba(titleColor(node(0, "audioPlugIn"))), colorOf("audioFXInsertButtonBypassHighlightTitleColor"));
  EXPECT_EQ(rgba(titleColor(node(0, "sendButton"))), colorOf("sendButtonBypassHighlightTitleColor"));
  EXPECT_EQ(rgba(call<"fillColor", NSColor>(node(0, "sendKnob"))), colorOf("sendKnobBypassFillColor"));
}

// ---- Groups of plug-ins -------------------------------------------------------------------------------

TEST_F(Controls, TakeTheLooksOfTheGroupOfTheirPlugIn) {
  const ThemeFile group = ThemeFile()
                              .text("image", "AudioPlugIn_Blue")
                              .text("onTextColorStr", color(1, 2, 3))
                              .text("dimTextColorStr", color(4, 5, 6))
                              .text("onIconColor", color(250, 0, 0))
                              .text("offIconColor", "no colour");
  const ThemeFile nameless = ThemeFile().text("onTextColorStr", color(7, 8, 9)).text("image", "");
  const ThemeFile groups = ThemeFile()
                               .xml("0x61756678:0x64656C79:0x64656D6F", group.dictionary())
                               .xml("0x00000001:0x00000002:0x00000003", nameless.dictionary())
                               .text("0x00000001:0x00000002:0x00000004", "none");
  struct Case {
    Set set;
    const char* path;
    Rgba title;
  };
  const char* const kBlue = "Buttons.AudioPlugIn_Blue";
  const char* const kPlain = "Buttons.AudioPlugIn";
  const std::vector<Case> cases{
      {insert({.codes = kGrouped}), kBlue, {1, 2, 3}},
      // The group has no colour for it.
      {insert({.bypassed = true, .codes = kGrouped}), kBlue, colorOf("audioFXInsertButtonBypassTitleColor")},
      {insert({.lowLatency = true, .codes = kGrouped}), kBlue, {1, 2, 3}},
      {insert({.dimmed = true, .codes = kGrouped}), kBlue, {4, 5, 6}},
      {insert({.codes = {{1, 2, 3}}}), kPlain, {7, 8, 9}},  // without an asset set, its colours still count
      {insert({.codes = {{1, 2, 4}}}), kPlain, colorOf("audioFXInsertButtonTitleColor")},
  };
  std::vector<Track> tracks;
  for (const Case& c : cases) c.set(tracks.emplace_back());
  played({.codes = kGrouped}, true)(tracks.emplace_back());
  start(allColors().xml("PluginGroupMapV2", groups.dictionary()), std::move(tracks));
  for (std::size_t i = 0; i < cases.size(); ++i) {
    const NSObject button = node(i, "audioPlugIn");
    EXPECT_EQ(toStdString(call<"assetSetPath", NSString>(button)), cases[i].path) << i;
    EXPECT_EQ((call<"numberOfSegments", NSInteger>(button)), 3) << i;
    EXPECT_EQ(rgba(titleColor(button)), cases[i].title) << i;
  }
  EXPECT_EQ(toStdString(call<"assetSetPath", NSString>(node(6, "input"))), "Buttons.CustomInstrument")
      << "the slot of an instrument comes before its group";
  // Tinted: an image state that the host draws as a symbol, of a plug-in that is on.
  const auto redPixels = [](NSObject button, NSInteger part) {
    const auto image = call<"imageForState:", NSImage>(button, part);
    if (!image) return -1L;
    const auto bitmap = NSBitmapImageRep::withCGImage(image.CGImageForProposedRect(nullptr, {}, {}));
    return static_cast<long>(std::ranges::count_if(pixels(bitmap), [](Rgba shown) {
      return std::exchange(shown.alpha, 100) > 50 && near(shown, {250, 0, 0}, 3);
    }));
  };
  EXPECT_GT(redPixels(node(0, "audioPlugIn"), 2), 0);
  EXPECT_EQ(redPixels(node(1, "audioPlugIn"), 2), 0) << "a colour string that is none tints nothing";
  EXPECT_EQ(redPixels(node(4, "audioPlugIn"), 2), 0);
  EXPECT_LE(redPixels(node(0, "audioPlugIn"), 1), 0);
}

// ---- Knobs and panners --------------------------------------------------------------------------------

TEST_F(Controls, FillTheirKnobsByWhatTheyControl) {
  using host::PanMode;
  using host::SendMode;
  struct Case {
    const char* knob;
    Set set;
    const char* key;  // null for the host's colour
  };
  const Set input = [](Track& track) {
    track.input = "In 1";
    track.inputGain = 12;
  };
  const Case kCases[] = {
      {"pan", [](Track&) {}, "pannerKnobFillColor"},
      {"midiAssignKnob2", [](Track& track) { track.type = StripType::kOther; }, "pannerKnobFillColor"},
      {"sendKnob", bus({.mode = SendMode::kPostFader}), "sendKnobFaderFillColor"},
      {"sendKnob", bus({.mode = SendMode::kPreFader}), "sendKnobFaderFillColor"},
      {"sendKnob", bus({.mode = SendMode::kPostPan}), "sendKnobPostPanFillColor"},
      {"sendKnob", bus({.mode = SendMode::kPostPan, .bypassed = true}), "sendKnobBypassFillColor"},
      {"sendKnob", bus({.mode = SendMode::kNone, .bypassed = true}), nullptr},
      {"inputGainKnob", input, "inputGainKnobFillColor"},
  };
  std::vector<Track> tracks;
  for (const Case& c : kCases) c.set(tracks.emplace_back());
  for (const bool inverse : {false, true}) {
    tracks.emplace_back().panning = {.mode = PanMode::kStereo, .inverseSpread = inverse};
  }
  start(allColors({"stereoPannerKnobAlternateFillColor"}), tracks);
  for (std::size_t i = 0; i < std::size(kCases); ++i) {
    const NSObject knob = node(i, kCases[i].knob);
    ASSERT_TRUE(knob) << i;
    const Rgba shown = rgba(call<"fillColor", NSColor>(knob));
    if (kCases[i].key != nullptr) {
      EXPECT_EQ(shown, colorOf(kCases[i].key)) << i;
    } else {
      EXPECT_NE(shown.blue, kThemedBlue) << i;
    }
  }
  const auto spreadColor = [&](std::size_t track) {
    for (const NSObject part : items(call<"childrenArray", NSArray>(node(track, "pan")))) {
      if (toStdString(part.className()) == "_MAStereoPannerSpreadNode") return rgba(call<"fillColor", NSColor>(part));
    }
    return Rgba{};
  };
  EXPECT_EQ(spreadColor(std::size(kCases)), colorOf("stereoPannerKnobFillColor"));
  EXPECT_NE(spreadColor(std::size(kCases) + 1).blue, kThemedBlue) << "exchanged sides without a colour keep the host's";
}

TEST_F(Controls, DrawRingsAndCapsInTheThemesColors) {
  Track stereo;
  stereo.panning.mode = host::PanMode::kStereo;
  stereo.sends = {{.bus = "B"}};
  Track selected = stereo;
  selected.panning.mode = host::PanMode::kBalance;
  selected.selected = true;
  Track surround;
  surround.panning = {.mode = host::PanMode::kSurround, .spread = 0.1, .x = -0.8};
  start(allColors(), {stereo, selected, surround}, {.version = "12.3"});
  // A point on the ring, left of the middle of the knob, and one on the cap beside the pointer.
  const auto ring = [&](NSObject knob) { return shownAt(knob, 2, call<"frame", CGRect>(knob).size.height / 2); };
  const auto cap = [&](NSObject knob) {
    const NSObject part = call<"childrenArray", NSArray>(knob).objectAtIndex(1);
    const CGSize size = call<"frame", CGRect>(part).size;
    return shownAt(part, size.width * 0.625, size.height / 2);
  };
  EXPECT_EQ(ring(node(0, "pan")), colorOf("pannerKnobMeterBackgroundColor"));
  EXPECT_EQ(ring(node(1, "pan")), colorOf("pannerKnobMeterBackgroundHighlightColor"));
  EXPECT_EQ(ring(node(0, "sendKnob")), colorOf("sendKnobMeterBackgroundColor"));
  EXPECT_EQ(ring(node(1, "sendKnob")), colorOf("sendKnobMeterBackgroundHighlightColor"));
  EXPECT_EQ(cap(node(0, "pan")), colorOf("pannerKnobBackgroundColor"));
  EXPECT_EQ(cap(node(1, "pan")), colorOf("pannerKnobBackgroundHighlightColor"));
  EXPECT_EQ(cap(node(0, "sendKnob")), colorOf("sendKnobBackgroundColor"));
  EXPECT_EQ(cap(node(1, "sendKnob")), colorOf("sendKnobBackgroundHighlightColor"));
  const NSObject planar = node(2, "surround");
  const double half = call<"frame", CGRect>(planar).size.height / 2;
  EXPECT_EQ(ring(planar), colorOf("surroundPannerKnobGridColor"));
  EXPECT_EQ(shownAt(planar, half + 1, half - 1), colorOf("surroundPannerKnobBackgroundColor"));
  for (const char* getter : {"valueIndicatorColor", "spreadStrokeColor"}) {
    EXPECT_EQ(rgba(send<NSColor>(planar.object, sel_registerName(getter))), colorOf("surroundPannerKnobBorderColor"));
  }
  EXPECT_EQ(rgba(call<"spreadFillColor", NSColor>(planar)), colorOf("surroundPannerKnobFillColor"));
}

TEST_F(Controls, KeepCapsInsideOfTheRingOnOlderHosts) {
  eachInChild({"10.7.4", "10.7.5"}, [&](const char* version) {
    start(allColors(), {Track{}}, {.version = version});
    const NSObject cap = call<"childrenArray", NSArray>(node(0, "pan")).objectAtIndex(1);
    const auto bitmap =
        NSBitmapImageRep::withBitmapDataPlanes(nullptr, 40, 40, 8, 4, true, false, NSDeviceRGBColorSpace, 0, 0);
    const auto context = NSGraphicsContext::graphicsContextWithBitmapImageRep(bitmap);
    call<"drawCapInRect:inContext:flipped:">(cap, CGRectMake(0, 0, 40, 40), context.CGContext(), BOOL(0));
    EXPECT_EQ(pixel(bitmap, 2, 20).blue == kThemedBlue, std::string_view(version) == "10.7.5");
    EXPECT_EQ(pixel(bitmap, 4, 20).blue, kThemedBlue);
  });
}

TEST_F(Controls, LeaveASurroundPannerToTheHostUnlessBothColorsAreThere) {
  Track surround;
  surround.panning.mode = host::PanMode::kSurround;
  start(allColors({"surroundPannerKnobBackgroundColor"}), {surround});
  EXPECT_NE(shownAt(node(0, "surround"), 2, 20), colorOf("surroundPannerKnobGridColor"));
}

// ---- Image mode ---------------------------------------------------------------------------------------

CALayer sublayer(NSObject node, const char* name, long& count) {
  CALayer found;
  count = 0;
  for (const CALayer layer : items<CALayer>(call<"presentationObject", CALayer>(node).sublayers())) {
    if (toStdString(layer.name()) != name) continue;
    found = layer;
    ++count;
  }
  return found;
}

TEST_F(Controls, ShowTheImagesOfTheTheme) {
  Track stereo;
  stereo.panning.mode = host::PanMode::kStereo;
  Track group;
  group.faderMode = 1;
  startFrom(VELURA_SOURCE_DIR "/themes/ember", {Track{}, stereo, group});
  for (int frame = 0; frame < 3; ++frame) {
    application_->mixer().setSelected(0, frame % 2 == 0);
    application_->mixer().setPan(0, frame * 10);
    static_cast<void>(application_->draw(host::WindowKind::kMixer));
  }
  for (const std::size_t track : {0U, 1U}) {
    const NSObject knob = node(track, "pan");
    const NSArray parts = call<"childrenArray", NSArray>(knob);
    const std::pair<NSObject, const char*> kLayers[] = {
        {knob, "knobBG"}, {parts.objectAtIndex(0), "knob"}, {parts.objectAtIndex(1), "dash"}};
    for (const auto& [owner, name] : kLayers) {
      long count = 0;
      const CALayer layer = sublayer(owner, name, count);
      EXPECT_EQ(count, 1) << name;
      EXPECT_TRUE(layer.contents()) << name << " of " << track;
      const auto below = call<"presentationObject", CALayer>(owner);
      EXPECT_EQ(layer.bounds(), below.bounds()) << name;
      EXPECT_EQ(layer.contentsScale(), below.contentsScale());
    }
    EXPECT_FALSE((call<"presentationObject", CALayer>(parts.objectAtIndex(1)).contents())) << "the host's pointer goes";
  }
  const auto capOf = [&](std::size_t track) {
    const auto knob = call<"childNodeWithName:", NSObject>(node(track, "volumeFader"), string("fader knob"));
    return call<"contents", NSObject>(knob);
  };
  EXPECT_TRUE(capOf(0));
  EXPECT_NE(capOf(0), capOf(2)) << "the fader of a group keeps the host's cap";
}

// ---- Meters -------------------------------------------------------------------------------------------

static_assert(velura::MeterType::of(23).base == 3 && velura::MeterType::of(23).style == 1);
static_assert(velura::MeterType{3, 2}.number() == 33 && velura::MeterType{1, 6}.number() == 71);
static_assert(!velura::MeterType::of(5).isThemed() && !velura::MeterType::of(0).isThemed());

ThemeFile meterTheme(const char* kind, int colors) {
  ThemeFile theme;
  theme.flag(std::string("useSharedLevelMeter?") + kind, false);
  for (int i = 0; i < colors; ++i) {
    theme.text("levelMeterColor" + std::to_string(i) + "?" + kind, color(50 * i, 0, 0));
  }
  return theme;
}

TEST_F(Controls, GiveTheMetersOfEachKindOfStripTheirColors) {
  const char* const kKinds[] = {"audio", "instrument", "aux", "bus", "stereo_out", "master", "folder"};
  constexpr StripType kTypes[] = {StripType::kAudio,     StripType::kInstrument, StripType::kAux,   StripType::kBus,
                                  StripType::kStereoOut, StripType::kMaster,     StripType::kAudio, StripType::kOther};
  std::vector<Track> tracks;
  for (const StripType type : kTypes) tracks.emplace_back().type = type;
  tracks[6].folder = true;
  eachInChild(kKinds, [&](const char* kind) {
    const NSInteger style = std::ranges::find(kKinds, kind) - kKinds + 1;
    start(meterTheme(kind, 5), tracks);
    for (std::size_t i = 0; i < tracks.size(); ++i) {
      const NSObject meter = node(i, "level");
      const auto type = call<"mixerLevelType", NSInteger>(meter);
      EXPECT_EQ(type / 10, static_cast<NSInteger>(i) + 1 == style ? style : 0) << i;
      EXPECT_GE(type % 10, 1);
      for (const NSObject display : items(call<"levelDisplays", NSArray>(meter))) {
        if (!display.respondsToSelector(selector<"mixerLevelType">())) continue;
        EXPECT_EQ((call<"mixerLevelType", NSInteger>(display)), type) << i;
      }
    }
  });
}

TEST_F(Controls, RetagMetersWhoseStripChangesItsKind) {
  Track track;
  track.type = StripType::kAux;
  start(meterTheme("aux", 5), {track, Track{}});
  for (const auto& [strip, before, after] : {std::tuple{0U, 23, 33}, {1U, 33, 3}, {1U, 5, 5}, {0U, 0, 0}}) {
    const NSObject meter = node(strip, "level");
    call<"setMixerLevelType:">(meter, NSInteger(before));
    call<"setNeedsDisplay:">(meter, BOOL(1));
    application_->mixer().updatePresentation();
    EXPECT_EQ((call<"mixerLevelType", NSInteger>(meter)), after) << before;
  }
}

CGImageRef texture(NSInteger type, CGSize size, double scale) {
  return call<"textureNamed:withSize:constentScale:", CGImageRef>(asObject(classNamed("MALevelNodeTextureCache")), type,
                                                                  size, scale);
}

TEST_F(Controls, DrawMeterTexturesAlongTheirLongerSide) {
  start(meterTheme("folder", 5).text("VUMeterBackground", color(9, 8, 7)), {Track{}});
  const auto upright = NSBitmapImageRep::withCGImage(texture(71, {6, 200}, 2));
  EXPECT_EQ(upright->pixelsWide(), 12);
  EXPECT_EQ(upright->pixelsHigh(), 400);
  EXPECT_LT(pixel(upright, 6, 399).red, 3) << "the lowest colour at the bottom";
  EXPECT_EQ(pixel(upright, 6, 0), (Rgba{200, 0, 0}));
  const auto lying = NSBitmapImageRep::withCGImage(texture(71, {200, 6}, 1));
  EXPECT_LT(pixel(lying, 0, 3).red, 3);
  EXPECT_EQ(pixel(lying, 199, 3), (Rgba{200, 0, 0}));
  EXPECT_EQ(texture(71, {6, 200}, 2), texture(71, {6, 200}, 2)) << "made once";
  EXPECT_EQ(texture(21, {6, 200}, 2), texture(1, {6, 200}, 2)) << "a kind without colours shows the host's";
  EXPECT_EQ(texture(75, {6, 200}, 2), nullptr) << "as the host does for its own fifth, which it does not have";
  EXPECT_NE(texture(71, {0, 0}, 1), nullptr) << "at least one pixel";
  const auto background =
      NSBitmapImageRep::withCGImage(call<"backgroundTextureNamed:withSize:constentScale:", CGImageRef>(
          asObject(classNamed("MALevelNodeBackgroundTextureCache")), NSInteger(1), CGSize{6, 20}, 2.0));
  EXPECT_EQ(background->pixelsHigh(), 40);
  EXPECT_EQ(pixel(background, 6, 20), (Rgba{9, 8, 7}));
  EXPECT_LT(pixel(background, 0, 0).alpha, 30) << "the corners are round";
}

TEST_F(Controls, TakeMissingMeterColorsFromTheReferenceTheme) {
  struct Case {
    const char* text;
    bool isColor;
  };
  for (const Case& c : {Case{"sRGBColor:{255, 0, 0}", true},
                        {"sRGBColor:{0xFF, 010, 0, 50}", true},
                        {"sRGBColor:{255, 0", false},
                        {"srgbcolor:{255, 0, 0}", false},
                        {"red", false}}) {
    EXPECT_EQ(inChild([&] {
                start(meterTheme("audio", 4), {Track{}}, {}, ThemeFile().text("levelMeterColor4?audio", c.text).list());
                return call<"mixerLevelType", NSInteger>(node(0, "level")) > 10;
              }),
              c.isColor)
        << c.text;
  }
}

TEST_F(Controls, ColorGainReductionByStateAndSelection) {
  Track compressed;
  compressed.gainReduction = 0.5;
  compressed.audioPlugIns = {{.name = "Squeeze"}};
  Track selected = compressed;
  selected.selected = true;
  start(allColors(), {compressed, selected, Track{}});
  const auto ask = [&](std::size_t track, const char* getter) {
    return rgba(send<NSColor>(node(track, "gainReductionMeter").object, sel_registerName(getter)));
  };
  EXPECT_EQ(ask(0, "backgroundFillColor"), colorOf("GainReductionBackgroundColor"));
  EXPECT_EQ(ask(2, "backgroundFillColor"), colorOf("GainReductionEmptyBackgroundColor"));
  EXPECT_EQ(ask(0, "fillColor"), colorOf("UnselectedGainReductionFillColor"));
  EXPECT_EQ(ask(1, "fillColor"), colorOf("SelectedGainReductionFillColor"));
}

// ---- Scales, displays, glyphs -------------------------------------------------------------------------

TEST_F(Controls, ColorTheTicksAndNumbersOfScales) {
  start(allColors(), {Track{}}, {.version = "11.1.2"});
  for (const char* name : {"volumeScale", "levelScale"}) {
    const NSObject scale = node(0, name);
    EXPECT_EQ(rgba(call<"labelColor", CGColorRef>(scale)), colorOf("scaleNumberColor"));
    EXPECT_EQ(rgba(call<"highlightedLabelColor", CGColorRef>(scale)), colorOf("scaleNumberHighlightColor"));
    const auto ticks = call<"largeScaleTicks", NSArray>(scale);
    EXPECT_GT(ticks.count(), 4U);
    long zeros = 0;
    for (const NSObject tick : items(ticks)) {
      const bool isZero = std::string_view(name) == "volumeScale" && call<"defaultYPosition", double>(tick) == 101.0;
      zeros += isZero ? 1 : 0;
      EXPECT_EQ(rgba(call<"color", CGColorRef>(tick)),
                colorOf(isZero ? "scale0DBTickMarkColor" : "scaleTickMarkColor"));
      EXPECT_EQ(rgba(call<"highlightedColor", CGColorRef>(tick)),
                colorOf(isZero ? "scale0DBTickMarkHighlightColor" : "scaleTickMarkHighlightColor"));
    }
    EXPECT_EQ(zeros, std::string_view(name) == "volumeScale" ? 1 : 0);
  }
  const auto tick = call<"scaleTickWithType:color:highlightedColor:defaultYPosition:label:", NSObject>(
      asObject(classNamed("MAScaleTick")), NSInteger(1), NSColor::redColor().CGColor(), NSColor::redColor().CGColor(),
      100.5, literal<"x">());
  EXPECT_EQ(rgba(call<"color", CGColorRef>(tick)), colorOf("scaleTickMarkColor")) << "by the factory alone";
}

TEST_F(Controls, RecolorScalesThatArePictures) {
  Track selected;
  selected.selected = true;
  start(allColors(), {Track{}, selected}, {.version = "12.3"});
  const auto colors = [&](std::size_t track, const char* name) {
    const auto image = bridged<CGImageRef>(call<"contents", NSObject>(node(track, name)));
    const auto bitmap = NSBitmapImageRep::withCGImage(image);
    std::vector<Rgba> found;
    for (Rgba shown : pixels(bitmap)) {
      if (std::exchange(shown.alpha, 100) <= 60) continue;  // the edge of a digit
      if (std::ranges::find(found, shown) == found.end()) found.push_back(shown);
    }
    return found;
  };
  const auto contains = [](const std::vector<Rgba>& found, const char* key) {
    return std::ranges::any_of(found, [&](const Rgba& c) { return near(c, colorOf(key), 2); });
  };
  EXPECT_TRUE(contains(colors(0, "volumeScale"), "scale0DBTickMarkColor"));
  EXPECT_TRUE(contains(colors(0, "volumeScale"), "scaleTickMarkColor"));
  EXPECT_TRUE(contains(colors(0, "levelScale"), "scaleNumberColor"));
  EXPECT_TRUE(contains(colors(0, "levelScale"), "scaleTickMarkColor"));
  EXPECT_TRUE(contains(colors(1, "volumeScale"), "scale0DBTickMarkHighlightColor"));
  EXPECT_TRUE(contains(colors(1, "levelScale"), "scaleNumberHighlightColor"));
}

TEST_F(Controls, ColorDisplaysByWhatTheyShow) {
  Track tracks[4];
  const double peaks[] = {-20, -1.5, 3, -20};
  for (int i = 0; i < 4; ++i) tracks[i].peak = peaks[i];
  tracks[3].group = "1: Drums";
  start(allColors(), {tracks[0], tracks[1], tracks[2], tracks[3]});
  const auto text = [&](std::size_t track, const char* name) {
    return rgba(call<"textColor", NSColor>(node(track, name)));
  };
  EXPECT_EQ(text(0, "peak"), colorOf("normalPeakLevelTitleColor"));
  EXPECT_EQ(text(1, "peak"), colorOf("warningPeakLevelTitleColor"));
  EXPECT_EQ(text(2, "peak"), colorOf("maxPeakLevelTitleColor"));
  EXPECT_EQ(text(0, "group"), colorOf("emptyGroupLabelColor"));
  EXPECT_NE(text(3, "group").blue, kThemedBlue);
  EXPECT_NE(text(0, "volume").blue, kThemedBlue);
  // Bytes are cut off, not rounded: 52.9 of 255 is no 51, and 51.9 is one.
  const NSObject peak = node(0, "peak");
  call<"setTextColor:">(peak, NSColor::colorWithSRGBRed(1, 214.5 / 255, 51.9 / 255, 1));
  EXPECT_EQ(text(0, "peak"), colorOf("warningPeakLevelTitleColor"));
  call<"setTextColor:">(peak, NSColor::colorWithSRGBRed(1, 214.5 / 255, 52.1 / 255, 1));
  EXPECT_NE(text(0, "peak").blue, kThemedBlue);
}

TEST_F(Controls, DrawTheTitleOfAnEmptyEqualizer) {
  start(allColors(), {Track{}});
  const NSObject thumbnail = node(0, "equalizerThumbnail");
  const auto painted = [&] {
    const auto bitmap =
        NSBitmapImageRep::withBitmapDataPlanes(nullptr, 60, 40, 8, 4, true, false, NSDeviceRGBColorSpace, 0, 0);
    const auto context = NSGraphicsContext::graphicsContextWithBitmapImageRep(bitmap);
    call<"drawTitleInRect:inContext:">(thumbnail, CGRectMake(0, 0, 60, 40), context.CGContext());
    long count = 0;
    for (const Rgba& shown : pixels(bitmap)) {
      EXPECT_TRUE(shown.alpha < 100 || near(shown, colorOf("emptyEQLabelColor"), 2));
      count += shown.alpha > 0 ? 1 : 0;
    }
    return count;
  };
  EXPECT_GT(painted(), 10);
  call<"setTitle:">(thumbnail, literal<"">());
  EXPECT_EQ(painted(), 0) << "the host's own title is not drawn either";
}

TEST_F(Controls, ColorGlyphsByNameAndState) {
  Track on;
  on.muted = on.soloed = on.recordArmed = on.monitoring = true;
  Track blinking;
  blinking.blinking = {.mute = true, .solo = true, .record = true, .monitoring = true};
  start(allColors({"SoloBlinkOnGlyphSymbolColor"}), {Track{}, on, blinking});
  const auto glyph = [&](std::size_t track, const char* name) {
    const auto symbol = call<"symbol", NSAttributedString>(node(track, name));
    return rgba(cast<NSColor>(symbol.attribute(NSForegroundColorAttributeName, 0, nullptr)));
  };
  struct Case {
    const char* name;
    const char* on;
    const char* blinking;
  };
  for (const Case& c : {Case{"mute", "MuteBlinkOffGlyphSymbolColor", "MuteBlinkOnGlyphSymbolColor"},
                        {"solo", "SoloBlinkOffGlyphSymbolColor", nullptr},
                        {"monitoring", "InputMonitorBlinkOffGlyphSymbolColor", "InputMonitorBlinkOnGlyphSymbolColor"},
                        {"record", "RecordBlinkOnGlyphSymbolColor", "RecordBlinkOffGlyphSymbolColor"}}) {
    EXPECT_EQ(glyph(0, c.name), colorOf("GlyphSymbolsColor")) << c.name;
    EXPECT_EQ(glyph(1, c.name), colorOf(c.on)) << c.name;
    if (c.blinking != nullptr) {
      EXPECT_EQ(glyph(2, c.name), colorOf(c.blinking)) << c.name;
    } else {
      EXPECT_NE(glyph(2, c.name).blue, kThemedBlue) << "a missing colour is not taken from the plain glyphs";
    }
  }
}

}  // namespace
