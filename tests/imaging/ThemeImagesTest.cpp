// Images of a theme, recolouring through the plug-in's messages, and the host's scale pictures.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "host/mixer/MADynamicScaleNode.h"
#include "host/mixer/MAImageNode.h"
#include "tests/support/HostTest.h"

namespace {

using namespace cocoa;
using namespace support;
using testing::ElementsAre;

Ref<NSBitmapImageRep> bitmapOf(NSInteger width, NSInteger height) {
  return NSBitmapImageRep::withBitmapDataPlanes(nullptr, width, height, 8, 4, true, false, NSDeviceRGBColorSpace, 0, 0);
}
NSColor opaque(int red, int green, int blue) {
  return NSColor::colorWithSRGBRed(red / 255.0, green / 255.0, blue / 255.0, 1);
}
NSColor white(double alpha) { return NSColor::colorWithDeviceRed(1, 1, 1, alpha); }

/// Every row has a shade of red of its own, 10 times its number from the top, and every column a blue.
Ref<NSBitmapImageRep> ladder(NSInteger width, NSInteger height, NSSize size) {
  const Ref<NSBitmapImageRep> bitmap = bitmapOf(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) bitmap->setColor(opaque(10 * y, 100, x), x, y);
  }
  bitmap->setSize(size);
  return bitmap;
}
std::vector<long> rowsOf(NSBitmapImageRep bitmap) {
  std::vector<long> reds;
  for (long y = 0; y < bitmap.pixelsHigh(); ++y) reds.push_back(pixel(bitmap, bitmap.pixelsWide() - 1, y).red);
  return reds;
}
NSBitmapImageRep frameOf(NSImage image, NSUInteger index = 0) {
  return cast<NSBitmapImageRep>(image.representations().objectAtIndex(index));
}

class ThemeImages : public HostTest {
 protected:
  void start(const ThemeFile& list = {}, host::HostOptions options = {}) {
    const std::string folder = writeTheme(list.list());
    resources_ = folder + "/Companion.bundle/Contents/Resources/";
    for (const char* name : {"mixer_panner_pointer_a", "mixer_panner_pointer_b", "my_mixer_panner_pointer", "knob"}) {
      const NSData png = ladder(3, 4, {3, 4})->representationUsingType(NSBitmapImageFileTypePNG, NSDictionary());
      writeFile(resources_ + name + ".png", {static_cast<const char*>(png.bytes()), png.length()});
    }
    startWith(folder, host::Song(), std::move(options));
  }
  [[nodiscard]] NSImage image(const char* name, CGSize size = {}) const {
    return call<"getImage:size:", NSImage>(theme(), string(name), size);
  }
  [[nodiscard]] NSImage flipped(NSImage of) const { return call<"flipImageVertically:", NSImage>(theme(), of); }
  [[nodiscard]] NSUInteger cached() const { return call<"imageCache", NSDictionary>(theme()).count(); }

  std::string resources_;
};

TEST_F(ThemeImages, KeepMirroredPointersByTheirNames) {
  start();
  const NSImage knob = image("knob");
  ASSERT_TRUE(knob);
  EXPECT_EQ(knob.size(), (CGSize{3, 4})) << "a size of zero is none";
  EXPECT_EQ(image("knob", {12, 0}).size(), (CGSize{3, 4}));
  EXPECT_EQ(image("knob", {0, 12}).size(), (CGSize{3, 4}));
  EXPECT_EQ(image("knob", {12, 8}).size(), (CGSize{12, 8}));
  EXPECT_THAT(rowsOf(frameOf(image("knob"))), ElementsAre(0, 10, 20, 30));
  EXPECT_THAT(rowsOf(frameOf(image("my_mixer_panner_pointer"))), ElementsAre(0, 10, 20, 30));
  EXPECT_FALSE(image("none"));
  EXPECT_FALSE(image("mixer_panner_pointer_none"));
  EXPECT_EQ(cached(), 0U);

  const NSImage pointer = image("mixer_panner_pointer_a", {6, 8});
  ASSERT_TRUE(pointer);
  EXPECT_THAT(rowsOf(frameOf(pointer)), ElementsAre(30, 20, 10, 0));
  EXPECT_EQ(cached(), 1U);
  EXPECT_EQ(image("mixer_panner_pointer_a", {60, 80}), pointer) << "the size is no part of the key";
  EXPECT_NE(image("mixer_panner_pointer_b"), pointer);
  const auto cache = call<"imageCache", NSMutableDictionary>(theme());
  EXPECT_EQ(cache.objectForKey(string("mixer_panner_pointer_a")), pointer);
  cache.setObject(pointer, string("knob"));
  EXPECT_EQ(image("knob"), pointer) << "whatever stands in the cache is answered";
}

TEST_F(ThemeImages, MirrorAllTheirFrames) {
  start();
  const auto two = NSImage::withSize({3, 4});
  two->addRepresentation(ladder(3, 4, {3, 4}));
  two->addRepresentation(ladder(6, 8, {3, 4}));
  const NSImage mirrored = flipped(two);
  ASSERT_TRUE(mirrored);
  EXPECT_NE(mirrored, two.get());
  ASSERT_EQ(mirrored.representations().count(), 2U);
  EXPECT_THAT(rowsOf(frameOf(mirrored, 0)), ElementsAre(30, 20, 10, 0));
  EXPECT_THAT(rowsOf(frameOf(mirrored, 1)), ElementsAre(70, 60, 50, 40, 30, 20, 10, 0));
  for (NSUInteger i = 0; i < 2; ++i) EXPECT_EQ(frameOf(mirrored, i).size(), (CGSize{3, 4})) << "as dense as before";
  EXPECT_EQ(mirrored.size(), (CGSize{3, 4}));
  EXPECT_EQ(pixel(frameOf(mirrored, 1), 4, 0), (Rgba{70, 100, 4})) << "columns stay";
  EXPECT_THAT(rowsOf(frameOf(two)), ElementsAre(0, 10, 20, 30)) << "the original stays";
  for (const NSInteger height : {1, 2, 3}) {
    const auto image = NSImage::withSize({2, static_cast<double>(height)});
    image->addRepresentation(ladder(2, height, {2, static_cast<double>(height)}));
    std::vector<long> expected = rowsOf(frameOf(image));
    std::ranges::reverse(expected);
    EXPECT_EQ(rowsOf(frameOf(flipped(image))), expected);
  }
  EXPECT_FALSE(flipped(NSImage()));
  EXPECT_FALSE(flipped(NSImage::withSize({3, 3}))) << "no frames";
}

// ---- Recolouring --------------------------------------------------------------------------------------

NSObject ruleFor(CGRect rect, NSColor source, NSColor suggested, double ignoreAlpha = 0, bool compareAlpha = false) {
  const id made = call<"alloc", id>(classNamed("RectToSourceColorData"));
  return autoreleased(Ref<NSObject>::adopt(
      call<"initWithRect:sourceColor:suggestedColor:ignoreAlphaValue:compareAlphaValue:", NSObject>(
          made, rect, source, suggested, ignoreAlpha, BOOL(compareAlpha))));
}
void transform(NSBitmapImageRep bitmap, NSArray rules) {
  call<"applyTransformationToBitMap:colorCollection:">(classNamed("Utility"), bitmap, rules);
}

TEST_F(ThemeImages, ExchangeTheColorsOfARuleFromAnyThread) {
  start();
  const Ref<NSObject> rule = ruleFor(CGRectMake(0, 0, 1, 1), white(1), opaque(255, 0, 0));
  const NSColor former = call<"suggestedColor", NSColor>(rule.get());
  std::thread setting([&] {
    for (int i = 0; i < 2'000; ++i) {
      const AutoreleasePool pool;
      call<"setSuggestedColor:">(rule.get(), opaque(0, 0, i % 256));
    }
  });
  for (int i = 0; i < 2'000; ++i) {
    const AutoreleasePool pool;
    const auto current = call<"suggestedColor", NSColor>(rule.get());
    EXPECT_TRUE(current.colorUsingColorSpace(NSColorSpace::sRGBColorSpace()));
  }
  setting.join();
  EXPECT_TRUE(former.isEqual(opaque(255, 0, 0))) << "outlives its place";
}

TEST_F(ThemeImages, ChangeColorsInBitmapsOfEveryFormat) {
  start();
  struct Layout {
    int bits;
    int samples;
    NSUInteger format;
  };
  const Layout layouts[] = {{8, 4, 0},  {8, 4, 1},  {8, 4, 2},  {8, 4, 3}, {32, 4, 4},
                            {32, 4, 5}, {32, 4, 6}, {32, 4, 7}, {8, 3, 0}, {32, 3, NSBitmapFormatFloatingPointSamples}};
  const NSArray rules = arrayOf({ruleFor(CGRectMake(0, 0, 1, 9), white(1), NSColor()),
                                 ruleFor(CGRectMake(0, 0, 9, 9), white(1), opaque(255, 0, 0), 0, true),
                                 ruleFor(CGRectMake(0, 0, 3, 9), white(0.4), opaque(0, 0, 255), 0.4)});
  for (const Layout& l : layouts) {
    const bool alpha = l.samples == 4;
    const auto bitmap = NSBitmapImageRep::withBitmapDataPlanes(nullptr, 5, 2, l.bits, l.samples, alpha, false,
                                                               NSDeviceRGBColorSpace, l.format, 0, 0);
    ASSERT_TRUE(bitmap) << l.format;
    for (int x = 0; x < 5; ++x) {
      bitmap->setColor(white(1), x, 0);
      if (alpha) bitmap->setColor(white(x == 4 ? 0 : 0.4), x, 1);
    }
    transform(bitmap, rules);
    const auto shown = pixels(bitmap);
    const Rgba red{255, 0, 0};
    EXPECT_THAT(std::vector(shown.begin(), shown.begin() + 5), ElementsAre(Rgba{255, 255, 255}, red, red, red, red))
        << l.bits << "," << l.format;
    if (!alpha) continue;
    EXPECT_EQ(shown[5], (Rgba{255, 255, 255, 40})) << "shielded, " << l.format;
    EXPECT_TRUE(near(shown[6], {0, 0, 255, 100})) << shown[6] << l.format;
    EXPECT_EQ(shown[8], (Rgba{255, 255, 255, 40})) << "outside of the rule";
    EXPECT_EQ(shown[9].alpha, 0);
  }
}

TEST_F(ThemeImages, LeaveBitmapsAloneThatHaveNoColors) {
  start();
  const NSArray rules = arrayOf({ruleFor(CGRectMake(0, 0, 9, 9), white(1), opaque(255, 0, 0)), string("no rule"),
                                 ruleFor(CGRectMake(0, 0, 9, 9), NSColor(), opaque(255, 0, 0))});
  const auto grey =
      NSBitmapImageRep::withBitmapDataPlanes(nullptr, 2, 1, 8, 1, false, false, NSCalibratedWhiteColorSpace, 0, 0);
  ASSERT_TRUE(grey);
  grey->bitmapData()[0] = 255;
  transform(grey, rules);
  EXPECT_EQ(grey->bitmapData()[0], 255);
  const auto planar =
      NSBitmapImageRep::withBitmapDataPlanes(nullptr, 2, 1, 8, 3, false, true, NSDeviceRGBColorSpace, 0, 0);
  if (planar) transform(planar, rules);
  transform(NSBitmapImageRep(), rules);
  transform(bitmapOf(2, 2), NSArray());
}

TEST_F(ThemeImages, AnswerNewPictures) {
  start();
  const Ref<NSBitmapImageRep> bitmap = bitmapOf(3, 1);
  bitmap->setColor(white(1), 1, 0);
  bitmap->setColor(opaque(254, 255, 255), 2, 0);
  const NSArray rules = arrayOf({ruleFor(CGRectMake(0, 0, 3, 1), white(1), opaque(1, 2, 3))});
  const CGImageRef original = bitmap->CGImage();
  const auto changed = CFRef<CGImageRef>::adopt(
      call<"applyTransformation:colorCollection:", CGImageRef>(classNamed("Utility"), original, rules));
  ASSERT_TRUE(changed);
  const auto read = NSBitmapImageRep::withCGImage(changed);
  EXPECT_EQ(pixel(read, 0, 0).alpha, 0);
  EXPECT_EQ(pixel(read, 1, 0), (Rgba{1, 2, 3}));
  EXPECT_EQ(pixel(read, 2, 0), (Rgba{254, 255, 255}));
  EXPECT_EQ(pixel(NSBitmapImageRep::withCGImage(original), 1, 0), (Rgba{255, 255, 255}));
  EXPECT_EQ((call<"applyTransformation:colorCollection:", CGImageRef>(classNamed("Utility"),
                                                                      static_cast<CGImageRef>(nullptr), rules)),
            nullptr);
}

TEST_F(ThemeImages, ReadSinglePixels) {
  start();
  const auto read = [](std::vector<unsigned char> bytes, long x, long y, NSUInteger format, NSInteger bits,
                       bool alpha) {
    std::vector<int> value(4);
    unsigned char out[4] = {};
    call<"colorAtX:y:RGBAValue:pixels:bitmapFormat:bytesPerRow:bitsPerPixel:hasAlpha:">(
        classNamed("Utility"), NSInteger(x), NSInteger(y), static_cast<unsigned char*>(out), bytes.data(), format,
        NSInteger(9), bits, BOOL(alpha));
    std::ranges::copy(out, value.begin());
    return value;
  };
  EXPECT_THAT(read({50, 50, 50, 100}, 0, 0, 0, 32, true), ElementsAre(128, 128, 128, 100));
  EXPECT_THAT(read({0, 0, 0, 0, 4, 1, 2, 3}, 1, 0, 3, 32, true), ElementsAre(1, 2, 3, 4));
  EXPECT_THAT(read({0, 0, 0, 0, 0, 0, 0, 0, 0, 9, 9, 9, 7, 8, 9}, 1, 1, 0, 24, false), ElementsAre(7, 8, 9, 255));
  EXPECT_EQ(read({9, 9, 9, 0}, 0, 0, 0, 32, true)[3], 0);
  const auto made = call<"pixelColorWithRed:green:blue:alpha:", NSColor>(classNamed("Utility"), 0.1, 0.2, 0.4, 0.5);
  EXPECT_TRUE(made.colorSpaceName().isEqualToString(NSCalibratedRGBColorSpace));
  EXPECT_TRUE(near(rgba(made), {26, 51, 102, 50}));
}

TEST_F(ThemeImages, RememberTheNamesOfColorSpaces) {
  start();
  const id made = call<"alloc", id>(classNamed("MyNSBitmapImageRep"));
  const auto bitmap =
      Ref<NSBitmapImageRep>::adopt(call<"initWithCGImage:", NSBitmapImageRep>(made, bitmapOf(2, 2)->CGImage()));
  ASSERT_TRUE(bitmap);
  const auto saved = [&] { return call<"savedColorSpaceName", NSString>(bitmap.get()); };
  EXPECT_FALSE(saved());
  const NSString name = bitmap->colorSpaceName();
  EXPECT_TRUE(name);
  EXPECT_EQ(saved(), name);
  call<"setSavedColorSpaceName:">(bitmap.get(), literal<"another">());
  EXPECT_EQ(toStdString(bitmap->colorSpaceName()), "another");
}

// ---- Scales -------------------------------------------------------------------------------------------

class ScalePictures : public ThemeImages {
 protected:
  void startScales(const ThemeFile& theme) {
    const host::HostOptions options{.version = "11.2"};
    defineHostClasses(options);
    start(theme, options);
  }
  /// Defines a class of the host, before any bundle is loaded.
  static void defineHostClasses(const host::HostOptions& options) { const host::Application application(options); }
  static Ref<NSObject>& contentsOf(NSObject node) { return stateOf<host::MAImageNode>(node).contents; }
  /// A scale of the picture that the host has drawn.
  [[nodiscard]] Ref<NSObject> scale(const char* name) const {
    const Ref<NSObject> node = host::makeNode(host::kDynamicScaleClass, name, CGRectMake(0, 0, 10, 10));
    call<"setContents:">(node.get(), image_.get());
    return node;
  }
  static void highlight(NSObject node, int state) { stateOf<host::MANode>(node).highlightState = state; }
  static NSBitmapImageRep shown(NSObject node) {
    return autoreleased(NSBitmapImageRep::withCGImage(bridged<CGImageRef>(contentsOf(node).get())));
  }
  /// What the node's layer shows after an update.
  NSObject update(NSObject node) {
    const CALayer layer = CALayer::layer();
    call<"updatePresentationObject:view:">(node, layer, application_->mixer().contentsView());
    return layer.contents();
  }
  /// 100 by 2: white in the first row, white at alpha 0.4 in the second; alpha 0.2 and a near miss at its end.
  void SetUp() override {
    const Ref<NSBitmapImageRep> made = bitmapOf(100, 2);
    for (int x = 0; x < 100; ++x) {
      made->setColor(white(1), x, 0);
      made->setColor(white(0.4), x, 1);
    }
    made->setColor(white(0.2), 50, 1);
    made->setColor(opaque(254, 255, 255), 51, 0);
    made->setColor(white(0), 52, 0);
    image_ = bridged(made->CGImage());
  }
  static ThemeFile scaleColors() {
    return ThemeFile()
        .text("scaleTickMarkColor", color(10, 0, 0))
        .text("scale0DBTickMarkColor", color(20, 0, 0, 50))
        .text("scaleNumberColor", color(30, 0, 0))
        .text("scaleTickMarkHighlightColor", color(110, 0, 0))
        .text("scale0DBTickMarkHighlightColor", color(120, 0, 0))
        .text("scaleNumberHighlightColor", color(130, 0, 0));
  }

  Ref<NSObject> image_;
};

TEST_F(ScalePictures, OfVolumesShowZeroDecibelsApart) {
  startScales(scaleColors());
  const Ref<NSObject> node = scale("volumeScale");
  const NSObject presented = update(node);
  EXPECT_EQ(presented, contentsOf(node).get()) << "the host updates as well";
  const NSBitmapImageRep drawn = shown(node);
  EXPECT_TRUE(near(pixel(drawn, 3, 0), {20, 0, 0, 50}, 2)) << "opaque white" << pixel(drawn, 3, 0);
  EXPECT_EQ(pixel(drawn, 3, 1), (Rgba{10, 0, 0})) << "at the reference alpha";
  EXPECT_TRUE(near(pixel(drawn, 50, 1), {10, 0, 0, 80})) << "0.2 below it" << pixel(drawn, 50, 1);
  EXPECT_EQ(pixel(drawn, 51, 0), (Rgba{254, 255, 255}));
  EXPECT_EQ(pixel(drawn, 52, 0).alpha, 0);
}

TEST_F(ScalePictures, OfLevelsShowNumbersLeftOfTicks) {
  startScales(scaleColors());
  const Ref<NSObject> node = scale("levelScale");
  highlight(node, 1);
  update(node);
  EXPECT_EQ(pixel(shown(node), 79, 1), (Rgba{130, 0, 0}));
  EXPECT_EQ(pixel(shown(node), 80, 1), (Rgba{110, 0, 0}));
  EXPECT_EQ(pixel(shown(node), 99, 0), (Rgba{110, 0, 0})) << "an alpha above 1 is full";
}

TEST_F(ScalePictures, AreMadeOncePerPictureAndChosenByTheHighlight) {
  startScales(scaleColors());
  const Ref<NSObject> first = scale("volumeScale");
  const Ref<NSObject> second = scale("volumeScale");
  update(first);
  update(second);
  const NSObject normal = contentsOf(first).get();
  EXPECT_NE(normal, image_.get());
  EXPECT_EQ(normal, contentsOf(second).get());
  contentsOf(first) = image_;
  highlight(first, 2);
  update(first);
  EXPECT_NE(contentsOf(first).get(), normal);
  EXPECT_EQ(pixel(shown(first), 3, 1), (Rgba{110, 0, 0}));
  update(first);
  EXPECT_EQ(pixel(shown(first), 3, 1), (Rgba{110, 0, 0})) << "also when the host has left its contents";
  highlight(first, 0);
  update(first);
  EXPECT_EQ(contentsOf(first).get(), normal);
}

TEST_F(ScalePictures, StayTheHostsWhereNothingIsThemed) {
  startScales(ThemeFile().text("scaleTickMarkColor", color(10, 0, 0)));
  const Ref<NSObject> other = scale("panScale");
  update(other);
  EXPECT_EQ(contentsOf(other).get(), image_.get());
  const Ref<NSObject> empty = scale("volumeScale");
  contentsOf(empty) = Ref<NSObject>();
  update(empty);
  EXPECT_FALSE(contentsOf(empty).get());
  const Ref<NSObject> node = scale("volumeScale");
  update(node);
  EXPECT_EQ(pixel(shown(node), 3, 0), (Rgba{255, 255, 255})) << "the missing 0 dB colour shields its pixels";
  EXPECT_EQ(pixel(shown(node), 3, 1), (Rgba{10, 0, 0}));
  highlight(node, 1);
  update(node);
  EXPECT_EQ(pixel(shown(node), 3, 1), (Rgba{255, 255, 255, 40})) << "no highlighted colour";
}

TEST_F(ScalePictures, StayTheHostsInOlderHosts) {
  defineHostClasses({.version = "11.1.9"});
  ASSERT_EQ(classNamed(host::kDynamicScaleClass), nullptr);
  host::defineMADynamicScaleNode();  // a class of that name does not make a host a newer one
  start(scaleColors(), {.version = "11.1.9"});
  const Ref<NSObject> node = scale("volumeScale");
  update(node);
  EXPECT_EQ(contentsOf(node).get(), image_.get());
}

}  // namespace
