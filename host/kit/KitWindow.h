#pragma once

#include <functional>
#include <string_view>

#include "cocoa/AppKit.h"

namespace host {

/// Draws the contents of a view, in its points, y upwards.
using DrawContents = std::function<void(CGRect, CGContextRef)>;

/// A window or panel of the host ("MAKitWindow", "MAKitPanel") that is on screen. `scale` is in pixels per point.
cocoa::Ref<NSWindow> openKitWindow(const char* className, CGSize content, std::string_view title, double scale);

/// An object or view of a class of the host's.
cocoa::Ref<NSObject> newObject(const char* className);
cocoa::Ref<NSView> newView(const char* className, CGRect frame);

/// A view that draws itself with a function.
cocoa::Ref<NSView> drawnView(CGRect frame, DrawContents draw);

}  // namespace host
