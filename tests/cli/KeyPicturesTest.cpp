// The pictures of the theme keys, and how the place that shows a key best is found.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "cli/KeyPictures.h"
#include "cli/Picture.h"
#include "cli/PrivateFolders.h"
#include "plugin/language/ThemeKeys.h"
#include "tests/support/Commands.h"
#include "tests/support/Theme.h"

namespace {

namespace fs = std::filesystem;
using session::Picture;

/// Keys that change nothing that the simulated host shows: its platform shows calibrated colours as sRGB ones, and
/// master strips have no panner images of their own.
const std::set<std::string> kWithoutPicture{"useCalibratedColor", "useSharedPanner?master"};

TEST(KeyPictures, AreThereForEveryKeyInUseAndNoOther) {
  std::set<std::string> wanted;
  for (const velura::ThemeKeyRow& row : velura::kThemeKeys) {
    const bool shown = row.used == velura::Used::kYes && kWithoutPicture.count(std::string(row.name)) == 0;
    if (shown) wanted.insert(session::keyPictureName(row.name));
  }
  std::set<std::string> found;
  for (const auto& entry : fs::directory_iterator(VELURA_SOURCE_DIR "/docs/keys")) {
    found.insert(entry.path().filename().string());
    EXPECT_LT(entry.file_size(), 16U << 10U) << entry.path();
  }
  EXPECT_EQ(found, wanted) << "run velura key-pictures";
}

TEST(KeyPictures, ShowAChangeInsideOfItsSurroundings) {
  const std::string out = session::privateFolder() + "/keys";
  const std::string command = "key-pictures --out " + out + " --key ";
  auto result = support::runVelura(command + "pannerKnobBackgroundColor --key useCalibratedColor");
  EXPECT_EQ(result.status, 0) << result.output;
  EXPECT_EQ(result.output, "velura: useCalibratedColor: changes nothing that is shown\n");
  const auto picture = session::readPicture(out + "/pannerKnobBackgroundColor.png");
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->width, 240U);
  EXPECT_EQ(picture->height, 96U);
  int vivid = 0;
  for (std::size_t i = 0; i < picture->samples.size(); i += 3) {
    if (picture->samples[i] > 240 && picture->samples[i + 1] < 60) ++vivid;
  }
  EXPECT_GT(vivid, 500) << "the knob's cap";
  EXPECT_LT(vivid, 240 * 96 / 2);
  result = support::runVelura(command + "noSuchKey");
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, "velura: noSuchKey: no such key\n");
}

TEST(Picture, FindsThePartThatTellsMost) {
  const Picture before{400, 300, std::vector<std::uint8_t>(400 * 300 * 3, 50)};
  EXPECT_FALSE(session::mostTellingPart(before, before, 100, 60)) << "nothing differs";
  Picture after = before;
  const auto fill = [&](std::size_t left, std::size_t top, std::size_t side) {
    for (std::size_t y = top; y < top + side; ++y) {
      std::fill_n(&after.samples[(y * 400 + left) * 3], side * 3, std::uint8_t{200});
    }
  };
  fill(10, 10, 6);
  fill(300, 200, 30);
  auto part = session::mostTellingPart(before, after, 100, 60);
  ASSERT_TRUE(part);
  EXPECT_EQ(part->x, 265U) << "the larger one, in the middle";
  EXPECT_EQ(part->y, 185U);
  part = session::mostTellingPart(before, after, 400, 300);
  ASSERT_TRUE(part) << "as large as the picture";
  EXPECT_EQ(part->x + part->y, 0U);
  EXPECT_FALSE(session::mostTellingPart(before, after, 401, 60));
}

TEST(Picture, KeepsAtMost256ColorsCloseToTheirOwn) {
  Picture many{64, 64, {}};
  for (int i = 0; i < 64 * 64; ++i) {
    for (const int sample : {i % 64 * 4, i / 64 * 4, 128}) many.samples.push_back(static_cast<std::uint8_t>(sample));
  }
  const std::string path = session::privateFolder() + "/many.png";
  support::writeFile(path, session::palettePng(many));
  const auto read = session::readPicture(path);
  ASSERT_TRUE(read);
  ASSERT_EQ(read->samples.size(), many.samples.size());
  std::set<int> colors;
  for (std::size_t i = 0; i < many.samples.size(); ++i) {
    EXPECT_NEAR(read->samples[i], many.samples[i], 48);
    if (i % 3 == 0) colors.insert(read->samples[i] << 16 | read->samples[i + 1] << 8 | read->samples[i + 2]);
  }
  EXPECT_LE(colors.size(), 256U);
}

}  // namespace
