// The mixer's legend with the bundle loaded: its labels, its background, and the colours in its scale.

#include <gtest/gtest.h>

#include "cocoa/QuartzCore.h"
#include "tests/support/HostTest.h"
#include "tests/views/ViewTree.h"

namespace {

using namespace cocoa;
using host::FaderLength;
using host::WindowKind;
using namespace support;

constexpr Rgba kTick{200, 60, 20};
constexpr Rgba kNumber{20, 180, 60};
constexpr Rgba kZero{40, 80, 240};

ThemeFile scaleTheme() {
  return ThemeFile()
      .text("scaleTickMarkColor", colour(200, 60, 20))
      .text("scaleNumberColor", colour(20, 180, 60))
      .text("scale0DBTickMarkColor", colour(40, 80, 240));
}

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

/// The colours of the full pixels of a part of a bitmap, as far as they are one of those.
struct Seen {
  bool tick = false;
  bool number = false;
  bool zero = false;
};
Seen seenIn(NSBitmapImageRep bitmap, long fromX, long toX) {
  Seen seen;
  for (long y = 0; y < bitmap.pixelsHigh(); ++y) {
    for (long x = fromX; x < toX; ++x) {
      Rgba c = pixel(bitmap, x, y);
      if (c.alpha < 30) continue;
      c.alpha = 100;
      seen.tick = seen.tick || near(c, kTick, 4);
      seen.number = seen.number || near(c, kNumber, 4);
      seen.zero = seen.zero || near(c, kZero, 4);
    }
  }
  return seen;
}

TEST_F(Legend, RecoloursItsScaleOnceForEachSize) {
  start(writeTheme(scaleTheme().list()));
  const NSImage image = scale();
  EXPECT_EQ(image.size(), (CGSize{134, 398}));
  EXPECT_EQ(scale(), image) << "the second item shows the picture of the first";
  const NSBitmapImageRep bitmap = bitmapOf(image);
  const Seen numbers = seenIn(bitmap, 0, 134 - 23);
  const Seen ticks = seenIn(bitmap, 134 - 23, 134);
  EXPECT_TRUE(numbers.number && numbers.zero && !numbers.tick);
  EXPECT_TRUE(ticks.tick && ticks.zero && !ticks.number);
}

TEST_F(Legend, FindsTheMarkOfZeroDecibelsBesideLongFaders) {
  start(writeTheme(scaleTheme().list()), FaderLength::kLong);
  EXPECT_EQ(scale().size(), (CGSize{134, 598}));
  EXPECT_TRUE(seenIn(bitmapOf(scale()), 134 - 23, 134).zero);
}

TEST_F(Legend, TakesFadersForShortOnesWhenNobodySays) {
  start(writeTheme(scaleTheme().list()), FaderLength::kMedium);
  // This picture has two pixels a point, and the one that takes its place has them as points.
  EXPECT_EQ(scale().size(), (CGSize{268, 996}));
  const Seen numbers = seenIn(bitmapOf(scale()), 0, 268 - 46);
  const Seen ticks = seenIn(bitmapOf(scale()), 268 - 46, 268);
  EXPECT_TRUE(numbers.number && numbers.zero && !numbers.tick);
  EXPECT_TRUE(ticks.tick && ticks.zero && !ticks.number);
}

TEST_F(Legend, KeepsTheHostsScaleWithoutColoursForIt) {
  start(writeTheme(ThemeFile().text("componentsLabelColor", colour(9, 9, 9)).list()));
  const Seen seen = seenIn(bitmapOf(scale()), 0, 134);
  EXPECT_FALSE(seen.tick || seen.number || seen.zero);
}

TEST_F(Legend, ShowsAReadyMadeScaleOfTheThemes) {
  const std::string theme = writeTheme(scaleTheme().list());
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

TEST_F(Legend, ColoursItsLabelsAndItsBackground) {
  start(writeTheme(ThemeFile()
                       .text("componentsLabelColor", colour(250, 120, 10))
                       .text("componentsLabelBackgroundColor", colour(10, 30, 50))
                       .list()));
  const Rgba background{10, 30, 50};
  EXPECT_EQ(rgba(NSColor::colorWithCGColor(legend().layer().backgroundColor())), background);
  std::size_t coloured = 0;
  for (const NSView label : viewsBelow(legend(), "MATextField")) {
    const NSAttributedString text = cast<NSTextField>(label).attributedStringValue();
    const std::string identifier = toStdString(call<"identifier", NSString>(label));
    if (identifier.starts_with("MAMixerLegendVolumeLabel")) {
      EXPECT_EQ(rgba(NSColor::colorWithCGColor(label.superview().layer().backgroundColor())), background);
    }
    if (text.length() == 0) continue;
    ++coloured;
    EXPECT_EQ(rgba(call<"attribute:atIndex:effectiveRange:", NSColor>(
                  text, NSForegroundColorAttributeName, text.length() - 1, static_cast<NSRange*>(nullptr))),
              (Rgba{250, 120, 10}))
        << identifier;
  }
  EXPECT_EQ(coloured, 14U) << "all but the one without a text";
  EXPECT_FALSE(item(literal<"MAMixerLegendNobodyKnows">()));
}

}  // namespace
