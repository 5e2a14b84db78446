#include "host/kit/CLgArrangeWindowController.h"

namespace host {

BOOL CLgArrangeWindowController::inspectorIsVisible() {
  return static_cast<BOOL>(inspector != nullptr && inspector->isOpen());
}

void CLgArrangeWindowController::toggleInspectors() {
  if (inspector != nullptr) inspector->toggle();
}

void defineCLgArrangeWindowController() {
  cocoa::ClassDefinition<CLgArrangeWindowController>("CLgArrangeWindowController", "NSWindowController")
      .getter<"mainSplitView", &CLgArrangeWindowController::mainSplitView>()
      .getter<"actionBarView", &CLgArrangeWindowController::actionBarView>()
      .method<"inspectorIsVisible", &CLgArrangeWindowController::inspectorIsVisible>()
      .method<"toggleInspectors", &CLgArrangeWindowController::toggleInspectors>()
      .getter<"browserUnilibView", &CLgArrangeWindowController::browserUnilibView>()
      .registered();
}

}  // namespace host
