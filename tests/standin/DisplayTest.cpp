// Views drawn off the screen, what of them needs display, and where they lie.

#include <gtest/gtest.h>

#include <limits>

#include "Canvas.h"
#include "cocoa/ClassDefinition.h"
#include "standin/steering/Display.h"

namespace {

using namespace cocoa;
using namespace support;

/// Paints every point row of its own space in the colour of its number, and notes what it was asked for.
struct RowsView : ObjectState {
  bool flipped = false;
  std::vector<NSRect> asked;
  BOOL isFlipped() { return static_cast<BOOL>(flipped); }
  void drawRect(NSRect dirty) {
    asked.push_back(dirty);
    constexpr std::string_view kColors = "RGBWK";
    for (double y = std::floor(dirty.minY()); y < dirty.maxY(); ++y) {
      letter(kColors[static_cast<std::size_t>(y) % kColors.size()]).set();
      NSRectFill({{dirty.minX(), y}, {dirty.size.width, 1}});
    }
  }
};

RowsView& rows(NSView view) { return stateOf<RowsView>(view); }

Ref<NSView> rowsView(NSRect frame, bool flipped) {
  if (classNamed("DisplayTestRows") == nullptr) {
    ClassDefinition<RowsView>("DisplayTestRows", "NSView")
        .method<"isFlipped", &RowsView::isFlipped>()
        .method<"drawRect:", &RowsView::drawRect>()
        .registered();
  }
  auto view =
      Ref<NSView>::adopt(call<"initWithFrame:", NSView>(call<"alloc", id>(classNamed("DisplayTestRows")), frame));
  rows(view).flipped = flipped;
  return view;
}

Ref<NSWindow> window(NSRect content, double scale = 1) {
  auto made = NSWindow::withContentRect(content, NSWindowStyleMaskTitled, NSBackingStoreBuffered, false);
  call<"setBackingScaleFactor:">(made.get(), scale);
  return made;
}

std::string art(NSBitmapImageRep rep) {
  std::string text;
  for (NSInteger y = 0; y < rep.pixelsHigh(); ++y) {
    for (NSInteger x = 0; x < rep.pixelsWide(); ++x) {
      const NSColor color = rep.colorAtX(x, y);
      char found = color.alphaComponent() == 0 ? '.' : '-';
      for (const char each : {'R', 'G', 'B', 'W', 'K'}) {
        const NSColor known = letter(each);
        const bool same = color.redComponent() == known.redComponent() &&
                          color.greenComponent() == known.greenComponent() &&
                          color.blueComponent() == known.blueComponent();
        if (found == '-' && same) found = each;
      }
      text += found;
    }
    text += '\n';
  }
  return text;
}

std::string cached(NSView view, NSRect rect) {
  const NSBitmapImageRep bitmap = view.bitmapImageRepForCachingDisplayInRect(rect);
  EXPECT_EQ(bitmap.size(), rect.size);
  view.cacheDisplayInRect(rect, bitmap);
  return art(bitmap);
}

TEST(OffScreen, ShowsTheRectangleFromItsTopLeft) {
  const AutoreleasePool pool;
  struct Case {
    bool flipped;
    double origin;  // of the bounds, upwards or downwards
    double scale;
    NSRect rect;
    const char* art;
  };
  const Case cases[] = {
      {true, 0, 1, {{0, 0}, {2, 3}}, "RR\nGG\nBB\n"}, {true, 0, 1, {{1, 4}, {1, 2}}, "K\nR\n"},
      {true, 7, 1, {{0, 8}, {1, 2}}, "W\nK\n"},       {true, 0, 2, {{0, 1}, {1, 1}}, "GG\nGG\n"},
      {true, 0, 1, {{7, 0}, {3, 1}}, "R..\n"},        {false, 0, 1, {{0, 0}, {2, 3}}, "BB\nGG\nRR\n"},
      {false, 2, 1, {{0, 3}, {1, 2}}, "K\nW\n"},      {false, 0, 2, {{3, 4}, {1, 1.5}}, "..\nKK\nKK\n"},
  };
  for (const Case& c : cases) {
    const auto host = window({{30, 40}, {20, 20}}, c.scale);
    const double height = c.scale == 2 && !c.flipped ? 5 : 6;
    const auto view = rowsView({{3, 5}, {8, height}}, c.flipped);
    host->contentView().addSubview(view);
    view->setBoundsOrigin({0, c.origin});
    EXPECT_EQ(cached(view, c.rect), c.art) << c.flipped << c.origin << c.scale;
    ASSERT_EQ(rows(view).asked.size(), 1U);
    EXPECT_LE(rows(view).asked[0].size.height, c.rect.size.height) << "no more than was asked for";
    EXPECT_FALSE(NSGraphicsContext::currentContext());
  }
}

TEST(OffScreen, DrawsDescendantsThatShowAndLeavesMarksAlone) {
  const AutoreleasePool pool;
  const auto host = window({{}, {20, 20}});
  const auto outer = rowsView({{0, 0}, {6, 20}}, true);
  const auto near = rowsView({{1, 2}, {2, 2}}, false);
  const auto far = rowsView({{1, 9}, {2, 2}}, true);
  host->contentView().addSubview(outer);
  outer->addSubview(near);
  outer->addSubview(far);
  outer->setNeedsDisplay(false);
  near->setNeedsDisplay(false);
  near->setNeedsDisplayInRect({{0, 0}, {1, 1}});
  host->contentView().setNeedsDisplay(false);
  EXPECT_EQ(cached(outer, {{0, 1}, {4, 3}}), "GGGG\nBGGB\nWRRW\n");
  EXPECT_TRUE(rows(far).asked.empty());
  EXPECT_EQ(standin::dirtyRect(near), CGRectMake(0, 0, 1, 1));
  EXPECT_TRUE(far->needsDisplay());
  EXPECT_FALSE(outer->needsDisplay());
  EXPECT_FALSE(host->contentView().needsDisplay());
}

TEST(OffScreen, RefusesWhatNoBitmapHolds) {
  const AutoreleasePool pool;
  const auto view = rowsView({{0, 0}, {6, 20}}, true);
  constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
  for (const NSSize size :
       {NSSize{0, 5}, NSSize{5, -1}, NSSize{kNoNumber, 1}, NSSize{1e9, 1}, NSSize{1, 1e300}, NSSize{16000, 16000}}) {
    EXPECT_FALSE(view->bitmapImageRepForCachingDisplayInRect({{0, 0}, size})) << size.width;
  }
  const NSBitmapImageRep bitmap = view->bitmapImageRepForCachingDisplayInRect({{0, 0}, {1, 1}});
  view->cacheDisplayInRect({{kNoNumber, 0}, {1, 1}}, bitmap);
  view->cacheDisplayInRect({{0, 0}, {1, 1}}, {});
  EXPECT_TRUE(rows(view).asked.empty());
}

TEST(NeedsDisplay, IsAPartOfTheViewUntilItIsDrawn) {
  const AutoreleasePool pool;
  const auto host = window({{}, {40, 40}});
  const NSView frame = host->contentView().superview();
  const auto view = rowsView({{10, 10}, {20, 8}}, true);
  const auto hidden = rowsView({{0, 0}, {5, 5}}, true);
  hidden->setHidden(true);
  host->contentView().addSubview(view);
  host->contentView().addSubview(hidden);
  host->contentView().addSubview(rowsView({{}, {}}, true));
  const auto draw = [&](NSRect rect) {
    const Canvas canvas(40, 68);
    frame.displayRectIgnoringOpacity(rect, NSGraphicsContext::graphicsContextWithCGContext(canvas.context(), false));
  };
  EXPECT_TRUE(host->viewsNeedDisplay());
  draw(frame.bounds());
  EXPECT_FALSE(standin::windowNeedsDisplay(host)) << "what does not show needs no drawing";
  view->setNeedsDisplayInRect({{2, 1}, {3, 2}});
  view->setNeedsDisplayInRect({{6, 2}, {1, 99}});
  view->setNeedsDisplayInRect({{-50, 2}, {1, 1}});
  EXPECT_EQ(standin::dirtyRect(view), CGRectMake(2, 1, 5, 7));
  EXPECT_EQ(standin::windowDirtyRect(host), CGRectMake(12, 10, 5, 7));
  draw({{10, 10}, {4, 8}});
  EXPECT_TRUE(view->needsDisplay()) << "only a part was drawn";
  draw({{12, 10}, {5, 7}});
  EXPECT_FALSE(standin::windowNeedsDisplay(host));
  view->setFrameOrigin({12, 10});
  EXPECT_EQ(standin::windowDirtyRect(host), CGRectMake(10, 10, 22, 8)) << "where it was and where it is";
  draw(frame.bounds());
  view->setHidden(true);
  EXPECT_EQ(standin::windowDirtyRect(host), CGRectMake(12, 10, 20, 8));
  draw(frame.bounds());
  view->removeFromSuperview();
  EXPECT_EQ(standin::windowDirtyRect(host), CGRectMake(12, 10, 20, 8));
}

TEST(ClipView, ShowsAPartOfWhatItHolds) {
  const AutoreleasePool pool;
  for (const bool flipped : {true, false}) {
    const auto host = window({{}, {100, 100}});
    const auto clip = rowsView({{10, 20}, {30, 40}}, flipped);
    const auto document = rowsView({{0, 0}, {500, 1000}}, flipped);
    host->contentView().addSubview(clip);
    clip->addSubview(document);
    clip->setBoundsOrigin({100, 300});
    EXPECT_EQ(document->visibleRect(), CGRectMake(100, 300, 30, 40));
    EXPECT_EQ(document->convertRectToView(document->visibleRect(), {}), CGRectMake(10, 20, 30, 40));
    clip->setBoundsOrigin({490, 990});
    EXPECT_EQ(document->visibleRect(), CGRectMake(490, 990, 10, 10));
    EXPECT_EQ(document->convertRectFromView({{10, 20}, {30, 40}}, {}), CGRectMake(490, 990, 30, 40));
    clip->setBoundsOrigin({-500, 0});
    EXPECT_TRUE(document->visibleRect().isEmpty());
    document->setBoundsOrigin({0, 7});
    clip->setBoundsOrigin({0, 0});
    EXPECT_EQ(document->visibleRect(), CGRectMake(0, 7, 30, 40));
  }
}

}  // namespace
