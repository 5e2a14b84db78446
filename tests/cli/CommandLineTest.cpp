// What the command refuses, each in one line.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "cli/PrivateFolders.h"
#include "tests/support/Commands.h"
#include "tests/support/Theme.h"

namespace {

namespace fs = std::filesystem;
using namespace support;
using testing::HasSubstr;
using testing::Not;

const std::string kSong = " --song songs/night-drive.json ";

TEST(CommandLine, SaysWhatIsWrong) {
  const std::string folder = session::privateFolder();
  const std::string picture = " --out " + folder + "/x.png ";
  const std::string host = "render --theme none" + kSong;
  expectRefusals({
      {"render", 2, "--theme is required"},
      {host + picture + "--scale 3", 2, "--scale"},
      {host + picture + "--window tuner", 2, "--window"},
      {"render --theme none --song /no/song.json" + picture, 1, "/no/song.json: No such file"},
      {"render --theme /no/theme" + kSong + picture, 1, "/no/theme/PluginHelper.plist: No such file"},
      {host + "--out /no/folder/x.png", 1, "/no/folder/x.png: cannot be written: No such file"},
      {host + "--out " + folder, 1, "Is a directory"},
      {"watch --theme none" + kSong + "--out /no/folder/x.png", 1, "/no/folder/x.png: cannot be written: No such file"},
      {host + picture + "--zoom-strip 0", 1, "there is no strip 0: the song's strips are 1 to "},
      {host + picture + "--zoom-strip -1", 1, "there is no strip -1: "},
      {host + picture + "--zoom-strip 999", 1, "there is no strip 999: "},
      {host + picture + "--zoom-strip 2 --window arrange", 2, "--zoom-strip shows a strip of the mixer"},
      {host + picture + "--zoom-strip 2 --window all", 2, "--zoom-strip shows a strip of the mixer"},
  });
  EXPECT_FALSE(fs::exists(folder + "/x.png"));
  const auto help = runVelura("render --help");
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.output, HasSubstr("Exit status"));
}

TEST(CommandLine, MakesNoFolderOverWhatIsThere) {
  const std::string file = session::privateFolder() + "/file";
  const std::string taken = session::privateFolder() + "/taken";
  writeFile(file, "in the way");
  fs::create_directories(taken + "/arrange.png/below");
  const std::string all = "render --window all --theme none" + kSong + "--out ";
  expectRefusals({
      {all + file + "/folder", 1, "file/folder: the folder cannot be made: "},
      {all + file, 1, "file: the folder cannot be made: "},
      {all + taken, 1, "taken/arrange.png: cannot be written"},
      {"watch --window all --theme none" + kSong + "--out " + file, 2, "watch draws one window"},
  });
  EXPECT_EQ(fileContents(file), "in the way");
}

TEST(CommandLine, NamesWhatIsWrongInATheme) {
  const std::string folder = writeTheme("");
  fs::remove(folder + "/PluginHelper.plist");
  fs::create_directory(folder + "/PluginHelper.plist");
  const std::string render = "render" + kSong + "--out " + session::privateFolder() + "/x.png --theme ";
  expectRefusals({
      {render + writeTheme(""), 1, "PluginHelper.plist: empty"},
      {render + writeTheme("<<<"), 1, "not a property list"},
      {render + writeTheme("<plist version=\"1.0\"><array/></plist>"), 1, "not a dictionary"},
      {render + folder, 1, "PluginHelper.plist: not a file"},
  });
  const auto partly = runVelura(render + writeTheme(ThemeFile()
                                                        .text("stripBorderColor", "red")
                                                        .text("mixerStripBevel", "Bevel:{R,2,30}")
                                                        .integer("mixerStripBGGradient", 3)
                                                        .list()));
  EXPECT_EQ(partly.status, 0) << "what fits is applied";
  EXPECT_THAT(partly.output, HasSubstr("stripBorderColor: ignored, expected a colour"));
  EXPECT_THAT(partly.output, HasSubstr("mixerStripBGGradient: ignored, expected a gradient"));
  EXPECT_THAT(partly.output, Not(HasSubstr("mixerStripBevel")));
}

}  // namespace
