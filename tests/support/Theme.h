#pragma once
// A theme of a test's own, and a host that shows it.

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>

#include "cli/Session.h"
#include "host/mixer/MixerWindow.h"

namespace support {

/// Builds the text of a theme settings file, key by key.
class ThemeFile {
 public:
  ThemeFile& text(const std::string& key, const std::string& value);
  ThemeFile& flag(const std::string& key, bool value);
  ThemeFile& integer(const std::string& key, long value);
  ThemeFile& number(const std::string& key, double value);
  /// Any property list element, as XML.
  ThemeFile& xml(const std::string& key, const std::string& element);
  [[nodiscard]] std::string list() const;
  /// The same as a value in another list.
  [[nodiscard]] std::string dictionary() const { return "<dict>" + entries_ + "</dict>"; }

 private:
  std::string entries_;
};

/// A theme colour as its string.
std::string color(int red, int green, int blue, int alpha = 100);

/// Writes a theme folder below the test's private folder: the settings file and a companion bundle, with a
/// reference file where one is given. Returns the folder.
std::string writeTheme(const std::string& settings, const std::string& reference = {});

/// What a user has set besides the theme; "" for no file.
struct UserSettings {
  std::string grid;  // files that stand at the plug-in's paths
  std::string state;
  std::optional<long> tracksBackground;
};

/// Starts the host with a theme folder ("" for the host alone, "default" for the theme "Default").
std::unique_ptr<host::Application> start(const std::string& theme, host::Song song, host::HostOptions options = {},
                                         const UserSettings& settings = {});

/// Writes a property list below the test's private folder. Returns its path.
std::string writeList(const std::string& name, const ThemeFile& list);

/// A song with one audio strip for each name; the first field of every track can be changed by the caller.
host::Song songOf(std::initializer_list<host::Track> tracks);

/// The sample song of the repository.
host::Song sampleSong();

/// Runs `body` in a process of its own, as for another theme. True when it returns true there.
bool inChild(const std::function<bool()>& body);

/// Reads a whole file; "" when there is none.
std::string fileContents(const std::string& path);
void writeFile(const std::string& path, const std::string& contents);

}  // namespace support
