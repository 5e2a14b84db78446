// `velura render --zoom-strip`.

#include <gtest/gtest.h>

#include "cli/PrivateFolders.h"
#include "cocoa/Call.h"
#include "tests/support/Theme.h"

namespace {

using namespace cocoa;

NSBitmapImageRep bitmapOf(const std::string& png) {
  return NSBitmapImageRep::imageRepWithData(NSData::dataWithBytes(png.data(), png.size()));
}

/// How far the samples of two bitmaps lie apart at most once `part` is laid at (left, top) of `whole`.
int largestDifference(NSBitmapImageRep whole, NSBitmapImageRep part, NSInteger left, NSInteger top) {
  int largest = 0;
  for (NSInteger y = 0; y < part.pixelsHigh(); ++y) {
    const auto* there = whole.bitmapData() + (y + top) * whole.bytesPerRow() + left * 4;
    const auto* here = part.bitmapData() + y * part.bytesPerRow();
    for (NSInteger i = 0; i < part.pixelsWide() * 4; ++i) largest = std::max(largest, std::abs(here[i] - there[i]));
  }
  return largest;
}

TEST(StripPicture, IsThePartOfTheWindowThatTheStripTakes) {
  const AutoreleasePool pool;
  constexpr double kScale = 4;
  host::Track selected;
  selected.name = "Two";
  selected.selected = true;
  const auto application =
      support::start(VELURA_SOURCE_DIR "/themes/ember", support::songOf({{}, selected, {}, {}}), {.scale = kScale});
  ASSERT_TRUE(application);
  const auto whole = bitmapOf(session::windowAsPng(*application, host::WindowKind::kMixer));
  std::string error;
  const auto strip = bitmapOf(session::stripAsPng(*application, 2, kScale, error));
  ASSERT_TRUE(strip) << error;
  const auto frame = call<"frame", CGRect>(application->mixer().strips().objectAtIndex(1));
  ASSERT_EQ(static_cast<double>(strip.pixelsWide()), frame.size.width * kScale);
  ASSERT_EQ(static_cast<double>(strip.pixelsHigh()), frame.size.height * kScale);
  const auto fromBottom =
      static_cast<NSInteger>(call<"frame", CGRect>(application->mixer().rootNode()).minY() * kScale);
  const NSInteger top = whole.pixelsHigh() - fromBottom - strip.pixelsHigh();
  constexpr int kRounding = 2;  // of what is turned, such as the caps of knobs
  EXPECT_LE(largestDifference(whole, strip, strip.pixelsWide(), top), kRounding);
}

}  // namespace
