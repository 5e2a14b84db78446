// Which methods of the host are exchanged, on which version of it, and whether the host runs all of them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "tests/support/Theme.h"
#include "tests/views/OverrideTable.h"

namespace {

using support::Needs;
using support::OverrideRow;
using support::overrideTable;
using testing::ContainerEq;

using Names = std::set<std::string>;

struct Kind {
  const char* version;
  bool images = false;  // the theme draws with images, and colours track headers

  [[nodiscard]] bool isAtLeast(double oldest) const { return std::stod(version) >= oldest; }
  [[nodiscard]] bool meets(Needs needs) const {
    switch (needs) {
      case Needs::kImages:
      case Needs::kTrackColours:
        return images;
      case Needs::kHost112:
        return isAtLeast(11.2);
      case Needs::kHost123:
        return isAtLeast(12.3);
      default:
        return true;
    }
  }
};

std::ostream& operator<<(std::ostream& out, const Kind& kind) {
  return out << kind.version << (kind.images ? ", images" : "");
}

std::string themeOf(const Kind& kind) {
  return support::writeTheme(support::ThemeFile()
                                 .flag("useImagesToDrawKnob", kind.images)
                                 .flag("useTrackColorAsArrangeStripBackground", kind.images)
                                 .list());
}

/// Every method of every class, by name; a class itself stands there by its name alone.
using Methods = std::map<std::string, IMP>;

void addMethods(Class cls, const std::string& prefix, Methods& all) {
  unsigned count = 0;
  Method* methods = class_copyMethodList(cls, &count);
  for (unsigned i = 0; i < count; ++i) {
    all[prefix + sel_getName(method_getName(methods[i])) + "]"] = method_getImplementation(methods[i]);
  }
  std::free(static_cast<void*>(methods));
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

/// What loading the bundle has changed of the methods that were there.
Names exchangedSince(const Methods& before) {
  Names changed;
  for (const auto& [name, implementation] : methodsOfAllClasses()) {
    if (kAdded.contains(name)) continue;
    const auto had = before.find(name);
    if (had == before.end() ? wasThere(before, name) : had->second != implementation) changed.insert(name);
  }
  return changed;
}

/// A host of a kind, before anything is loaded into it.
std::unique_ptr<host::Application> hostOf(const Kind& kind) {
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

Names expectedOn(const Kind& kind) {
  Names names;
  for (const OverrideRow& row : overrideTable()) {
    if (kind.meets(row.needs)) names.insert(row.name());
  }
  return names;
}

class HostOverrides : public testing::TestWithParam<Kind> {};

TEST_P(HostOverrides, AreInstalledAsListedAndNoOthers) {
  const cocoa::AutoreleasePool pool;
  const auto application = hostOf(GetParam());
  const Methods before = methodsOfAllClasses();
  ASSERT_TRUE(load(*application, themeOf(GetParam())));
  EXPECT_THAT(exchangedSince(before), ContainerEq(expectedOn(GetParam())));
}

/// Opens and draws every window, and does what a user does.
void operate(host::Application& application) {
  application.open(support::sampleSong());
  for (const auto window : host::kWindowKinds) application.openWindow(window);
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

TEST_P(HostOverrides, AreReachedByTheHost) {
  const cocoa::AutoreleasePool pool;
  auto application = hostOf(GetParam());
  ASSERT_TRUE(load(*application, themeOf(GetParam())));
  for (const OverrideRow& row : overrideTable()) {
    if (!GetParam().meets(row.needs)) continue;
    const Method method = class_getInstanceMethod(row.holder(), sel_registerName(row.selectorName));
    ASSERT_NE(method, nullptr) << row.name();
    if (!row.encoding.empty()) {
      ASSERT_TRUE(cocoa::sameCallingConvention(method_getTypeEncoding(method), row.encoding)) << row.name();
    }
    support::countCalls(row);
  }
  operate(*application);
  application.reset();
  Names unreached;
  for (const OverrideRow& row : overrideTable()) {
    if (GetParam().meets(row.needs) && *row.count == 0) unreached.insert(row.name());
  }
  EXPECT_THAT(unreached, ContainerEq(Names()));
}

INSTANTIATE_TEST_SUITE_P(Hosts, HostOverrides,
                         testing::Values(Kind{"10.7.4"}, Kind{"11.1.2", true}, Kind{"11.2"}, Kind{"12.2", true},
                                         Kind{"12.3"}, Kind{"12.3", true}));

TEST(HostOverridesOfTheDefaultTheme, AreNone) {
  const cocoa::AutoreleasePool pool;
  const auto application = hostOf({"12.3"});
  const Methods before = methodsOfAllClasses();
  ASSERT_TRUE(load(*application, ""));
  EXPECT_THAT(exchangedSince(before), ContainerEq(Names()));
}

}  // namespace
