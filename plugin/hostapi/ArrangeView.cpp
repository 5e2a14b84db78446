#include "plugin/hostapi/ArrangeView.h"

namespace velura {

NSDictionary headerConfigurationOf(NSObject arrangeView) {
  using namespace cocoa;
  const id controller = asObject(classNamed("TrackHeaderConfigController"));
  if (controller == nullptr || !respondsTo(controller, selector<"createSaveConfigDict:">())) return {};
  return call<"createSaveConfigDict:", NSDictionary>(controller, call<"fenster", NSObject>(arrangeView));
}

double screenLeftOf(NSView view) { return rectToScreen(view.bounds(), view).minX(); }

CGRect rectFromScreen(CGRect screen, NSView view) {
  return view.convertRectFromView(view.window().convertRectFromScreen(screen), NSView());
}

CGRect rectToScreen(CGRect rect, NSView view) {
  return view.window().convertRectToScreen(view.convertRectToView(rect, NSView()));
}

}  // namespace velura
