#pragma once
// The pane of loops, found by toggles.

#include <memory>

#include "host/kit/Pane.h"

namespace host {

std::unique_ptr<Pane> makeLoopBrowserPane(const PanePlace& place);

/// What a click on a toggle of the filter does.
void toggleLoopFilter(NSView filter, std::size_t toggle);

void defineLoopBrowserClasses();

}  // namespace host
