#pragma once
// The pane of the sound library.

#include <memory>

#include "host/kit/Pane.h"

namespace host {

std::unique_ptr<Pane> makeLibraryPane(const PanePlace& place);

/// What a click on a patch does: the controller of a library's view shows another one, told with its views.
void choosePatch(NSView libraryView, std::size_t patch);

void defineLibraryClasses();

}  // namespace host
