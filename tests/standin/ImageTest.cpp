// Images and bitmaps: formats, PNG, hostile data.

#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "Canvas.h"
#include "cocoa/ClassDefinition.h"

namespace {

using namespace cocoa;
using namespace support;

Ref<NSBitmapImageRep> bitmap(NSInteger width, NSInteger height, NSInteger samples = 4, NSUInteger format = 0,
                             NSInteger bits = 8) {
  return NSBitmapImageRep::withBitmapDataPlanes(nullptr, width, height, bits, samples, samples % 2 == 0, false,
                                                NSDeviceRGBColorSpace, format, 0, 0);
}

std::vector<unsigned char> png(NSBitmapImageRep rep) {
  const NSData data = rep.representationUsingType(NSBitmapImageFileTypePNG, NSDictionary::dictionary());
  const auto* bytes = static_cast<const unsigned char*>(data.bytes());
  return {bytes, bytes + data.length()};
}
NSBitmapImageRep decoded(const std::vector<unsigned char>& bytes) {
  return NSBitmapImageRep::imageRepWithData(NSData::dataWithBytes(bytes.data(), bytes.size()));
}

TEST(Bitmap, KeepsItsSampleLayout) {
  const AutoreleasePool pool;
  struct Layout {
    NSInteger samples;
    NSUInteger format;
    std::vector<int> bytes;
  };
  // The same colour, (1, 0.6, 0.2) at alpha 0.4, in every layout.
  const Layout layouts[] = {{4, 0, {102, 61, 20, 102}},
                            {4, NSBitmapFormatAlphaFirst, {102, 102, 61, 20}},
                            {4, NSBitmapFormatAlphaNonpremultiplied, {255, 153, 51, 102}},
                            {4, NSBitmapFormatAlphaFirst | NSBitmapFormatAlphaNonpremultiplied, {102, 255, 153, 51}},
                            {3, 0, {255, 153, 51}}};
  for (const Layout& layout : layouts) {
    const auto rep = bitmap(3, 2, layout.samples, layout.format);
    rep->setColor(NSColor::colorWithSRGBRed(1, 0.6, 0.2, 0.4), 1, 1);
    const unsigned char* pixel = rep->bitmapData() + rep->bytesPerRow() + rep->bitsPerPixel() / 8;
    EXPECT_EQ(std::vector<int>(pixel, pixel + layout.samples), layout.bytes) << layout.format;
    const NSColor read = rep->colorAtX(1, 1);
    EXPECT_NEAR(read.greenComponent(), 0.6, 0.01) << layout.format;
    EXPECT_NEAR(read.alphaComponent(), layout.samples == 4 ? 0.4 : 1, 0.01) << layout.format;
    EXPECT_FALSE(rep->colorAtX(3, 0)) << "outside";
  }
  const auto floating = bitmap(1, 1, 4, NSBitmapFormatFloatingPointSamples, 32);
  floating->setColor(NSColor::colorWithSRGBRed(0.5, 0.25, 1, 0.5), 0, 0);
  float samples[4];
  std::memcpy(samples, floating->bitmapData(), sizeof samples);
  EXPECT_EQ(std::vector<float>(samples, samples + 4), (std::vector<float>{0.25F, 0.125F, 0.5F, 0.5F}));
}

TEST(Bitmap, IsDrawnIntoInPlace) {
  const AutoreleasePool pool;
  const auto rep = bitmap(4, 4);
  rep->setSize({2, 2});
  NSGraphicsContext::saveGraphicsState();
  NSGraphicsContext::setCurrentContext(NSGraphicsContext::graphicsContextWithBitmapImageRep(rep));
  letter('R').set();
  NSRectFill({{0, 0}, {1, 1}});
  NSGraphicsContext::restoreGraphicsState();
  const unsigned char* bottomLeft = rep->bitmapData() + 3 * rep->bytesPerRow();
  EXPECT_EQ(std::vector<int>(bottomLeft, bottomLeft + 8), (std::vector<int>{255, 0, 0, 255, 255, 0, 0, 255}));
  EXPECT_EQ(CGImageGetWidth(rep->CGImage()), 4U);
  EXPECT_FALSE(NSGraphicsContext::graphicsContextWithBitmapImageRep(bitmap(2, 2, 4, NSBitmapFormatAlphaFirst)));
}

TEST(Bitmap, RefusesImpossibleLayouts) {
  const AutoreleasePool pool;
  for (const auto& rep : {bitmap(0, 1), bitmap(20000, 1), bitmap(1, 1000001), bitmap(16000, 16000), bitmap(-3, 3),
                          bitmap(2, 2, 5), bitmap(2, 2, 4, 0, 12), bitmap(2, 2, 4, 1U << 10U, 16),
                          bitmap(2, 2, 4, NSBitmapFormatFloatingPointSamples, 16)}) {
    EXPECT_FALSE(rep);
  }
}

/// Every format reads back what was set, and comes back from its image with the same bytes.
TEST(Bitmap, SurvivesItsImageInEveryFormat) {
  const AutoreleasePool pool;
  for (const NSInteger bits : {8, 16, 32}) {
    for (const NSInteger samples : {1, 2, 3, 4}) {
      for (const NSUInteger order : {NSUInteger{0}, NSBitmapFormatAlphaFirst, NSBitmapFormatAlphaNonpremultiplied,
                                     NSBitmapFormatAlphaFirst | NSBitmapFormatAlphaNonpremultiplied}) {
        const NSUInteger format = order | (bits == 32 ? NSBitmapFormatFloatingPointSamples : 0);
        const NSInteger pixelBits = samples == 3 && bits == 8 ? 32 : bits * samples;
        const auto rep = NSBitmapImageRep::withBitmapDataPlanes(
            nullptr, 3, 2, bits, samples, samples % 2 == 0, false,
            samples < 3 ? NSCalibratedWhiteColorSpace : NSCalibratedRGBColorSpace, format, 52, pixelBits);
        ASSERT_TRUE(rep) << bits << samples;
        const double green = samples < 3 ? 0.8 : 0.6;
        rep->setColor(NSColor::colorWithSRGBRed(0.8, green, samples < 3 ? 0.8 : 0.2, 0.5), 2, 1);
        const NSColor read = rep->colorAtX(2, 1);
        EXPECT_EQ(read.colorSpaceName(), rep->colorSpaceName());
        EXPECT_NEAR(samples < 3 ? read.whiteComponent() : read.redComponent(), 0.8, 0.005) << bits << samples << format;
        if (samples >= 3) {
          EXPECT_NEAR(read.greenComponent(), green, 0.005) << bits << samples << format;
        }
        EXPECT_NEAR(read.alphaComponent(), samples % 2 == 0 ? 0.5 : 1, 0.005) << bits << samples << format;
        const auto again = NSBitmapImageRep::withCGImage(rep->CGImage());
        const bool same = again->bitmapFormat() == format && again->bytesPerRow() == 52 &&
                          again->bitsPerPixel() == pixelBits &&
                          std::memcmp(again->bitmapData(), rep->bitmapData(), 2 * 52) == 0;
        const bool common = bits == 8 && samples == 4 && order == 0;
        EXPECT_TRUE(same || common) << bits << samples << format;
        EXPECT_EQ(std::memcmp(again->bitmapData() + again->bytesPerRow(), rep->bitmapData() + 52, 12), 0);
      }
    }
  }
  const auto floating = bitmap(1, 1, 4, NSBitmapFormatFloatingPointSamples, 32);
  floating->setColor(NSColor::colorWithSRGBRed(1.5, -0.25, 0, 0.5), 0, 0);
  EXPECT_NEAR(floating->colorAtX(0, 0).redComponent(), 1.5, 1e-6) << "beyond white";
  const auto gray = bitmap(1, 1, 1);
  gray->setColor(letter('G'), 0, 0);
  EXPECT_EQ(gray->bitmapData()[0], 182);
}

std::vector<int> pixelOf(NSBitmapImageRep rep, NSInteger x, NSInteger y) {
  const unsigned char* at = rep.bitmapData() + y * rep.bytesPerRow() + x * 4;
  return {at, at + 4};
}

TEST(TallBitmap, IsDrawnIntoInBands) {
  const AutoreleasePool pool;
  constexpr NSInteger kHeight = 60000;
  const auto rep = bitmap(32, kHeight);
  ASSERT_TRUE(rep);
  NSGraphicsContext::saveGraphicsState();
  NSGraphicsContext::setCurrentContext(NSGraphicsContext::graphicsContextWithBitmapImageRep(rep));
  const auto disc = [](double y) { NSBezierPath::bezierPathWithOvalInRect({{0, y}, {32, 100}}).fill(); };
  NSGraphicsContext::saveGraphicsState();
  NSBezierPath::bezierPathWithOvalInRect({{0, 0}, {32, kHeight}}).addClip();
  letter('R').set();
  for (double y = 0; y < kHeight; y += 100) {
    NSGraphicsContext::saveGraphicsState();
    NSRectClip({{0, y}, {32, 100}});
    disc(y);
    NSGraphicsContext::restoreGraphicsState();
  }
  NSGraphicsContext::restoreGraphicsState();
  const std::vector<int> red{255, 0, 0, 255};
  const std::vector<int> clear{0, 0, 0, 0};
  for (const NSInteger y : {NSInteger{150}, NSInteger{20050}, NSInteger{33350}, kHeight - 150}) {
    EXPECT_EQ(pixelOf(rep, 16, y), red) << y;
    EXPECT_EQ(pixelOf(rep, 0, y - 48), clear) << y << ": outside of the disc";
  }
  EXPECT_EQ(pixelOf(rep, 1, 450), clear) << "the shaped clip went along with the bands";
  letter('G').set();
  NSGraphicsContext::currentContext().setShouldAntialias(false);
  NSBezierPath::bezierPathWithRoundedRect({{4.5, 10.5}, {20, kHeight - 20}}, 3, 3).fill();
  letter('B').set();
  disc(0);
  for (const NSInteger y : {20, 16383, 16384, 32767, 32768, 50000, 59800}) {
    EXPECT_EQ(pixelOf(rep, 10, y), (std::vector<int>{0, 255, 0, 255})) << y << ": taller than a band";
  }
  EXPECT_EQ(pixelOf(rep, 16, kHeight - 50), (std::vector<int>{0, 0, 255, 255}));
  NSGraphicsContext::restoreGraphicsState();
  const CGImageRef image = rep->CGImage();
  EXPECT_EQ(CGImageGetHeight(image), std::size_t(kHeight));
  const Canvas canvas(64, 4, 2);
  CGContextClipToRect(canvas.context(), {{0, 0}, {32, 2}});
  CGContextDrawImage(canvas.context(), {{0, -49}, {32, kHeight}}, image);
  EXPECT_EQ(canvas.at(32, 0), 0x0000ffffU);
  EXPECT_TRUE(bitmap(1, 1000000));
}

TEST(Png, KeepsPixelsAndBytes) {
  const AutoreleasePool pool;
  const auto rep = bitmap(5, 3);
  rep->setColor(letter('R'), 0, 0);
  rep->setColor(NSColor::colorWithSRGBRed(0, 1, 0, 0.5), 4, 2);
  const auto bytes = png(rep);
  EXPECT_EQ(bytes, png(rep)) << "the same bytes every time";
  const NSBitmapImageRep back = decoded(bytes);
  ASSERT_TRUE(back);
  EXPECT_EQ(std::memcmp(back.bitmapData(), rep->bitmapData(), std::size_t(3 * rep->bytesPerRow())), 0);
}

TEST(Png, SurvivesHostileBytes) {
  const AutoreleasePool pool;
  const auto sound = png(bitmap(7, 5));
  for (std::size_t length = 0; length < sound.size(); ++length) {
    EXPECT_FALSE(decoded({sound.begin(), sound.begin() + std::ptrdiff_t(length)})) << length;
  }
  std::mt19937 random(7);
  for (int i = 0; i < 2000; ++i) {
    auto bytes = sound;
    for (int change = 0; change < 3; ++change) bytes[random() % bytes.size()] = static_cast<unsigned char>(random());
    static_cast<void>(decoded(bytes));
  }
  auto huge = sound;
  huge[18] = 0xFF;  // a width of 65,287 pixels
  EXPECT_FALSE(decoded(huge));
  EXPECT_FALSE(NSBitmapImageRep::imageRepWithData({}));
}

TEST(Image, TakesAPatternBeforeItChanges) {
  const AutoreleasePool pool;
  const auto image = imageOf({"R"});
  const NSColor pattern = NSColor::colorWithPatternImage(image);
  const Canvas canvas(2, 1);
  canvas.fill(pattern, {{0, 0}, {1, 1}});
  image->lockFocus();
  letter('G').set();
  NSRectFill({{0, 0}, {1, 1}});
  image->unlockFocus();
  canvas.fill(pattern, {{1, 0}, {1, 1}});
  EXPECT_EQ(canvas.art(), "RR\n");
}

TEST(Image, KeepsRepresentationsForTheirDensity) {
  const AutoreleasePool pool;
  const auto image = NSImage::withSize({2, 2});
  EXPECT_FALSE(image->isValid());
  for (const char name : {'R', 'G'}) {
    const NSInteger side = name == 'R' ? 2 : 4;
    const auto rep = bitmap(side, side);
    for (NSInteger i = 0; i < side * side; ++i) rep->setColor(letter(name), i % side, i / side);
    image->addRepresentation(rep);
  }
  const Canvas once(2, 2);
  image->drawInRect({{0, 0}, {2, 2}});
  EXPECT_EQ(once.art(), "RR\nRR\n");
  const Canvas twice(4, 4, 2);
  image->drawInRect({{0, 0}, {2, 2}});
  EXPECT_EQ(twice.art(), "GGGG\nGGGG\nGGGG\nGGGG\n");
}

}  // namespace
