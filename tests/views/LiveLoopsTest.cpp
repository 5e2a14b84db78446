// The Live Loops grid as the host draws it with the bundle loaded.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

#include "host/liveloops/LiveLoopsColours.h"
#include "plugin/theme/ThemeKeys.h"
#include "tests/support/Colours.h"
#include "tests/support/Theme.h"
#include "tests/views/LiveLoopsRows.h"

namespace {

using namespace support;

/// A saturated colour for each key, another for every one; none of the host's.
Rgba colourOf(std::string_view key) {
  const auto index = static_cast<long>(velura::indexOf(*velura::keyNamed(key)));
  return {255 - index / 8 * 6 % 120, index % 8 * 8, 255 - index % 50};
}

ThemeFile themeOf(std::initializer_list<const char*> keys) {
  ThemeFile theme;
  for (const LiveLoopsRow& row : kLiveLoopsRows) {
    if (keys.size() != 0 && std::ranges::find(keys, std::string_view(row.key)) == keys.end()) continue;
    const Rgba c = colourOf(row.key);
    theme.text(row.key, colour(static_cast<int>(c.red), static_cast<int>(c.green), static_cast<int>(c.blue)));
  }
  return theme;
}

TEST(LiveLoops, TakeEveryColourFromTheTheme) {
  const cocoa::AutoreleasePool pool;
  const auto application = start(writeTheme(themeOf({}).list()), sampleSong());
  ASSERT_TRUE(application);
  for (const LiveLoopsRow& row : kLiveLoopsRows) {
    EXPECT_EQ(rgba(host::liveLoopsColour(row.provider, row.method)), colourOf(row.key)) << row.method;
  }
  const auto bitmap = application->draw(host::WindowKind::kLiveLoops);
  std::set<std::array<unsigned char, 3>> colours;
  for (long y = 0; y < bitmap->pixelsHigh(); ++y) {
    const unsigned char* pixel = bitmap->bitmapData() + y * bitmap->bytesPerRow();
    for (long x = 0; x < bitmap->pixelsWide(); ++x, pixel += 4) colours.insert({pixel[0], pixel[1], pixel[2]});
  }
  std::vector<std::string> unseen;
  for (const LiveLoopsRow& row : kLiveLoopsRows) {
    const bool seen = std::ranges::any_of(colours, [&](const auto& c) {
      return near({c[0], c[1], c[2]}, colourOf(row.key), 1);
    });
    if (!seen) unseen.push_back(std::string(row.provider) + " " + row.method);
  }
  EXPECT_EQ(unseen, std::vector<std::string>()) << "the host draws with all of them";
}

TEST(LiveLoops, ShareTheGlyphOfTheDividerAndKeepTheRest) {
  const cocoa::AutoreleasePool pool;
  const auto theme = themeOf({"LiveLoopsDividerHnFGlyphColor"});
  const auto application = start(writeTheme(theme.list()), sampleSong());
  ASSERT_TRUE(application);
  for (const LiveLoopsRow& row : kLiveLoopsRows) {
    const bool themed = std::string_view(row.key) == "LiveLoopsDividerHnFGlyphColor";
    EXPECT_EQ(rgba(host::liveLoopsColour(row.provider, row.method)) == colourOf(row.key), themed) << row.method;
  }
}

}  // namespace
