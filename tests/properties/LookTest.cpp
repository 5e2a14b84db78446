// What must always hold of the pictures, whatever is built on top.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "cli/PrivateFolders.h"
#include "standin/Clock.h"
#include "standin/RunLoop.h"
#include "tests/support/Theme.h"

namespace {

using namespace support;

constexpr const char* kSong = VELURA_SOURCE_DIR "/songs/night-drive.json";

/// Renders with the command line and returns the picture's bytes.
std::string rendered(const std::string& theme, int scale, const std::string& window = "mixer") {
  const std::string out = session::privateFolder() + "/picture.png";
  const auto result = run(std::string(VELURA_COMMAND) + " render --theme " + theme + " --song " + kSong + " --window " +
                          window + " --scale " + std::to_string(scale) + " --out " + out);
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
  const std::string good = ThemeFile().text("stripBackgroundColor", colour(200, 0, 0)).list();
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
                             .text("stripBackgroundColor", colour(20, 60, 90))
                             .text("stripHighlightBackgroundColor", colour(90, 60, 20));
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

TEST(HostileThemes, AreAnErrorForTheCommandLine) {
  struct Case {
    const char* what;
    std::string settings;
    const char* message;
  };
  const Case kCases[] = {{"empty", "", "PluginHelper.plist: empty"},
                         {"garbage", "<<<", "not a property list"},
                         {"an array", "<plist version=\"1.0\"><array/></plist>", "not a dictionary"}};
  for (const Case& c : kCases) {
    const std::string theme = writeTheme(c.settings);
    const auto result = run(std::string(VELURA_COMMAND) + " render --theme " + theme + " --song " + kSong + " --out " +
                            session::privateFolder() + "/x.png");
    EXPECT_EQ(result.status, 1) << c.what;
    EXPECT_NE(result.output.find(c.message), std::string::npos) << result.output;
    EXPECT_EQ(std::count(result.output.begin(), result.output.end(), '\n'), 1) << result.output;
  }
}

TEST(HostileThemes, MayBeFoldersOrHoldValuesThatDoNotFit) {
  const std::string render = std::string(VELURA_COMMAND) + " render --song " + kSong + " --out " +
                             session::privateFolder() + "/x.png --theme ";
  const std::string folder = writeTheme("");
  std::filesystem::remove(folder + "/PluginHelper.plist");
  std::filesystem::create_directory(folder + "/PluginHelper.plist");
  auto result = run(render + folder);
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.output.find("PluginHelper.plist: not a file"), std::string::npos) << result.output;
  result = run(render + writeTheme(ThemeFile()
                                       .text("stripBorderColor", "red")
                                       .text("mixerStripBevel", "Bevel:{R,2,30}")
                                       .integer("mixerStripBGGradient", 3)
                                       .list()));
  EXPECT_EQ(result.status, 0) << "what fits is applied";
  EXPECT_NE(result.output.find("stripBorderColor: ignored, expected a colour"), std::string::npos) << result.output;
  EXPECT_NE(result.output.find("mixerStripBGGradient: ignored, expected a gradient"), std::string::npos);
  EXPECT_EQ(result.output.find("mixerStripBevel"), std::string::npos);
}

TEST(CommandLine, SaysWhatIsWrong) {
  const std::string render = std::string(VELURA_COMMAND) + " render ";
  const std::string song = std::string(" --song ") + kSong;
  const std::string folder = session::privateFolder();
  struct Case {
    std::string arguments;
    int status;
    const char* message;
  };
  const Case kCases[] = {
      {"", 2, "--theme is required"},
      {"--theme none --out x.png --song a.json --scale 3", 2, "--scale"},
      {"--theme none --out x.png --song a.json --window tuner", 2, "--window"},
      {"--theme none --out " + folder + "/x.png --song /no/song.json", 1, "/no/song.json: No such file"},
      {"--theme /no/theme --out " + folder + "/x.png" + song, 1, "/no/theme/PluginHelper.plist: No such file"},
      {"--theme none --out /no/folder/x.png" + song, 1, "/no/folder/x.png: cannot be written: No such file"},
      {"--theme none --out " + folder + song, 1, "Is a directory"},
      {"--help", 0, "Exit status"},
  };
  for (const Case& c : kCases) {
    const auto result = run(render + c.arguments);
    EXPECT_EQ(result.status, c.status) << c.arguments << "\n" << result.output;
    EXPECT_NE(result.output.find(c.message), std::string::npos) << result.output;
  }
}

TEST(AbsentKeys, HandOnToTheHost) {
  // A theme is selected and every override installed, but no key that a strip reads is there.
  const std::string host = pictureOf("");
  EXPECT_TRUE(drawsLike(host, ThemeFile().text("ruler_unrelated", colour(1, 2, 3)).list()));
}

TEST(Frames, OfTenThousandStripsAreDrawn) {
  EXPECT_TRUE(inChild([] {
    host::Song song;
    song.tracks.resize(10'000);
    auto application = start(sample("ember"), std::move(song));
    return application && !session::windowAsPng(*application, host::WindowKind::kMixer).empty();
  }));
}

/// Resident memory in KiB.
long residentMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word == "VmRSS:") {
      long size = 0;
      status >> size;
      return size;
    }
  }
  return 0;
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
#if defined(__SANITIZE_ADDRESS__)
  constexpr int kFrames = 1'500;  // for what the sanitizers see; the full length runs without them
#else
  constexpr int kFrames = 10'000;
#endif
  host::Song song = sampleSong();
  song.tracks.resize(6);
  auto application = start(sample("ember"), std::move(song));
  ASSERT_TRUE(application);
  const NSArray strips = application->mixer().strips();
  long warm = 0;
  long last = 0;
  for (int frame = 0; frame < kFrames; ++frame) {
    const cocoa::AutoreleasePool pool;
    const NSObject strip = strips.objectAtIndex(static_cast<NSUInteger>(frame) % strips.count());
    auto bounds = cocoa::call<"frame", CGRect>(strip);
    bounds.size.height = 560 + frame % 97;
    cocoa::call<"setFrame:">(strip, bounds);
    cocoa::call<"setHighlightState:">(strip, static_cast<NSInteger>(frame / 7 % 2));
    playControls(application->mixer(), static_cast<std::size_t>(frame));
    application->runFrame();
    static_cast<void>(application->draw(host::WindowKind::kMixer));
    // Memory goes up and down as the allocator gives it back: the highest of two stretches are compared.
    if (frame % 20 != 0) continue;
    if (frame >= kFrames / 10 && frame < kFrames * 3 / 10) warm = std::max(warm, residentMemory());
    if (frame >= kFrames * 8 / 10) last = std::max(last, residentMemory());
  }
#if defined(__SANITIZE_ADDRESS__)
  constexpr long kMayGrow = 512 * 1024;  // the sanitizer keeps freed memory aside
#else
  constexpr long kMayGrow = 2 * 1024;
#endif
  EXPECT_LE(last - warm, kMayGrow) << "KiB more than at first";
}

TEST(Frames, OfTheArrangeWindowDoNotLeakWithBandsAndGrid) {
#if defined(__SANITIZE_ADDRESS__)
  constexpr int kFrames = 600;
  constexpr long kMayGrow = 512 * 1024;
#else
  constexpr int kFrames = 10'000;
  constexpr long kMayGrow = 4 * 1024;
#endif
  constexpr int kWarm = 500;
  const std::string settings = session::privateFolder() + "/grid.plist";
  writeFile(settings,
            ThemeFile().flag("enabled", true).flag("markerBandsEnabled", true).integer("colorMode", 2).list());
  std::string error;
  host::Song song = sampleSong();
  song.tracks.resize(5);
  session::SessionOptions options;
  options.theming = session::Theming::kTheme;
  options.themeFolder = sample("prism");
  options.gridSettings = settings;
  const auto application = session::startSession(options, std::move(song), error);
  ASSERT_TRUE(application) << error;
  const auto backing = application->draw(host::WindowKind::kArrange);
  long warm = 0;
  for (int frame = 0; frame < kFrames; ++frame) {
    const cocoa::AutoreleasePool pool;
    application->arrange().setScroll(frame % 113 * 3.0);
    if (frame % 50 == 0) standin::setClock(1e6 + frame);  // colours are out of date
    application->runFrame();
    application->draw(host::WindowKind::kArrange, backing);
    standin::runMainQueue();
    if (frame + 1 == kWarm) warm = residentMemory();
  }
  EXPECT_LE(residentMemory() - warm, kMayGrow) << "KiB more than when warm";
}

}  // namespace
