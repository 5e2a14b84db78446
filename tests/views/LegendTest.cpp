// The mixer's legend with the bundle loaded: its labels, its background, and the colours in its scale.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "cocoa/QuartzCore.h"
#include "tests/support/HostTest.h"
#include "tests/support/KeyColors.h"
#include "tests/views/ViewTree.h"

namespace {

using namespace cocoa;
using host::FaderLength;
using host::WindowKind;
using namespace support;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr const char* kTick = "scaleTickMarkColor";
constexpr const char* kNumber = "scaleNumberColor";
constexpr const char* kZero = "scale0DBTickMarkColor";

std::string scaleTheme() { return writeTheme(colorsOf({kTick, kNumber, kZero}).list()); }

class Legend : public HostTest {
 protected:
  void start(const std::string& theme, FaderLength faders = FaderLength::kShort) {
    host::Song song = sampleSong();
    song.tracks.resize(3);
    song.legend = true;
    song.faderLength = faders;
    host::HostOptions newest;
    newest.version = "12.3";
    startWith(theme, std::move(song), newest);
  }
  [[nodiscard]] NSView legend() const { return viewIn(*application_, WindowKind::kMixer, "MixerLegendView"); }
  [[nodiscard]] NSObject item(NSString identifier) const {
    const auto contents = application_->mixer().contentsView();
    return call<"legendItemForIdentifier:", NSObject>(call<"delegate", NSObject>(contents), identifier);
  }
  [[nodiscard]] NSImage scale() const {
    return call<"image", NSImage>(item(literal<"MAMixerLegendVolumeScaleItem">()));
  }
};

NSBitmapImageRep bitmapOf(NSImage image) { return cast<NSBitmapImageRep>(image.representations().objectAtIndex(0)); }

/// The keys whose colours stand in a part of a bitmap.
std::set<std::string> seenIn(NSBitmapImageRep bitmap, long fromX, long toX) {
  std::set<std::string> seen;
  for (long i = 0; i < bitmap.pixelsHigh() * (toX - fromX); ++i) {
    Rgba c = pixel(bitmap, fromX + i % (toX - fromX), i / (toX - fromX));
    if (std::exchange(c.alpha, 100) < 30) continue;
    for (const char* key : {kTick, kNumber, kZero}) {
      if (near(c, colorOf(key), 4)) seen.insert(key);
    }
  }
  return seen;
}

TEST_F(Legend, RecolorsItsScaleOnceForEachSize) {
  const struct {
    FaderLength faders;
    CGSize size;
    long ticks;  // their width, at the right edge
  } kCases[] = {
      {FaderLength::kShort, {134, 398}, 23},
      {FaderLength::kLong, {134, 598}, 23},
      // Nobody says how long these are. Their picture has two pixels a point, and what takes its place one.
      {FaderLength::kMedium, {268, 996}, 46},
  };
  eachInChild(kCases, [&](const auto& c) {
    start(scaleTheme(), c.faders);
    const NSImage image = scale();
    EXPECT_EQ(image.size(), c.size);
    EXPECT_EQ(scale(), image) << "the second item shows the picture of the first";
    const auto width = static_cast<long>(c.size.width);
    EXPECT_THAT(seenIn(bitmapOf(image), 0, width - c.ticks), UnorderedElementsAre(kNumber, kZero));
    EXPECT_THAT(seenIn(bitmapOf(image), width - c.ticks, width), UnorderedElementsAre(kTick, kZero));
  });
}

TEST_F(Legend, KeepsTheHostsScaleWithoutColorsForIt) {
  start(writeTheme(colorsOf({"componentsLabelColor"}).list()));
  EXPECT_THAT(seenIn(bitmapOf(scale()), 0, 134), IsEmpty());
}

TEST_F(Legend, ShowsAReadyMadeScaleOfTheThemes) {
  const std::string theme = scaleTheme();
  const Ref<NSBitmapImageRep> made =
      NSBitmapImageRep::withBitmapDataPlanes(nullptr, 2, 2, 8, 4, true, false, NSDeviceRGBColorSpace, 0, 0);
  for (long i = 0; i < 4; ++i) made->setColor(NSColor::colorWithDeviceRed(1, 0, 1, 1), i % 2, i / 2);
  const NSData png = made->representationUsingType(NSBitmapImageFileTypePNG, NSDictionary::dictionary());
  writeFile(theme + "/Companion.bundle/Contents/Resources/FaderScale.png",
            std::string(static_cast<const char*>(png.bytes()), png.length()));
  start(theme);
  EXPECT_EQ(pixel(bitmapOf(scale()), 0, 0), (Rgba{255, 0, 255}));
  EXPECT_EQ(scale(), scale());
}

TEST_F(Legend, ColorsItsLabelsAndItsBackground) {
  start(writeTheme(colorsOf({"componentsLabelColor", "componentsLabelBackgroundColor"}).list()));
  const Rgba background = colorOf("componentsLabelBackgroundColor");
  EXPECT_EQ(rgba(legend().layer().backgroundColor()), background);
  std::size_t colored = 0;
  for (const NSView label : viewsBelow(legend(), "MATextField")) {
    const NSAttributedString text = cast<NSTextField>(label).attributedStringValue();
    const std::string identifier = toStdString(call<"identifier", NSString>(label));
    if (identifier.starts_with("MAMixerLegendVolumeLabel")) {
      EXPECT_EQ(rgba(label.superview().layer().backgroundColor()), background);
    }
    if (text.length() == 0) continue;
    ++colored;
    EXPECT_EQ(rgba(call<"attribute:atIndex:effectiveRange:", NSColor>(
                  text, NSForegroundColorAttributeName, text.length() - 1, static_cast<NSRange*>(nullptr))),
              colorOf("componentsLabelColor"))
        << identifier;
  }
  EXPECT_EQ(colored, 14U) << "all but the one without a text";
  EXPECT_FALSE(item(literal<"MAMixerLegendNobodyKnows">()));
}

}  // namespace
