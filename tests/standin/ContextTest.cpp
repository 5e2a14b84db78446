// Drawing with Core Graphics: tiny pictures, compared pixel by pixel.

#include <gtest/gtest.h>

#include "Canvas.h"

namespace {

using namespace cocoa;
using namespace support;

struct Picture {
  const char* name;
  void (*draw)(const Canvas&);
  const char* art;
};

void fillPath(const Canvas& c, CGPathRef made, bool evenOdd = false) {
  const auto path = CFRef<CGPathRef>::adopt(made);
  CGContextSetFillColorWithColor(c.context(), letter('R').CGColor());
  CGContextAddPath(c.context(), path);
  CGContextDrawPath(c.context(), evenOdd ? kCGPathEOFill : kCGPathFill);
}

constexpr Picture kPictures[] = {
    {"y points up",
     [](const Canvas& c) {
       c.fill(letter('R'), {{0, 0}, {2, 1}});
     },
     "....\n....\n....\nRR..\n"},
    {"a rectangle of negative size is the same rectangle",
     [](const Canvas& c) {
       c.fill(letter('R'), {{2, 3}, {-2, -2}});
     },
     "....\nRR..\nRR..\n....\n"},
    {"translated and scaled",
     [](const Canvas& c) {
       CGContextTranslateCTM(c.context(), 1, 1);
       CGContextScaleCTM(c.context(), 2, 1);
       c.fill(letter('G'), {{0, 0}, {1, 1}});
     },
     "....\n....\n.GG.\n....\n"},
    {"turned by a quarter",
     [](const Canvas& c) {
       CGContextTranslateCTM(c.context(), 4, 0);
       CGContextRotateCTM(c.context(), M_PI / 2);
       c.fill(letter('B'), {{0, 0}, {3, 1}});
     },
     "....\n...B\n...B\n...B\n"},
    {"restored state",
     [](const Canvas& c) {
       CGContextSaveGState(c.context());
       CGContextClipToRect(c.context(), {{0, 0}, {1, 4}});
       c.fill(letter('R'), {{0, 0}, {4, 1}});
       CGContextRestoreGState(c.context());
       CGContextRestoreGState(c.context());
       CGContextFillRect(c.context(), {{3, 3}, {1, 1}});
     },
     "...K\n....\n....\nR...\n"},
    {"clips meet",
     [](const Canvas& c) {
       CGContextClipToRect(c.context(), {{0, 0}, {3, 3}});
       CGContextClipToRect(c.context(), {{1, 1}, {3, 3}});
       c.fill(letter('R'), {{0, 0}, {4, 4}});
     },
     "....\n.RR.\n.RR.\n....\n"},
    {"an even-odd clip leaves a hole",
     [](const Canvas& c) {
       CGContextAddRect(c.context(), {{0, 0}, {4, 4}});
       CGContextAddRect(c.context(), {{1, 1}, {2, 2}});
       CGContextEOClip(c.context());
       c.fill(letter('W'), {{0, 0}, {4, 4}});
     },
     "WWWW\nW..W\nW..W\nWWWW\n"},
    {"an empty path clips everything",
     [](const Canvas& c) {
       CGContextClip(c.context());
       c.fill(letter('W'), {{0, 0}, {4, 4}});
     },
     "....\n....\n....\n....\n"},
    {"cleared through a clip",
     [](const Canvas& c) {
       c.fill(letter('R'), {{0, 0}, {4, 4}});
       CGContextClipToRect(c.context(), {{0, 0}, {2, 4}});
       CGContextClearRect(c.context(), {{1, 1}, {4, 2}});
     },
     "RRRR\nR.RR\nR.RR\nRRRR\n"},
    {"nested paths by either rule",
     [](const Canvas& c) {
       const auto path = CGPathCreateMutable();
       CGPathAddRect(path, nullptr, {{0, 0}, {4, 4}});
       CGPathAddRect(path, nullptr, {{1, 1}, {2, 2}});
       fillPath(c, path, true);
     },
     "RRRR\nR..R\nR..R\nRRRR\n"},
    {"a stroke lies on both sides of its line",
     [](const Canvas& c) {
       CGContextSetStrokeColorWithColor(c.context(), letter('B').CGColor());
       CGContextSetLineWidth(c.context(), 2);
       CGContextMoveToPoint(c.context(), 0, 2);
       CGContextAddLineToPoint(c.context(), 4, 2);
       CGContextStrokePath(c.context());
     },
     "....\nBBBB\nBBBB\n....\n"},
    {"dashes, and a square cap that reaches half a width further",
     [](const Canvas& c) {
       const CGFloat dash[] = {1, 1};
       CGContextSetLineDash(c.context(), 0, dash, 2);
       CGContextMoveToPoint(c.context(), 0, 3.5);
       CGContextAddLineToPoint(c.context(), 4, 3.5);
       CGContextStrokePath(c.context());
       CGContextSetLineDash(c.context(), 0, nullptr, 0);
       CGContextSetLineCap(c.context(), kCGLineCapSquare);
       CGContextMoveToPoint(c.context(), 1.5, 0.5);
       CGContextAddLineToPoint(c.context(), 2.5, 0.5);
       CGContextStrokePath(c.context());
     },
     "K.K.\n....\n....\n.KK.\n"},
    {"an image stands upright in its rectangle",
     [](const Canvas& c) {
       const auto image = imageOf({"RG", "B."});
       CGContextDrawImage(c.context(), {{1, 1}, {2, 2}}, image->CGImageForProposedRect(nullptr, {}, {}));
     },
     "....\n.RG.\n.B..\n....\n"},
    {"a part of an image, grown without smoothing",
     [](const Canvas& c) {
       const auto image = imageOf({"RG", "BW"});
       const auto part = CFRef<CGImageRef>::adopt(
           CGImageCreateWithImageInRect(image->CGImageForProposedRect(nullptr, {}, {}), {{1, 0}, {1, 2}}));
       CGContextSetInterpolationQuality(c.context(), kCGInterpolationNone);
       CGContextDrawImage(c.context(), {{0, 0}, {4, 4}}, part);
     },
     "GGGG\nGGGG\nWWWW\nWWWW\n"},
    {"a layer lands as one picture, inside the clip it began in",
     [](const Canvas& c) {
       CGContextClipToRect(c.context(), {{0, 0}, {3, 4}});
       CGContextBeginTransparencyLayer(c.context(), nullptr);
       CGContextClipToRect(c.context(), {{0, 0}, {4, 2}});
       c.fill(letter('R'), {{0, 0}, {4, 4}});
       c.fill(letter('G'), {{1, 0}, {1, 4}});
       CGContextEndTransparencyLayer(c.context());
     },
     "....\n....\nRGR.\nRGR.\n"},
    {"a shadow falls beside its shape",
     [](const Canvas& c) {
       CGContextSetShadowWithColor(c.context(), {1, -1}, 0, letter('B').CGColor());
       c.fill(letter('R'), {{1, 1}, {2, 2}});
     },
     "....\n.RR.\n.RRB\n..BB\n"},
};

TEST(Context, DrawsThesePicturesInBothByteOrders) {
  const AutoreleasePool pool;
  for (const Picture& picture : kPictures) {
    for (const RedByte order : {RedByte::kFirst, RedByte::kLast}) {
      const Canvas canvas(4, 4, 1, order);
      picture.draw(canvas);
      EXPECT_EQ(canvas.art(), picture.art) << picture.name;
    }
  }
}

TEST(Context, BlendsByItsMode) {
  const AutoreleasePool pool;
  struct Blend {
    CGBlendMode mode;
    std::uint32_t inside;
    std::uint32_t onNothing;
  };
  // Half-transparent red (80000080) over opaque green, and over nothing.
  constexpr Blend kBlends[] = {
      {kCGBlendModeNormal, 0x807f00ff, 0x80000080},      {kCGBlendModeCopy, 0x80000080, 0x80000080},
      {kCGBlendModeClear, 0x00000000, 0x00000000},       {kCGBlendModeSourceAtop, 0x807f00ff, 0x00000000},
      {kCGBlendModeSourceIn, 0x80000080, 0x00000000},    {kCGBlendModeDestinationOver, 0x00ff00ff, 0x80000080},
      {kCGBlendModeMultiply, 0x007f00ff, 0x80000080},    {kCGBlendModeScreen, 0x80ff00ff, 0x80000080},
      {kCGBlendModePlusLighter, 0x80ff00ff, 0x80000080},
  };
  for (const Blend& blend : kBlends) {
    const Canvas canvas(3, 1);
    canvas.fill(letter('G'), {{0, 0}, {1, 1}});
    canvas.fill(letter('W'), {{2, 0}, {1, 1}});
    CGContextSetBlendMode(canvas.context(), blend.mode);
    canvas.fill(NSColor::colorWithSRGBRed(1, 0, 0, 0.5), {{0, 0}, {2, 1}});
    EXPECT_EQ(canvas.at(0, 0), blend.inside) << blend.mode;
    EXPECT_EQ(canvas.at(1, 0), blend.onNothing) << blend.mode;
    EXPECT_EQ(canvas.at(2, 0), 0xffffffffU) << blend.mode << ": outside of the shape nothing changes";
  }
}

/// The direct fills and the drawing library must give the same bytes; a clip by path forces the library.
TEST(Context, FillsAlikeDirectlyAndThroughTheLibrary) {
  const AutoreleasePool pool;
  const auto tile = imageOf({"R.G", "BWK"});
  const auto soft = NSImage::withSize({3, 2});
  soft->lockFocus();
  NSColor::colorWithSRGBRed(0.3, 0.9, 0.2, 0.4).set();
  NSRectFill({{0, 0}, {2, 1}});
  soft->unlockFocus();
  const NSColor paints[] = {
      NSColor::colorWithSRGBRed(0.1, 0.4, 0.9, 1), NSColor::colorWithSRGBRed(0.7, 0.2, 0.33, 0.61),
      NSColor::colorWithSRGBRed(1, 1, 1, 0.004),   NSColor::colorWithPatternImage(tile),
      NSColor::colorWithPatternImage(soft),        NSColor::clearColor()};
  const CGRect area{{3, 2}, {9, 7}};
  for (const double scale : {1.0, 2.0}) {
    for (const NSColor& paint : paints) {
      const Canvas direct(32, 24, scale);
      const Canvas library(32, 24, scale);
      for (const Canvas* canvas : {&direct, &library}) {
        canvas->fill(NSColor::colorWithSRGBRed(0.5, 0.25, 0.125, 0.8), {{0, 0}, {8, 20}});
        if (canvas == &library) {
          CGContextAddRect(canvas->context(), area);
          CGContextClip(canvas->context());
        }
        canvas->fill(paint, area);
      }
      EXPECT_EQ(direct.pixels(), library.pixels()) << toStdString(paint.description()) << " at scale " << scale;
    }
  }
}

TEST(Context, SmoothsEdgesUnlessToldOtherwise) {
  const AutoreleasePool pool;
  const Canvas canvas(2, 2);
  canvas.fill(letter('W'), {{0, 1}, {1.5, 1}});
  EXPECT_EQ(canvas.at(0, 0), 0xffffffffU);
  EXPECT_EQ(canvas.at(1, 0), 0x80808080U);
  CGContextSetShouldAntialias(canvas.context(), false);
  canvas.fill(letter('R'), {{0, 0}, {1.6, 1}});
  EXPECT_EQ(canvas.art().substr(3), "RR\n");
}

TEST(Context, TellsItsTransformAndClip) {
  const AutoreleasePool pool;
  const Canvas canvas(10, 8, 2);
  CGContextTranslateCTM(canvas.context(), 1, 2);
  EXPECT_EQ(CGContextGetCTM(canvas.context()), CGAffineTransformMake(2, 0, 0, 2, 2, 4));
  CGContextClipToRect(canvas.context(), {{0, 0}, {2, 1}});
  EXPECT_EQ(CGContextGetClipBoundingBox(canvas.context()), CGRectMake(0, 0, 2, 1));
}

TEST(Context, RefusesWhatItCannotDrawInto) {
  const auto rgb = CFRef<CGColorSpaceRef>::adopt(CGColorSpaceCreateDeviceRGB());
  const auto gray = CFRef<CGColorSpaceRef>::adopt(CGColorSpaceCreateDeviceGray());
  constexpr auto kRgba = kCGImageAlphaPremultipliedLast;
  unsigned char memory[16]{};
  struct Request {
    void* data;
    size_t width, height, bits, stride;
    CGColorSpaceRef space;
    CGBitmapInfo info;
  };
  const Request refused[] = {{nullptr, 0, 4, 8, 0, rgb, kRgba},     {nullptr, 100000, 4, 8, 0, rgb, kRgba},
                             {nullptr, 2, 2, 16, 0, rgb, kRgba},    {nullptr, 2, 2, 8, 0, gray, kRgba},
                             {nullptr, 2, 2, 8, 0, nullptr, kRgba}, {nullptr, 2, 2, 8, 0, rgb, kCGImageAlphaFirst},
                             {memory, 2, 2, 8, 7, rgb, kRgba}};
  for (const Request& r : refused) {
    EXPECT_EQ(CGBitmapContextCreate(r.data, r.width, r.height, r.bits, r.stride, r.space, r.info), nullptr);
  }
  // Every function takes no context, no colour, no path and no image without a complaint.
  CGContextFillRect(nullptr, {});
  CGContextSetFillColorWithColor(nullptr, nullptr);
  CGContextAddPath(nullptr, nullptr);
  CGContextDrawImage(nullptr, {}, nullptr);
  EXPECT_EQ(CGImageGetWidth(nullptr), 0U);
  EXPECT_EQ(CGColorGetPattern(nullptr), nullptr);
}

}  // namespace
