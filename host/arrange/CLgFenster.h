#pragma once

#include "cocoa/ClassDefinition.h"
#include "host/arrange/ArrangeModel.h"

namespace host {

/// The arrange window as other parts of the host name it.
struct CLgFenster : cocoa::ObjectState {
  ArrangeModel* model = nullptr;  // null once the window is closed
};

void defineCLgFenster();

}  // namespace host
