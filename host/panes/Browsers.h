#pragma once
// The pane of files: those of the computer, those of the project, and the project's notes.

#include <memory>

#include "host/kit/Pane.h"

namespace host {

std::unique_ptr<Pane> makeBrowsersPane(const PanePlace& place);
void defineBrowserClasses();

}  // namespace host
