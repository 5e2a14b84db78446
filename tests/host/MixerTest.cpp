// The mixer's controls as the host alone draws and operates them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "host/mixer/AssetMapping.h"
#include "host/mixer/MANode.h"
#include "tests/support/HostTest.h"

namespace {

using namespace cocoa;
using host::StripType;
using host::Track;
using namespace support;
using testing::ElementsAre;

Track audio() {
  Track track;
  track.inputGain = 6;
  track.audioPlugIns = {{.name = "One"}, {.name = "Two", .bypassed = true}};
  track.sends.resize(1);
  return track;
}

class Mixer : public HostTest {
 protected:
  void start(std::initializer_list<Track> tracks) { startWith("", songOf(tracks)); }
  [[nodiscard]] host::MixerWindow& mixer() const { return application_->mixer(); }
};

// ---- Buttons ------------------------------------------------------------------------------------------

TEST_F(Mixer, ButtonsHaveTheSegmentsAndTheLookOfTheirPaths) {
  ASSERT_EQ(::chdir("/"), 0);  // assets lie beside the program
  start({audio()});
  struct Case {
    const char* path;
    NSInteger segments;
    const char* looksLike;
  };
  const Case kCases[] = {
      {"Buttons.AudioPlugIn", 3, nullptr},
      {"Buttons.MIDIPlugIn", 3, "Buttons.CustomInstrument"},
      {"Buttons.CustomInstrument", 1, "Buttons.MIDIPlugIn"},
      {"Buttons.InputSegment", 2, nullptr},
      {"Buttons.AudioPlugIn_Rose", 1, nullptr},
      {"Buttons.AudioPlugIn_Unheard", 1, "Buttons.Default"},
      {"", 1, "Buttons.Default"},
  };
  const NSObject button = node(0, "audioPlugIn");
  for (const Case& c : kCases) {
    call<"setAssetSetPath:">(button, string(c.path));
    EXPECT_EQ((call<"numberOfSegments", NSInteger>(button)), c.segments) << c.path;
    const host::ButtonAsset& own = host::buttonAsset(c.path);
    if (c.looksLike != nullptr) {
      EXPECT_EQ(rgba(own.on.top), rgba(host::buttonAsset(c.looksLike).on.top)) << c.path;
    } else {
      EXPECT_FALSE(rgba(own.on.top) == rgba(own.off.top) && std::string(c.path) != "Buttons.InputSegment") << c.path;
    }
  }
  EXPECT_EQ((call<"imageForState:", NSImage>(button, NSInteger(2)).representations().count()), 2U);
  EXPECT_FALSE((call<"imageForState:", NSImage>(button, NSInteger(1))));
  EXPECT_FALSE((call<"imageForState:", NSImage>(node(0, "sendButton"), NSInteger(2))));
}

/// What buttons are told, in order.
std::vector<std::string>& told() {
  static std::vector<std::string> all;
  return all;
}
template <FixedString Selector, class Value>
void record(NSObject button, Value value) {
  if (toStdString(call<"name", NSString>(button)) == "input") told().emplace_back(Selector.view());
  sendSuper<void>(classNamed("MAButtonNode"), button.object, selector<Selector>(), value);  // stores it as well
}
void recordColor(NSObject button, NSColor /*colour*/) {
  told().push_back("colour, state " + std::to_string(call<"state", NSInteger>(button)));
}

TEST_F(Mixer, ButtonsHearOfTheirPathFirst) {
  const host::Application definesTheClasses{host::HostOptions()};
  const Class cls = classNamed("MAButtonNode");
  detail::replaceFunction<"setAssetSetPath:", record<"setAssetSetPath:", NSString>>(cls);
  detail::replaceFunction<"setRepresentedObject:", record<"setRepresentedObject:", NSObject>>(cls);
  Track track;
  track.type = StripType::kInstrument;
  track.instrument.name = "Piano";
  track.instrument.codes = host::ComponentCodes{1, 2, 3};
  Track played = track;
  played.instrument.audio = true;
  Track empty;
  empty.type = StripType::kInstrument;
  start({track, played, empty});
  EXPECT_THAT(told(), ElementsAre("setAssetSetPath:", "setRepresentedObject:", "setAssetSetPath:",
                                  "setRepresentedObject:", "setAssetSetPath:"));
  const auto path = [&](std::size_t strip) {
    return toStdString(call<"assetSetPath", NSString>(node(strip, "input")));
  };
  EXPECT_THAT((std::vector{path(0), path(1), path(2)}),
              ElementsAre("Buttons.MIDIPlugIn", "Buttons.AudioPlugIn", "Buttons.EmptyPlugIn"));
  told().clear();
  detail::replaceFunction<"setForegroundColor:", recordColor>(cls);
  call<"setState:">(node(0, "input"), NSInteger(0));
  call<"setState:">(node(0, "input"), NSInteger(0));
  EXPECT_THAT(told(), ElementsAre("colour, state 0")) << "after the new state is stored, once";
}

// ---- Knobs --------------------------------------------------------------------------------------------

TEST_F(Mixer, PartsOfKnobsLieWhereTheirGeometryIsCopiedTo) {
  Track stereo = audio();
  stereo.panning.mode = host::PanMode::kStereo;
  start({audio(), stereo});
  struct Case {
    std::size_t strip;
    const char* knob;
    const char* arc;
  };
  for (const Case& c : {Case{0, "pan", "shape"}, Case{0, "inputGainKnob", "shape"}, Case{1, "pan", "spread"}}) {
    const NSObject knob = node(c.strip, c.knob);
    const CGSize size = call<"frame", CGRect>(knob).size;
    EXPECT_EQ(layer(knob).anchorPoint(), CGPoint());
    EXPECT_EQ(layer(child(knob, c.arc)).frame(), (CGRect{{0, 0}, size}));
    EXPECT_EQ(layer(child(knob, c.arc)).anchorPoint(), CGPoint());
    const NSObject cap = child(knob, "cap");
    EXPECT_EQ(layer(cap).anchorPoint(), (CGPoint{0.5, 0.5}));
    EXPECT_EQ(layer(cap).position(), (CGPoint{size.width / 2, size.height / 2}));
    EXPECT_EQ(layer(cap).bounds(), (CGRect{{0, 0}, size}));
    EXPECT_GT(layer(cap).zPosition(), 0);
    EXPECT_TRUE(child(cap, "pointer"));
  }
}

TEST_F(Mixer, CapsTurnWithTheValueAndOnlyWhatChangesIsDrawn) {
  start({audio()});
  const NSObject pan = node(0, "pan");
  const auto pictures = [&] {
    std::vector<NSObject> all;
    for (const char* part : {"shape", "cap"}) all.push_back(layer(child(pan, part)).contents());
    all.push_back(layer(node(0, "sendKnob")).contents());
    return all;
  };
  const auto before = pictures();
  application_->runFrame();
  EXPECT_EQ(pictures(), before);
  mixer().setPan(0, 63);
  EXPECT_TRUE((call<"needsUpdateContents", BOOL>(child(pan, "shape"))));
  application_->runFrame();
  const CGAffineTransform turn = layer(child(pan, "cap")).affineTransform();
  EXPECT_NEAR(std::atan2(turn.b, turn.a) * 180 / M_PI, -155, 0.01);
  const auto after = pictures();
  EXPECT_NE(after[0], before[0]);
  EXPECT_EQ(after[2], before[2]) << "of another knob";
  EXPECT_EQ(layer(child(pan, "cap")).bounds(), (CGRect{{0, 0}, {40, 40}}));
}

}  // namespace
