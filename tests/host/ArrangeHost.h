#pragma once
// A host that shows a song's tracks, and ways to look at what it shows.

#include <memory>
#include <string>
#include <vector>

#include "cocoa/AppKit.h"
#include "host/arrange/ArrangeWindow.h"
#include "tests/support/Colors.h"
#include "tests/support/Theme.h"

namespace support {

/// The host without the plug-in.
inline std::unique_ptr<host::Application> arrangeHost(host::Song song, host::HostOptions options = {}) {
  return start("", std::move(song), std::move(options));
}

/// Draws a part of a view by itself.
inline NSBitmapImageRep drawn(NSView view, CGRect rect) {
  const NSBitmapImageRep bitmap = view.bitmapImageRepForCachingDisplayInRect(rect);
  view.cacheDisplayInRect(rect, bitmap);
  return bitmap;
}

inline Rgba songColor(const host::SongColor& color) { return {color.red, color.green, color.blue, 100}; }

inline std::vector<NSObject> accessibilityChildren(NSObject of) {
  std::vector<NSObject> all;
  for (const NSObject each : cocoa::items(cocoa::call<"accessibilityChildren", NSArray>(of))) all.push_back(each);
  return all;
}

inline NSObject attribute(NSObject element, const char* name) {
  return cocoa::call<"accessibilityAttributeValue:", NSObject>(element, cocoa::string(name));
}
inline std::string textOf(NSObject element, const char* name) {
  return cocoa::toStdString(cocoa::as<NSString>(attribute(element, name)));
}
/// Where an element lies on the screen.
inline CGRect screenFrame(NSObject element) {
  return {cocoa::as<NSValue>(attribute(element, "AXPosition")).pointValue(),
          cocoa::as<NSValue>(attribute(element, "AXSize")).sizeValue()};
}

}  // namespace support
