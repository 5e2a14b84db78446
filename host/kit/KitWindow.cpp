#include "host/kit/KitWindow.h"

#include "cocoa/Call.h"
#include "host/kit/Views.h"

namespace host {

using namespace cocoa;

Ref<NSWindow> openKitWindow(const char* className, CGSize content, std::string_view title, double scale) {
  constexpr NSUInteger kTitledClosableMiniaturizableResizable = 15;
  constexpr NSUInteger kBuffered = 2;
  const auto window = Ref<NSWindow>::adopt(NSWindow(call<"initWithContentRect:styleMask:backing:defer:", id>(
      call<"alloc", id>(classNamed(className)), CGRect{{0, 0}, content}, kTitledClosableMiniaturizableResizable,
      kBuffered, BOOL(0))));
  window->setTitle(string(title));
  call<"setBackingScaleFactor:">(window.get(), scale);
  window->orderFront(NSObject());
  return window;
}

Ref<NSObject> newObject(const char* className) {
  return Ref<NSObject>::adopt(NSObject(call<"new", id>(asObject(classNamed(className)))));
}

Ref<NSView> newView(const char* className, CGRect frame) {
  return Ref<NSView>::adopt(NSView(call<"initWithFrame:", id>(call<"alloc", id>(classNamed(className)), frame)));
}

Ref<NSView> drawnView(CGRect frame, DrawContents draw) {
  Ref<NSView> view = newView("CLgToolbarView", frame);
  stateOf<CLgToolbarView>(view.get()).draw = std::move(draw);
  return view;
}

}  // namespace host
