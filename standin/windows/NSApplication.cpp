#include <algorithm>
#include <vector>

#include "standin/windows/Registration.h"
#include "standin/windows/Window.h"

using namespace cocoa;

extern "C" {
NSApplication NSApp;
}

namespace standin {

namespace {

/// Front to back, not owned.
std::vector<id>& windowList() {
  static auto* windows = new std::vector<id>();  // outlives every late release
  return *windows;
}
id& keyWindowSlot() {
  static id key = nullptr;
  return key;
}

/// State of the NSApplication.
struct Application : ObjectState {
  NSArray windows() {
    const auto& list = windowList();
    return NSArray::arrayWithObjects(list.data(), list.size());
  }
  NSWindow keyWindow() { return standin::keyWindow(); }
  void updateWindows() {
    for (const NSWindow window : items<NSWindow>(windows())) {
      if (window.isVisible()) window.update();
    }
  }
};

NSApplication sharedApplication(Class cls) {
  if (!NSApp) NSApp = call<"init", NSApplication>(call<"alloc", id>(cls));
  return NSApp;
}

}  // namespace

void applicationAdds(NSWindow window) { windowList().push_back(window.object); }

void applicationRemoves(NSWindow window) {
  std::erase(windowList(), window.object);
  if (keyWindowSlot() == window.object) keyWindowSlot() = nullptr;
}

void applicationMovesToFront(NSWindow window) {
  auto& list = windowList();
  const auto found = std::find(list.begin(), list.end(), window.object);
  if (found != list.end()) std::rotate(list.begin(), found, found + 1);
}

void setKeyWindow(NSWindow window) { keyWindowSlot() = window.object; }
NSWindow keyWindow() { return NSWindow(keyWindowSlot()); }

void registerApplications() {
  ClassDefinition<Application>("NSApplication", "NSResponder")
      .classMethod<"sharedApplication", sharedApplication>()
      .method<"windows", &Application::windows>()
      .method<"keyWindow", &Application::keyWindow>()
      .method<"mainWindow", &Application::keyWindow>()
      .method<"updateWindows", &Application::updateWindows>()
      .registered();
}

}  // namespace standin
