#include "tests/goldens/Runs.h"

#include <fstream>

#include "cli/PrivateFolders.h"
#include "standin/steering/Clock.h"
#include "tests/goldens/KeyThemes.h"

namespace goldens {
namespace {

constexpr const char* kLooks[] = {"host", "ember", "fjord", "linen", "prism", "reference", "keys", "keys-images"};
constexpr const char* kOldestHost = "10.7.4";

std::vector<Picture> windows(std::initializer_list<const char*> names) {
  std::vector<Picture> pictures;
  for (const char* name : names) pictures.push_back({name, session::windowsByName().at(name), {}, {}});
  return pictures;
}

std::vector<Picture> allWindows() {
  return windows({"mixer", "arrange", "step-sequencer", "live-loops", "library", "loop-browser", "lists", "inspector",
                  "overview"});
}

/// The arrange window from where the ruler has too few ticks to tell their kinds apart to where it has them all, and
/// scrolled to places between bars.
std::vector<Picture> arrangeViews() {
  const auto at = [](const char* name, double zoom, double scroll) {
    return Picture{name, host::WindowKind::kArrange, zoom, scroll};
  };
  return {at("arrange", 56, 0), at("arrange-scrolled", 56, 224), at("arrange-far", 56, 2505.5),
          at("arrange-small", 8, 0), at("arrange-large", 300, 1300)};
}

void addLook(const std::string& look, std::vector<Run>& all) {
  all.push_back({.name = look, .look = look, .pictures = allWindows()});
  all.push_back({.name = look + "-2x", .look = look, .pictures = windows({"mixer"}), .host = {.scale = 2}});
  all.push_back(
      {.name = look + "-states", .look = look, .pictures = windows({"mixer", "arrange", "inspector"}), .states = true});
}

/// The loads and the host that find other things in place than the usual ones.
void addHosts(const std::string& look, std::vector<Run>& all) {
  all.push_back({.name = look + "-late", .look = look, .pictures = allWindows(), .loadsLate = true});
  all.push_back({.name = look + "-old", .look = look, .pictures = allWindows(), .host = {.version = kOldestHost}});
  all.push_back({.name = look + "-old-late",
                 .look = look,
                 .pictures = windows({"mixer", "overview"}),
                 .loadsLate = true,
                 .host = {.version = kOldestHost}});
  all.push_back({.name = look + "-flipped",
                 .look = look,
                 .pictures = windows({"arrange"}),
                 .host = {.flippedHeaders = true, .modelAdapter = false}});
}

void addGrids(const std::string& look, std::vector<Run>& all) {
  for (const int mode : {0, 1, 2}) {
    all.push_back(
        {.name = look + "-grid" + std::to_string(mode), .look = look, .pictures = arrangeViews(), .gridMode = mode});
  }
}

std::vector<Run> allRuns() {
  using enum host::FaderLength;
  std::vector<Run> all;
  for (const char* look : kLooks) addLook(look, all);
  for (const char* look : {"ember", "keys"}) addHosts(look, all);
  for (const char* look : {"ember", "fjord", "linen", "prism"}) addGrids(look, all);
  for (const char* look : {"keys-tracks", "keys-over"}) {
    const auto shown = windows({"mixer", "arrange", "inspector"});
    all.push_back({.name = look, .look = look, .pictures = shown, .tracksBackground = 1});
    all.push_back({.name = std::string(look) + "-states", .look = look, .pictures = shown, .states = true});
  }
  all.push_back({.name = "ember-medium", .look = "ember", .pictures = windows({"mixer"}), .faders = kMedium});
  all.push_back({.name = "prism-medium",
                 .look = "prism",
                 .pictures = windows({"mixer", "arrange"}),
                 .faders = kMedium,
                 .trackColors = false});
  all.push_back({.name = "keys-long", .look = "keys", .pictures = windows({"mixer"}), .states = true, .faders = kLong});
  return all;
}

/// Writes settings of grid and marker bands, and answers the file's path. Each mode goes with lines of its own.
std::string gridFile(int mode) {
  const char* const kLines[] = {"<key>divEnabled</key><false/><key>beatOpacity</key><real>0.3</real>",
                                "<key>barWidth</key><real>2</real><key>adaptiveStrength</key><real>0.8</real>",
                                "<key>tintVibrance</key><real>0.8</real><key>divOpacity</key><real>0.5</real>"};
  const std::string path = session::privateFolder() + "/grid.plist";
  std::ofstream(path) << "<plist version=\"1.0\"><dict><key>enabled</key><true/><key>markerBandsEnabled</key><true/>"
                      << "<key>colorMode</key><integer>" << mode << "</integer>" << kLines[mode] << "</dict></plist>\n";
  return path;
}

session::SessionOptions sessionOptions(const Run& run) {
  session::SessionOptions options;
  options.host = run.host;
  options.loadsLate = run.loadsLate;
  options.tracksBackground = run.tracksBackground;
  if (run.gridMode) options.gridSettings = gridFile(*run.gridMode);
  for (const Picture& picture : run.pictures) options.windows.push_back(picture.window);
  if (run.look == "host") return options;
  options.theming = session::Theming::kTheme;
  options.themeFolder = isKeyTheme(run.look) ? writeKeyTheme(run.look) : VELURA_SOURCE_DIR "/themes/" + run.look;
  return options;
}

}  // namespace

const std::vector<Run>& runs() {
  static const std::vector<Run> all = allRuns();
  return all;
}

std::unique_ptr<host::Application> start(const Run& run, std::string& error) {
  constexpr double kSomeDay = 700'000'000;
  standin::setClock(kSomeDay);
  const char* song = run.states ? "/tests/goldens/states.json" : "/songs/night-drive.json";
  auto opened = host::readSong(std::string(VELURA_SOURCE_DIR) + song, error);
  if (!opened) return nullptr;
  opened->faderLength = run.faders;
  opened->trackColors = run.trackColors;
  return session::startSession(sessionOptions(run), std::move(*opened), error);
}

cocoa::Ref<NSBitmapImageRep> draw(host::Application& application, const Picture& picture) {
  const cocoa::AutoreleasePool pool;
  if (picture.zoom) application.arrange().setZoom(*picture.zoom);
  if (picture.scroll) application.arrange().setScroll(*picture.scroll);
  return session::finalBitmap(application, picture.window);
}

}  // namespace goldens
