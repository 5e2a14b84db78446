// The mixer's controls as the host alone draws and operates them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "host/mixer/AssetMapping.h"
#include "host/mixer/MADynamicScaleNode.h"
#include "host/mixer/MALevelNode.h"
#include "host/mixer/MANode.h"
#include "host/mixer/ScaleMarks.h"
#include "tests/support/HostTest.h"

namespace {

using namespace cocoa;
using host::PlugInSlot;
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
  void start(std::vector<Track> tracks, host::HostOptions options = {}) {
    host::Song song;
    song.tracks = std::move(tracks);
    startWith("", std::move(song), std::move(options));
  }
  [[nodiscard]] host::MixerWindow& mixer() const { return application_->mixer(); }
  static NSString path(NSObject button) { return call<"assetSetPath", NSString>(button); }
  static NSColor foreground(NSObject node) { return call<"foregroundColor", NSColor>(node); }
  static NSColor colourOf(NSAttributedString text) {
    return cast<NSColor>(text.attribute(NSForegroundColorAttributeName, 0, nullptr));
  }
  static NSObject title(NSObject button) {
    return call<"attributedTitleForState:", NSObject>(button, call<"state", NSInteger>(button));
  }
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

TEST_F(Mixer, ButtonsTakeTheColourOfWhatTheyShow) {
  PlugInSlot slot{.name = "Slot"};
  Track track = audio();
  track.automation = "Latch";
  start({track});
  const NSObject button = node(0, "audioPlugIn");
  const auto show = [&](bool bypassed, bool lowLatency, bool dimmed) {
    slot.bypassed = bypassed;
    slot.lowLatency = lowLatency;
    slot.dimmed = dimmed;
    mixer().setPlugIn(0, 0, slot);
    return foreground(button);
  };
  const NSColor on = show(false, false, false);
  const NSColor off = show(true, false, false);
  EXPECT_EQ(on.numberOfComponents(), 2);
  EXPECT_EQ(off.numberOfComponents(), 2);
  EXPECT_LT(off.whiteComponent(), on.whiteComponent());
  const NSColor late = show(false, true, false);
  EXPECT_EQ(late.numberOfComponents(), 4);
  EXPECT_EQ(late.alphaComponent(), 1.0);
  EXPECT_EQ(show(true, false, true).alphaComponent(), 0.5);
  call<"setForegroundColor:">(button, NSColor::redColor());
  EXPECT_EQ(colourOf(cast<NSAttributedString>(title(button))).alphaComponent(), 0.5) << "inserts keep their mode's";

  const NSObject automation = node(0, "automation");
  EXPECT_EQ(foreground(automation).numberOfComponents(), 4);
  mixer().setButton(0, "automation", 0);
  EXPECT_EQ(foreground(automation).numberOfComponents(), 2);
  call<"setForegroundColor:">(automation, NSColor::redColor());
  EXPECT_EQ(rgba(colourOf(cast<NSAttributedString>(title(automation)))), (Rgba{255, 0, 0}));
  call<"setTitle:">(automation, string(""));
  EXPECT_EQ(cast<NSAttributedString>(title(automation)).length(), 0U);
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
void recordColour(NSObject button, NSColor /*colour*/) {
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
  start({track, played, [] {
           Track empty;
           empty.type = StripType::kInstrument;
           return empty;
         }()});
  EXPECT_THAT(told(), ElementsAre("setAssetSetPath:", "setRepresentedObject:", "setAssetSetPath:",
                                  "setRepresentedObject:", "setAssetSetPath:"));
  EXPECT_EQ(toStdString(path(node(0, "input"))), "Buttons.MIDIPlugIn");
  EXPECT_EQ(toStdString(path(node(1, "input"))), "Buttons.AudioPlugIn");
  EXPECT_EQ(toStdString(path(node(2, "input"))), "Buttons.EmptyPlugIn");
  const NSObject plugIn = call<"representedObject", NSObject>(node(0, "input"));
  EXPECT_EQ((call<"manufacturer", unsigned>(plugIn)), 3U);
  told().clear();
  detail::replaceFunction<"setForegroundColor:", recordColour>(cls);
  call<"setState:">(node(0, "input"), NSInteger(0));
  call<"setState:">(node(0, "input"), NSInteger(0));
  EXPECT_THAT(told(), ElementsAre("colour, state 0")) << "after the new state is stored, once";
}

TEST_F(Mixer, SymbolsAreGreyOffDarkOnAndColouredWhileBlinking) {
  Track track = audio();
  track.blinking.solo = true;
  start({track});
  const auto symbol = [&](const char* name) { return colourOf(call<"symbol", NSAttributedString>(node(0, name))); };
  EXPECT_EQ((call<"state", NSInteger>(node(0, "solo"))), 2);
  EXPECT_EQ(symbol("solo").numberOfComponents(), 4);
  EXPECT_EQ(symbol("mute").numberOfComponents(), 2);
  mixer().setButton(0, "mute", 1);
  EXPECT_LT(symbol("mute").whiteComponent(), 0.2);
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

// ---- Scales and meters --------------------------------------------------------------------------------

TEST_F(Mixer, ScalesAreMadeOfTicks) {
  start({Track()}, {.version = "11.1.9"});
  EXPECT_EQ(classNamed(host::kDynamicScaleClass), nullptr);
  for (const NSInteger type : {host::kLevelScale, host::kVolumeScale}) {
    const Ref<NSObject> scale = host::makeNode("MAScaleNode", "scale", {{0, 0}, {18, 146}});
    call<"setType:">(scale.get(), type);
    const auto ticks = call<"largeScaleTicks", NSArray>(scale.get());
    int zero = 0;
    double lowest = 1000;
    for (const NSObject tick : items(ticks)) {
      const bool plain = call<"type", NSInteger>(tick) == 1;
      const double position = call<"defaultYPosition", double>(tick);
      zero +=
          plain && position == 101.0 && rgba(NSColor::colorWithCGColor(call<"color", CGColorRef>(tick))).alpha == 100;
      lowest = std::min(lowest, position);
    }
    EXPECT_EQ(zero, type == host::kVolumeScale ? 1 : 0);
    const NSObject last = ticks.objectAtIndex(ticks.count() - 1);
    EXPECT_NE((call<"type", NSInteger>(last)), 1);
    EXPECT_EQ((call<"defaultYPosition", double>(last)), lowest);
    const NSObject first = ticks.objectAtIndex(0);
    call<"setType:">(scale.get(), type);
    EXPECT_EQ((call<"largeScaleTicks", NSArray>(scale.get()).objectAtIndex(0)), first) << "made once";
    call<"setType:">(scale.get(), NSInteger(9));
    EXPECT_EQ((call<"largeScaleTicks", NSArray>(scale.get()).count()), 0U);
  }
}

/// The highest alpha in columns of a picture, in bytes.
int alphaIn(CGImageRef image, std::size_t from, std::size_t to) {
  const auto bitmap = NSBitmapImageRep::withCGImage(image);
  int most = 0;
  for (NSInteger y = 0; y < bitmap->pixelsHigh(); ++y) {
    for (std::size_t x = from; x < to; ++x) {
      const unsigned char* pixel = bitmap->bitmapData() + y * bitmap->bytesPerRow() + static_cast<long>(x) * 4;
      EXPECT_TRUE(pixel[0] == pixel[3] && pixel[1] == pixel[3] && pixel[2] == pixel[3]) << "white, premultiplied";
      most = std::max<int>(most, pixel[3]);
    }
  }
  return most;
}

TEST_F(Mixer, ScalePicturesAreWhiteAndShared) {
  Track master;
  master.type = StripType::kMaster;
  Track other;
  other.type = StripType::kOther;
  start({Track(), Track(), master, other}, {.version = "11.2", .scale = 2});
  const auto picture = [&](std::size_t strip, const char* name) {
    return bridged<CGImageRef>(call<"contents", NSObject>(node(strip, name)));
  };
  const CGImageRef volume = picture(0, "volumeScale");
  const CGImageRef level = picture(0, "levelScale");
  ASSERT_TRUE(volume != nullptr && level != nullptr);
  EXPECT_EQ(CGImageGetHeight(volume), 292U);
  EXPECT_EQ(volume, picture(1, "volumeScale"));
  EXPECT_EQ(layer(node(1, "volumeScale")).contents(), bridged(volume));
  EXPECT_EQ(alphaIn(volume, 0, CGImageGetWidth(volume)), 255);
  const std::size_t width = CGImageGetWidth(level);
  const std::size_t border = width * 80 / 100;
  EXPECT_EQ(alphaIn(level, border - 1, border), 0) << "between numbers and ticks";
  EXPECT_EQ(alphaIn(level, border, width), 102);
  EXPECT_GT(alphaIn(level, 0, border), 60);
  EXPECT_LE(alphaIn(level, 0, border), 102);
  for (const std::size_t strip : {2U, 3U}) {
    EXPECT_EQ(toStdString(node(strip, "volumeScale").className()), "MAScaleNode");
  }
}

TEST_F(Mixer, MetersAskForTexturesOfTheTypesTheyHave) {
  Track out;
  out.type = StripType::kStereoOut;
  out.exponentialMeter = false;
  start({Track(), out});
  EXPECT_EQ((call<"mixerLevelType", NSInteger>(node(0, "level"))), 3);
  EXPECT_EQ((call<"mixerLevelType", NSInteger>(node(1, "level"))), 2);
  int answering = 0;
  const auto displays = call<"levelDisplays", NSArray>(node(0, "level"));
  for (const NSObject display : items(displays)) {
    answering += display.respondsToSelector(selector<"setMixerLevelType:">()) ? 1 : 0;
  }
  EXPECT_EQ(answering, 2);
  EXPECT_EQ(displays.count(), 3U) << "and one that does not know the message";
  const auto texture = [](NSInteger type, double scale) {
    return call<"textureNamed:withSize:constentScale:", CGImageRef>(classNamed("MALevelNodeTextureCache"), type,
                                                                    CGSize{5, 100}, scale);
  };
  EXPECT_EQ(CGImageGetHeight(texture(3, 2)), 200U);
  EXPECT_EQ(texture(3, 2), texture(3, 2));
  EXPECT_EQ(texture(43, 2), nullptr) << "no type of the host's";
  // The colour at the top is the last of the mapping's, whatever the scale.
  for (const double scale : {1.0, 2.0}) {
    const auto bitmap = NSBitmapImageRep::withCGImage(texture(1, scale));
    EXPECT_EQ(pixel(bitmap, 0, 0), (Rgba{236, 86, 72})) << scale;
    EXPECT_TRUE(near(pixel(bitmap, 0, bitmap->pixelsHigh() - 1), {47, 158, 86}, 3)) << scale;
  }
}

TEST_F(Mixer, AssetsListLocationsOfEveryMeter) {
  start({});
  const NSString file = NSBundle::bundleForClass(classNamed("MALevelNodeTextureCache"))
                            .pathForResource(string("MAMixerAssetMapping"), string("plist"));
  auto list = call<"dictionaryWithContentsOfFile:", NSDictionary>(classOf<NSDictionary>(), file);
  for (const char* key : {"AssetSets", "Gradients", "LevelMeter"}) {
    list = as<NSDictionary>(list.objectForKey(string(key)));
  }
  for (const char* name : {"LevelLinear", "LevelLinearOutput", "LevelExponential", "LevelExponentialOutput"}) {
    const auto stops = as<NSArray>(as<NSDictionary>(list.objectForKey(string(name))).objectForKey(string("gradient")));
    EXPECT_EQ(stops.count(), 5U) << name;
    for (const NSObject stop : items(stops)) {
      EXPECT_TRUE(as<NSNumber>(as<NSDictionary>(stop).objectForKey(string("location")))) << name;
    }
  }
}

// ---- The rest -----------------------------------------------------------------------------------------

TEST_F(Mixer, ImagesAreTintedInEveryDensity) {
  start({audio()});
  const auto symbol = call<"imageForState:", NSImage>(node(0, "audioPlugIn"), NSInteger(2));
  const auto tinted = call<"imageWithColor:", NSImage>(symbol, NSColor::redColor());
  ASSERT_EQ(tinted.representations().count(), 2U);
  EXPECT_EQ(tinted.size(), symbol.size());
  for (NSUInteger i = 0; i < 2; ++i) {
    const auto before = cast<NSBitmapImageRep>(symbol.representations().objectAtIndex(i));
    const auto after = cast<NSBitmapImageRep>(tinted.representations().objectAtIndex(i));
    EXPECT_EQ(after.pixelsWide(), before.pixelsWide());
    for (long x = 0; x < after.pixelsWide(); ++x) {
      const Rgba colour = pixel(after, x, after.pixelsHigh() / 2);
      EXPECT_EQ(colour.alpha, pixel(before, x, after.pixelsHigh() / 2).alpha);
      EXPECT_TRUE(colour.alpha == 0 || colour.red == 255);
    }
  }
}

TEST_F(Mixer, FadersShowOneCapForAllAndAnotherForGroups) {
  Track group;
  group.faderMode = 1;
  start({Track(), Track(), group});
  const auto cap = [&](std::size_t strip) {
    return call<"contents", NSObject>(child(node(strip, "volumeFader"), "fader knob"));
  };
  EXPECT_EQ(cap(0), cap(1));
  EXPECT_NE(cap(0), cap(2));
  EXPECT_EQ(as<NSImage>(cap(0)).representations().count(), 2U);
  EXPECT_EQ(layer(child(node(2, "volumeFader"), "fader knob")).contents(), cap(2));
}

long residentMemory() {
  std::ifstream status("/proc/self/statm");
  long total = 0;
  long resident = 0;
  status >> total >> resident;
  return resident * (::sysconf(_SC_PAGESIZE) / 1024);
}

TEST_F(Mixer, ChangesForTenThousandFramesWithoutGrowing) {
#if defined(__SANITIZE_ADDRESS__)
  constexpr int kFrames = 1'500;
  constexpr long kMayGrow = 512 * 1024;
#else
  constexpr int kFrames = 10'000;
  constexpr long kMayGrow = 2 * 1024;
#endif
  constexpr int kWarm = 1'000;
  start({audio(), audio()});
  long warm = 0;
  for (int frame = 0; frame < kFrames; ++frame) {
    const AutoreleasePool pool;
    const auto strip = static_cast<std::size_t>(frame % 2);
    mixer().setLevels(strip, {frame % 101 / 100.0, frame % 73 / 72.0});
    mixer().setPeak(strip, frame % 60 - 50);
    mixer().setVolume(strip, frame % 40 - 34);
    mixer().setPan(strip, frame % 128 - 64);
    mixer().setSelected(strip, frame / 5 % 2 != 0);
    mixer().setButton(strip, "mute", frame % 3);
    mixer().setSend(strip, 0, frame % 50 / 49.0, frame % 11 == 0);
    PlugInSlot slot{.name = "Slot " + std::to_string(frame), .bypassed = frame % 2 != 0};
    slot.codes = host::ComponentCodes{1, static_cast<unsigned>(frame), 3};
    mixer().setPlugIn(strip, 0, slot);
    application_->runFrame();
    if (frame % 10 == 0) static_cast<void>(application_->draw(host::WindowKind::kMixer));
    if (frame + 1 == kWarm) warm = residentMemory();
  }
  EXPECT_LE(residentMemory() - warm, kMayGrow) << "KiB more than after the first thousand frames";
}

}  // namespace
