#pragma once

#include "cocoa/ClassDefinition.h"
#include "host/arrange/ArrangeModel.h"

namespace host {

/// The song of a document as other parts of the host name it.
struct CLgSong : cocoa::ObjectState {
  ArrangeModel* model = nullptr;  // null once the song is closed
};

void defineCLgSong();

}  // namespace host
