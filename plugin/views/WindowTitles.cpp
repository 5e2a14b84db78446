#include "plugin/views/WindowTitles.h"

#include "cocoa/AppKit.h"
#include "cocoa/ClassDefinition.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

/// The first of the views that `accepts`; nil when none does.
template <class Accepts>
NSView firstOf(NSArray views, Accepts accepts) {
  for (const NSView view : items<NSView>(views)) {
    if (accepts(view)) return view;
  }
  return {};
}

/// The text field that shows the title of a window of the host.
NSTextField titleField(NSWindow window) {
  const NSView frame = window.contentView().superview();
  if (!respondsTo<"subviews">(frame)) return {};
  const NSView container =
      firstOf(frame.subviews(), [](NSView view) { return respondsTo<"associatedThemeFrame">(view); });
  const NSView titleBar = firstOf(
      container.subviews(), [](NSView view) { return view.className().isEqualToString(literal<"NSTitlebarView">()); });
  return cast<NSTextField>(
      firstOf(titleBar.subviews(), [](NSView view) { return view.isKindOfClass(classOf<NSTextField>()); }));
}

bool isHostWindow(NSObject object) {
  return object.isKindOfClass(classNamed<"MAKitWindow">()) || object.isKindOfClass(classNamed<"MAKitPanel">());
}

void windowDidUpdate(NSObject theme, NSNotification notification) {
  const NSColor title = stateOf<ThemeUtility>(theme).colorForKey(key<"windowTitleColor">);
  if (!title || !isHostWindow(notification.sender())) return;
  const NSTextField field = titleField(cast<NSWindow>(notification.sender()));
  // Windows update all the time: a title that has its colour is not to be drawn anew.
  if (!title.isEqual(field.textColor())) field.setTextColor(title);
}

void observe(NSObject theme) {
  NSNotificationCenter::defaultCenter().addObserver(theme, selector<"windowDidUpdate:">(),
                                                    NSWindowDidUpdateNotification, NSObject());
}

}  // namespace

void attachWindowTitles() {
  CategoryDefinition("ThemeUtility").method<"windowDidUpdate:", windowDidUpdate>();
  ThemeUtility::whenMade(observe);
}

}  // namespace velura
