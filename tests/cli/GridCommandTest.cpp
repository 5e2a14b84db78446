// `velura grid` and `velura watch`.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "cli/PrivateFolders.h"
#include "cocoa/Foundation.h"
#include "plugin/plist/PropertyListReader.h"
#include "tests/support/Commands.h"
#include "tests/support/Theme.h"

namespace {

namespace fs = std::filesystem;
using namespace cocoa;
using namespace support;

class GridCommand : public testing::Test {
 protected:
  GridCommand() : file_(session::privateFolder() + "/my-grid.plist") {}
  [[nodiscard]] CommandResult grid(const std::string& edits) const {
    return runVelura("grid --file " + file_ + " " + edits);
  }
  [[nodiscard]] Ref<NSDictionary> stored() const { return as<NSDictionary>(velura::readPropertyList(file_.c_str())); }
  [[nodiscard]] double number(const char* key) const {
    return as<NSNumber>(stored()->objectForKey(string(key))).doubleValue();
  }
  AutoreleasePool pool_;
  std::string file_;
};

TEST_F(GridCommand, WritesShowsAndChangesSettings) {
  auto result = grid("enabled=true barWidth=1.5 colorMode=2");
  EXPECT_EQ(result.status, 0) << result.output;
  EXPECT_NE(result.output.find("enabled=true\n"), std::string::npos);
  EXPECT_NE(result.output.find("barWidth=1.5\n"), std::string::npos);
  EXPECT_NE(result.output.find("beatOpacity=0.4\n"), std::string::npos) << "defaults are shown too";
  EXPECT_EQ(stored()->count(), 3U) << "and are not written";
  EXPECT_EQ(number("barWidth"), 1.5);
  EXPECT_EQ(number("colorMode"), 2);

  writeFile(file_, ThemeFile().text("note", "mine").number("barWidth", 9).flag("enabled", true).list());
  result = grid("enabled=off markerBandsOpacity=0.25");
  EXPECT_EQ(result.status, 0) << result.output;
  EXPECT_EQ(toStdString(as<NSString>(stored()->objectForKey(string("note")))), "mine") << "foreign keys stay";
  EXPECT_EQ(number("barWidth"), 9) << "what is not named stays as it is";
  EXPECT_FALSE(as<NSNumber>(stored()->objectForKey(string("enabled"))).boolValue());

  const std::string before = fileContents(file_);
  result = grid("");
  EXPECT_EQ(result.status, 0);
  EXPECT_NE(result.output.find("barWidth=2.5\n"), std::string::npos) << "as the plug-in takes it";
  EXPECT_EQ(fileContents(file_), before);
}

TEST_F(GridCommand, RefusesWhatItDoesNotUnderstand) {
  const std::pair<const char*, const char*> kCases[] = {
      {"enabled=true gridColour=1", "gridColour: no such key"},
      {"barWidth=2.6", "barWidth: expected a number from 0 to 2.5, not \"2.6\""},
      {"barWidth=-1", "barWidth: expected"},
      {"barWidth=nan", "barWidth: expected"},
      {"barWidth=1x", "barWidth: expected"},
      {"barWidth=", "barWidth: expected"},
      {"colorMode=1.5", "colorMode: expected a whole number from 0 to 2"},
      {"colorMode=3", "colorMode: expected"},
      {"enabled=2", "enabled: expected true or false, not \"2\""},
      {"enabled", "enabled: expected KEY=VALUE"},
      {"=1", "no such key"},
  };
  ASSERT_EQ(grid("barWidth=1").status, 0);
  const std::string before = fileContents(file_);
  for (const auto& [edits, message] : kCases) {
    expectRefusals({{"grid --file " + file_ + " " + edits, 1, message}});
    EXPECT_EQ(fileContents(file_), before) << edits;
  }
}

TEST_F(GridCommand, LeavesOtherFilesAlone) {
  for (const char* contents : {"<plist version=\"1.0\"><array/></plist>", "<<<", "a text"}) {
    writeFile(file_, contents);
    expectRefusals({{"grid enabled=true --file " + file_, 1, "not a dictionary property list"}});
    EXPECT_EQ(fileContents(file_), contents);
  }
  fs::remove(file_);
  const std::string target = session::privateFolder() + "/target.plist";
  writeFile(target, ThemeFile().number("barWidth", 2).list());
  const std::string before = fileContents(target);
  fs::create_symlink(target, file_);
  EXPECT_EQ(grid("enabled=true").status, 0);
  EXPECT_EQ(fileContents(target), before);
  EXPECT_FALSE(fs::is_symlink(file_)) << "the link is replaced";
  fs::remove(file_);
  fs::create_directory(file_);
  EXPECT_EQ(grid("enabled=true").status, 1);
  EXPECT_EQ(runVelura("grid --file /no/such/folder/g.plist enabled=true").status, 1);
  const auto keys = runVelura("grid --keys");
  EXPECT_EQ(keys.status, 0);
  EXPECT_EQ(std::count(keys.output.begin(), keys.output.end(), '\n'), 20);
  EXPECT_NE(keys.output.find("| `barWidth` | a number from 0 to 2.5 | 1 |"), std::string::npos) << keys.output;
}

// ---- Watching -----------------------------------------------------------------------------------------

/// The command as it runs; what it writes to its output goes to a file.
class Running {
 public:
  Running(const std::vector<std::string>& arguments, std::string output) : output_(std::move(output)) {
    child_ = ::fork();
    if (child_ != 0) return;
    if (std::freopen(output_.c_str(), "w", stdout) == nullptr) ::_exit(9);
    std::vector<char*> list;
    for (const std::string& each : arguments) list.push_back(const_cast<char*>(each.c_str()));
    list.push_back(nullptr);
    ::execv(list[0], list.data());
    ::_exit(9);
  }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;
  ~Running() {
    if (child_ > 0) ::kill(child_, SIGKILL), ::waitpid(child_, nullptr, 0);
  }
  /// Whether a number of lines come before half a minute is over.
  [[nodiscard]] bool writes(long lines) const {
    for (int i = 0; i < 1'500; ++i) {
      const std::string text = fileContents(output_);
      if (std::count(text.begin(), text.end(), '\n') >= lines) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return false;
  }
  /// What it has written, once nothing has been added for more than a second.
  [[nodiscard]] std::string settled() const {
    std::string text;
    do {
      text = fileContents(output_);
      std::this_thread::sleep_for(std::chrono::milliseconds(1'200));
    } while (fileContents(output_) != text);
    return text;
  }
  /// Its exit status after a signal.
  int end(int signal) {
    if (child_ <= 0) return -1;
    ::kill(child_, signal);
    int status = -1;
    ::waitpid(child_, &status, 0);
    child_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  std::string output_;
  pid_t child_ = 0;
};

TEST_F(GridCommand, IsFollowedByWatch) {
  ASSERT_EQ(grid("enabled=false").status, 0);
  const std::string folder = session::privateFolder();
  const std::string picture = folder + "/watched.png";
  const std::string output = folder + "/watch.txt";
  Running watch({VELURA_COMMAND, "watch", "--theme", VELURA_SOURCE_DIR "/themes/ember", "--song",
                 VELURA_SOURCE_DIR "/songs/night-drive.json", "--window", "arrange", "--grid", file_, "--out", picture},
                output);
  ASSERT_TRUE(watch.writes(1)) << fileContents(output);
  const std::string linesBefore = watch.settled();
  const std::string before = fileContents(picture);
  const long count = std::count(linesBefore.begin(), linesBefore.end(), '\n');
  EXPECT_FALSE(before.empty());
  ASSERT_EQ(grid("enabled=true").status, 0);
  ASSERT_TRUE(watch.writes(count + 1)) << fileContents(output);
  const std::string added = watch.settled().substr(linesBefore.size());
  EXPECT_THAT(added, testing::MatchesRegex("redraw " + std::to_string(count + 1) +
                                           ": [0-9]+\\.[0-9] ms after the settings were saved\n"));
  EXPECT_EQ(watch.end(SIGTERM), 0);
  EXPECT_FALSE(fileContents(picture) == before) << "with a grid";
  EXPECT_TRUE(fileContents(picture).starts_with("\x89PNG"));
}

}  // namespace
