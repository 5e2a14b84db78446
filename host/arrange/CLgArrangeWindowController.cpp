#include "host/arrange/CLgArrangeWindowController.h"

namespace host {

void CLgArrangeWindowController::toggleInspectors() {
  if (inspector == nullptr) return;
  inspector->toggle();
  inspectorIsVisible = !inspectorIsVisible;
}

void defineCLgArrangeWindowController() {
  cocoa::ClassDefinition<CLgArrangeWindowController>("CLgArrangeWindowController", "NSWindowController")
      .getter<"mainSplitView", &CLgArrangeWindowController::mainSplitView>()
      .getter<"actionBarView", &CLgArrangeWindowController::actionBarView>()
      .getter<"inspectorIsVisible", &CLgArrangeWindowController::inspectorIsVisible>()
      .method<"toggleInspectors", &CLgArrangeWindowController::toggleInspectors>()
      .getter<"browserUnilibView", &CLgArrangeWindowController::browserUnilibView>()
      .registered();
}

}  // namespace host
