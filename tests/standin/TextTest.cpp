// Text: where it stands, how large it is, that it never varies.

#include <gtest/gtest.h>

#include "Canvas.h"

namespace {

using namespace cocoa;
using namespace support;

NSDictionary look(double size, NSTextAlignment alignment = NSTextAlignmentLeft,
                  NSLineBreakMode mode = NSLineBreakByWordWrapping, double weight = NSFontWeightRegular) {
  const auto style = make<NSMutableParagraphStyle>();
  style->setAlignment(alignment);
  style->setLineBreakMode(mode);
  const auto attributes = NSMutableDictionary::dictionary();
  attributes.setObject(NSFont::systemFontOfSize(size, weight), NSFontAttributeName);
  attributes.setObject(letter('R'), NSForegroundColorAttributeName);
  attributes.setObject(style.get(), NSParagraphStyleAttributeName);
  return attributes;
}

/// The smallest area that holds everything drawn: left, top, right, bottom in pixels.
struct Extent {
  int left = 1000, top = 1000, right = -1, bottom = -1;
};
Extent extentOf(const Canvas& canvas, int width, int height) {
  Extent e;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      if (canvas.at(x, y) == 0) continue;
      e = {std::min(e.left, x), std::min(e.top, y), std::max(e.right, x), std::max(e.bottom, y)};
    }
  }
  return e;
}

Extent drawn(const char* text, NSRect rect, NSDictionary attributes) {
  const Canvas canvas(100, 60);
  text::drawInRect(string(text), rect, attributes);
  return extentOf(canvas, 100, 60);
}

TEST(Text, BeginsAtTheTopOfItsRectangleAndAligns) {
  const AutoreleasePool pool;
  const NSRect rect{{10, 10}, {80, 40}};  // pixels 10 to 50 from the top
  const Extent left = drawn("HHH", rect, look(12));
  const Extent center = drawn("HHH", rect, look(12, NSTextAlignmentCenter));
  const Extent right = drawn("HHH", rect, look(12, NSTextAlignmentRight));
  EXPECT_NEAR(left.left, 11, 1);
  EXPECT_NEAR(center.left + center.right, 99, 2);
  EXPECT_NEAR(right.right, 88, 1);
  EXPECT_GE(left.top, 11);
  EXPECT_LE(left.bottom, 25) << "one line, in the upper part";
}

TEST(Text, BreaksAndTruncatesByItsStyle) {
  const AutoreleasePool pool;
  const NSRect narrow{{10, 0}, {40, 60}};
  EXPECT_GT(drawn("two words", narrow, look(12)).bottom, 20) << "on a second line";
  const Extent cut = drawn("two words", narrow, look(12, NSTextAlignmentLeft, NSLineBreakByTruncatingTail));
  EXPECT_LT(cut.bottom, 20);
  EXPECT_LE(cut.right, 50);
  EXPECT_GT(drawn("two words", narrow, look(12, NSTextAlignmentLeft, NSLineBreakByClipping)).right, 55);
  const Extent low = drawn("two words", {{10, 46}, {40, 14}}, look(12));
  EXPECT_LT(low.bottom, 20) << "a line that would begin below is left out";
}

TEST(Text, StandsOnItsBaseline) {
  const AutoreleasePool pool;
  const Canvas canvas(100, 60);
  const auto text = NSAttributedString::withString(string("H"), look(20));
  text::drawWithRect(text, {{10, 30}, {0, 0}}, NSStringDrawingUsesBaseline);
  EXPECT_EQ(extentOf(canvas, 100, 60).bottom, 29);
  const Canvas centred(100, 60);
  text::drawWithRect(NSAttributedString::withString(string("H"), look(20, NSTextAlignmentCenter)), {{10, 30}, {80, 12}},
                     NSStringDrawingUsesBaseline);
  const Extent middle = extentOf(centred, 100, 60);
  EXPECT_EQ(middle.bottom, 29);
  EXPECT_NEAR(middle.left + middle.right, 99, 2) << "between the sides of the rectangle";
  const Canvas upper(100, 60);
  text::drawWithRect(text, {{10, 0}, {50, 60}}, NSStringDrawingUsesLineFragmentOrigin);
  EXPECT_LT(extentOf(upper, 100, 60).bottom, 22);
}

TEST(Text, DrawsEveryRunInItsColor) {
  const AutoreleasePool pool;
  const Canvas canvas(100, 60);
  const auto text = Ref<NSMutableAttributedString>::adopt(call<"mutableCopy", NSMutableAttributedString>(
      NSAttributedString::withString(string("HH\xC3\x84\xE2\x99\xABH"), look(20)).get()));
  text->addAttribute(NSForegroundColorAttributeName, letter('B'), {4, 1});
  text::setAlignment(text, NSTextAlignmentRight, {0, text->length()});
  text::drawInRect(text, {{0, 0}, {100, 60}});
  const std::string art = canvas.art();
  EXPECT_NE(art.find('R'), std::string::npos);
  EXPECT_GT(art.find('B') % 101, art.find('R') % 101) << "the last letter is blue";
  EXPECT_GE(extentOf(canvas, 100, 60).right, 96);
}

TEST(Text, IsTheSameEveryTime) {
  const AutoreleasePool pool;
  const auto picture = [] {
    const Canvas canvas(100, 60);
    text::drawInRect(string("Always the same 0123"), {{3.3, 2.2}, {90, 50}}, look(11.5));
    return canvas.pixels();
  };
  const auto first = picture();
  for (int i = 0; i < 700; ++i) text::sizeWithAttributes(string("fills the cache " + std::to_string(i)), look(9));
  EXPECT_EQ(first, picture());
}

TEST(Font, IsEqualByWhatItIs) {
  const AutoreleasePool pool;
  const NSFont regular = NSFont::systemFontOfSize(11);
  EXPECT_TRUE(regular.isEqual(NSFont::systemFontOfSize(11, NSFontWeightRegular)));
  EXPECT_FALSE(regular.isEqual(NSFont::boldSystemFontOfSize(11)));
  EXPECT_FALSE(regular.isEqual(NSFont::systemFontOfSize(12)));
  EXPECT_FALSE(regular.isEqual(NSFont::monospacedDigitSystemFontOfSize(11, NSFontWeightRegular)));
  EXPECT_EQ(NSFont::systemFontOfSize(0).pointSize(), NSFont::systemFontSize());
  EXPECT_NEAR(regular.boundingRectForFont().size.height, regular.ascender() - regular.descender(), 1e-9);
  EXPECT_GT(regular.ascender(), 9);
  EXPECT_LT(regular.descender(), 0);
  // More sizes than are remembered: a font in hand stays sound.
  for (int i = 1; i < 200; ++i) NSFont::systemFontOfSize(i);
  EXPECT_EQ(regular.pointSize(), 11);
}

}  // namespace
