#include "bench/ControlRows.h"

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <sstream>

#include "bench/InACopy.h"
#include "bench/Rows.h"
#include "cli/PrivateFolders.h"
#include "cli/Session.h"
#include "cocoa/Call.h"
#include "cocoa/QuartzCore.h"

namespace bench {
namespace {

using namespace cocoa;

/// Every strip with all that the sample song has of its kind.
host::Song fullStrips(std::size_t count) {
  host::Song song = sampleSong();
  const std::vector<host::Track> sample = song.tracks;
  song.tracks.clear();
  for (std::size_t i = 0; i < count; ++i) {
    host::Track track = sample[i % sample.size()];
    track.selected = i % 9 == 0;
    song.tracks.push_back(std::move(track));
  }
  return song;
}

/// A frame as while music plays: every meter moves.
void drawPlayingFrame(host::Application& application) {
  static const Ref<NSBitmapImageRep> backing = application.draw(host::WindowKind::kMixer);
  static unsigned frame = 0;
  ++frame;
  const std::size_t strips = application.song().tracks.size();
  for (std::size_t i = 0; i < strips; ++i) {
    const double level = static_cast<double>((i * 7 + frame * 13) % 50) / 50;
    application.mixer().setLevels(i, {level, level * 0.9});
  }
  application.runFrame();
  application.draw(host::WindowKind::kMixer, backing);
}

// ---- Titles -------------------------------------------------------------------------------------------

constexpr int kTitles = 512;
constexpr host::ComponentCodes kGrouped{0x61756678, 0x64656C79, 0x64656D6F};

host::Song oneInsert() {
  host::Song song;
  host::Track track;
  track.audioPlugIns = {{.name = "Delay Line", .codes = kGrouped}};
  song.tracks.push_back(track);
  return song;
}

NSObject insertOf(host::Application& application) {
  static const NSObject insert = call<"childNodeWithName:", NSObject>(
      NSObject(application.mixer().strips().objectAtIndex(0)), literal<"audioPlugIn">());
  return insert;
}

void askTitles(host::Application& application) {
  const NSObject insert = insertOf(application);
  for (int i = 0; i < kTitles; ++i) {
    const AutoreleasePool pool;
    benchmark::DoNotOptimize(call<"attributedTitleForState:", id>(insert, NSInteger(1)));
  }
}

/// The least that it takes: the host's title, a copy of it, another colour.
void copyAndColorTitles(host::Application& application) {
  const NSObject insert = insertOf(application);
  const NSColor color = NSColor::colorWithSRGBRed(0.9, 0.4, 0.1, 1);
  for (int i = 0; i < kTitles; ++i) {
    const AutoreleasePool pool;
    const auto title = call<"attributedTitleForState:", NSAttributedString>(insert, NSInteger(1));
    const auto copy = Ref<NSMutableAttributedString>::adopt(call<"mutableCopy", NSMutableAttributedString>(title));
    copy->addAttribute(NSForegroundColorAttributeName, color, {0, copy->length()});
    benchmark::DoNotOptimize(copy.get().object);
  }
}

std::string list(const std::string& entries) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>\n" + entries + "</dict></plist>\n";
}

std::string newTheme(const std::string& name, const std::string& entries) {
  const std::string folder = session::privateFolder() + "/" + name;
  writeFile(folder + "/PluginHelper.plist", list(entries));
  const std::string contents = folder + "/Companion.bundle/Contents/";
  writeFile(contents + "Info.plist", list("<key>CFBundleIdentifier</key><string>com.velura.companion</string>"));
  writeFile(contents + "Resources/PluginHelper.plist", list(""));
  return folder;
}

std::string groupTheme() {
  return newTheme("group",
                  "<key>PluginGroupMapV2</key><dict><key>0x61756678:0x64656C79:0x64656D6F</key><dict>"
                  "<key>image</key><string>AudioPlugIn_Blue</string>"
                  "<key>onTextColorStr</key><string>sRGBColor:{230, 102, 26, 100}</string></dict></dict>");
}

// ---- Meter textures -----------------------------------------------------------------------------------

constexpr int kTextures = 256;

std::string meterTheme() {
  std::ostringstream entries;
  entries << "<key>useSharedLevelMeter?audio</key><false/>";
  for (int i = 0; i < 5; ++i) {
    entries << "<key>levelMeterColor" << i << "?audio</key><string>sRGBColor:{" << 50 * i << ", 90, 60, 100}</string>";
  }
  return newTheme("meters", entries.str());
}

void askTexture(double height) {
  constexpr NSInteger kAudioMeter = 13;
  benchmark::DoNotOptimize(call<"textureNamed:withSize:constentScale:", CGImageRef>(
      asObject(classNamed("MALevelNodeTextureCache")), kAudioMeter, CGSize{6, height}, 2.0));
}

void askOneTexture(host::Application& /*application*/) {
  for (int i = 0; i < kTextures; ++i) askTexture(146);
}

/// More sizes than are kept, in turn.
void askManyTextures(host::Application& /*application*/) {
  for (int i = 0; i < kTextures; ++i) {
    const AutoreleasePool pool;
    askTexture(18 + i);
  }
}

// ---- Start-up -----------------------------------------------------------------------------------------

/// 400 colours: those of strips first, the rest under names that nobody asks for.
std::string bigTheme() {
  std::ostringstream entries;
  for (const char* key : {"stripBackgroundColor", "mixerBackgroundColor", "scaleNumberColor", "sendButtonTitleColor"}) {
    entries << "<key>" << key << "</key><string>sRGBColor:{40, 50, 60, 100}</string>";
  }
  for (int i = 0; i < 396; ++i) {
    entries << "<key>colour" << i << "BackgroundColor</key><string>sRGBColor:{" << i % 256
            << ", 120, 20, 100}</string>";
  }
  return newTheme("start-up", entries.str());
}

void bringUp(host::Application& application) {
  onceInACopy(application, [](host::Application& copy) {
    std::string error;
    if (!copy.loadBundle(session::SessionOptions().bundlePath, error)) std::fprintf(stderr, "%s\n", error.c_str());
  });
}

/// Selects a theme for a host that is up without the plug-in.
void select(const std::string& theme) {
  session::SessionOptions options;
  options.theming = session::Theming::kTheme;
  options.themeFolder = theme;
  std::string error;
  if (!session::selectTheme(options, error)) std::fprintf(stderr, "%s\n", error.c_str());
}

void drawOnce(host::Application& application) {
  onceInACopy(application, [](host::Application& copy) {
    copy.runFrame();
    static_cast<void>(copy.draw(host::WindowKind::kMixer));
  });
}

}  // namespace

ControlWorkers::ControlWorkers()
    : plainFrame("", fullStrips(128), {}, drawPlayingFrame),
      gradientFrame("themes/prism", fullStrips(128), {}, drawPlayingFrame),
      imageFrame("themes/ember", fullStrips(128), {}, drawPlayingFrame),
      themedTitle(groupTheme(), oneInsert(), {}, askTitles),
      plainTitle("", oneInsert(), {}, copyAndColorTitles),
      cachedTexture(meterTheme(), oneInsert(), {}, askOneTexture),
      freshTexture(meterTheme(), oneInsert(), {}, askManyTextures),
      startUp(
          "", fullStrips(64), [theme = bigTheme()](host::Application&) { select(theme); }, bringUp),
      firstDrawing("", fullStrips(64), {}, drawOnce) {}

void addControlRows(const ControlWorkers& workers) {
  addRow({"a frame of 128 full strips, every meter moving, gradient theme", 1.4}, inWorker(workers.gradientFrame),
         inWorker(workers.plainFrame));
  addRow({"the same in image mode", 1.4}, inWorker(workers.imageFrame), inWorker(workers.plainFrame));
  addRow({"a button title through the override, group found", 1.3, kTitles, kTitles}, inWorker(workers.themedTitle),
         inWorker(workers.plainTitle));
  addRow({"a cached meter texture", 0.05, kTextures, kTextures}, inWorker(workers.cachedTexture),
         inWorker(workers.freshTexture));
  addRow({"start-up with 400 keys and an open window of 64 strips", 1}, inWorker(workers.startUp),
         inWorker(workers.firstDrawing));
}

}  // namespace bench
