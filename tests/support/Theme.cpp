#include "tests/support/Theme.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "cli/PrivateFolders.h"

namespace support {
namespace {

namespace fs = std::filesystem;

std::string listOf(const std::string& entries) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>\n" + entries + "</dict></plist>\n";
}

}  // namespace

ThemeFile& ThemeFile::xml(const std::string& key, const std::string& element) {
  entries_ += "<key>" + key + "</key>" + element + "\n";
  return *this;
}
ThemeFile& ThemeFile::text(const std::string& key, const std::string& value) {
  return xml(key, "<string>" + value + "</string>");
}
ThemeFile& ThemeFile::flag(const std::string& key, bool value) { return xml(key, value ? "<true/>" : "<false/>"); }
ThemeFile& ThemeFile::integer(const std::string& key, long value) {
  return xml(key, "<integer>" + std::to_string(value) + "</integer>");
}
ThemeFile& ThemeFile::number(const std::string& key, double value) {
  return xml(key, "<real>" + std::to_string(value) + "</real>");
}
std::string ThemeFile::list() const { return listOf(entries_); }

std::string color(int red, int green, int blue, int alpha) {
  std::ostringstream text;
  text << "sRGBColor:{" << red << ", " << green << ", " << blue << ", " << alpha << "}";
  return text.str();
}

std::string fileContents(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream contents;
  contents << file.rdbuf();
  return contents.str();
}

void writeFile(const std::string& path, const std::string& contents) {
  std::ofstream(path, std::ios::binary) << contents;
}

std::string writeTheme(const std::string& settings, const std::string& reference) {
  static int count = 0;
  const std::string folder = session::privateFolder() + "/theme" + std::to_string(++count);
  const std::string contents = folder + "/Companion.bundle/Contents";
  fs::create_directories(contents + "/Resources");
  writeFile(folder + "/PluginHelper.plist", settings);
  writeFile(contents + "/Info.plist", listOf("<key>CFBundleIdentifier</key><string>com.velura.companion</string>"
                                             "<key>CFBundlePackageType</key><string>BNDL</string>"));
  if (!reference.empty()) writeFile(contents + "/Resources/PluginHelper.plist", reference);
  return folder;
}

std::string writeList(const std::string& name, const ThemeFile& list) {
  const std::string path = session::privateFolder() + "/" + name;
  writeFile(path, list.list());
  return path;
}

std::unique_ptr<host::Application> start(const std::string& theme, host::Song song, host::HostOptions options,
                                         const UserSettings& settings) {
  session::SessionOptions session;
  session.gridSettings = settings.grid;
  session.themeState = settings.state;
  session.tracksBackground = settings.tracksBackground;
  session.host = std::move(options);
  session.themeFolder = theme;
  session.theming = theme.empty()        ? session::Theming::kWithoutBundle
                    : theme == "default" ? session::Theming::kDefaultTheme
                                         : session::Theming::kTheme;
  std::string error;
  auto application = session::startSession(session, std::move(song), error);
  EXPECT_TRUE(application) << error;
  return application;
}

host::Song songOf(std::initializer_list<host::Track> tracks) {
  host::Song song;
  song.tracks = tracks;
  return song;
}

host::Song sampleSong() {
  std::string error;
  auto song = host::readSong(VELURA_SOURCE_DIR "/songs/night-drive.json", error);
  EXPECT_TRUE(song) << error;
  return song ? *song : host::Song();
}

bool inChild(const std::function<bool()>& body) {
  const pid_t child = ::fork();
  if (child == 0) {
    const bool good = body();
    ::_exit(good && !testing::Test::HasFailure() ? 0 : 1);
  }
  int status = -1;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace support
