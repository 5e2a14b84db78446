// NSWindow and NSPanel.

#include "standin/steering/Display.h"
#include "standin/windows/Registration.h"
#include "standin/windows/Window.h"

using namespace cocoa;

namespace standin {

namespace {

/// State of an NSWindow. Closing a window hides it; it lives as long as somebody retains it.
struct Window : ObjectState {
  NSRect frame;
  Ref<NSView> frameView;
  Ref<NSView> contentView;
  Ref<NSString> title;
  Ref<NSString> subtitle;
  Ref<NSColor> backgroundColor;
  Ref<NSAppearance> appearance;
  Ref<NSView> pressed;  // took the press, and takes what follows until the release
  id controller = nullptr;
  id delegate = nullptr;
  NSUInteger styleMask = 0;
  NSInteger level = 0;
  CGFloat scale = 1;  // of the screen that the window is on: a host says which
  bool visible = false;

  ~Window() {
    applicationRemoves(NSWindow(self));
    if (frameView) {
      stateOf<ResponderState>(frameView).next = nullptr;
      stateOf<ViewState>(frameView).moveToWindow(nullptr);
    }
  }

  [[nodiscard]] double barHeight() const { return (styleMask & NSWindowStyleMaskTitled) != 0 ? kTitleBarHeight : 0; }
  id init(NSRect content, NSUInteger style, NSUInteger, BOOL) {
    styleMask = style;
    frame = {content.origin, {content.size.width, content.size.height + barHeight()}};
    backgroundColor = NSColor::colorWithSRGBRed(30 / 255.0, 30 / 255.0, 30 / 255.0, 1);
    frameView = Ref<NSView>::adopt(makeThemeFrame(frame.size, barHeight() > 0));
    stateOf<ResponderState>(frameView).next = self;
    stateOf<ViewState>(frameView).moveToWindow(self);
    setContentView(NSView::withFrame({{}, content.size}));
    applicationAdds(NSWindow(self));
    return self;
  }
  id initPlain() {
    return call<"initWithContentRect:styleMask:backing:defer:", id>(self, NSRect{}, NSWindowStyleMaskTitled,
                                                                    NSBackingStoreBuffered, BOOL(NO));
  }
  void setContentView(NSView view) {
    contentView = view;
    setFrameContent(frameView, view);
  }
  void setFrame(NSRect rect, BOOL) {
    frame = rect;
    layOutFrame(frameView, rect.size);
  }
  void setContentSize(NSSize size) { setFrame({frame.origin, {size.width, size.height + barHeight()}}, NO); }
  NSString titleHandle() { return title ? title.get() : literal<"">(); }
  NSString subtitleHandle() { return subtitle ? subtitle.get() : literal<"">(); }
  void setTitle(NSString text) {
    title = text;
    setFrameTitles(frameView, titleHandle(), subtitleHandle());
  }
  void setSubtitle(NSString text) {
    subtitle = text;
    setFrameTitles(frameView, titleHandle(), subtitleHandle());
  }
  NSWindowController windowController() { return NSWindowController(controller); }
  void setWindowController(NSWindowController changed) {
    controller = changed.object;
    stateOf<ResponderState>(self).next = controller;
  }
  NSObject delegateHandle() { return NSObject(delegate); }
  void setDelegate(NSObject object) { delegate = object.object; }
  BOOL isKey() { return static_cast<BOOL>(keyWindow() == NSWindow(self)); }

  void orderFront(NSObject) {
    visible = true;
    applicationMovesToFront(NSWindow(self));
  }
  void orderOut(NSObject) {
    visible = false;
    if (isKey() != 0) setKeyWindow({});
  }
  void makeKey(NSObject sender) {
    call<"orderFront:">(self, sender);
    setKeyWindow(NSWindow(self));
  }
  void sendEvent(NSEvent event) {
    const NSPoint place = event.locationInWindow();
    setMouseLocation(toScreen({place, {}}).origin);
    if (event.type() == NSEventTypeLeftMouseDown) pressed = frameView->hitTest(place);
    const Ref<NSView> view = pressed;  // may leave the window while it is told
    switch (event.type()) {
      case NSEventTypeLeftMouseDown:
        return view->mouseDown(event);
      case NSEventTypeLeftMouseDragged:
        return view->mouseDragged(event);
      case NSEventTypeLeftMouseUp:
        pressed = {};
        return view->mouseUp(event);
    }
  }
  void update() {
    NSNotificationCenter::defaultCenter().postNotificationName(NSWindowDidUpdateNotification, NSWindow(self));
  }
  void display() { frameView->display(); }
  BOOL viewsNeedDisplay() { return static_cast<BOOL>(windowNeedsDisplay(NSWindow(self))); }
  NSRect toScreen(NSRect rect) { return rect.offsetBy(frame.minX(), frame.minY()); }
  NSRect fromScreen(NSRect rect) { return rect.offsetBy(-frame.minX(), -frame.minY()); }
  void close() {
    NSNotificationCenter::defaultCenter().postNotificationName(NSWindowWillCloseNotification, NSWindow(self));
    call<"orderOut:">(self, NSObject());
  }
};

struct Panel : ObjectState {};

}  // namespace

void registerWindows() {
  ClassDefinition<Window>("NSWindow", "NSResponder")
      .method<"init", &Window::initPlain>()
      .method<"initWithContentRect:styleMask:backing:defer:", &Window::init>()
      .getter<"frame", &Window::frame>()
      .method<"setFrame:display:", &Window::setFrame>()
      .method<"setContentSize:", &Window::setContentSize>()
      .getter<"contentView", &Window::contentView>()
      .method<"setContentView:", &Window::setContentView>()
      .method<"title", &Window::titleHandle>()
      .method<"setTitle:", &Window::setTitle>()
      .method<"subtitle", &Window::subtitleHandle>()
      .method<"setSubtitle:", &Window::setSubtitle>()
      .method<"windowController", &Window::windowController>()
      .method<"setWindowController:", &Window::setWindowController>()
      .method<"delegate", &Window::delegateHandle>()
      .method<"setDelegate:", &Window::setDelegate>()
      .property<"backgroundColor", "setBackgroundColor:", &Window::backgroundColor>()
      .getter<"styleMask", &Window::styleMask>()
      .property<"appearance", "setAppearance:", &Window::appearance>()
      .method<"sendEvent:", &Window::sendEvent>()
      .property<"level", "setLevel:", &Window::level>()
      .property<"backingScaleFactor", "setBackingScaleFactor:", &Window::scale>()
      .getter<"isVisible", &Window::visible>()
      .method<"isKeyWindow", &Window::isKey>()
      .method<"isMainWindow", &Window::isKey>()
      .method<"orderFront:", &Window::orderFront>()
      .method<"orderOut:", &Window::orderOut>()
      .method<"makeKeyAndOrderFront:", &Window::makeKey>()
      .method<"update", &Window::update>()
      .method<"display", &Window::display>()
      .method<"viewsNeedDisplay", &Window::viewsNeedDisplay>()
      .method<"convertRectToScreen:", &Window::toScreen>()
      .method<"convertRectFromScreen:", &Window::fromScreen>()
      .method<"close", &Window::close>()
      .registered();
  ClassDefinition<Panel>("NSPanel", "NSWindow").registered();
}

}  // namespace standin
