// The Live Loops grid as the host draws it with the bundle loaded.

#include <gtest/gtest.h>

#include <algorithm>

#include "host/liveloops/LiveLoopsColors.h"
#include "tests/support/KeyColors.h"
#include "tests/views/LiveLoopsRows.h"

namespace {

using namespace support;

TEST(LiveLoops, TakeEveryColorFromTheTheme) {
  const cocoa::AutoreleasePool pool;
  const auto application = start(writeTheme(allColors().list()), sampleSong());
  ASSERT_TRUE(application);
  for (const LiveLoopsRow& row : kLiveLoopsRows) {
    EXPECT_EQ(rgba(host::liveLoopsColor(row.provider, row.method)), colorOf(row.key)) << row.method;
  }
  const auto bitmap = application->draw(host::WindowKind::kLiveLoops);
  const std::vector<Rgba> drawn = pixels(bitmap);
  for (const LiveLoopsRow& row : kLiveLoopsRows) {
    const bool seen = std::ranges::any_of(drawn, [&](const Rgba& c) { return near(c, colorOf(row.key)); });
    EXPECT_TRUE(seen) << "the host draws with " << row.provider << " " << row.method;
  }
}

TEST(LiveLoops, ShareTheGlyphOfTheDividerAndKeepTheRest) {
  const cocoa::AutoreleasePool pool;
  const auto application = start(writeTheme(colorsOf({"LiveLoopsDividerHnFGlyphColor"}).list()), sampleSong());
  ASSERT_TRUE(application);
  for (const LiveLoopsRow& row : kLiveLoopsRows) {
    const bool themed = std::string_view(row.key) == "LiveLoopsDividerHnFGlyphColor";
    EXPECT_EQ(rgba(host::liveLoopsColor(row.provider, row.method)) == colorOf(row.key), themed) << row.method;
  }
}

}  // namespace
