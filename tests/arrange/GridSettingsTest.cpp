// The grid settings: what a settings file says, and how its changes are followed.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <thread>

#include "cocoa/Call.h"
#include "cocoa/ClassDefinition.h"
#include "plugin/language/VLRGridSettings.h"
#include "standin/steering/RunLoop.h"
#include "tests/support/HostTest.h"
#include "tests/support/Memory.h"

namespace {

namespace fs = std::filesystem;
using namespace cocoa;
using namespace support;
using velura::VLRGridSettings;
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

/// Counts notifications of changed settings.
struct ChangeCounter : ObjectState {
  int count = 0;
  NSObject sender;
  bool onMainThread = true;
  void changed(NSNotification notification) {
    ++count;
    sender = notification.sender();
    onMainThread = onMainThread && NSThread::isMainThread();
  }
};

/// The reader of a running bundle, and the files at its paths.
class GridSettings : public HostTest {
 protected:
  void SetUp() override {
    startWith("default", host::Song());
    ClassDefinition<ChangeCounter>("GridChangeCounter", "NSObject")
        .method<"changed:", &ChangeCounter::changed>()
        .registered();
    observer_ = newObject("GridChangeCounter");
    NSNotificationCenter::defaultCenter().addObserver(observer_, selector<"changed:">(),
                                                      literal<"VLRGridSettingsDidChangeNotification">(), NSObject());
    reader_ = call<"sharedReader", NSObject>(classNamed("VLRGridSettingsReader"));
    path_ = toStdString(call<"_settingsPlistPath", NSString>(reader_));
    fs::create_directories(fs::path(path_).parent_path());
    statePath_ = (fs::path(path_).parent_path() / "theme-state.plist").string();
  }
  void TearDown() override { NSNotificationCenter::defaultCenter().removeObserver(observer_); }

  [[nodiscard]] VLRGridSettings settings() const { return call<"settings", VLRGridSettings>(reader_); }
  [[nodiscard]] VLRGridSettings read() const { return call<"_readSettingsFromDisk", VLRGridSettings>(reader_); }
  [[nodiscard]] int changes() const { return stateOf<ChangeCounter>(observer_).count; }
  void write(const ThemeFile& list) const { writeFile(path_, list.list()); }
  /// As editors save that write beside a file and rename.
  void replace(const std::string& contents) const {
    writeFile(path_ + ".new", contents);
    fs::rename(path_ + ".new", path_);
  }
  static ThemeFile barWidth(double width) { return ThemeFile().flag("enabled", true).number("barWidth", width); }

  /// Lets time pass, and what comes due happen.
  static void pass(milliseconds time) {
    const auto end = Clock::now() + time;
    do {
      const AutoreleasePool pool;
      standin::waitForMainQueue(0.01);
      standin::runMainQueue();
    } while (Clock::now() < end);
  }
  [[nodiscard]] bool becomes(double width, milliseconds patience = milliseconds(1500)) const {
    const auto end = Clock::now() + patience;
    while (settings().barWidth != width && Clock::now() < end) pass(milliseconds(10));
    return settings().barWidth == width;
  }

  Ref<NSObject> observer_;
  NSObject reader_;
  std::string path_;
  std::string statePath_;
};

TEST_F(GridSettings, TakeOverWhatTheirFileSays) {
  EXPECT_EQ(read(), VLRGridSettings{}) << "no file";
  struct Case {
    const char* key;
    const char* element;
    std::function<void(VLRGridSettings&)> change;
  };
  const auto nothing = [](VLRGridSettings&) {};
  const Case kCases[] = {
      {"enabled", "<true/>", [](auto& s) { s.enabled = true; }},
      {"enabled", "<string>YES</string>", [](auto& s) { s.enabled = true; }},
      {"enabled", "<integer>1</integer>", [](auto& s) { s.enabled = true; }},
      {"enabled", "<array/>", nothing},
      {"markerBandsEnabled", "<true/>", [](auto& s) { s.markerBandsEnabled = true; }},
      {"barEnabled", "<false/>", [](auto& s) { s.barEnabled = false; }},
      {"beatEnabled", "<string>no</string>", [](auto& s) { s.beatEnabled = false; }},
      {"divEnabled", "<integer>0</integer>", [](auto& s) { s.divEnabled = false; }},
      {"divEnabled", "<data>AAAA</data>", nothing},
      {"barOpacity", "<real>7.5</real>", [](auto& s) { s.barOpacity = 7.5; }},
      {"beatOpacity", "<real>-2</real>", [](auto& s) { s.beatOpacity = -2; }},
      {"divOpacity", "<string>0.5</string>", [](auto& s) { s.divOpacity = 0.5; }},
      {"divOpacity", "<string>half</string>", [](auto& s) { s.divOpacity = 0; }},
      {"barWidth", "<real>7</real>", [](auto& s) { s.barWidth = 2.5; }},
      {"beatWidth", "<real>-0.1</real>", [](auto& s) { s.beatWidth = 0; }},
      {"divWidth", "<real>1e300</real>", [](auto& s) { s.divWidth = 2.5; }},
      {"divWidth", "<string>nan</string>", [](auto& s) { s.divWidth = 0; }},
      {"divWidth", "<dict/>", nothing},
      {"masterOpacity", "<integer>-3</integer>", [](auto& s) { s.masterOpacity = 0; }},
      {"masterOpacity", "<integer>99999999999999999999999</integer>", nothing},
      {"masterOpacity", "<real>1.01</real>", nothing},
      {"lineGray", "<real>-3</real>", [](auto& s) { s.lineGray = -3; }},
      {"lineGray", "<date>2020-01-01T00:00:00Z</date>", nothing},
      {"colorMode", "<integer>1</integer>", [](auto& s) { s.colorMode = 1; }},
      {"colorMode", "<real>2.9</real>", [](auto& s) { s.colorMode = 2; }},
      {"colorMode", "<string>2</string>", [](auto& s) { s.colorMode = 2; }},
      {"colorMode", "<integer>3</integer>", nothing},
      {"colorMode", "<integer>-1</integer>", nothing},
      {"colorMode", "<integer>4294967297</integer>", nothing},
      {"colorMode", "<real>1e300</real>", nothing},
      {"adaptiveStrength", "<real>1.5</real>", [](auto& s) { s.adaptiveStrength = 1; }},
      {"tintVibrance", "<real>-1</real>", [](auto& s) { s.tintVibrance = 0; }},
      {"markerBandsOpacity", "<real>0.123</real>", [](auto& s) { s.markerBandsOpacity = 0.123; }},
      {"markerBandsOpacity", "<real>12</real>", [](auto& s) { s.markerBandsOpacity = 1; }},
      {"unknown", "<true/>", nothing},
  };
  for (const Case& c : kCases) {
    write(ThemeFile().xml(c.key, c.element));
    VLRGridSettings expected;
    c.change(expected);
    EXPECT_EQ(read(), expected) << c.key << c.element;
  }
}

TEST_F(GridSettings, SwitchGridAndBandsOffUnderTheDefaultTheme) {
  write(ThemeFile().flag("enabled", true).flag("markerBandsEnabled", true).number("barWidth", 2));
  struct Case {
    const char* state;  // nullptr for no file
    bool on;
  };
  const Case kCases[] = {
      {nullptr, true},
      {"<key>isDefaultTheme</key><true/>", false},
      {"<key>isDefaultTheme</key><false/>", true},
      {"", true},
      {"<key>isDefaultTheme</key><string>true</string>", false},
      {"<key>isDefaultTheme</key><array/>", true},
  };
  for (const Case& c : kCases) {
    if (c.state != nullptr)
      writeFile(statePath_, std::string("<plist version=\"1.0\"><dict>") + c.state + "</dict></plist>");
    const VLRGridSettings settings = read();
    EXPECT_EQ(settings.enabled, c.on);
    EXPECT_EQ(settings.markerBandsEnabled, c.on);
    EXPECT_EQ(settings.barWidth, 2) << "nothing else";
    EXPECT_EQ(callBool<"_isDefaultTheme">(asObject(classNamed("VLRGridSettingsReader"))), !c.on);
  }
}

TEST_F(GridSettings, AreTheDefaultsWhateverElseStandsAtTheirPath) {
  const std::pair<const char*, std::function<void()>> kCases[] = {
      {"a folder", [&] { fs::create_directory(path_); }},
      {"a pipe", [&] { ASSERT_EQ(::mkfifo(path_.c_str(), 0600), 0); }},
      {"a link to nowhere", [&] { fs::create_symlink("/nowhere/at/all", path_); }},
      {"a link to itself", [&] { fs::create_symlink(path_, path_); }},
      {"a device", [&] { fs::create_symlink("/dev/zero", path_); }},
      {"an unreadable text", [&] { writeFile(path_, "<<<"); }},
      {"an array", [&] { writeFile(path_, "<plist version=\"1.0\"><array/></plist>"); }},
      {"nothing at all", [&] { writeFile(path_, ""); }},
  };
  for (const auto& [what, make] : kCases) {
    make();
    const int before = changes();
    EXPECT_EQ(read(), VLRGridSettings{}) << what;
    call<"_armWatchSource">(reader_);
    call<"reloadSettings">(reader_);
    EXPECT_EQ(changes(), before + 1) << what;
    pass(milliseconds(30));
    call<"_tearDownSource">(reader_);
    fs::remove(path_);
  }
}

// ---- Watching -----------------------------------------------------------------------------------------

TEST_F(GridSettings, AreReadOnceWhenWatchingBegins) {
  write(barWidth(2));
  const auto own = newObject("VLRGridSettingsReader");
  EXPECT_EQ((call<"settings", VLRGridSettings>(own.get())), VLRGridSettings{}) << "nothing is read before";
  call<"startWatching">(own.get());
  EXPECT_EQ(changes(), 1);
  EXPECT_EQ(stateOf<ChangeCounter>(observer_).sender, own.get());
  EXPECT_EQ((call<"settings", VLRGridSettings>(own.get())).barWidth, 2);
  call<"startWatching">(own.get());
  EXPECT_EQ(changes(), 1);
  call<"_tearDownSource">(own.get());
}

TEST_F(GridSettings, FollowEveryWayOfSaving) {
  write(barWidth(0.5));
  call<"reloadSettings">(reader_);
  call<"_armWatchSource">(reader_);
  pass(milliseconds(50));
  auto newChanges = [&, before = changes()]() mutable {
    pass(milliseconds(150));
    const int added = changes() - before;
    before = changes();
    return added;
  };
  write(barWidth(1.5));  // truncated, then written
  EXPECT_TRUE(becomes(1.5));
  EXPECT_GE(newChanges(), 1);
  std::fstream(path_, std::ios::in | std::ios::out) << barWidth(1.25).list();
  EXPECT_TRUE(becomes(1.25)) << "in place";
  EXPECT_EQ(newChanges(), 1) << "one reading for one event";
  for (const double width : {2.0, 0.25, 2.25}) {
    replace(barWidth(width).list());
    EXPECT_TRUE(becomes(width)) << "renamed over";
    EXPECT_EQ(newChanges(), 1);
  }
  EXPECT_TRUE(stateOf<ChangeCounter>(observer_).onMainThread);
  EXPECT_EQ(stateOf<ChangeCounter>(observer_).sender, reader_);
}

TEST_F(GridSettings, AreFollowedToAFileThatComesLater) {
  write(barWidth(2));
  call<"reloadSettings">(reader_);
  call<"_armWatchSource">(reader_);
  pass(milliseconds(50));
  const auto deleted = Clock::now();
  fs::remove(path_);
  EXPECT_TRUE(becomes(1)) << "the defaults";
  const int before = changes();
  write(barWidth(0.5));
  pass(milliseconds(700));
  write(barWidth(0.75));
  pass(std::chrono::duration_cast<milliseconds>(deleted + milliseconds(2500) - Clock::now()));
  EXPECT_EQ(changes(), before) << "nothing is read when the new file is found, nor before";
  write(barWidth(0.25));
  EXPECT_TRUE(becomes(0.25)) << "its first change is";
}

std::size_t entries(const char* folder) {
  return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST_F(GridSettings, AreWatchedAThousandTimesWithOneDescriptor) {
  write(barWidth(2));
  call<"_armWatchSource">(reader_);
  pass(milliseconds(100));
  const std::size_t descriptors = entries("/proc/self/fd");
  const std::size_t threads = entries("/proc/self/task");
  for (int i = 0; i < 1'000; ++i) call<"_armWatchSource">(reader_);
  pass(milliseconds(300));
  EXPECT_EQ(entries("/proc/self/fd"), descriptors);
  EXPECT_EQ(entries("/proc/self/task"), threads);
  replace(barWidth(0.5).list());
  EXPECT_TRUE(becomes(0.5));
}

TEST_F(GridSettings, AreFollowedThroughAStormOfReplacements) {
  write(barWidth(2));
  call<"_armWatchSource">(reader_);
  std::mt19937 random(7);
  const auto begin = Clock::now();
  const long kept = support::keptAfter(10'000, [&](int i) {
    std::string bytes(random() % 400, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    if (i % 3 == 0) bytes = barWidth(i % 2).list().substr(0, random() % 300);
    replace(bytes);
    standin::runMainQueue();
    std::this_thread::sleep_until(begin + milliseconds(i));
  });
  EXPECT_LE(kept, 64 * 1024);
  pass(milliseconds(1'000));
  replace(barWidth(0.125).list());
  EXPECT_TRUE(becomes(0.125, milliseconds(1'000)));
}

}  // namespace
