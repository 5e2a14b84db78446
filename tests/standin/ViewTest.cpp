// Views, windows and the responders between them.

#include <gtest/gtest.h>

#include "Canvas.h"
#include "cocoa/ClassDefinition.h"

namespace {

using namespace cocoa;
using namespace support;

/// A view with y down that fills its upper left point, and notes where it goes.
struct FlippedView : ObjectState {
  char color = 'G';
  std::string moves;
  BOOL isFlipped() { return YES; }
  void drawRect(NSRect dirty) {
    letter(color).set();
    NSRectFill({{0, 0}, {1, 1}});
    last = dirty;
  }
  void willMove(NSWindow window) { moves += window ? "(in" : "(out"; }
  void didMove() { moves += NSView(self).window() ? " in)" : " out)"; }
  NSRect last;
};

Ref<NSView> flipped(NSRect frame) {
  if (classNamed("ViewTestFlipped") == nullptr) {
    ClassDefinition<FlippedView>("ViewTestFlipped", "NSView")
        .method<"isFlipped", &FlippedView::isFlipped>()
        .method<"drawRect:", &FlippedView::drawRect>()
        .method<"viewWillMoveToWindow:", &FlippedView::willMove>()
        .method<"viewDidMoveToWindow", &FlippedView::didMove>()
        .registered();
  }
  return Ref<NSView>::adopt(call<"initWithFrame:", NSView>(call<"alloc", id>(classNamed("ViewTestFlipped")), frame));
}

Ref<NSWindow> window(NSSize content, NSUInteger style = NSWindowStyleMaskTitled) {
  return NSWindow::withContentRect({{}, content}, style, NSBackingStoreBuffered, false);
}

TEST(View, DrawsInItsOwnDirection) {
  const AutoreleasePool pool;
  const auto outer = NSView::withFrame({{0, 0}, {6, 4}});
  const auto inner = flipped({{1, 1}, {4, 3}});
  const auto innermost = flipped({{1, 1}, {9, 9}});
  stateOf<FlippedView>(innermost.get()).color = 'B';
  outer->setWantsLayer(true);
  outer->layer().setBackgroundColor(letter('R').CGColor());
  outer->addSubview(inner);
  inner->addSubview(innermost);
  const Canvas canvas(6, 4);
  const auto graphics = NSGraphicsContext::graphicsContextWithCGContext(canvas.context(), false);
  outer->displayRectIgnoringOpacity(outer->bounds(), graphics);
  EXPECT_EQ(canvas.art(), "RGRRRR\nRRBRRR\nRRRRRR\nRRRRRR\n");
  EXPECT_EQ(stateOf<FlippedView>(innermost.get()).last, CGRectMake(0, 0, 3, 2)) << "only what shows is dirty";
  const Canvas part(6, 4);
  const auto again = NSGraphicsContext::graphicsContextWithCGContext(part.context(), false);
  outer->displayRectIgnoringOpacity({{0, 2}, {2, 1}}, again);
  EXPECT_EQ(part.art(), "......\nRR....\n......\n......\n");
  inner->setHidden(true);
  outer->displayRectIgnoringOpacity(outer->bounds(), graphics);
  EXPECT_EQ(canvas.art(), "RRRRRR\nRRRRRR\nRRRRRR\nRRRRRR\n");
}

TEST(View, WalksSubviewsThatAreRemoved) {
  const AutoreleasePool pool;
  const auto root = NSView::withFrame({{0, 0}, {100, 100}});
  for (int i = 0; i < 3; ++i) root->addSubview(NSView::withFrame({{0, 0}, {5, 5}}));
  {
    const AutoreleasePool earlier;
    EXPECT_EQ(root->subviews().count(), 3U);
  }
  int walked = 0;
  for (const NSView each : items<NSView>(root->subviews())) {
    each.removeFromSuperview();
    ++walked;
  }
  EXPECT_EQ(walked, 3);
  EXPECT_EQ(root->subviews().count(), 0U);
}

TEST(View, ConvertsBetweenDirections) {
  const AutoreleasePool pool;
  const auto root = NSView::withFrame({{0, 0}, {100, 100}});
  const auto down = flipped({{10, 20}, {50, 40}});
  const auto up = NSView::withFrame({{5, 5}, {20, 10}});
  root->addSubview(down);
  down->addSubview(up);
  EXPECT_EQ(down->convertPointToView({0, 0}, root), (NSPoint{10, 60}));
  EXPECT_EQ(up->convertPointToView({0, 0}, down), (NSPoint{5, 15})) << "its lower left, seen from above";
  EXPECT_EQ(root->convertRectFromView(up->bounds(), up), CGRectMake(15, 45, 20, 10));
  EXPECT_EQ(up->convertRectFromView({{15, 45}, {20, 10}}, root), up->bounds());
  EXPECT_EQ(up->convertRectToView(up->bounds(), {}), CGRectMake(15, 45, 20, 10)) << "no view: the window";
  down->setBoundsOrigin({3, 4});
  EXPECT_EQ(down->convertPointToView({3, 4}, root), (NSPoint{10, 60}));
}

TEST(View, KeepsItsTreeAndTellsAboutWindows) {
  const AutoreleasePool pool;
  const auto host = window({40, 40});
  const auto a = flipped({}), b = flipped({}), c = flipped({});
  a->addSubview(b);
  a->addSubview(c, NSWindowBelow, b);
  EXPECT_TRUE(a->subviews().objectAtIndex(0) == c.get());
  c->addSubview(a);
  EXPECT_FALSE(a->superview()) << "no view lies inside itself";
  host->contentView().addSubview(a);
  EXPECT_EQ(b->window(), host.get());
  EXPECT_EQ(stateOf<FlippedView>(b.get()).moves, "(in in)");
  a->removeFromSuperview();
  EXPECT_EQ(stateOf<FlippedView>(b.get()).moves, "(in in)(out out)");
  EXPECT_EQ(b->nextResponder(), a.get());
  EXPECT_EQ(b->tag(), -1);
}

struct Listener : ObjectState {
  std::vector<id> updated;
  void windowDidUpdate(NSNotification note) { updated.push_back(note.sender().object); }
};

TEST(Window, IsListedFrontToBackAndTellsOfUpdates) {
  const AutoreleasePool pool;
  const NSApplication app = NSApplication::sharedApplication();
  EXPECT_EQ(app, NSApp);
  const NSUInteger before = app.windows().count();
  const auto first = window({9, 9}), second = window({9, 9});
  {
    const AutoreleasePool inner;
    const auto third = window({9, 9});
    EXPECT_EQ(app.windows().count(), before + 3);
  }
  EXPECT_EQ(app.windows().count(), before + 2) << "the list keeps no window alive";
  first->orderFront({});
  second->makeKeyAndOrderFront({});
  EXPECT_TRUE(app.windows().objectAtIndex(0) == second.get());
  EXPECT_EQ(app.keyWindow(), second.get());
  EXPECT_FALSE(first->isKeyWindow());
  ClassDefinition<Listener>("ViewTestListener", "NSObject")
      .method<"windowDidUpdate:", &Listener::windowDidUpdate>()
      .registered();
  const auto listener = Ref<NSObject>::adopt(NSObject(send<id>(classNamed<"ViewTestListener">(), selector<"new">())));
  NSNotificationCenter::defaultCenter().addObserver(listener, selector<"windowDidUpdate:">(),
                                                    NSWindowDidUpdateNotification, {});
  second->close();
  app.updateWindows();
  EXPECT_EQ(stateOf<Listener>(listener).updated, std::vector<id>{first.get().object}) << "only visible ones";
  NSNotificationCenter::defaultCenter().removeObserver(listener);
  const auto controller = NSWindowController::withWindow(first);
  EXPECT_EQ(first->windowController(), controller.get());
  EXPECT_EQ(first->nextResponder(), controller.get());
}

}  // namespace
