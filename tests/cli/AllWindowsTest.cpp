// `velura render --window all`.

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "cli/PrivateFolders.h"
#include "tests/support/Commands.h"
#include "tests/support/Theme.h"

namespace {

namespace fs = std::filesystem;

const std::string kSong = " --theme themes/fjord --song songs/night-drive.json --out ";

TEST(AllWindows, AreDrawnAsEachIsAlone) {
  const std::string folder = session::privateFolder() + "/new/pictures";
  const auto all = support::runVelura("render --window all" + kSong + folder);
  ASSERT_EQ(all.status, 0) << all.output;
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename().string());
  EXPECT_EQ(names, (std::set<std::string>{"arrange.png", "inspector.png", "library.png", "lists.png", "live-loops.png",
                                          "loop-browser.png", "mixer.png", "overview.png", "step-sequencer.png"}));
  for (const std::string window : {"mixer", "lists", "overview"}) {
    const std::string alone = session::privateFolder() + "/" + window + ".png";
    ASSERT_EQ(support::runVelura("render --window " + window + kSong + alone).status, 0);
    EXPECT_EQ(support::fileContents(alone), support::fileContents(folder + "/" + window + ".png")) << window;
  }
}

}  // namespace
