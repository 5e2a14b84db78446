#include "tests/views/HostMethods.h"

#include <cstdlib>
#include <vector>

namespace support {
namespace {

void addMethods(Class cls, const std::string& prefix, Methods& all) {
  unsigned count = 0;
  Method* methods = class_copyMethodList(cls, &count);
  for (unsigned i = 0; i < count; ++i) {
    all[prefix + sel_getName(method_getName(methods[i])) + "]"] = method_getImplementation(methods[i]);
  }
  std::free(static_cast<void*>(methods));
}

/// Whether a class that was there, or one above it, had the method that `name` says.
bool wasThere(const Methods& before, const std::string& name) {
  const auto blank = name.find(' ');
  if (blank == std::string::npos || !before.contains(name.substr(2, blank - 2))) return false;
  const std::string rest = name.substr(blank);
  for (Class cls = cocoa::classNamed(name.substr(2, blank - 2).c_str()); cls != nullptr;
       cls = class_getSuperclass(cls)) {
    if (before.contains(name.substr(0, 2) + class_getName(cls) + rest)) return true;
  }
  return false;
}

/// Methods of the bundle's own that stand in front of inherited ones: without a theme they only pass on.
const Names kAdded{"-[MAView addSubview:]", "-[MAView dealloc]"};

}  // namespace

bool HostKind::meets(Needs needs) const {
  switch (needs) {
    case Needs::kImages:
    case Needs::kTrackColors:
      return images;
    case Needs::kHost112:
      return isAtLeast(11.2);
    case Needs::kHost123:
      return isAtLeast(12.3);
    default:
      return true;
  }
}

std::ostream& operator<<(std::ostream& out, const HostKind& kind) {
  return out << kind.version << (kind.images ? ", images" : "");
}

std::string themeOf(const HostKind& kind) {
  return writeTheme(ThemeFile()
                        .flag("useImagesToDrawKnob", kind.images)
                        .flag("useTrackColorAsArrangeStripBackground", kind.images)
                        .list());
}

Methods methodsOfAllClasses() {
  std::vector<Class> classes(static_cast<std::size_t>(objc_getClassList(nullptr, 0)));
  objc_getClassList(classes.data(), static_cast<int>(classes.size()));
  Methods all;
  for (const Class cls : classes) {
    const std::string name = class_getName(cls);
    all[name] = nullptr;
    addMethods(cls, "-[" + name + " ", all);
    addMethods(cocoa::metaclassOf(cls), "+[" + name + " ", all);
  }
  return all;
}

Names exchangedSince(const Methods& before) {
  Names changed;
  for (const auto& [name, implementation] : methodsOfAllClasses()) {
    if (kAdded.contains(name)) continue;
    const auto had = before.find(name);
    if (had == before.end() ? wasThere(before, name) : had->second != implementation) changed.insert(name);
  }
  return changed;
}

std::unique_ptr<host::Application> hostOf(const HostKind& kind) {
  host::HostOptions options;
  options.version = kind.version;
  return std::make_unique<host::Application>(options);
}

bool load(host::Application& application, const std::string& theme) {
  session::SessionOptions options;
  options.theming = theme.empty() ? session::Theming::kDefaultTheme : session::Theming::kTheme;
  options.themeFolder = theme;
  std::string error;
  return session::selectTheme(options, error) && application.loadBundle(options.bundlePath, error);
}

void operate(host::Application& application, host::Song song) {
  application.open(std::move(song));
  for (const auto window : host::kWindowKinds) application.openWindow(window);
  // A scale asks for one of two colours, by whether its strip is selected: both are drawn.
  application.settle(host::WindowKind::kMixer);
  static_cast<void>(application.draw(host::WindowKind::kMixer));
  for (std::size_t i = 0; i < application.song().tracks.size(); ++i) application.mixer().setSelected(i, true);
  for (const auto window : host::kWindowKinds) {
    application.settle(window);
    static_cast<void>(application.draw(window));
  }
  const NSView headers = application.arrange().headers();
  const CGPoint place = headers.convertPointToView({20, headers.bounds().maxY() - 20}, {});
  application.arrange().press(place);
  application.arrange().release(place);
}

}  // namespace support
