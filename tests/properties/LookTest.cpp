// What must always hold of the pictures, whatever is built on top.

#include <gtest/gtest.h>

#include "cli/PrivateFolders.h"
#include "standin/steering/Clock.h"
#include "standin/steering/RunLoop.h"
#include "tests/support/Commands.h"
#include "tests/support/Memory.h"
#include "tests/support/Theme.h"

namespace {

using namespace support;

/// Renders with the command line and returns the picture's bytes.
std::string rendered(const std::string& theme, int scale, const std::string& window = "mixer") {
  const std::string out = session::privateFolder() + "/picture.png";
  const auto result = runVelura("render --theme " + theme + " --song songs/night-drive.json --window " + window +
                                " --scale " + std::to_string(scale) + " --out " + out);
  EXPECT_EQ(result.status, 0) << result.output;
  return fileContents(out);
}

std::string sample(const std::string& name) { return std::string(VELURA_SOURCE_DIR "/themes/") + name; }

TEST(Look, IsTheHostsOwnWithDefaultAndWithTheReferenceTheme) {
  for (const char* window : {"mixer", "arrange", "step-sequencer", "live-loops", "library", "loop-browser", "lists",
                             "inspector", "overview"}) {
    for (const int scale : {1, 2}) {
      const std::string host = rendered("none", scale, window);
      ASSERT_FALSE(host.empty());
      EXPECT_TRUE(rendered("default", scale, window) == host) << window << " at " << scale;
      EXPECT_TRUE(rendered(sample("reference"), scale, window) == host) << window << " at " << scale;
    }
  }
}

TEST(Look, OfEveryThemeIsTheSameRunAfterRun) {
  const std::string host = rendered("none", 1);
  for (const char* theme : {"ember", "fjord", "prism", "linen"}) {
    const std::string first = rendered(sample(theme), 1);
    EXPECT_TRUE(first == rendered(sample(theme), 1)) << theme;
    EXPECT_FALSE(first == host) << theme << " changes nothing";
  }
}

/// A picture of a small song with the theme file at `settings`, drawn in a process of its own.
bool drawsLike(const std::string& picture, const std::string& settings) {
  const std::string theme = writeTheme(settings);
  return inChild([&] {
    auto application = start(theme, sampleSong());
    return application && session::windowAsPng(*application, host::WindowKind::kMixer) == picture;
  });
}

std::string pictureOf(const std::string& settings) {
  const std::string theme = settings.empty() ? std::string() : writeTheme(settings);
  const std::string out = session::privateFolder() + "/expected.png";
  EXPECT_TRUE(inChild([&] {
    auto application = start(theme, sampleSong());
    writeFile(out, application ? session::windowAsPng(*application, host::WindowKind::kMixer) : "");
    return application != nullptr;
  }));
  return fileContents(out);
}

std::string nested(const char* open, const char* close, std::size_t depth) {
  std::string text;
  for (std::size_t i = 0; i < depth; ++i) text += open;
  for (std::size_t i = 0; i < depth; ++i) text += close;
  return text;
}

TEST(HostileThemes, LeaveTheHostsLook) {
  const std::string host = pictureOf("");
  ASSERT_FALSE(host.empty());
  const std::string good = ThemeFile().text("stripBackgroundColor", color(200, 0, 0)).list();
  struct Case {
    const char* what;
    std::string settings;
  };
  const Case kCases[] = {
      {"empty", ""},
      {"truncated", good.substr(0, good.size() / 2)},
      {"not a list", "stops:1 solid <<<"},
      {"a string", "<plist version=\"1.0\"><string>text</string></plist>"},
      {"an array", "<plist version=\"1.0\"><array><string>a</string></array></plist>"},
      {"200,000 arrays in XML", "<plist version=\"1.0\">" + nested("<array>", "</array>", 200'000) + "</plist>"},
      {"200,000 arrays in text", nested("(", ")", 200'000)},
      {"100 MB", std::string(100'000'000, ' ')},
      {"nothing but zero bytes", std::string(4096, '\0')},
  };
  for (const Case& c : kCases) {
    EXPECT_TRUE(drawsLike(host, c.settings)) << c.what;
  }
}

TEST(HostileThemes, ApplyTheRest) {
  const ThemeFile good = ThemeFile()
                             .text("stripBackgroundColor", color(20, 60, 90))
                             .text("stripHighlightBackgroundColor", color(90, 60, 20));
  const std::string expected = pictureOf(good.list());
  ThemeFile mixed = good;
  mixed.text("folderStripBackgroundColor", "not a colour")
      .xml("auxStripBackgroundColor", "<array><true/></array>")
      .xml("stripBorderColor", "<data>AAAA</data>")
      .text("mixerStripBGGradient", "LinearGradient:{{1,2,3,4},V}")
      .text("mixerStripHighlightBGGradient", std::string(100'000, '{'))
      .text("mixerStripBevel", "Bevel:{X,1,1}")
      .text("UseTrackColorGradient_Mixer", "AutoGradient:{0,0,V}")
      .xml("useTrackColorAsStripBackground", "<array/>")
      .xml("UseTrackColor_MixerOpacity", "<dict/>")
      .xml("PluginGroupMapV2", "<array/>")
      .xml("useSharedFader?audio", "<dict><key>a</key><date>2001-01-01T00:00:00Z</date></dict>");
  EXPECT_TRUE(drawsLike(expected, mixed.list()));
}

TEST(AbsentKeys, HandOnToTheHost) {
  // A theme is selected and every override installed, but no key that a strip reads is there.
  const std::string host = pictureOf("");
  EXPECT_TRUE(drawsLike(host, ThemeFile().text("ruler_unrelated", color(1, 2, 3)).list()));
}

TEST(Frames, OfTenThousandStripsAreDrawn) {
  EXPECT_TRUE(inChild([] {
    host::Song song;
    song.tracks.resize(10'000);
    auto application = start(sample("ember"), std::move(song));
    return application && !session::windowAsPng(*application, host::WindowKind::kMixer).empty();
  }));
}

/// Moves what somebody moves in a strip: meters, titles, buttons, knobs.
void playControls(const host::MixerWindow& mixer, std::size_t frame) {
  const std::size_t strip = frame * 5 % 6;
  const double level = static_cast<double>(frame % 50) / 50;
  mixer.setLevels(strip, {level, level * 0.9});
  mixer.setPeak(strip, 6 - static_cast<double>(frame % 30));
  mixer.setPan(strip, static_cast<double>(frame % 127) - 64);
  mixer.setButton(strip, "mute", static_cast<NSInteger>(frame % 3));
  mixer.setPlugIn(strip, 0, {.name = "Echo " + std::to_string(frame % 40), .bypassed = frame % 2 == 0});
  mixer.setSend(strip, 0, level, frame % 4 == 0);
}

TEST(Frames, DoNotLeakWhileStripsChange) {
  host::Song song = sampleSong();
  song.tracks.resize(6);
  auto application = start(sample("ember"), std::move(song));
  ASSERT_TRUE(application);
  const NSArray strips = application->mixer().strips();
  const long kept = keptAfter(10'000, [&](int frame) {
    const NSObject strip = strips.objectAtIndex(static_cast<NSUInteger>(frame) % strips.count());
    auto bounds = cocoa::call<"frame", CGRect>(strip);
    bounds.size.height = 560 + frame % 97;
    cocoa::call<"setFrame:">(strip, bounds);
    cocoa::call<"setHighlightState:">(strip, static_cast<NSInteger>(frame / 7 % 2));
    playControls(application->mixer(), static_cast<std::size_t>(frame));
    application->runFrame();
    static_cast<void>(application->draw(host::WindowKind::kMixer));
  });
  EXPECT_LE(kept, 64 * 1024);
}

TEST(Frames, OfTheArrangeWindowDoNotLeakWithBandsAndGrid) {
  host::Song song = sampleSong();
  song.tracks.resize(5);
  const auto grid = ThemeFile().flag("enabled", true).flag("markerBandsEnabled", true).integer("colorMode", 2);
  const auto application = start(sample("prism"), std::move(song), {}, {.grid = writeList("grid.plist", grid)});
  ASSERT_TRUE(application);
  const auto backing = application->draw(host::WindowKind::kArrange);
  const long kept = keptAfter(10'000, [&](int frame) {
    application->arrange().setScroll(frame % 113 * 3.0);
    if (frame % 50 == 0) standin::setClock(1e6 + frame);  // colours are out of date
    application->runFrame();
    application->draw(host::WindowKind::kArrange, backing);
    standin::runMainQueue();
  });
  EXPECT_LE(kept, 64 * 1024);
}

}  // namespace
