#include "plugin/hostapi/ArrangeView.h"

namespace velura {

double screenLeftOf(NSView view) { return rectToScreen(view.bounds(), view).minX(); }

CGRect rectFromScreen(CGRect screen, NSView view) {
  return view.convertRectFromView(view.window().convertRectFromScreen(screen), NSView());
}

CGRect rectToScreen(CGRect rect, NSView view) {
  return view.window().convertRectToScreen(view.convertRectToView(rect, NSView()));
}

}  // namespace velura
