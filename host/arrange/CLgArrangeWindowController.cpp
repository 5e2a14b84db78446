#include "host/arrange/CLgArrangeWindowController.h"

namespace host {

void defineCLgArrangeWindowController() {
  cocoa::ClassDefinition<CLgArrangeWindowController>("CLgArrangeWindowController", "NSWindowController")
      .getter<"mainSplitView", &CLgArrangeWindowController::mainSplitView>()
      .getter<"browserUnilibView", &CLgArrangeWindowController::browserUnilibView>()
      .registered();
}

}  // namespace host
