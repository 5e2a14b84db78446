#pragma once
// The inspector: what the selected region and track are set to, and the strips of the track and of the output.

#include <memory>

#include "host/kit/Pane.h"

namespace host {

std::unique_ptr<Pane> makeInspectorPane(const PanePlace& place);
void defineInspectorClasses();

}  // namespace host
