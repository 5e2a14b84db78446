// The mouse, buttons, alerts, the workspace, and what views tell of themselves.

#include <gtest/gtest.h>

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"
#include "standin/steering/Desk.h"
#include "standin/steering/Mouse.h"

namespace {

using namespace cocoa;

/// A view that notes the mouse, and is the target of controls.
struct Noting : ObjectState {
  bool flipped = false;
  std::string notes;
  BOOL isFlipped() { return static_cast<BOOL>(flipped); }
  void note(char what, NSEvent event) {
    const NSPoint at = NSView(self).convertPointFromView(event.locationInWindow(), {});
    notes += what + std::to_string(int(at.x)) + "," + std::to_string(int(at.y)) + " ";
  }
  void mouseDown(NSEvent event) { note('d', event); }
  void mouseDragged(NSEvent event) { note('m', event); }
  void mouseUp(NSEvent event) { note('u', event); }
  void pressed(NSButton button) { notes += "[" + toStdString(button.title()) + "]"; }
};

Ref<NSView> noting(NSRect frame, bool flipped = false) {
  if (classNamed("EventTestNoting") == nullptr) {
    ClassDefinition<Noting>("EventTestNoting", "NSView")
        .method<"isFlipped", &Noting::isFlipped>()
        .method<"mouseDown:", &Noting::mouseDown>()
        .method<"mouseDragged:", &Noting::mouseDragged>()
        .method<"mouseUp:", &Noting::mouseUp>()
        .method<"pressed:", &Noting::pressed>()
        .registered();
  }
  auto view =
      Ref<NSView>::adopt(call<"initWithFrame:", NSView>(call<"alloc", id>(classNamed("EventTestNoting")), frame));
  stateOf<Noting>(view).flipped = flipped;
  return view;
}
std::string notes(NSView view) { return std::exchange(stateOf<Noting>(view).notes, ""); }

void send(NSWindow window, NSEventType type, NSPoint point) {
  window.sendEvent(NSEvent::mouseEventWithType(type, point, 0, 1.5, 0, {}, 0, 2, 1));
}

Ref<NSWindow> window() {
  return NSWindow::withContentRect({{300, 200}, {100, 100}}, NSWindowStyleMaskTitled, NSBackingStoreBuffered, false);
}

TEST(Mouse, GoesToTheViewThatTookThePress) {
  const AutoreleasePool pool;
  const auto host = window();
  const auto outer = noting({{10, 10}, {80, 80}}, true);
  const auto inner = noting({{10, 20}, {30, 30}});
  const auto plain = NSView::withFrame({{50, 0}, {30, 30}});
  const auto above = noting({{10, 20}, {5, 5}});
  host->contentView().addSubview(outer);
  for (const NSView each : {inner.get(), plain.get(), above.get()}) outer->addSubview(each);
  outer->setBoundsOrigin({0, 10});
  above->setHidden(true);
  send(host, NSEventTypeLeftMouseDragged, {50, 50});
  send(host, NSEventTypeLeftMouseDown, {22, 77});
  send(host, NSEventTypeLeftMouseDragged, {12, 12});
  send(host, NSEventTypeLeftMouseUp, {50, 50});
  send(host, NSEventTypeLeftMouseUp, {50, 50});
  EXPECT_EQ(notes(inner), "d2,27 m-8,-38 u30,0 ");
  EXPECT_EQ(notes(outer), "");
  send(host, NSEventTypeLeftMouseDown, {65, 85});
  EXPECT_EQ(notes(outer), "d55,15 ") << "handed on by a view without interest";
  send(host, NSEventTypeLeftMouseDown, {5, 5});
  EXPECT_EQ(notes(outer), "");
  EXPECT_EQ(outer->hitTest({9.5, 50}), NSView());
  EXPECT_EQ(outer->hitTest({10, 90}), outer.get());
  EXPECT_EQ(outer->hitTest({10, 10}), NSView()) << "the pixel below its edge";
  EXPECT_EQ(host->contentView().superview().hitTest({5, 5}), host->contentView());
  EXPECT_EQ((callClass<NSEvent, "mouseLocation", NSPoint>()), (NSPoint{305, 205}));
  standin::setPressedMouseButtons(1);
  EXPECT_EQ(NSEvent::pressedMouseButtons(), 1U);
  standin::setPressedMouseButtons(0);
}

TEST(Button, SendsItsActionAndTogglesByItsType) {
  const AutoreleasePool pool;
  const auto host = window();
  const auto target = noting({{0, 0}, {100, 100}});
  const auto button = NSButton::withFrame({{10, 10}, {20, 20}});
  host->contentView().addSubview(target);
  target->addSubview(button);
  button->setTitle(string("b"));
  button->setAction(selector<"pressed:">());
  button->performClick({});
  EXPECT_EQ(notes(target), "[b]") << "no target: the next responder that knows the action";
  button->setTarget(target);
  button->performClick({});
  EXPECT_EQ(button->state(), NSControlStateValueOff);
  call<"setButtonType:">(button.get(), NSUInteger(3));
  send(host, NSEventTypeLeftMouseDown, {12, 12});
  EXPECT_TRUE(button->cell().isHighlighted());
  send(host, NSEventTypeLeftMouseUp, {12, 12});
  EXPECT_EQ(notes(target), "[b][b]");
  EXPECT_EQ(button->state(), NSControlStateValueOn);
  send(host, NSEventTypeLeftMouseDown, {12, 12});
  send(host, NSEventTypeLeftMouseUp, {50, 12});
  EXPECT_EQ(button->state(), NSControlStateValueOn) << "let go elsewhere";
  button->setEnabled(false);
  button->performClick({});
  EXPECT_EQ(notes(target), "");
  button->setEnabled(true);
  button->setAction(selector<"nobodyKnows:">());
  button->performClick({});
  EXPECT_EQ(button->state(), NSControlStateValueOff);
}

}  // namespace
