#include "bench/ViewRows.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <vector>

#include "bench/InACopy.h"
#include "bench/Rows.h"
#include "cli/Session.h"
#include "cocoa/Call.h"
#include "cocoa/Override.h"

namespace bench {
namespace {

using namespace cocoa;

constexpr std::size_t kCells = 32;

/// A song of 32 rows and scenes.
host::Song loopsSong() {
  host::Song song = sampleSong();
  const std::vector<host::Track> tracks = song.tracks;
  song.tracks.clear();
  song.arrange.markers.clear();
  for (std::size_t i = 0; i < kCells; ++i) {
    song.tracks.push_back(tracks[i % tracks.size()]);
    const double start = 1 + 4 * static_cast<double>(i);
    song.arrange.markers.push_back({"Scene " + std::to_string(i + 1), start, start + 4, {}});
  }
  song.loopRows = song.loopScenes = kCells;
  return song;
}

void drawLoops(host::Application& application) {
  static const Ref<NSBitmapImageRep> backing = application.draw(host::WindowKind::kLiveLoops);
  application.runFrame();
  application.draw(host::WindowKind::kLiveLoops, backing);
}

void openAll(host::Application& application) {
  for (const auto window : host::kWindowKinds) application.openWindow(window);
  for (const auto window : host::kWindowKinds) application.settle(window);
}

void refreshAll(host::Application& /*application*/) {
  static const id loader = call<"init", id>(call<"alloc", id>(classNamed("LoaderClass")));
  call<"refreshWindows">(loader);
}

void drawAll(host::Application& application) {
  static std::map<host::WindowKind, Ref<NSBitmapImageRep>> backing;
  application.runFrame();
  for (const auto window : host::kWindowKinds) {
    if (!backing[window]) backing[window] = application.draw(window);
    application.draw(window, backing[window]);
  }
}

/// Whether the bundle gave this very class the message that installs its overrides; subclasses inherit it.
bool isThemed(Class cls) {
  const Class meta = metaclassOf(cls);
  unsigned count = 0;
  Method* methods = class_copyMethodList(meta, &count);
  const bool found = std::any_of(methods, methods + count, [](Method method) {
    return sameSelector(method_getName(method), selector<"addSwizzleMethod">());
  });
  std::free(static_cast<void*>(methods));
  return found;
}

std::vector<Class> allClasses() {
  std::vector<Class> classes(static_cast<std::size_t>(objc_getClassList(nullptr, 0)));
  objc_getClassList(classes.data(), static_cast<int>(classes.size()));
  return classes;
}

std::vector<Class>& themedClasses() {
  static std::vector<Class> classes;
  return classes;
}

/// What a process does once can be measured once in each copy of it.
void installAll(host::Application& application) {
  onceInACopy(application, [](host::Application&) {
    for (const Class themed : themedClasses()) call<"addSwizzleMethod">(themed);
  });
}

/// The host with the bundle's code in it and nothing installed yet: the selected theme is "Default".
void prepareInstalling(host::Application& application) {
  session::SessionOptions options;
  options.theming = session::Theming::kDefaultTheme;
  std::string error;
  if (!session::selectTheme(options, error) || !application.loadBundle(options.bundlePath, error)) {
    std::fprintf(stderr, "%s\n", error.c_str());
    std::exit(1);
  }
  // From now on a theme counts as selected.
  options.theming = session::Theming::kTheme;
  options.themeFolder = "themes/ember";
  if (!session::selectTheme(options, error)) std::exit(1);
  static_cast<void>(call<"sharedInstance", id>(asObject(classNamed("ThemeUtility"))));
  std::ranges::copy_if(allClasses(), std::back_inserter(themedClasses()), isThemed);
}

struct Pair {
  Method one;
  Method other;
};

/// A hundred pairs of methods of the host's classes.
std::vector<Pair> hundredPairs() {
  constexpr std::size_t kCount = 100;
  std::vector<Pair> pairs;
  for (const Class cls : allClasses()) {
    unsigned count = 0;
    Method* methods = class_copyMethodList(cls, &count);
    const bool ofHost = std::string_view(class_getName(cls)).starts_with("MA");
    for (unsigned i = 0; ofHost && i + 1 < count && pairs.size() < kCount; i += 2) {
      pairs.push_back({methods[i], methods[i + 1]});
    }
    std::free(static_cast<void*>(methods));
  }
  return pairs;
}

void exchangeHundred(host::Application& application) {
  static const std::vector<Pair> pairs = hundredPairs();
  onceInACopy(application, [](host::Application&) {
    for (const auto& [one, other] : pairs) method_exchangeImplementations(one, other);
  });
}

}  // namespace

ViewWorkers::ViewWorkers()
    : plainLoops("", loopsSong(), {}, drawLoops),
      themedLoops("themes/prism", loopsSong(), {}, drawLoops),
      refresh("themes/ember", sampleSong(), openAll, refreshAll),
      drawing("themes/ember", sampleSong(), openAll, drawAll),
      installing("", host::Song(), prepareInstalling, installAll),
      exchanging("", host::Song(), {}, exchangeHundred) {}

void addViewRows(const ViewWorkers& workers) {
  addRow({"a Live Loops frame of 32 x 32 cells, themed", 1.2}, inWorker(workers.themedLoops),
         inWorker(workers.plainLoops));
  addRow({"refreshing all windows, against drawing them once", 1.5}, inWorker(workers.refresh),
         inWorker(workers.drawing));
  addRow({"installing everything, against 100 bare exchanges", 3}, inWorker(workers.installing),
         inWorker(workers.exchanging));
}

}  // namespace bench
