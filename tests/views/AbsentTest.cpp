// Hosts that lack a class or a method: what depends on it is left out, and everything else is as ever.

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "tests/views/HostMethods.h"

namespace {

/// What the bundle must not find. Everybody else does.
std::string hiddenClass;  // NOLINT(cert-err58-cpp)
const support::OverrideRow* hiddenMethod = nullptr;

bool isCalledByBundle(const void* caller) {
  Dl_info info;
  return ::dladdr(caller, &info) != 0 && std::string_view(info.dli_fname).ends_with("Velura.bundle");
}

template <class Function>
Function* next(const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

// They stand in front of the runtime's functions of these names, in this process.
extern "C" Class objc_lookUpClass(const char* name) {
  static auto* const real = next<Class(const char*)>("objc_lookUpClass");
  return hiddenClass == name && isCalledByBundle(__builtin_return_address(0)) ? nullptr : real(name);
}
extern "C" Method class_getInstanceMethod(Class cls, SEL sel) {
  static auto* const real = next<Method(Class, SEL)>("class_getInstanceMethod");
  const bool hides = hiddenMethod != nullptr && cls == hiddenMethod->holder() &&
                     std::string_view(sel_getName(sel)) == hiddenMethod->selectorName &&
                     isCalledByBundle(__builtin_return_address(0));
  return hides ? nullptr : real(cls, sel);
}

namespace {

using namespace support;

/// The classes whose category installs pairs on other classes than itself.
const std::multimap<std::string, std::string> kInstalledBy{
    {"MAView", "ArrangeTrackHeaderSectionView"},
    {"MAView", "ArrangeContentsSectionView"},
    {"MAView", "CLgSectionView"},
    {"MAView", "CLgDocwContentView"},
    {"MANodeView", "CLgRupertContentsView"},
    {"NSView", "NotePadBackgroundView"},
    {"NSView", "CLgDocwNotesListView"},
    {"MATextFieldCell", "BinTextFieldCell"},
    {"MATextFieldCell", "BinProEditableInfoFieldCell"},
    {"NSViewController", "CLgRupertContentsViewController"},
    {"NSViewController", "CLgLibraryViewController"},
    {"MAKitView", "CLgDocwControlsView"},
    {"MAImageNode", "MAGUI.MADynamicScaleNode"},
};

bool dependsOn(const OverrideRow& row, const std::string& cls) {
  const auto [first, end] = kInstalledBy.equal_range(cls);
  return row.className == cls ||
         std::any_of(first, end, [&](const auto& pair) { return pair.second == row.className; });
}

host::Song smallSong() {
  host::Song song = sampleSong();
  song.tracks.resize(3);
  return song;
}

/// Whether a host of the newest kind, of which something is hidden, has everything else exchanged, and draws.
bool works(const Names& expected) {
  const HostKind kind{"12.3", true};
  const auto application = hostOf(kind);
  const Methods before = methodsOfAllClasses();
  if (!load(*application, themeOf(kind))) return false;
  const Names exchanged = exchangedSince(before);
  EXPECT_THAT(exchanged, testing::ContainerEq(expected));
  operate(*application, smallSong());
  return exchanged == expected;
}

template <class Leaves>
Names everythingBut(Leaves leaves) {
  Names names;
  for (const OverrideRow& row : overrideTable()) {
    if (!leaves(row)) names.insert(row.name());
  }
  return names;
}

TEST(Absent, ClassesLeaveTheRestAsItIs) {
  std::set<std::string> classes;
  for (const OverrideRow& row : overrideTable()) classes.insert(row.className);
  for (const auto& [installer, target] : kInstalledBy) classes.insert(installer);
  // No host lacks the platform's own.
  for (const char* always :
       {"NSString", "NSColor", "NSView", "NSViewController", "NSButton", "NSButtonCell", "NSTableView"}) {
    classes.erase(always);
  }
  for (const std::string& cls : classes) {
    EXPECT_TRUE(inChild([&] {
      hiddenClass = cls;
      return works(everythingBut([&](const OverrideRow& row) { return dependsOn(row, cls); }));
    })) << cls;
  }
}

TEST(Absent, MethodsLeaveTheRestAsItIs) {
  for (const OverrideRow& missing : overrideTable()) {
    EXPECT_TRUE(inChild([&] {
      hiddenMethod = &missing;
      return works(everythingBut([&](const OverrideRow& row) { return &row == &missing; }));
    })) << missing.name();
  }
}

}  // namespace
