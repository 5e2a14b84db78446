#pragma once
// The mixer below the tracks.

#include <memory>

#include "host/kit/Pane.h"

namespace host {

std::unique_ptr<Pane> makeMixerPane(const PanePlace& place);
double mixerPaneHeight(const Song& song);

}  // namespace host
