// The controls of a strip as the host draws them with the bundle loaded, one track for every case of a table.

#include <gtest/gtest.h>

#include <functional>

#include "cocoa/Call.h"
#include "cocoa/QuartzCore.h"
#include "host/mixer/MALevelNode.h"
#include "host/mixer/MAScaleNode.h"
#include "plugin/mixer/LevelMeters.h"
#include "tests/support/HostTest.h"
#include "tests/support/KeyColours.h"

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
  static NSColor titleColour(NSObject button) {
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

struct TitleCase {
  const char* what;
  const char* button;
  std::function<void(Track&)> set;
  const char* key;
  const char* selectedKey;
};

void withInsert(Track& track, const PlugInSlot& slot) { track.audioPlugIns = {slot}; }
void withMidi(Track& track, const PlugInSlot& slot) {
  track = instrument({.name = "Keys"});
  track.midiPlugIns = {slot};
}
void withSend(Track& track, const host::SendSlot& send) { track.sends = {send}; }
void withAutomation(Track& track, const char* mode) { track.automation = mode; }

const std::vector<TitleCase>& titleCases() {
  static const std::vector<TitleCase> cases{
      {"insert, on", "audioPlugIn", [](Track& t) { withInsert(t, {.name = "A"}); }, "audioFXInsertButtonTitleColor",
       "audioFXInsertButtonTitleHighlightColor"},
      {"insert, bypassed", "audioPlugIn", [](Track& t) { withInsert(t, {.name = "A", .bypassed = true}); },
       "audioFXInsertButtonBypassTitleColor", "audioFXInsertButtonBypassHighlightTitleColor"},
      {"insert, low latency", "audioPlugIn", [](Track& t) { withInsert(t, {.name = "A", .lowLatency = true}); },
       "audioFXInsertButtonLowLatencyTitleColor", "audioFXInsertButtonLowLatencyTitleHighlightColor"},
      {"insert, off in low latency", "audioPlugIn",
       [](Track& t) { withInsert(t, {.name = "A", .bypassed = true, .lowLatency = true}); },
       "audioFXInsertButtonLowLatencyTitleColor", "audioFXInsertButtonLowLatencyTitleHighlightColor"},
      {"insert, dimmed", "audioPlugIn", [](Track& t) { withInsert(t, {.name = "A", .dimmed = true}); },
       "audioFXInsertButtonTitleDimColor", "audioFXInsertButtonTitleDimColor"},
      {"insert, off and dimmed", "audioPlugIn",
       [](Track& t) { withInsert(t, {.name = "A", .bypassed = true, .dimmed = true}); },
       "audioFXInsertButtonTitleDimColor", "audioFXInsertButtonTitleDimColor"},
      {"MIDI effect, on", "midiPlugIn", [](Track& t) { withMidi(t, {.name = "M"}); }, "midiButtonTitleColor",
       "midiButtonTitleHighlightColor"},
      {"MIDI effect, bypassed", "midiPlugIn", [](Track& t) { withMidi(t, {.name = "M", .bypassed = true}); },
       "midiButtonBypassTitleColor", "midiButtonBypassHighlightTitleColor"},
      {"MIDI effect, dimmed", "midiPlugIn", [](Track& t) { withMidi(t, {.name = "M", .dimmed = true}); },
       "midiButtonDimTitleColor", "midiButtonDimHighlightTitleColor"},
      {"instrument, on", "input", [](Track& t) { t = instrument({.name = "I"}); }, "InputInstButtonTitleColor",
       "InputInstButtonTitleHighlightColor"},
      {"instrument, bypassed", "input", [](Track& t) { t = instrument({.name = "I", .bypassed = true}); },
       "InputInstButtonBypassTitleColor", "InputInstButtonBypassHighlightTitleColor"},
      {"instrument, low latency", "input", [](Track& t) { t = instrument({.name = "I", .lowLatency = true}); },
       "InputInstButtonDimTitleColor", "InputInstButtonDimTitleColor"},
      {"instrument that is an audio plug-in", "input",
       [](Track& t) {
         t = instrument({.name = "I"});
         t.instrument.audio = true;
       },
       "InputInstButtonTitleColor", "InputInstButtonTitleHighlightColor"},
      {"no instrument", "input", [](Track& t) { t.type = StripType::kInstrument; }, "emptySlotButtonLabelColor",
       "emptySlotButtonLabelColor"},
      {"send, on", "sendButton", [](Track& t) { withSend(t, {.bus = "B"}); }, "sendButtonTitleColor",
       "sendButtonTitleHighlightColor"},
      {"send on the faders", "sendButton", [](Track& t) { withSend(t, {.bus = "B", .onFader = true}); },
       "sendButtonTitleColor", "sendButtonTitleHighlightColor"},
      {"send, bypassed", "sendButton", [](Track& t) { withSend(t, {.bus = "B", .bypassed = true}); },
       "sendButtonBypassTitleColor", "sendButtonBypassHighlightTitleColor"},
      {"send, low latency", "sendButton", [](Track& t) { withSend(t, {.bus = "B", .lowLatency = true}); },
       "sendButtonLowLatencyTitleColor", "sendButtonLowLatencyTitleHighlightColor"},
      {"input", "input", [](Track& t) { t.input = "In 1"; }, "inputButtonTitleColor", "inputButtonTitleColor"},
      {"output", "output", [](Track& t) { t.output = "Out"; }, "outputButtonTitleColor", "outputButtonTitleColor"},
      {"setting", "setting", [](Track& t) { t.setting = "Loud"; }, "settingButtonTitleColor",
       "settingButtonTitleColor"},
      {"no setting", "setting", [](Track&) {}, "settingOffButtonTitleColor", "settingOffButtonTitleColor"},
      {"read", "automation", [](Track& t) { withAutomation(t, "Read"); }, "automationReadTitleColor",
       "automationReadTitleColor"},
      {"touch", "automation", [](Track& t) { withAutomation(t, "Touch"); }, "automationTouchTitleColor",
       "automationTouchTitleColor"},
      {"latch", "automation", [](Track& t) { withAutomation(t, "Latch"); }, "automationLatchTitleColor",
       "automationLatchTitleColor"},
      {"write", "automation", [](Track& t) { withAutomation(t, "Write"); }, "automationWriteTitleColor",
       "automationWriteTitleColor"},
      {"no automation", "automation", [](Track&) {}, "automationBypassColor", "automationBypassColor"},
  };
  return cases;
}

TEST_F(Controls, WriteTheirTitlesInTheColourOfTheirKindAndState) {
  std::vector<Track> tracks;
  for (const TitleCase& c : titleCases()) {
    for (const bool selected : {false, true}) {
      Track track;
      c.set(track);
      track.selected = selected;
      tracks.push_back(track);
    }
  }
  start(allColours(), std::move(tracks));
  for (std::size_t i = 0; i < titleCases().size(); ++i) {
    const TitleCase& c = titleCases()[i];
    EXPECT_EQ(rgba(titleColour(node(2 * i, c.button))), colourOf(c.key)) << c.what;
    EXPECT_EQ(rgba(titleColour(node(2 * i + 1, c.button))), colourOf(c.selectedKey)) << c.what << ", selected";
  }
}

TEST_F(Controls, FollowTheStateOfTheirButtonsWhileTheyAreShown) {
  Track track;
  track.audioPlugIns = {{.name = "A"}};
  track.sends = {{.bus = "B"}};
  start(allColours(), {track});
  const auto& mixer = application_->mixer();
  mixer.setPlugIn(0, 0, {.name = "Other", .bypassed = true});
  mixer.setSend(0, 0, 0.5, true);
  mixer.setSelected(0, true);
  static_cast<void>(application_->draw(host::WindowKind::kMixer));
  EXPECT_EQ(rgba(titleColour(node(0, "audioPlugIn"))), colourOf("audioFXInsertButtonBypassHighlightTitleColor"));
  EXPECT_EQ(rgba(titleColour(node(0, "sendButton"))), colourOf("sendButtonBypassHighlightTitleColor"));
  EXPECT_EQ(rgba(call<"fillColor", NSColor>(node(0, "sendKnob"))), colourOf("sendKnobBypassFillColor"));
}

// ---- Groups of plug-ins -------------------------------------------------------------------------------

TEST_F(Controls, TakeTheLooksOfTheGroupOfTheirPlugIn) {
  const auto entry = [](const char* key, const std::string& value) {
    return "<key>" + std::string(key) + "</key><string>" + value + "</string>";
  };
  const std::string group = "<dict>" + entry("image", "AudioPlugIn_Blue") + entry("onTextColorStr", colour(1, 2, 3)) +
                            entry("dimTextColorStr", colour(4, 5, 6)) + entry("onIconColor", colour(250, 0, 0)) +
                            entry("offIconColor", "no colour") + "</dict>";
  const std::string nameless = "<dict>" + entry("onTextColorStr", colour(7, 8, 9)) + "<key>image</key><string/></dict>";
  const std::string groups = "<dict><key>0x61756678:0x64656C79:0x64656D6F</key>" + group +
                             "<key>0x00000001:0x00000002:0x00000003</key>" + nameless +
                             "<key>0x00000001:0x00000002:0x00000004</key><string>none</string></dict>";
  const auto insert = [](PlugInSlot slot, host::ComponentCodes codes) {
    Track track;
    slot.codes = codes;
    track.audioPlugIns = {std::move(slot)};
    return track;
  };
  Track grouped = instrument({.name = "I", .codes = kGrouped});
  grouped.instrument.audio = true;
  start(allColours().xml("PluginGroupMapV2", groups),
        {insert({.name = "A"}, kGrouped), insert({.name = "A", .bypassed = true}, kGrouped),
         insert({.name = "A", .lowLatency = true}, kGrouped), insert({.name = "A", .dimmed = true}, kGrouped),
         insert({.name = "A"}, {1, 2, 3}), insert({.name = "A"}, {1, 2, 4}), grouped});
  struct Case {
    const char* path;
    NSInteger segments;
    Rgba title;
  };
  const char* const kBlue = "Buttons.AudioPlugIn_Blue";
  const char* const kPlain = "Buttons.AudioPlugIn";
  const Case kCases[] = {
      {kBlue, 3, {1, 2, 3}},
      {kBlue, 3, colourOf("audioFXInsertButtonBypassTitleColor")},  // the group has no colour for it
      {kBlue, 3, {1, 2, 3}},
      {kBlue, 3, {4, 5, 6}},
      {kPlain, 3, {7, 8, 9}},  // without an asset set, its colours still count
      {kPlain, 3, colourOf("audioFXInsertButtonTitleColor")},
  };
  for (std::size_t i = 0; i < std::size(kCases); ++i) {
    const NSObject button = node(i, "audioPlugIn");
    EXPECT_EQ(toStdString(call<"assetSetPath", NSString>(button)), kCases[i].path) << i;
    EXPECT_EQ((call<"numberOfSegments", NSInteger>(button)), kCases[i].segments) << i;
    EXPECT_EQ(rgba(titleColour(button)), kCases[i].title) << i;
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
    const char* what;
    const char* knob;
    std::function<void(Track&)> set;
    const char* key;  // null for the host's colour
  };
  const auto send = [](SendMode mode, bool bypassed) {
    return [=](Track& t) { withSend(t, {.bus = "B", .mode = mode, .bypassed = bypassed}); };
  };
  const Case kCases[] = {
      {"pan", "pan", [](Track&) {}, "pannerKnobFillColor"},
      {"assignable", "midiAssignKnob2", [](Track& t) { t.type = StripType::kOther; }, "pannerKnobFillColor"},
      {"post fader", "sendKnob", send(SendMode::kPostFader, false), "sendKnobFaderFillColor"},
      {"pre fader", "sendKnob", send(SendMode::kPreFader, false), "sendKnobFaderFillColor"},
      {"post pan", "sendKnob", send(SendMode::kPostPan, false), "sendKnobPostPanFillColor"},
      {"post pan, bypassed", "sendKnob", send(SendMode::kPostPan, true), "sendKnobBypassFillColor"},
      {"of no kind", "sendKnob", send(SendMode::kNone, true), nullptr},
      {"input gain", "inputGainKnob",
       [](Track& t) {
         t.input = "In 1";
         t.inputGain = 12;
       },
       "inputGainKnobFillColor"},
  };
  std::vector<Track> tracks;
  for (const Case& c : kCases) c.set(tracks.emplace_back());
  for (const bool inverse : {false, true}) {
    tracks.emplace_back().panning = {.mode = PanMode::kStereo, .inverseSpread = inverse};
  }
  start(allColours({"stereoPannerKnobAlternateFillColor"}), tracks);
  for (std::size_t i = 0; i < std::size(kCases); ++i) {
    const NSObject knob = node(i, kCases[i].knob);
    ASSERT_TRUE(knob) << kCases[i].what;
    const Rgba shown = rgba(call<"fillColor", NSColor>(knob));
    if (kCases[i].key != nullptr) {
      EXPECT_EQ(shown, colourOf(kCases[i].key)) << kCases[i].what;
    } else {
      EXPECT_NE(shown.blue, kThemedBlue) << kCases[i].what;
    }
  }
  const auto spreadColour = [&](std::size_t track) {
    for (const NSObject part : items(call<"childrenArray", NSArray>(node(track, "pan")))) {
      if (toStdString(part.className()) == "_MAStereoPannerSpreadNode") return rgba(call<"fillColor", NSColor>(part));
    }
    return Rgba{};
  };
  EXPECT_EQ(spreadColour(std::size(kCases)), colourOf("stereoPannerKnobFillColor"));
  EXPECT_NE(spreadColour(std::size(kCases) + 1).blue, kThemedBlue)
      << "exchanged sides without a colour keep the host's";
}

TEST_F(Controls, DrawRingsAndCapsInTheThemesColours) {
  Track stereo;
  stereo.panning.mode = host::PanMode::kStereo;
  stereo.sends = {{.bus = "B"}};
  Track selected = stereo;
  selected.panning.mode = host::PanMode::kBalance;
  selected.selected = true;
  Track surround;
  surround.panning = {.mode = host::PanMode::kSurround, .spread = 0.1, .x = -0.8};
  start(allColours(), {stereo, selected, surround}, {.version = "12.3"});
  // A point on the ring, left of the middle of the knob, and one on the cap beside the pointer.
  const auto ring = [&](NSObject knob) { return shownAt(knob, 2, call<"frame", CGRect>(knob).size.height / 2); };
  const auto cap = [&](NSObject knob) {
    const NSObject part = call<"childrenArray", NSArray>(knob).objectAtIndex(1);
    const CGSize size = call<"frame", CGRect>(part).size;
    return shownAt(part, size.width * 0.625, size.height / 2);
  };
  EXPECT_EQ(ring(node(0, "pan")), colourOf("pannerKnobMeterBackgroundColor"));
  EXPECT_EQ(ring(node(1, "pan")), colourOf("pannerKnobMeterBackgroundHighlightColor"));
  EXPECT_EQ(ring(node(0, "sendKnob")), colourOf("sendKnobMeterBackgroundColor"));
  EXPECT_EQ(ring(node(1, "sendKnob")), colourOf("sendKnobMeterBackgroundHighlightColor"));
  EXPECT_EQ(cap(node(0, "pan")), colourOf("pannerKnobBackgroundColor"));
  EXPECT_EQ(cap(node(1, "pan")), colourOf("pannerKnobBackgroundHighlightColor"));
  EXPECT_EQ(cap(node(0, "sendKnob")), colourOf("sendKnobBackgroundColor"));
  EXPECT_EQ(cap(node(1, "sendKnob")), colourOf("sendKnobBackgroundHighlightColor"));
  const NSObject planar = node(2, "surround");
  const double half = call<"frame", CGRect>(planar).size.height / 2;
  EXPECT_EQ(ring(planar), colourOf("surroundPannerKnobGridColor"));
  EXPECT_EQ(shownAt(planar, half + 1, half - 1), colourOf("surroundPannerKnobBackgroundColor"));
  for (const char* getter : {"valueIndicatorColor", "spreadStrokeColor"}) {
    EXPECT_EQ(rgba(send<NSColor>(planar.object, sel_registerName(getter))), colourOf("surroundPannerKnobBorderColor"));
  }
  EXPECT_EQ(rgba(call<"spreadFillColor", NSColor>(planar)), colourOf("surroundPannerKnobFillColor"));
}

TEST_F(Controls, KeepCapsInsideOfTheRingOnOlderHosts) {
  struct Case {
    const char* version;
    double inset;
  };
  for (const Case& c : {Case{"10.7.4", 3}, Case{"10.7.5", 0}}) {
    EXPECT_TRUE(inChild([&] {
      start(allColours(), {Track{}}, {.version = c.version});
      const NSObject cap = call<"childrenArray", NSArray>(node(0, "pan")).objectAtIndex(1);
      const auto bitmap =
          NSBitmapImageRep::withBitmapDataPlanes(nullptr, 40, 40, 8, 4, true, false, NSDeviceRGBColorSpace, 0, 0);
      const auto context = NSGraphicsContext::graphicsContextWithBitmapImageRep(bitmap);
      call<"drawCapInRect:inContext:flipped:">(cap, CGRectMake(0, 0, 40, 40), context.CGContext(), BOOL(0));
      const auto isCap = [&](double x) { return pixel(bitmap, std::lround(x), 20).blue == 99; };
      return isCap(c.inset + 1) && (c.inset == 0 || !isCap(c.inset - 1));
    })) << c.version;
  }
}

TEST_F(Controls, LeaveASurroundPannerToTheHostUnlessBothColoursAreThere) {
  Track surround;
  surround.panning.mode = host::PanMode::kSurround;
  start(allColours({"surroundPannerKnobBackgroundColor"}), {surround});
  EXPECT_NE(shownAt(node(0, "surround"), 2, 20), colourOf("surroundPannerKnobGridColor"));
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

ThemeFile meterTheme(const char* kind, int colours) {
  ThemeFile theme;
  theme.flag(std::string("useSharedLevelMeter?") + kind, false);
  for (int i = 0; i < colours; ++i) {
    theme.text("levelMeterColor" + std::to_string(i) + "?" + kind, colour(50 * i, 0, 0));
  }
  return theme;
}

TEST_F(Controls, GiveTheMetersOfEachKindOfStripTheirColours) {
  struct Kind {
    const char* name;
    StripType type;
    bool folder;
  };
  const Kind kKinds[] = {{"audio", StripType::kAudio, false},
                         {"instrument", StripType::kInstrument, false},
                         {"aux", StripType::kAux, false},
                         {"bus", StripType::kBus, false},
                         {"stereo_out", StripType::kStereoOut, false},
                         {"master", StripType::kMaster, false},
                         {"folder", StripType::kAudio, true}};
  for (std::size_t style = 0; style < std::size(kKinds); ++style) {
    EXPECT_TRUE(inChild([&] {
      std::vector<Track> tracks;
      for (const Kind& kind : kKinds) {
        Track& track = tracks.emplace_back();
        track.type = kind.type;
        track.folder = kind.folder;
      }
      tracks.emplace_back().type = StripType::kOther;
      start(meterTheme(kKinds[style].name, 5), tracks);
      bool right = true;
      for (std::size_t i = 0; i < tracks.size(); ++i) {
        const NSObject meter = node(i, "level");
        const auto type = call<"mixerLevelType", NSInteger>(meter);
        right &= type / 10 == (i == style ? static_cast<NSInteger>(style) + 1 : 0) && type % 10 >= 1;
        for (const NSObject display : items(call<"levelDisplays", NSArray>(meter))) {
          if (!display.respondsToSelector(selector<"mixerLevelType">())) continue;
          right &= call<"mixerLevelType", NSInteger>(display) == type;
        }
      }
      return right;
    })) << kKinds[style].name;
  }
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
  start(meterTheme("folder", 5).text("VUMeterBackground", colour(9, 8, 7)), {Track{}});
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

TEST_F(Controls, TakeMissingMeterColoursFromTheReferenceTheme) {
  struct Case {
    const char* text;
    bool isColour;
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
              c.isColour)
        << c.text;
  }
}

TEST_F(Controls, PlaceMeterColoursWhereTheHostPlacesItsOwn) {
  start(ThemeFile(), {Track{}});
  EXPECT_NE(velura::vlrLevelMeterLocationsForBaseType(1), (velura::MeterLocations{0, 0.67, 0.82, 0.92, 0.92}))
      << "the framework's own list counts";
  EXPECT_EQ(velura::vlrLevelMeterLocationsForBaseType(4).front(), 0);
}

TEST_F(Controls, ColourGainReductionByStateAndSelection) {
  Track compressed;
  compressed.gainReduction = 0.5;
  compressed.audioPlugIns = {{.name = "Squeeze"}};
  Track selected = compressed;
  selected.selected = true;
  start(allColours(), {compressed, selected, Track{}});
  const auto ask = [&](std::size_t track, const char* getter) {
    return rgba(send<NSColor>(node(track, "gainReductionMeter").object, sel_registerName(getter)));
  };
  EXPECT_EQ(ask(0, "backgroundFillColor"), colourOf("GainReductionBackgroundColor"));
  EXPECT_EQ(ask(2, "backgroundFillColor"), colourOf("GainReductionEmptyBackgroundColor"));
  EXPECT_EQ(ask(0, "fillColor"), colourOf("UnselectedGainReductionFillColor"));
  EXPECT_EQ(ask(1, "fillColor"), colourOf("SelectedGainReductionFillColor"));
}

// ---- Scales, displays, glyphs -------------------------------------------------------------------------

TEST_F(Controls, ColourTheTicksAndNumbersOfScales) {
  start(allColours(), {Track{}}, {.version = "11.1.2"});
  for (const char* name : {"volumeScale", "levelScale"}) {
    const NSObject scale = node(0, name);
    EXPECT_EQ(rgba(call<"labelColor", CGColorRef>(scale)), colourOf("scaleNumberColor"));
    EXPECT_EQ(rgba(call<"highlightedLabelColor", CGColorRef>(scale)), colourOf("scaleNumberHighlightColor"));
    const auto ticks = call<"largeScaleTicks", NSArray>(scale);
    EXPECT_GT(ticks.count(), 4U);
    long zeros = 0;
    for (const NSObject tick : items(ticks)) {
      const bool isZero = std::string_view(name) == "volumeScale" && call<"defaultYPosition", double>(tick) == 101.0;
      zeros += isZero ? 1 : 0;
      EXPECT_EQ(rgba(call<"color", CGColorRef>(tick)),
                colourOf(isZero ? "scale0DBTickMarkColor" : "scaleTickMarkColor"));
      EXPECT_EQ(rgba(call<"highlightedColor", CGColorRef>(tick)),
                colourOf(isZero ? "scale0DBTickMarkHighlightColor" : "scaleTickMarkHighlightColor"));
    }
    EXPECT_EQ(zeros, std::string_view(name) == "volumeScale" ? 1 : 0);
  }
  const auto tick = call<"scaleTickWithType:color:highlightedColor:defaultYPosition:label:", NSObject>(
      asObject(classNamed("MAScaleTick")), NSInteger(1), NSColor::redColor().CGColor(), NSColor::redColor().CGColor(),
      100.5, literal<"x">());
  EXPECT_EQ(rgba(call<"color", CGColorRef>(tick)), colourOf("scaleTickMarkColor")) << "by the factory alone";
}

TEST_F(Controls, RecolourScalesThatArePictures) {
  Track selected;
  selected.selected = true;
  start(allColours(), {Track{}, selected}, {.version = "12.3"});
  const auto colours = [&](std::size_t track, const char* name) {
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
    return std::ranges::any_of(found, [&](const Rgba& c) { return near(c, colourOf(key), 2); });
  };
  EXPECT_TRUE(contains(colours(0, "volumeScale"), "scale0DBTickMarkColor"));
  EXPECT_TRUE(contains(colours(0, "volumeScale"), "scaleTickMarkColor"));
  EXPECT_TRUE(contains(colours(0, "levelScale"), "scaleNumberColor"));
  EXPECT_TRUE(contains(colours(0, "levelScale"), "scaleTickMarkColor"));
  EXPECT_TRUE(contains(colours(1, "volumeScale"), "scale0DBTickMarkHighlightColor"));
  EXPECT_TRUE(contains(colours(1, "levelScale"), "scaleNumberHighlightColor"));
}

TEST_F(Controls, ColourDisplaysByWhatTheyShow) {
  Track tracks[4];
  const double peaks[] = {-20, -1.5, 3, -20};
  for (int i = 0; i < 4; ++i) tracks[i].peak = peaks[i];
  tracks[3].group = "1: Drums";
  start(allColours(), {tracks[0], tracks[1], tracks[2], tracks[3]});
  const auto text = [&](std::size_t track, const char* name) {
    return rgba(call<"textColor", NSColor>(node(track, name)));
  };
  EXPECT_EQ(text(0, "peak"), colourOf("normalPeakLevelTitleColor"));
  EXPECT_EQ(text(1, "peak"), colourOf("warningPeakLevelTitleColor"));
  EXPECT_EQ(text(2, "peak"), colourOf("maxPeakLevelTitleColor"));
  EXPECT_EQ(text(0, "group"), colourOf("emptyGroupLabelColor"));
  EXPECT_NE(text(3, "group").blue, kThemedBlue);
  EXPECT_NE(text(0, "volume").blue, kThemedBlue);
  // Bytes are cut off, not rounded: 52.9 of 255 is no 51, and 51.9 is one.
  const NSObject peak = node(0, "peak");
  call<"setTextColor:">(peak, NSColor::colorWithSRGBRed(1, 214.5 / 255, 51.9 / 255, 1));
  EXPECT_EQ(text(0, "peak"), colourOf("warningPeakLevelTitleColor"));
  call<"setTextColor:">(peak, NSColor::colorWithSRGBRed(1, 214.5 / 255, 52.1 / 255, 1));
  EXPECT_NE(text(0, "peak").blue, kThemedBlue);
}

TEST_F(Controls, DrawTheTitleOfAnEmptyEqualizer) {
  start(allColours(), {Track{}});
  const NSObject thumbnail = node(0, "equalizerThumbnail");
  const auto painted = [&] {
    const auto bitmap =
        NSBitmapImageRep::withBitmapDataPlanes(nullptr, 60, 40, 8, 4, true, false, NSDeviceRGBColorSpace, 0, 0);
    const auto context = NSGraphicsContext::graphicsContextWithBitmapImageRep(bitmap);
    call<"drawTitleInRect:inContext:">(thumbnail, CGRectMake(0, 0, 60, 40), context.CGContext());
    long count = 0;
    for (const Rgba& shown : pixels(bitmap)) {
      EXPECT_TRUE(shown.alpha < 100 || near(shown, colourOf("emptyEQLabelColor"), 2));
      count += shown.alpha > 0 ? 1 : 0;
    }
    return count;
  };
  EXPECT_GT(painted(), 10);
  call<"setTitle:">(thumbnail, literal<"">());
  EXPECT_EQ(painted(), 0) << "the host's own title is not drawn either";
}

TEST_F(Controls, ColourGlyphsByNameAndState) {
  Track on;
  on.muted = on.soloed = on.recordArmed = on.monitoring = true;
  Track blinking;
  blinking.blinking = {.mute = true, .solo = true, .record = true, .monitoring = true};
  start(allColours({"SoloBlinkOnGlyphSymbolColor"}), {Track{}, on, blinking});
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
    EXPECT_EQ(glyph(0, c.name), colourOf("GlyphSymbolsColor")) << c.name;
    EXPECT_EQ(glyph(1, c.name), colourOf(c.on)) << c.name;
    if (c.blinking != nullptr) {
      EXPECT_EQ(glyph(2, c.name), colourOf(c.blinking)) << c.name;
    } else {
      EXPECT_NE(glyph(2, c.name).blue, kThemedBlue) << "a missing colour is not taken from the plain glyphs";
    }
  }
}

}  // namespace
