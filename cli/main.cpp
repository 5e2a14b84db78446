// The `velura` command.

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <map>

#include "cli/KeyTable.h"
#include "cli/PrivateFolders.h"
#include "cli/Session.h"
#include "cli/ThemeCheck.h"
#include "plugin/files/AtomicWrite.h"

namespace {

enum ExitCode { kDone = 0, kFailed = 1, kWrongUsage = 2 };

struct RenderArguments {
  std::string theme;
  std::string song;
  std::string window = "mixer";
  std::string out;
  int scale = 1;
  std::string hostVersion = "11.1.2";
};

const std::map<std::string, host::WindowKind> kWindows{{"mixer", host::WindowKind::kMixer},
                                                       {"document", host::WindowKind::kDocument},
                                                       {"step-sequencer", host::WindowKind::kStepSequencer}};

int fail(const std::string& message) {
  std::fprintf(stderr, "velura: %s\n", message.c_str());
  return kFailed;
}

session::SessionOptions sessionOptions(const RenderArguments& arguments) {
  session::SessionOptions options;
  options.host = {.version = arguments.hostVersion, .scale = static_cast<double>(arguments.scale)};
  if (arguments.theme == "default") {
    options.theming = session::Theming::kDefaultTheme;
  } else if (arguments.theme != "none") {
    options.theming = session::Theming::kTheme;
    options.themeFolder = arguments.theme;
  }
  return options;
}

int render(const RenderArguments& arguments) {
  std::string error;
  const session::SessionOptions options = sessionOptions(arguments);
  if (options.theming == session::Theming::kTheme) {
    std::vector<std::string> warnings;
    if (!session::checkTheme(options.themeFolder, error, warnings)) return fail(error);
    for (const std::string& warning : warnings) std::fprintf(stderr, "velura: warning: %s\n", warning.c_str());
  }
  auto song = host::readSong(arguments.song, error);
  if (!song) return fail(error);
  const auto application = session::startSession(options, std::move(*song), error);
  if (!application) return fail(error);
  const std::string png = session::windowAsPng(*application, kWindows.at(arguments.window));
  if (png.empty()) return fail(arguments.out + ": the window cannot be drawn at this size");
  errno = 0;
  if (!velura::writeAtomically(arguments.out, png)) {
    return fail(arguments.out + ": cannot be written: " + std::strerror(errno));
  }
  std::printf("%s\n", arguments.out.c_str());
  return kDone;
}

constexpr const char* kExamples = R"(
Examples:
  velura render --theme none --song songs/night-drive.json --out host.png
      the host's own look, without the plug-in
  velura render --theme themes/ember --song songs/night-drive.json --out ember.png --scale 2
      the mixer as the theme shows it, for a screen of two pixels per point
  velura render --theme default --song songs/night-drive.json --window step-sequencer --out steps.png
      the plug-in loaded, the selected theme "Default": the host keeps its own look

Exit status: 0 done; 1 it could not be done, one line on stderr says why; 2 wrong usage.
)";

void describeRender(CLI::App& command, RenderArguments& arguments) {
  command
      .add_option("--theme", arguments.theme,
                  "Folder with PluginHelper.plist and Companion.bundle; \"none\" leaves the plug-in out; "
                  "\"default\" loads it with the selected theme \"Default\"")
      ->required();
  command.add_option("--song", arguments.song, "The song to open: a JSON file, see docs/development.md")->required();
  command.add_option("--out", arguments.out, "The PNG file to write")->required();
  command.add_option("--window", arguments.window, "Which window to draw")
      ->check(CLI::IsMember(std::vector<std::string>{"mixer", "document", "step-sequencer"}))
      ->capture_default_str();
  command.add_option("--scale", arguments.scale, "Pixels per point")
      ->check(CLI::IsMember(std::vector<int>{1, 2}))
      ->capture_default_str();
  command.add_option("--host-version", arguments.hostVersion, "The version that the host says it is")
      ->capture_default_str();
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"Velura: themes a digital audio workstation. This command draws themed windows of a simulated host."};
  app.footer(kExamples);
  app.require_subcommand(1);
  RenderArguments arguments;
  CLI::App* command = app.add_subcommand("render", "Draw a window of the host into a PNG file");
  command->footer(kExamples);
  describeRender(*command, arguments);
  const CLI::App* keys = app.add_subcommand("keys", "List the keys of a theme settings file, as Markdown tables");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& problem) {
    return app.exit(problem) == 0 ? kDone : kWrongUsage;
  }
  if (keys->parsed()) {
    std::printf("%s", session::keyTables().c_str());
    return kDone;
  }
  session::enterPrivateFolders(argv);
  return render(arguments);
}
