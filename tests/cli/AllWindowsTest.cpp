// `velura render --window all`.

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "cli/PrivateFolders.h"
#include "tests/support/Theme.h"

namespace {

namespace fs = std::filesystem;

const std::string kSong =
    " --theme " VELURA_SOURCE_DIR "/themes/fjord --song " VELURA_SOURCE_DIR "/songs/night-drive.json --out ";

TEST(AllWindows, AreDrawnAsEachIsAlone) {
  const std::string folder = session::privateFolder() + "/new/pictures";
  const auto all = support::run(VELURA_COMMAND " render --window all" + kSong + folder);
  ASSERT_EQ(all.status, 0) << all.output;
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename().string());
  EXPECT_EQ(names, (std::set<std::string>{"arrange.png", "inspector.png", "library.png", "lists.png", "live-loops.png",
                                          "loop-browser.png", "mixer.png", "overview.png", "step-sequencer.png"}));
  for (const std::string window : {"mixer", "lists", "overview"}) {
    const std::string alone = session::privateFolder() + "/" + window + ".png";
    ASSERT_EQ(support::run(VELURA_COMMAND " render --window " + window + kSong + alone).status, 0);
    EXPECT_EQ(support::fileContents(alone), support::fileContents(folder + "/" + window + ".png")) << window;
  }
}

TEST(AllWindows, AreRefusedInOneLine) {
  const std::string file = session::privateFolder() + "/file";
  support::writeFile(file, "in the way");
  fs::create_directories(session::privateFolder() + "/taken/arrange.png/below");
  const struct {
    std::string arguments;
    int status;
    const char* message;
  } kCases[] = {
      {"render --window all" + kSong + file + "/folder", 1, "file/folder: the folder cannot be made: "},
      {"render --window all" + kSong + file, 1, "file: the folder cannot be made: "},
      {"render --window all" + kSong + session::privateFolder() + "/taken", 1, "taken/arrange.png: cannot be written"},
      {"render --window all --zoom-strip 2" + kSong + file, 2, "--zoom-strip shows a strip of the mixer"},
      {"watch --window all" + kSong + file, 2, "watch draws one window"},
  };
  for (const auto& wrong : kCases) {
    const auto result = support::run(VELURA_COMMAND " " + wrong.arguments);
    EXPECT_EQ(result.status, wrong.status) << wrong.arguments;
    EXPECT_NE(result.output.find(wrong.message), std::string::npos) << result.output;
    EXPECT_EQ(std::count(result.output.begin(), result.output.end(), '\n'), 1) << result.output;
  }
  EXPECT_EQ(support::fileContents(file), "in the way");
}

}  // namespace
