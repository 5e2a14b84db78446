#pragma once

#include <string_view>

#include "host/drawing/Painter.h"

namespace host {

/// Draws the icon of a track, which is about 20 points wide and high at a scale of 1, upright in any view.
void drawTrackIcon(const Painter& painter, std::string_view name, CGPoint centre, double scale = 1);

}  // namespace host
