#pragma once
// The pane of lists: events, and the notes on the song and its tracks.

#include <memory>

#include "host/kit/Pane.h"

namespace host {

std::unique_ptr<Pane> makeListsPane(const PanePlace& place);
void defineListsClasses();

}  // namespace host
