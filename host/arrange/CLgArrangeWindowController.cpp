#include "host/arrange/CLgArrangeWindowController.h"

namespace host {

void defineCLgArrangeWindowController() {
  cocoa::ClassDefinition<CLgArrangeWindowController>("CLgArrangeWindowController", "NSWindowController")
      .getter<"mainSplitView", &CLgArrangeWindowController::mainSplitView>()
      .registered();
}

}  // namespace host
