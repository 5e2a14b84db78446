#include "cli/KeyPictures.h"

#include <spawn.h>
#include <sys/wait.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "cli/KeyTheme.h"
#include "cli/Picture.h"
#include "plugin/files/AtomicWrite.h"

extern char** environ;  // NOLINT(readability-redundant-declaration)

namespace session {
namespace {

namespace fs = std::filesystem;
using velura::ThemeKeyRow;
using velura::ThemeSection;

// In pixels, two a point.
constexpr std::size_t kWidth = 240;
constexpr std::size_t kHeight = 96;

/// Runs this program. A theme is read once a process, so that each picture needs a process of its own.
bool runSelf(const std::vector<std::string>& arguments) {
  std::vector<char*> list{const_cast<char*>("velura")};
  for (const std::string& argument : arguments) list.push_back(const_cast<char*>(argument.c_str()));
  list.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", 1, 0);
  pid_t child = 0;
  const int failure = ::posix_spawn(&child, "/proc/self/exe", &actions, nullptr, list.data(), environ);
  ::posix_spawn_file_actions_destroy(&actions);
  int status = -1;
  if (failure == 0) ::waitpid(child, &status, 0);
  return failure == 0 && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// A temporary folder that goes with the object.
class Workshop {
 public:
  Workshop() {
    std::string pattern = (fs::temp_directory_path() / "velura-keys-XXXXXX").string();
    if (::mkdtemp(pattern.data()) != nullptr) path_ = pattern;
  }
  ~Workshop() {
    std::error_code ignored;
    if (!path_.empty()) fs::remove_all(path_, ignored);
  }
  Workshop(const Workshop&) = delete;
  Workshop& operator=(const Workshop&) = delete;
  [[nodiscard]] const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

/// Draws windows with themes of a few keys. Any thread may ask.
class ThemeRenderer {
 public:
  explicit ThemeRenderer(const KeyPicturesOptions& options) : options_(options) {}

  /// `entries` is one of the two of `theme`.
  std::optional<Picture> draw(const KeyTheme& theme, const ThemeEntries& entries, const std::string& window) {
    const fs::path folder = workshop_.path() / std::to_string(count_++);
    if (workshop_.path().empty() || !writeTheme(theme, entries, folder)) return std::nullopt;
    const std::string out = (folder / "window.png").string();
    std::vector<std::string> arguments{
        "render",   "--theme", folder.string(), "--song", theme.song.empty() ? options_.song : theme.song,
        "--window", window,    "--scale",       "2",      "--out",
        out};
    arguments.insert(arguments.end(), theme.renderOptions.begin(), theme.renderOptions.end());
    std::optional<Picture> picture = runSelf(arguments) ? readPicture(out) : std::nullopt;
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    return picture;
  }

  /// The window without the key. Keys with the same partners share it: drawn once, unless two ask at a time.
  std::shared_ptr<const Picture> drawWithout(const KeyTheme& theme, const std::string& window) {
    std::string name = theme.song + window + (theme.needsImages ? " with images " : " ") + themeList(theme.without);
    for (const std::string& option : theme.renderOptions) name += option;
    {
      const std::scoped_lock lock(mutex_);
      if (const auto found = known_.find(name); found != known_.end()) return found->second;
    }
    auto picture = draw(theme, theme.without, window);
    if (!picture) return nullptr;
    const std::scoped_lock lock(mutex_);
    return known_[name] = std::make_shared<const Picture>(std::move(*picture));
  }

 private:
  bool writeTheme(const KeyTheme& theme, const ThemeEntries& entries, const fs::path& folder) const {
    std::error_code failure;
    fs::create_directories(folder, failure);
    if (!failure && theme.needsImages) {
      fs::create_directory_symlink(fs::absolute(options_.companion), folder / "Companion.bundle", failure);
    }
    return !failure && (std::ofstream(folder / "PluginHelper.plist") << themeList(entries)).good();
  }

  const KeyPicturesOptions& options_;
  Workshop workshop_;
  std::atomic<int> count_{0};
  std::mutex mutex_;
  std::map<std::string, std::shared_ptr<const Picture>> known_;
};

enum class Outcome { kWritten, kUnseen, kFailed };

/// The windows that keys of a section can change, in the order in which a key is looked for.
struct SectionWindows {
  ThemeSection section;
  std::vector<std::string> windows;
};

const std::vector<std::string>& windowsFor(ThemeSection section) {
  static const std::vector<std::string> mixer{"mixer"};
  static const std::vector<SectionWindows> others{
      {ThemeSection::kGeneral, {"mixer", "arrange"}},
      {ThemeSection::kText, {"mixer", "arrange"}},
      {ThemeSection::kTrackColors, {"mixer", "arrange"}},
      {ThemeSection::kButtons, {"mixer", "library"}},
      {ThemeSection::kArrange, {"arrange", "step-sequencer"}},
      {ThemeSection::kLiveLoops, {"live-loops"}},
      {ThemeSection::kBrowsers, {"lists", "library", "loop-browser", "mixer"}},
  };
  const auto found = std::ranges::find(others, section, &SectionWindows::section);
  return found == others.end() ? mixer : found->windows;
}

Outcome makePicture(const ThemeKeyRow& row, const KeyPicturesOptions& options, ThemeRenderer& renderer) {
  const KeyTheme theme = themeShowing(row);
  for (const std::string& window : windowsFor(row.section)) {
    const auto before = renderer.drawWithout(theme, window);
    const auto after = renderer.draw(theme, theme.with, window);
    if (!before || !after) return Outcome::kFailed;
    const auto part = mostTellingPart(*before, *after, kWidth, kHeight);
    if (!part) continue;
    const std::string file = options.out + "/" + keyPictureName(row.name);
    return velura::writeAtomically(file, palettePng(cut(*after, *part))) ? Outcome::kWritten : Outcome::kFailed;
  }
  return Outcome::kUnseen;
}

std::vector<const ThemeKeyRow*> wantedKeys(const KeyPicturesOptions& options) {
  std::vector<const ThemeKeyRow*> rows;
  for (const ThemeKeyRow& row : velura::kThemeKeys) {
    const bool named = std::ranges::find(options.keys, row.name) != options.keys.end();
    if (row.used == velura::Used::kYes && (named || options.keys.empty())) rows.push_back(&row);
  }
  return rows;
}

}  // namespace

std::string keyPictureName(std::string_view key) {
  std::string name(key);
  std::ranges::replace(name, '?', '-');
  return name + ".png";
}

bool makeKeyPictures(const KeyPicturesOptions& options, std::string& error, std::vector<std::string>& unseen) {
  std::error_code failure;
  fs::create_directories(options.out, failure);
  if (failure) {
    error = options.out + ": " + failure.message();
    return false;
  }
  const std::vector<const ThemeKeyRow*> rows = wantedKeys(options);
  std::vector<Outcome> outcomes(rows.size(), Outcome::kFailed);
  ThemeRenderer renderer(options);
  std::atomic<std::size_t> next{0};
  const auto work = [&] {
    for (std::size_t i = next++; i < rows.size(); i = next++) outcomes[i] = makePicture(*rows[i], options, renderer);
  };
  {
    const std::jthread second(work);
    work();
  }
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (outcomes[i] == Outcome::kUnseen) unseen.emplace_back(rows[i]->name);
    if (outcomes[i] == Outcome::kFailed && error.empty()) error = std::string(rows[i]->name) + ": cannot be drawn";
  }
  return error.empty();
}

}  // namespace session
