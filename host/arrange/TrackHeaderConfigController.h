#pragma once

#include "cocoa/ClassDefinition.h"

namespace host {

/// Sets up what the track headers of an arrange window show.
struct TrackHeaderConfigController : cocoa::ObjectState {};

void defineTrackHeaderConfigController();

}  // namespace host
