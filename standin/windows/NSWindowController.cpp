#include "standin/windows/Registration.h"
#include "standin/windows/Window.h"

using namespace cocoa;

namespace standin {

namespace {

/// State of an NSWindowController.
struct WindowController : ObjectState {
  Ref<NSWindow> window;

  ~WindowController() { detach(); }
  void detach() {
    if (window->windowController().object == self) window->setWindowController({});
  }
  id init() { return self; }
  id initWithWindow(NSWindow held) {
    setWindow(held);
    return self;
  }
  void setWindow(NSWindow held) {
    detach();
    window = held;
    window->setWindowController(NSWindowController(self));
  }
  void showWindow(NSObject sender) { window->makeKeyAndOrderFront(sender); }
};

}  // namespace

void registerWindowControllers() {
  ClassDefinition<WindowController>("NSWindowController", "NSResponder")
      .method<"init", &WindowController::init>()
      .method<"initWithWindow:", &WindowController::initWithWindow>()
      .getter<"window", &WindowController::window>()
      .method<"setWindow:", &WindowController::setWindow>()
      .method<"showWindow:", &WindowController::showWindow>()
      .registered();
}

}  // namespace standin
