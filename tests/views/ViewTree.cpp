#include "tests/views/ViewTree.h"

#include "cocoa/Call.h"

namespace support {

std::vector<NSView> viewsBelow(NSView root, std::string_view className) {
  std::vector<NSView> found;
  for (const NSView view : cocoa::items<NSView>(root.subviews())) {
    if (cocoa::toStdString(view.className()) == className) found.push_back(view);
    const auto below = viewsBelow(view, className);
    found.insert(found.end(), below.begin(), below.end());
  }
  return found;
}

NSView viewIn(const host::Application& application, host::WindowKind window, std::string_view className) {
  const auto found = viewsBelow(application.window(window).contentView(), className);
  return found.empty() ? NSView() : found.front();
}

}  // namespace support
