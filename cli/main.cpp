// The `velura` command.

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <optional>

#include "cli/GridFile.h"
#include "cli/KeyPictures.h"
#include "cli/KeyTable.h"
#include "cli/Overrides.h"
#include "cli/PrivateFolders.h"
#include "cli/Session.h"
#include "cli/ThemeCheck.h"
#include "cli/Watch.h"
#include "plugin/files/AtomicWrite.h"
#include "plugin/language/ThemeKeys.h"
#include "plugin/plist/PropertyListReader.h"
#include "standin/steering/Desk.h"
#include "standin/steering/Mouse.h"

namespace {

enum ExitCode { kDone = 0, kFailed = 1, kWrongUsage = 2 };

/// What `render` and `watch` have in common.
struct HostArguments {
  std::string theme;
  std::string song;
  std::string window = "mixer";
  std::string out;
  int scale = 1;
  std::string load = "before";
  std::string hostVersion = host::HostOptions().version;
  std::string grid;
  std::string state;
  std::optional<double> zoom;
  std::optional<double> scroll;
  std::optional<long> tracksBackground;
  std::string mouse = "up";
  std::optional<long> zoomStrip;
};

struct OverridesArguments {
  std::string theme = "default";
  std::string hostVersion = host::HostOptions().version;
  std::string format = "text";
};

struct GridArguments {
  std::string file = "grid-settings.plist";
  std::vector<std::string> edits;
  bool listsKeys = false;
};

/// In place of a window's name: each window, into a folder.
constexpr const char* kAllWindows = "all";

std::vector<std::string> windowNames() {
  std::vector<std::string> names;
  for (const auto& [name, kind] : session::windowsByName()) names.push_back(name);
  return names;
}

std::vector<std::string> namesOfWindows(const HostArguments& arguments) {
  return arguments.window == kAllWindows ? windowNames() : std::vector{arguments.window};
}

int fail(const std::string& message, ExitCode status = kFailed) {
  std::fprintf(stderr, "velura: %s\n", message.c_str());
  return status;
}

/// A single strip is looked at closely.
double pixelsPerPoint(const HostArguments& arguments) {
  constexpr int kZoom = 4;
  return static_cast<double>(arguments.zoomStrip ? arguments.scale * kZoom : arguments.scale);
}

session::SessionOptions sessionOptions(const HostArguments& arguments) {
  session::SessionOptions options;
  options.host.version = arguments.hostVersion;
  options.host.scale = pixelsPerPoint(arguments);
  options.gridSettings = arguments.grid;
  options.themeState = arguments.state;
  options.tracksBackground = arguments.tracksBackground;
  options.loadsLate = arguments.load == "after";
  for (const std::string& name : namesOfWindows(arguments))
    options.windows.push_back(session::windowsByName().at(name));
  if (arguments.theme == "default") {
    options.theming = session::Theming::kDefaultTheme;
  } else if (arguments.theme != "none") {
    options.theming = session::Theming::kTheme;
    options.themeFolder = arguments.theme;
  }
  return options;
}

bool checkedTheme(const session::SessionOptions& options, std::string& error) {
  if (options.theming != session::Theming::kTheme) return true;
  std::vector<std::string> warnings;
  if (!session::checkTheme(options.themeFolder, error, warnings)) return false;
  for (const std::string& warning : warnings) std::fprintf(stderr, "velura: warning: %s\n", warning.c_str());
  return true;
}

/// Whether a settings file can be read; a file that is not named can.
bool isReadableList(const std::string& path, std::string& error) {
  if (path.empty() || velura::readPropertyList(path.c_str())) return true;
  error = path + ": not a property list";
  return false;
}

/// Nobody sits at this screen: an alert is ended by its default button, and named.
NSUInteger endAlert(NSAlert alert) {
  const auto button = cocoa::cast<NSButton>(alert.buttons().objectAtIndex(0));
  std::fprintf(stderr, "velura: alert \"%s\" answered with \"%s\"\n", cocoa::toStdString(alert.messageText()).c_str(),
               cocoa::toStdString(button.title()).c_str());
  return 0;
}

/// The host as the arguments ask for it; null, with `error` set, when one of them cannot be met.
std::unique_ptr<host::Application> startHost(const HostArguments& arguments, std::string& error) {
  const session::SessionOptions options = sessionOptions(arguments);
  if (!checkedTheme(options, error)) return nullptr;
  auto song = host::readSong(arguments.song, error);
  if (!song) return nullptr;
  if (arguments.zoom) song->arrange.zoom = *arguments.zoom;
  if (arguments.scroll) song->arrange.scroll = *arguments.scroll;
  standin::setAlertAnswer(endAlert);
  return session::startSession(options, std::move(*song), error);
}

/// The picture of one window; "", with `error` set, when it cannot be drawn.
std::string picture(host::Application& application, const std::string& window, const HostArguments& arguments,
                    std::string& error) {
  if (arguments.zoomStrip) {
    return session::stripAsPng(application, *arguments.zoomStrip, pixelsPerPoint(arguments), error);
  }
  const host::WindowKind kind = session::windowsByName().at(window);
  standin::setPressedMouseButtons(0);
  std::string png = session::windowAsPng(application, kind);
  if (arguments.mouse == "down") {
    standin::setPressedMouseButtons(1);
    png = session::drawnAsPng(application, kind);
  }
  if (png.empty()) error = arguments.out + ": the window \"" + window + "\" cannot be drawn at this size";
  return png;
}

/// Draws one window into a file, and names the file.
bool writePicture(host::Application& application, const std::string& window, const HostArguments& arguments,
                  std::string& error) {
  const std::string png = picture(application, window, arguments, error);
  if (png.empty()) return false;
  const bool one = arguments.window != kAllWindows;
  const std::string path = one ? arguments.out : (std::filesystem::path(arguments.out) / (window + ".png")).string();
  errno = 0;
  if (!velura::writeAtomically(path, png)) {
    error = path + ": cannot be written: " + std::strerror(errno);
    return false;
  }
  std::printf("%s\n", path.c_str());
  return true;
}

/// The folder for pictures of all windows is made before the host starts, which takes a while.
bool makeFolder(const HostArguments& arguments, std::string& error) {
  std::error_code failure;
  if (arguments.window == kAllWindows) std::filesystem::create_directories(arguments.out, failure);
  if (failure) error = arguments.out + ": the folder cannot be made: " + failure.message();
  return !failure;
}

int render(const HostArguments& arguments) {
  if (arguments.zoomStrip && arguments.window != "mixer") {
    return fail("--zoom-strip shows a strip of the mixer: --window " + arguments.window + " is not the mixer",
                kWrongUsage);
  }
  std::string error;
  if (!isReadableList(arguments.grid, error) || !isReadableList(arguments.state, error)) return fail(error);
  if (!makeFolder(arguments, error)) return fail(error);
  const auto application = startHost(arguments, error);
  if (!application) return fail(error);
  for (const std::string& window : namesOfWindows(arguments)) {
    if (!writePicture(*application, window, arguments, error)) return fail(error);
  }
  return kDone;
}

int watch(const HostArguments& arguments) {
  if (arguments.window == kAllWindows) return fail("watch draws one window: --window all are several", kWrongUsage);
  std::string error;
  const auto application = startHost(arguments, error);
  if (!application) return fail(error);
  const session::WatchOptions options{session::windowsByName().at(arguments.window), arguments.grid, arguments.out};
  return session::watch(*application, options, error) ? kDone : fail(error);
}

int editGrid(const GridArguments& arguments) {
  if (arguments.listsKeys) {
    std::printf("%s", session::gridKeyTable().c_str());
    return kDone;
  }
  std::string error;
  if (!arguments.edits.empty() && !session::editGridFile(arguments.file, arguments.edits, error)) return fail(error);
  if (!isReadableList(arguments.file, error)) return fail(error);
  std::printf("%s", session::gridFileText(arguments.file).c_str());
  return kDone;
}

int listOverrides(const OverridesArguments& arguments) {
  if (!session::isVersion(arguments.hostVersion)) {
    return fail("--host-version " + arguments.hostVersion + ": no version; one looks like 11.2 or " +
                    host::HostOptions().version,
                kWrongUsage);
  }
  session::SessionOptions options;
  options.host.version = arguments.hostVersion;
  const bool isDefault = arguments.theme == "default";
  options.theming = isDefault ? session::Theming::kDefaultTheme : session::Theming::kTheme;
  if (!isDefault) options.themeFolder = arguments.theme;
  std::string error;
  if (!checkedTheme(options, error)) return fail(error);
  const bool isJson = arguments.format == "json";
  const std::string list =
      session::overridesOf(options, isJson ? session::OverridesFormat::kJson : session::OverridesFormat::kText, error);
  if (list.empty()) return fail(error);
  const bool written = std::fputs(list.c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
  return written ? kDone : fail(std::string("standard output: ") + std::strerror(errno));
}

int drawKeys(const session::KeyPicturesOptions& options) {
  for (const std::string& key : options.keys) {
    if (!velura::keyNamed(key)) return fail(key + ": no such key");
  }
  std::string error;
  std::vector<std::string> unseen;
  const bool drawn = session::makeKeyPictures(options, error, unseen);
  for (const std::string& key : unseen)
    std::fprintf(stderr, "velura: %s: changes nothing that is shown\n", key.c_str());
  return drawn ? kDone : fail(error);
}

constexpr const char* kExamples = R"(
Examples:
  velura render --theme none --song songs/night-drive.json --out host.png
      the host's own look, without the plug-in
  velura render --theme themes/ember --song songs/night-drive.json --out ember.png --scale 2
      the mixer as the theme shows it, for a screen of two pixels per point
  velura render --theme themes/ember --song songs/night-drive.json --zoom-strip 15 --out vocals.png
      one strip, at four times the scale
  velura render --theme themes/ember --song songs/night-drive.json --window all --out ember
      every window: ember/mixer.png, ember/arrange.png, ember/overview.png, ...
  velura render --theme default --song songs/night-drive.json --window step-sequencer --out steps.png
      the plug-in loaded, the selected theme "Default": the host keeps its own look
  velura overrides --theme themes/ember --host-version 11.1.2
      what became of every override on that version of the host, and why
  velura grid enabled=true colorMode=2 markerBandsEnabled=true
      writes grid-settings.plist in the current folder
  velura render --theme themes/prism --song songs/night-drive.json --window arrange \
      --grid grid-settings.plist --out arrange.png
  velura watch --theme themes/prism --song songs/night-drive.json --window arrange \
      --grid grid-settings.plist --out arrange.png
      draws anew whenever `velura grid` changes the settings

Exit status: 0 done; 1 it could not be done, one line on stderr says why; 2 wrong usage.
)";

void describeHost(CLI::App& command, HostArguments& arguments) {
  command
      .add_option("--theme", arguments.theme,
                  "Folder with PluginHelper.plist and Companion.bundle; \"none\" leaves the plug-in out; "
                  "\"default\" loads it with the selected theme \"Default\"")
      ->required();
  command.add_option("--song", arguments.song, "The song to open: a JSON file, see docs/development.md")->required();
  command.add_option("--out", arguments.out, "The PNG file to write; with --window all a folder, made when missing")
      ->required();
  std::vector<std::string> windows = windowNames();
  windows.emplace_back(kAllWindows);
  command.add_option("--window", arguments.window, "Which window to draw; all: each into a file of its name")
      ->check(CLI::IsMember(windows))
      ->capture_default_str();
  command.add_option("--scale", arguments.scale, "Pixels per point")
      ->check(CLI::IsMember(std::vector<int>{1, 2}))
      ->capture_default_str();
  command.add_option("--host-version", arguments.hostVersion, "The version that the host says it is")
      ->capture_default_str();
  command.add_option("--load", arguments.load, "Whether the plug-in is loaded before or after the windows are opened")
      ->check(CLI::IsMember(std::vector<std::string>{"before", "after"}))
      ->capture_default_str();
  command.add_option("--grid", arguments.grid, "Grid settings file: bars, beats, divisions and marker bands");
  command.add_option("--state", arguments.state, "Theme state file");
  command.add_option("--zoom", arguments.zoom, "Points per bar of the arrange window, in place of the song's")
      ->check(CLI::Range(host::kSmallestZoom, host::kLargestZoom));
  command.add_option("--scroll", arguments.scroll, "Points that the arrange window is scrolled to the right")
      ->check(CLI::NonNegativeNumber);
  command
      .add_option("--tracks-background", arguments.tracksBackground, "Workspace: 0 dark, 1 bright, 2 the host's own")
      ->check(CLI::Range(0, 2));
}

void describeGrid(CLI::App& command, GridArguments& arguments) {
  command.add_option("settings", arguments.edits, "What to change, each KEY=VALUE; nothing to show the settings")
      ->option_text("KEY=VALUE...");
  command.add_option("--file", arguments.file, "The settings file")->capture_default_str();
  command.add_flag("--keys", arguments.listsKeys, "List the keys, as a Markdown table");
}

void describeOverrides(CLI::App& command, OverridesArguments& arguments) {
  command.add_option("--theme", arguments.theme, "A theme's folder; \"default\" for the theme \"Default\"")
      ->capture_default_str();
  command.add_option("--host-version", arguments.hostVersion, "The version that the host says it is")
      ->capture_default_str();
  command.add_option("--format", arguments.format, "How to write the list")
      ->check(CLI::IsMember(std::vector<std::string>{"text", "json"}))
      ->capture_default_str();
}

void describeKeyPictures(CLI::App& command, session::KeyPicturesOptions& options) {
  command.add_option("--out", options.out, "The folder for the pictures")->capture_default_str();
  command.add_option("--song", options.song, "A song that shows every control in every state")->capture_default_str();
  command.add_option("--companion", options.companion, "A companion bundle with images")->capture_default_str();
  command.add_option("--key", options.keys, "Draw this key only; may be repeated");
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"Velura: themes a digital audio workstation. This command draws themed windows of a simulated host."};
  app.footer(kExamples);
  app.require_subcommand(1);
  HostArguments arguments;
  CLI::App* renderCommand = app.add_subcommand("render", "Draw a window of the host into a PNG file");
  renderCommand->footer(kExamples);
  describeHost(*renderCommand, arguments);
  renderCommand->add_option("--mouse", arguments.mouse, "Whether the primary mouse button is held down")
      ->check(CLI::IsMember(std::vector<std::string>{"down", "up"}))
      ->capture_default_str();
  renderCommand->add_option("--zoom-strip", arguments.zoomStrip,
                            "Draw one strip of the mixer only, counted from 1, four times as large");
  CLI::App* watchCommand =
      app.add_subcommand("watch", "Keep the host running and draw the window anew at every change, until interrupted");
  watchCommand->footer(kExamples);
  describeHost(*watchCommand, arguments);
  CLI::App* keysCommand = app.add_subcommand("keys", "List the keys of a theme settings file, as Markdown tables");
  std::string keyPictures;
  keysCommand->add_option("--pictures", keyPictures, "The folder with the keys' pictures, to show them in the tables");
  session::KeyPicturesOptions keyPicturesOptions;
  CLI::App* keyPicturesCommand =
      app.add_subcommand("key-pictures", "Draw a small picture of what each theme key colours");
  describeKeyPictures(*keyPicturesCommand, keyPicturesOptions);
  OverridesArguments overridesArguments;
  CLI::App* overridesCommand = app.add_subcommand("overrides", "List what became of every override on a host");
  describeOverrides(*overridesCommand, overridesArguments);
  GridArguments gridArguments;
  CLI::App* gridCommand = app.add_subcommand("grid", "Change the settings of the grid and the marker bands");
  gridCommand->footer(kExamples);
  describeGrid(*gridCommand, gridArguments);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& problem) {
    return app.exit(problem) == 0 ? kDone : kWrongUsage;
  }
  if (keysCommand->parsed()) {
    std::printf("%s", session::keyTables(keyPictures).c_str());
    return kDone;
  }
  if (keyPicturesCommand->parsed()) return drawKeys(keyPicturesOptions);
  if (gridCommand->parsed()) return editGrid(gridArguments);
  session::enterPrivateFolders(argv);
  if (overridesCommand->parsed()) return listOverrides(overridesArguments);
  return watchCommand->parsed() ? watch(arguments) : render(arguments);
}
