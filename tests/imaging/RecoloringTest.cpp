#include "plugin/imaging/Recoloring.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>

#include "cocoa/AppKit.h"

namespace {

using testing::ElementsAre;
using velura::BitmapPixels;
using velura::PixelValue;
using velura::RecolorRule;

using Color = std::array<double, 4>;

/// A bitmap over memory of its own, painted as straight bytes, premultiplied where its format says so.
class Picture {
 public:
  Picture(long width, long height, std::uint64_t format = 0, bool hasAlpha = true, long padding = 0)
      : bytesPerPixel_(hasAlpha ? 4 : 3),
        bytes_(static_cast<std::size_t>((width * bytesPerPixel_ + padding) * height)),
        pixels_{.bytes = bytes_.data(),
                .format = format,
                .width = width,
                .height = height,
                .bytesPerRow = width * bytesPerPixel_ + padding,
                .bitsPerPixel = bytesPerPixel_ * 8,
                .hasAlpha = hasAlpha} {}

  std::uint8_t* at(long x, long y) { return bytes_.data() + y * pixels_.bytesPerRow + x * bytesPerPixel_; }
  Picture& store(long x, long y, std::initializer_list<int> bytes) {
    std::ranges::transform(bytes, at(x, y), [](int byte) { return static_cast<std::uint8_t>(byte); });
    return *this;
  }
  Picture& whiten() {
    std::ranges::fill(bytes_, std::uint8_t{255});
    return *this;
  }
  [[nodiscard]] std::vector<int> bytes(long x, long y) { return {at(x, y), at(x, y) + bytesPerPixel_}; }

  void paint(const Color& color, long x, long y) {
    ++painted_;
    const auto byte = [](double value) { return static_cast<std::uint8_t>(std::clamp(value, 0.0, 1.0) * 255 + 0.5); };
    const bool first = pixels_.hasAlpha && (pixels_.format & NSBitmapFormatAlphaFirst) != 0;
    const bool straight = !pixels_.hasAlpha || (pixels_.format & NSBitmapFormatAlphaNonpremultiplied) != 0;
    const double factor = straight ? 1 : std::clamp(color[3], 0.0, 1.0);
    for (std::size_t i = 0; i < 3; ++i) at(x, y)[i + (first ? 1 : 0)] = byte(color[i] * factor);
    if (pixels_.hasAlpha) at(x, y)[first ? 0 : 3] = byte(color[3]);
  }
  void recolor(const std::vector<RecolorRule>& rules) {
    velura::recolor(pixels_, rules, [this](const Color& color, long x, long y) { paint(color, x, y); });
  }
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;
  [[nodiscard]] const BitmapPixels& pixels() const { return pixels_; }
  [[nodiscard]] int painted() const { return painted_; }

 private:
  long bytesPerPixel_;
  std::vector<std::uint8_t> bytes_;
  BitmapPixels pixels_;
  int painted_ = 0;
};

RecolorRule rule(CGRect rect, std::array<double, 3> source, std::optional<Color> suggested) {
  return {.rect = rect, .source = source, .sourceAlpha = std::nullopt, .suggested = suggested, .ignoreAlpha = 0};
}
constexpr std::array<double, 3> kWhite{1, 1, 1};
constexpr Color kRed{1, 0, 0, 1};
constexpr Color kBlue{0, 0, 1, 1};
CGRect everything() { return CGRectMake(0, 0, 1000, 1000); }

TEST(Recoloring, ReadsEveryByteOrder) {
  Picture last(2, 2, NSBitmapFormatAlphaNonpremultiplied, true, 5);
  EXPECT_EQ(velura::pixelValue(last.store(1, 1, {1, 2, 3, 4}).pixels(), 1, 1), (PixelValue{1, 2, 3, 4}));
  Picture first(2, 2, NSBitmapFormatAlphaFirst | NSBitmapFormatAlphaNonpremultiplied);
  EXPECT_EQ(velura::pixelValue(first.store(1, 0, {4, 1, 2, 3}).pixels(), 1, 0), (PixelValue{1, 2, 3, 4}));
  Picture opaque(3, 1, 0, false, 1);
  EXPECT_EQ(velura::pixelValue(opaque.store(2, 0, {7, 8, 9}).pixels(), 2, 0), (PixelValue{7, 8, 9, 255}));
  Picture premultiplied(1, 1);
  EXPECT_EQ(velura::pixelValue(premultiplied.store(0, 0, {50, 50, 50, 100}).pixels(), 0, 0),
            (PixelValue{128, 128, 128, 100}))
      << "127.5 rounds up";
  EXPECT_EQ(velura::pixelValue(premultiplied.store(0, 0, {200, 0, 0, 100}).pixels(), 0, 0)[0], 255);
  EXPECT_EQ(velura::pixelValue(premultiplied.store(0, 0, {9, 9, 9, 0}).pixels(), 0, 0)[3], 0);
}

TEST(Recoloring, DividesEveryPremultipliedPairAsDoublesDo) {
  Picture picture(1, 1);
  for (int alpha = 1; alpha <= 255; ++alpha) {
    for (int channel = 0; channel <= alpha; ++channel) {
      picture.store(0, 0, {channel, 0, 0, alpha});
      const double expected = std::round(static_cast<double>(channel) / alpha * 255);
      ASSERT_EQ(velura::pixelValue(picture.pixels(), 0, 0)[0], expected) << channel << "/" << alpha;
    }
  }
}

TEST(Recoloring, FirstMatchingRuleDecidesAndNilShields) {
  Picture picture(4, 1);
  picture.whiten().recolor({rule(CGRectMake(0, 0, 1, 1), kWhite, std::nullopt),
                            rule(CGRectMake(0, 0, 2, 1), kWhite, kRed), rule(CGRectMake(0, 0, 3, 1), kWhite, kBlue)});
  EXPECT_THAT(picture.bytes(0, 0), ElementsAre(255, 255, 255, 255));
  EXPECT_THAT(picture.bytes(1, 0), ElementsAre(255, 0, 0, 255));
  EXPECT_THAT(picture.bytes(2, 0), ElementsAre(0, 0, 255, 255));
  EXPECT_THAT(picture.bytes(3, 0), ElementsAre(255, 255, 255, 255));
}

TEST(Recoloring, RectanglesTakeTheirLowEdgesAndLeaveTheirHighOnes) {
  Picture picture(6, 6);
  const double nan = std::nan("");
  picture.whiten().recolor(
      {rule(CGRectMake(1, 0.5, 2.5, 2), kWhite, kRed), rule(CGRectMake(nan, 0, 9, 9), kWhite, kBlue),
       rule(CGRectMake(5, 5, 1e300, 1e300), kWhite, kBlue), rule(CGRectMake(4, 4, -3, 2), kWhite, kBlue)});
  const auto isRed = [&](long x, long y) { return picture.bytes(x, y)[1] == 0 && picture.bytes(x, y)[0] == 255; };
  for (long y = 0; y < 6; ++y) {
    for (long x = 0; x < 6; ++x) EXPECT_EQ(isRed(x, y), x >= 1 && x <= 3 && y >= 1 && y <= 2) << x << "," << y;
  }
  EXPECT_THAT(picture.bytes(5, 5), ElementsAre(0, 0, 255, 255));
}

TEST(Recoloring, ComparesExactlyAndAlphaOnlyWhereAsked) {
  Picture picture(4, 1, NSBitmapFormatAlphaNonpremultiplied);
  picture.store(0, 0, {254, 255, 255, 255}).store(1, 0, {255, 255, 255, 102}).store(2, 0, {255, 255, 255, 255});
  RecolorRule opaqueOnly = rule(everything(), kWhite, kBlue);
  opaqueOnly.sourceAlpha = 1;
  picture.recolor({opaqueOnly, rule(everything(), kWhite, kRed)});
  EXPECT_THAT(picture.bytes(0, 0), ElementsAre(254, 255, 255, 255));
  EXPECT_THAT(picture.bytes(1, 0), ElementsAre(255, 0, 0, 255));
  EXPECT_THAT(picture.bytes(2, 0), ElementsAre(0, 0, 255, 255));
  EXPECT_THAT(picture.bytes(3, 0), ElementsAre(0, 0, 0, 0)) << "transparent pixels are never written";
  // A colour between two bytes matches nothing.
  Picture grey(1, 1, NSBitmapFormatAlphaNonpremultiplied);
  grey.store(0, 0, {128, 128, 128, 255}).recolor({rule(everything(), {0.5, 0.5, 0.5}, kRed)});
  EXPECT_EQ(grey.painted(), 0);
}

TEST(Recoloring, KeepsTheOffsetFromAReferenceAlphaInSinglePrecision) {
  EXPECT_EQ(velura::outputAlpha(0.8, 0, 51), 0.8);
  EXPECT_EQ(velura::outputAlpha(0.8, -1, 51), 0.8);
  EXPECT_EQ(velura::outputAlpha(1, 0.4, 102), 1);
  EXPECT_EQ(velura::outputAlpha(0.8, 0.4, 51),
            static_cast<double>(static_cast<float>(0.8 - static_cast<double>(static_cast<float>(0.4 - 51 / 255.0)))));
  EXPECT_NEAR(velura::outputAlpha(1, 0.4, 51), 0.8, 1e-7);
  EXPECT_NEAR(velura::outputAlpha(1, 0.4, 255), 1.6, 1e-6) << "handed on as it is";
  Picture picture(2, 1);
  picture.store(0, 0, {102, 102, 102, 102}).store(1, 0, {51, 51, 51, 51});
  RecolorRule ticks = rule(everything(), kWhite, Color{0, 1, 0, 1});
  ticks.ignoreAlpha = 0.4;
  picture.recolor({ticks});
  EXPECT_THAT(picture.bytes(0, 0), ElementsAre(0, 255, 0, 255));
  EXPECT_THAT(picture.bytes(1, 0), ElementsAre(0, 204, 0, 204));
}

/// What the rules say, pixel by pixel: the plain way, to compare the quick ways with.
void recolorPlainly(Picture& picture, const std::vector<RecolorRule>& rules) {
  const BitmapPixels& pixels = picture.pixels();
  for (long y = 0; y < pixels.height; ++y) {
    for (long x = 0; x < pixels.width; ++x) {
      const PixelValue value = velura::pixelValue(pixels, x, y);
      if (value[3] == 0) continue;
      for (const RecolorRule& each : rules) {
        const auto inside = [](double low, double size, long at) {
          return low <= static_cast<double>(at) && static_cast<double>(at) < low + size;
        };
        if (!inside(each.rect.minX(), each.rect.size.width, x) || !inside(each.rect.minY(), each.rect.size.height, y)) {
          continue;
        }
        const bool same = each.source[0] * 255 == value[0] && each.source[1] * 255 == value[1] &&
                          each.source[2] * 255 == value[2] &&
                          (!each.sourceAlpha || *each.sourceAlpha * 255 == value[3]);
        if (!same) continue;
        if (each.suggested) {
          Color color = *each.suggested;
          color[3] = velura::outputAlpha(color[3], each.ignoreAlpha, value[3]);
          picture.paint(color, x, y);
        }
        break;
      }
    }
  }
}

TEST(Recoloring, AgreesWithThePlainWayOnRandomPicturesOfEveryFormat) {
  std::mt19937 random(3);
  const auto number = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
  for (int round = 0; round < 300; ++round) {
    const std::uint64_t format = static_cast<std::uint64_t>(number(4));
    const bool hasAlpha = number(4) != 0;
    const long width = 1 + number(600);
    const long height = 1 + number(6);
    Picture quick(width, height, format, hasAlpha, number(7));
    for (long y = 0; y < height; ++y) {
      for (long x = 0; x < width; ++x) {
        const int alpha = number(3) == 0 ? 255 : number(256);
        const int shade = number(2) == 0 ? alpha : number(256);
        quick.store(x, y, {shade, number(3) == 0 ? number(256) : shade, shade});
        if (hasAlpha)
          quick.at(x, y)[(format & NSBitmapFormatAlphaFirst) != 0 ? 0 : 3] = static_cast<std::uint8_t>(alpha);
      }
    }
    std::vector<RecolorRule> rules;
    for (int i = number(5); i >= 0; --i) {
      RecolorRule made = rule(
          CGRectMake(number(400) - 50, number(4) - 1, number(600), number(8)), kWhite,
          number(4) == 0 ? std::nullopt : std::optional(Color{number(256) / 255.0, 0.25, 0.5, number(101) / 100.0}));
      if (number(3) == 0) made.source = {number(256) / 255.0, number(256) / 255.0, 1};
      if (number(3) == 0) made.sourceAlpha = number(256) / 255.0;
      if (number(2) == 0) made.ignoreAlpha = 0.4;
      rules.push_back(made);
    }
    Picture other(width, height, format, hasAlpha, quick.pixels().bytesPerRow - width * (hasAlpha ? 4 : 3));
    std::copy_n(quick.at(0, 0), quick.pixels().bytesPerRow * height, other.at(0, 0));
    quick.recolor(rules);
    recolorPlainly(other, rules);
    ASSERT_TRUE(std::equal(quick.at(0, 0), quick.at(0, 0) + quick.pixels().bytesPerRow * height, other.at(0, 0)))
        << "round " << round;
  }
}

TEST(Recoloring, AsksForEachColorOnce) {
  Picture picture(500, 4);
  picture.whiten().recolor({rule(everything(), kWhite, kRed)});
  EXPECT_EQ(picture.painted(), 1);
  EXPECT_THAT(picture.bytes(499, 3), ElementsAre(255, 0, 0, 255));
}

TEST(Recoloring, LeavesLayoutsAloneThatHoldTooFewBytes) {
  std::vector<std::uint8_t> bytes(8, 255);
  const BitmapPixels kLayouts[] = {
      {.bytes = bytes.data(), .width = 8, .height = 1, .bytesPerRow = 8, .bitsPerPixel = 8},
      {.bytes = bytes.data(), .width = 4, .height = 1, .bytesPerRow = 8, .bitsPerPixel = 16},
      {.bytes = bytes.data(), .width = 4, .height = 1, .bytesPerRow = 8, .bitsPerPixel = 32},
      {.bytes = nullptr, .width = 1, .height = 1, .bytesPerRow = 4, .bitsPerPixel = 32},
      {.bytes = bytes.data(), .width = 0, .height = 1, .bytesPerRow = 0, .bitsPerPixel = 32},
  };
  for (const BitmapPixels& pixels : kLayouts) {
    velura::recolor(pixels, std::vector{rule(everything(), kWhite, kRed)},
                    [&](const Color&, long, long) { ADD_FAILURE() << pixels.bitsPerPixel << "," << pixels.width; });
  }
}

TEST(Recoloring, ByColorsFollowsTheSameRules) {
  std::map<std::pair<long, long>, Color> painted;
  const auto read = [](long x, long) -> std::array<long, 4> {
    return {255, 255, x == 2 ? 256 : 255, x == 0 ? 0 : 255};  // transparent, white, brighter than white
  };
  RecolorRule half = rule(CGRectMake(0, 0, 3, 1), kWhite, Color{0, 0, 1, 0.5});
  velura::recolorByColors(4, 2, std::vector{half}, read, [&](const Color& color, long x, long y) {
    painted[{x, y}] = color;
  });
  EXPECT_THAT(painted, ElementsAre(testing::Pair(std::pair(1L, 0L), Color{0, 0, 1, 0.5})));
}

}  // namespace
