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

TEST(View, HasItsControllerAsNextResponder) {
  const AutoreleasePool pool;
  const auto superview = NSView::withFrame({});
  const auto view = NSView::withFrame({});
  {
    const auto controller = make<NSViewController>();
    controller->setView(view);
    superview->addSubview(view);
    EXPECT_EQ(view->nextResponder(), controller.get());
    EXPECT_EQ(controller->nextResponder(), superview.get());
  }
  EXPECT_EQ(view->nextResponder(), superview.get()) << "the controller is gone";
  const auto lazy = make<NSViewController>();
  EXPECT_FALSE(lazy->isViewLoaded());
  EXPECT_TRUE(lazy->view());
}

TEST(Window, HasAFrameAroundItsContents) {
  const AutoreleasePool pool;
  const auto host = window({300, 100});
  host->setTitle(string("Title"));
  EXPECT_EQ(host->frame().size, (NSSize{300, 128}));
  const NSView frame = host->contentView().superview();
  EXPECT_EQ(toStdString(frame.className()), "NSThemeFrame");
  EXPECT_EQ(host->contentView().frame(), CGRectMake(0, 0, 300, 100));
  NSView container;
  for (const NSView each : items<NSView>(frame.subviews())) {
    if (each.respondsToSelector(selector<"associatedThemeFrame">())) container = each;
  }
  ASSERT_TRUE(container);
  EXPECT_EQ(toStdString(container.className()), "NSTitlebarContainerView");
  EXPECT_EQ((call<"associatedThemeFrame", NSView>(container)), frame);
  const auto bar = cast<NSView>(container.subviews().objectAtIndex(0));
  EXPECT_EQ(toStdString(bar.className()), "NSTitlebarView");
  const auto title = as<NSTextField>(bar.subviews().objectAtIndex(0));
  EXPECT_EQ(toStdString(title.stringValue()), "Title");
  host->setSubtitle(string("Second"));
  EXPECT_EQ(toStdString(as<NSTextField>(bar.subviews().objectAtIndex(1)).stringValue()), "Second");
  host->setFrame({{0, 0}, {200, 78}}, true);
  EXPECT_EQ(host->contentView().frame().size, (NSSize{200, 50}));
  EXPECT_EQ(window({20, 20}, NSWindowStyleMaskBorderless)->frame().size, (NSSize{20, 20}));
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

TEST(Control, ShowsItsCell) {
  const AutoreleasePool pool;
  const auto field = NSTextField::withFrame({{0, 0}, {60, 20}});
  field->setStringValue(string("Text"));
  field->setTextColor(letter('R'));
  EXPECT_EQ(toStdString(field->attributedStringValue().string()), "Text");
  NSRange range;
  EXPECT_TRUE(field->attributedStringValue().attribute(NSForegroundColorAttributeName, 0, &range).isEqual(letter('R')));
  field->setDrawsBackground(true);
  field->setBackgroundColor(letter('G'));
  const Canvas canvas(60, 20);
  const auto graphics = NSGraphicsContext::graphicsContextWithCGContext(canvas.context(), false);
  field->displayRectIgnoringOpacity(field->bounds(), graphics);
  EXPECT_EQ(canvas.at(59, 19), 0x00ff00ffU);
  EXPECT_NE(canvas.art().find('-'), std::string::npos) << "red letters on green";
  const auto button = NSButton::withFrame({{0, 0}, {20, 20}});
  button->setImage(imageOf({"B"}));
  EXPECT_TRUE(button->image());
  EXPECT_EQ(toStdString(button->cell().className()), "NSButtonCell");
}

}  // namespace
