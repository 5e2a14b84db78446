// Image files of one or several frames: TIFF, PNG, Image I/O, images of bundles.

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>

#include "Canvas.h"
#include "cocoa/ImageIO.h"

namespace {

using namespace cocoa;
using support::letter;
using Bytes = std::vector<unsigned char>;

Ref<NSBitmapImageRep> plain(NSInteger side, char color, NSSize size) {
  auto rep =
      NSBitmapImageRep::withBitmapDataPlanes(nullptr, side, side, 8, 4, true, false, NSDeviceRGBColorSpace, 0, 0);
  for (NSInteger i = 0; i < side * side; ++i) rep->setColor(letter(color), i % side, i / side);
  rep->setColor(NSColor::colorWithSRGBRed(1, 0.5, 0, 0.25), 0, 0);
  rep->setSize(size);
  return rep;
}

Bytes bytesOf(NSData data) {
  const auto* bytes = static_cast<const unsigned char*>(data.bytes());
  return {bytes, bytes + data.length()};
}
NSData dataOf(const Bytes& bytes) { return NSData::dataWithBytes(bytes.data(), bytes.size()); }

bool samePixels(NSBitmapImageRep a, NSBitmapImageRep b) {
  return a.pixelsHigh() == b.pixelsHigh() && a.bytesPerRow() == b.bytesPerRow() &&
         std::memcmp(a.bitmapData(), b.bitmapData(), std::size_t(a.pixelsHigh() * a.bytesPerRow())) == 0;
}

TEST(Tiff, HoldsEveryRepresentationAtItsDensity) {
  const AutoreleasePool pool;
  const auto image = NSImage::withSize({3, 3});
  EXPECT_FALSE(image->TIFFRepresentation());
  image->addRepresentation(plain(3, 'R', {3, 3}));
  image->addRepresentation(plain(6, 'G', {3, 3}));
  const NSData data = image->TIFFRepresentation();
  EXPECT_EQ(bytesOf(data), bytesOf(image->TIFFRepresentation())) << "the same bytes every time";
  const auto again = NSImage::withData(data);
  ASSERT_TRUE(again);
  EXPECT_EQ(again->size(), (NSSize{3, 3}));
  const NSArray before = image->representations();
  const NSArray after = again->representations();
  ASSERT_EQ(after.count(), 2U);
  for (NSUInteger i = 0; i < 2; ++i) {
    const auto rep = cast<NSBitmapImageRep>(after.objectAtIndex(i));
    EXPECT_EQ(rep.size(), (NSSize{3, 3})) << i;
    EXPECT_TRUE(samePixels(rep, cast<NSBitmapImageRep>(before.objectAtIndex(i)))) << i;
  }
  const auto single = plain(6, 'B', {3, 3});
  const auto read = NSBitmapImageRep::imageRepWithData(single->TIFFRepresentation());
  EXPECT_TRUE(samePixels(read, single));
  EXPECT_EQ(read.size(), (NSSize{3, 3}));
}

/// One strip of uncompressed samples with the given tags, as other programs write it.
struct RawTiff {
  int bits;
  int samples;
  int photometric;
  int extra;  // kind of the last sample; below zero: none
  Bytes strip;

  [[nodiscard]] Bytes bytes() const {
    Bytes out{'I', 'I', 42, 0, 8, 0, 0, 0};
    std::vector<std::array<unsigned, 3>> entries{{256, 3, 2}, {257, 3, 1}};
    const unsigned n = extra < 0 ? 9 : 10;
    const unsigned after = 8 + 2 + 12 * n + 4;
    const unsigned deep = samples > 2 ? after : static_cast<unsigned>(bits | bits << 16);
    entries.push_back({258, 3, deep});
    entries.push_back({259, 3, 1});
    entries.push_back({262, 3, static_cast<unsigned>(photometric)});
    entries.push_back({273, 4, after + 8});
    entries.push_back({277, 3, static_cast<unsigned>(samples)});
    entries.push_back({278, 3, 1});
    entries.push_back({279, 4, static_cast<unsigned>(strip.size())});
    if (extra >= 0) entries.push_back({338, 3, static_cast<unsigned>(extra)});
    const auto number = [&out](unsigned value, int size) {
      for (int i = 0; i < size; ++i) out.push_back(static_cast<unsigned char>(value >> 8 * i));
    };
    number(n, 2);
    for (const auto& [tag, type, value] : entries) {
      number(tag, 2);
      number(type, 2);
      number(tag == 258 ? static_cast<unsigned>(samples) : 1, 4);
      number(value, 4);
    }
    number(0, 4);
    for (int i = 0; i < 4; ++i) number(static_cast<unsigned>(bits), 2);
    out.insert(out.end(), strip.begin(), strip.end());
    return out;
  }
};

TEST(Tiff, ReadsWhatOtherProgramsWrite) {
  const AutoreleasePool pool;
  const auto reads = [](const char* name, const RawTiff& file, const Bytes& pixels) {
    const NSBitmapImageRep rep = NSBitmapImageRep::imageRepWithData(dataOf(file.bytes()));
    ASSERT_TRUE(rep) << name;
    EXPECT_EQ(Bytes(rep.bitmapData(), rep.bitmapData() + 8), pixels) << name;
    EXPECT_EQ(rep.size(), (NSSize{2, 1})) << name;
  };
  reads("straight alpha", {8, 4, 2, 2, {200, 100, 0, 128, 9, 9, 9, 0}}, {100, 50, 0, 128, 0, 0, 0, 0});
  reads("premultiplied", {8, 4, 2, 1, {100, 50, 0, 128, 0, 0, 0, 0}}, {100, 50, 0, 128, 0, 0, 0, 0});
  reads("no alpha", {8, 3, 2, -1, {1, 2, 3, 4, 5, 6}}, {1, 2, 3, 255, 4, 5, 6, 255});
  reads("grey", {8, 1, 1, -1, {7, 200}}, {7, 7, 7, 255, 200, 200, 200, 255});
  reads("16 bits", {16, 3, 2, -1, {0, 0, 255, 255, 0x80, 0x80, 0, 0, 0, 0, 0, 0}}, {0, 255, 128, 255, 0, 0, 0, 255});
}

TEST(Tiff, SurvivesHostileBytes) {
  const AutoreleasePool pool;
  const auto image = NSImage::withSize({3, 3});
  image->addRepresentation(plain(3, 'R', {3, 3}));
  image->addRepresentation(plain(40, 'G', {20, 20}));
  const Bytes sound = bytesOf(image->TIFFRepresentation());
  const auto readAll = [](const Bytes& bytes) {
    const AutoreleasePool inner;
    static_cast<void>(NSImage::withData(dataOf(bytes)));
  };
  testing::internal::CaptureStderr();
  for (std::size_t length = 0; length < sound.size(); ++length) {
    readAll({sound.begin(), sound.begin() + std::ptrdiff_t(length)});
  }
  std::mt19937 random(7);
  for (int i = 0; i < 3000; ++i) {
    Bytes bytes = sound;
    for (int change = 0; change < 3; ++change) bytes[random() % bytes.size()] = static_cast<unsigned char>(random());
    readAll(bytes);
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  Bytes huge = RawTiff{8, 1, 1, -1, {7, 200}}.bytes();
  huge[8 + 2 + 8 + 1] = 0xFF;  // a width of 65,282 pixels
  EXPECT_FALSE(NSBitmapImageRep::imageRepWithData(dataOf(huge)));
}

TEST(Tiff, HoldsNoMoreFramesThanOneMayClaim) {
  const AutoreleasePool pool;
  const auto image = NSImage::withSize({3, 3});
  for (const char color : {'R', 'G', 'B'}) image->addRepresentation(plain(3, color, {3, 3}));
  const auto framesOfSide = [&](unsigned char bitOfSide) {
    Bytes bytes = bytesOf(image->TIFFRepresentation());
    const auto number = [&](std::size_t at, int size) {
      std::size_t value = 0;
      for (int i = size; i-- > 0;) value = value << 8U | bytes.at(at + std::size_t(i));
      return value;
    };
    for (std::size_t folder = number(4, 4), entries = 0; folder != 0; folder = number(folder + 2 + 12 * entries, 4)) {
      entries = number(folder, 2);
      for (std::size_t at = folder + 2; at < folder + 2 + 12 * entries; at += 12) {
        if (number(at, 2) == 256 || number(at, 2) == 257) bytes[at + 9] = bitOfSide;  // width and height, by 256
      }
    }
    const auto source =
        CFRef<CGImageSourceRef>::adopt(CGImageSourceCreateWithData(bridged<CFDataRef>(dataOf(bytes)), nullptr));
    return CGImageSourceGetCount(source);
  };
  EXPECT_EQ(framesOfSide(0), 3U);
  EXPECT_EQ(framesOfSide(16), 3U) << "64 MiB each";
  EXPECT_EQ(framesOfSide(22), 2U) << "121 MiB each";
  EXPECT_EQ(framesOfSide(64), 3U) << "16,387 pixels wide: never decoded";
}

TEST(ImageIO, WritesFramesWithTheirProperties) {
  const AutoreleasePool pool;
  struct Type {
    const char* name;
    std::size_t frames;
  };
  for (const Type& type : {Type{"public.tiff", 2}, Type{"public.png", 1}}) {
    const NSMutableData data = NSMutableData::data();
    const auto destination = CFRef<CGImageDestinationRef>::adopt(CGImageDestinationCreateWithData(
        bridged<CFMutableDataRef>(data), bridged<CFStringRef>(string(type.name)), type.frames, nullptr));
    ASSERT_TRUE(destination);
    for (std::size_t i = 0; i < type.frames; ++i) {
      EXPECT_FALSE(CGImageDestinationFinalize(destination)) << "a frame is missing";
      const auto properties = NSMutableDictionary::dictionary();
      for (const char* key : {"DPIWidth", "DPIHeight"}) {
        properties.setObject(NSNumber::numberWithDouble(72.0 * double(2 - i)), string(key));
      }
      CGImageDestinationAddImage(destination, plain(4, i == 0 ? 'R' : 'G', {4, 4})->CGImage(),
                                 bridged<CFDictionaryRef>(properties));
    }
    EXPECT_TRUE(CGImageDestinationFinalize(destination));
    const auto source =
        CFRef<CGImageSourceRef>::adopt(CGImageSourceCreateWithData(bridged<CFDataRef>(NSObject(data)), nullptr));
    EXPECT_EQ(toStdString(cast<NSString>(bridged(CGImageSourceGetType(source)))), type.name);
    ASSERT_EQ(CGImageSourceGetCount(source), type.frames);
    for (std::size_t i = 0; i < type.frames; ++i) {
      const auto frame = CFRef<CGImageRef>::adopt(CGImageSourceCreateImageAtIndex(source, i, nullptr));
      EXPECT_TRUE(samePixels(NSBitmapImageRep::withCGImage(frame), plain(4, i == 0 ? 'R' : 'G', {4, 4})));
      const auto properties = CFRef<CFDictionaryRef>::adopt(CGImageSourceCopyPropertiesAtIndex(source, i, nullptr));
      const auto number = [&](const char* key) {
        return cast<NSNumber>(cast<NSDictionary>(bridged(properties)).objectForKey(string(key))).doubleValue();
      };
      EXPECT_EQ(number("DPIWidth"), 72.0 * double(2 - i));
      EXPECT_EQ(number("PixelHeight"), 4);
      EXPECT_EQ(number("HasAlpha"), 1);
      EXPECT_EQ(number("Orientation"), 1);
    }
    EXPECT_EQ(CGImageSourceCreateImageAtIndex(source, type.frames, nullptr), nullptr);
    EXPECT_EQ(NSImage::withData(data)->size(), (NSSize{2, 2}));
  }
}

TEST(ImageIO, RefusesWhatIsNoImage) {
  const AutoreleasePool pool;
  const auto type = [](const char* name) { return bridged<CFStringRef>(string(name)); };
  const auto data = bridged<CFMutableDataRef>(NSMutableData::data());
  EXPECT_EQ(CGImageSourceCreateWithData(nullptr, nullptr), nullptr);
  EXPECT_EQ(CGImageDestinationCreateWithData(data, type("public.jpeg"), 1, nullptr), nullptr);
  EXPECT_EQ(CGImageDestinationCreateWithData(data, type("public.png"), 2, nullptr), nullptr);
  EXPECT_EQ(CGImageDestinationCreateWithData(nullptr, type("public.png"), 1, nullptr), nullptr);
  const auto source = CFRef<CGImageSourceRef>::adopt(
      CGImageSourceCreateWithData(bridged<CFDataRef>(dataOf({'I', 'I', 42, 0, 255, 255, 255, 255})), nullptr));
  EXPECT_EQ(CGImageSourceGetCount(source), 0U);
  EXPECT_EQ(CGImageSourceCopyPropertiesAtIndex(source, 0, nullptr), nullptr);
}

TEST(Bundle, FindsImagesWithTheirDenseSiblings) {
  const AutoreleasePool pool;
  namespace fs = std::filesystem;
  const fs::path folder = fs::temp_directory_path() / ("images-" + std::to_string(getpid()) + ".bundle");
  fs::create_directories(folder / "Contents/Resources");
  const auto write = [&](const char* name, NSData data) {
    const Bytes bytes = bytesOf(data);
    std::ofstream(folder / "Contents/Resources" / name)
        .write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
  };
  const auto png = [](NSInteger side) {
    return plain(side, 'R', {1, 1})->representationUsingType(NSBitmapImageFileTypePNG, NSDictionary::dictionary());
  };
  write("knob.png", png(3));
  write("knob@2x.png", png(6));
  write("dense@2x.png", png(8));
  write("fader.tiff", plain(8, 'G', {4, 4})->TIFFRepresentation());
  struct Case {
    const char* name;
    double side;
    NSUInteger reps;
  };
  const NSBundle bundle = NSBundle::bundleWithPath(string(folder.string()));
  for (const Case& c : {Case{"knob", 3, 2}, Case{"knob.png", 3, 2}, Case{"dense", 4, 1}, Case{"fader", 4, 1},
                        Case{"fader.tiff", 4, 1}, Case{"none", 0, 0}, Case{"", 0, 0}}) {
    const auto image = call<"imageForResource:", NSImage>(bundle, string(c.name));
    EXPECT_EQ(image.size(), (NSSize{c.side, c.side})) << c.name;
    EXPECT_EQ(image.representations().count(), c.reps) << c.name;
  }
  fs::remove_all(folder);
}

}  // namespace
