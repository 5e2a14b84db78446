// Draws the windows of the host in kept runs, and tells what changed since somebody looked at them.

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string_view>

#include "cli/PrivateFolders.h"
#include "tests/goldens/Elements.h"
#include "tests/goldens/Runs.h"
#include "tests/goldens/SideBySide.h"

namespace goldens {
namespace {

namespace fs = std::filesystem;
using cocoa::Ref;

constexpr double kTileSide = 64;  // points

fs::path buildFolder() { return fs::path(session::SessionOptions::defaultBundlePath()).parent_path(); }
fs::path goldenFile(const Run& run) { return fs::path(VELURA_SOURCE_DIR "/tests/goldens") / (run.name + ".txt"); }

std::string contentsOf(const fs::path& path) {
  std::ostringstream contents;
  contents << std::ifstream(path, std::ios::binary).rdbuf();
  return contents.str();
}

/// A file is written beside the one that it replaces: nobody ever sees half of it.
bool replace(const fs::path& path, const std::string& contents) {
  const fs::path beside = path.string() + ".new";
  std::error_code failure;
  if (!(std::ofstream(beside, std::ios::binary) << contents).flush()) return false;
  fs::rename(beside, path, failure);
  return !failure;
}

/// Where pictures of the last commit come from.
fs::path buildBefore() {
  const char* named = std::getenv("VELURA_BEFORE");
  return named != nullptr ? fs::path(named) : buildFolder() / "before";
}

/// Has the build of the last commit draw a run into a folder. Does nothing when there is none, or it lacks the run.
void drawBefore(const Run& run, const fs::path& folder) {
  const std::string program = buildBefore() / "velura_goldens";
  std::string arguments[] = {program, "draw", run.name, folder};
  char* list[] = {arguments[0].data(), arguments[1].data(), arguments[2].data(), arguments[3].data(), nullptr};
  pid_t child = 0;
  if (::access(program.c_str(), X_OK) != 0) return;
  if (::posix_spawn(&child, program.c_str(), nullptr, nullptr, list, environ) == 0) ::waitpid(child, nullptr, 0);
}

/// The pictures of one run beside those that are kept, and what there is to say about them.
class Comparison {
 public:
  Comparison(const Run& run, host::Application& application)
      : run_(run), application_(application), kept_(tilesFrom(contentsOf(goldenFile(run)))) {
    std::error_code ignored;
    fs::remove_all(outFolder(), ignored);
  }

  bool draw() {
    for (const Picture& picture : run_.pictures) {
      const cocoa::AutoreleasePool pool;
      const Ref<NSBitmapImageRep> bitmap = goldens::draw(application_, picture);
      if (!bitmap) return false;
      drawn_.push_back(tilesOf(picture.name, bitmap, side(kTileSide)));
      compare(picture, bitmap);
    }
    for (const Tiles& picture : kept_) say(picture.name + ": kept, but not drawn any more"), ++gone_;
    return true;
  }

  [[nodiscard]] bool isAllAsKept() const { return changed_ + new_ + gone_ == 0; }
  [[nodiscard]] const std::vector<Tiles>& drawn() const { return drawn_; }
  [[nodiscard]] std::string report() const {
    if (isAllAsKept()) return {};
    std::string all = lines_;
    if (changed_ > 0 && !hasBefore_) {
      all += "  (`make goldens-before` builds the last commit: pictures then show before and after)\n";
    }
    return all;
  }
  [[nodiscard]] std::string summary() const {
    return run_.name + ": " + std::to_string(drawn_.size()) + " pictures, " + std::to_string(changed_) + " changed, " +
           std::to_string(new_) + " new, " + std::to_string(gone_) + " gone\n";
  }

 private:
  [[nodiscard]] fs::path outFolder() const { return buildFolder() / "goldens" / run_.name; }
  [[nodiscard]] std::size_t side(double points) const { return static_cast<std::size_t>(points * run_.host.scale); }
  void say(const std::string& line) { lines_ += run_.name + " " + line + "\n"; }

  void compare(const Picture& picture, NSBitmapImageRep bitmap) {
    const auto kept = std::ranges::find(kept_, picture.name, &Tiles::name);
    if (kept == kept_.end()) {
      say(picture.name + ": new");
      ++new_;
      return;
    }
    const Tiles before = *kept;
    kept_.erase(kept);
    const Changes changes = changesBetween(before, drawn_.back());
    if (changes.count() == 0) return;
    ++changed_;
    tell(picture, bitmap, before, changes);
  }

  void tell(const Picture& picture, NSBitmapImageRep bitmap, const Tiles& before, const Changes& changes) {
    const Ref<NSBitmapImageRep> old = pictureBefore(picture);
    say(picture.name + ": " + std::to_string(changes.count()) + " of " + std::to_string(changes.changed.size()) +
        " tiles changed");
    if (before.width != drawn_.back().width || before.height != drawn_.back().height) {
      lines_ += "  its size was " + std::to_string(before.width) + " x " + std::to_string(before.height) + "\n";
    }
    tellPlaces(changes);
    tellElements(picture, changes);
    if (old && tilesOf({}, old, before.side).hashes != before.hashes) {
      lines_ += "  " + buildBefore().string() + " draws something else than what is kept: is it the last commit?\n";
    }
    const fs::path file = outFolder() / (picture.name + ".png");
    fs::create_directories(outFolder());
    replace(file, sideBySide(old, bitmap, changes));
    lines_ += "  " + std::string(old ? "before and after: " : "now: ") + file.string() + "\n";
  }

  void tellPlaces(const Changes& changes) {
    constexpr std::size_t kMost = 6;
    const auto rectangles = changes.rectangles();
    lines_ += "  at";
    const auto points = [&](std::size_t pixels) { return static_cast<double>(pixels) / run_.host.scale; };
    for (std::size_t i = 0; i < std::min(kMost, rectangles.size()); ++i) {
      const session::PixelRect& rect = rectangles[i];
      std::ostringstream place;
      place << (i == 0 ? " " : "; ") << points(rect.x) << "," << points(rect.y) << " to " << points(rect.x + rect.width)
            << "," << points(rect.y + rect.height);
      lines_ += place.str();
    }
    if (rectangles.size() > kMost) lines_ += " and " + std::to_string(rectangles.size() - kMost) + " more";
    lines_ += " (points from the top left)\n";
  }

  void tellElements(const Picture& picture, const Changes& changes) {
    lines_ += "  there:";
    const char* separator = " ";
    for (const std::string& name : elementsAt(application_.window(picture.window), changes, run_.host.scale)) {
      lines_ += separator + name;
      separator = ", ";
    }
    lines_ += "\n";
  }

  Ref<NSBitmapImageRep> pictureBefore(const Picture& picture) {
    const fs::path folder = outFolder() / "before";
    if (!fs::exists(folder)) {
      fs::create_directories(folder);
      drawBefore(run_, folder);
    }
    const std::string png = contentsOf(folder / (picture.name + ".png"));
    if (png.empty()) return {};
    hasBefore_ = true;
    return NSBitmapImageRep::imageRepWithData(NSData::dataWithBytes(png.data(), png.size()));
  }

  const Run& run_;
  host::Application& application_;
  std::vector<Tiles> kept_;  // and not drawn yet
  std::vector<Tiles> drawn_;
  std::string lines_;
  int changed_ = 0;
  int new_ = 0;
  int gone_ = 0;
  bool hasBefore_ = false;
};

int fail(const std::string& message) {
  std::fprintf(stderr, "velura_goldens: %s\n", message.c_str());
  return 1;
}

/// Writes each picture of a run into a folder.
int drawInto(const Run& run, host::Application& application, const fs::path& folder) {
  fs::create_directories(folder);
  for (const Picture& picture : run.pictures) {
    const cocoa::AutoreleasePool pool;
    if (!replace(folder / (picture.name + ".png"), session::pngOf(draw(application, picture)))) {
      return fail(folder.string() + ": cannot be written");
    }
  }
  return 0;
}

int list() {
  for (const Run& run : runs()) std::printf("%s\n", run.name.c_str());
  return 0;
}

/// A run that is new has no test before something is kept of it.
int findUnkept() {
  int status = 0;
  for (const Run& run : runs()) {
    if (!fs::exists(goldenFile(run))) status = fail(run.name + ": nothing is kept of it (`make goldens`)");
  }
  return status;
}

int work(std::string_view command, const Run& run, const char* folder) {
  const cocoa::AutoreleasePool pool;
  std::string error;
  const auto application = start(run, error);
  if (!application) return fail(run.name + ": " + error);
  if (command == "draw") return drawInto(run, *application, folder);
  Comparison comparison(run, *application);
  if (!comparison.draw()) return fail(run.name + ": a window cannot be drawn");
  std::printf("%s%s", comparison.report().c_str(), comparison.summary().c_str());
  if (command == "check") return comparison.isAllAsKept() ? 0 : 1;
  const bool written = comparison.isAllAsKept() || replace(goldenFile(run), textOf(comparison.drawn()));
  return written ? 0 : fail(goldenFile(run).string() + ": cannot be written");
}

}  // namespace
}  // namespace goldens

int main(int argc, char** argv) {
  const std::string_view command = argc > 1 ? argv[1] : "";
  if (command == "list") return goldens::list();
  if (command == "unkept") return goldens::findUnkept();
  const bool known =
      (command == "check" && argc == 3) || (command == "renew" && argc == 3) || (command == "draw" && argc == 4);
  if (!known) return goldens::fail("usage: list | unkept | check RUN | renew RUN | draw RUN FOLDER");
  const auto& runs = goldens::runs();
  const auto run = std::ranges::find(runs, argv[2], &goldens::Run::name);
  if (run == runs.end()) return goldens::fail(std::string(argv[2]) + ": no such run");
  session::enterPrivateFolders(argv);
  return goldens::work(command, *run, argc == 4 ? argv[3] : nullptr);
}
