#pragma once
// Arithmetic with the colours of a song.

#include "cocoa/AppKit.h"
#include "host/Song.h"

namespace host {

/// Above this luminance, text on a colour is dark.
inline constexpr double kBright = 0.55;

NSColor asColour(const SongColour& colour);
/// Between 0 and 1.
double luminance(const SongColour& colour);
/// A step from one colour towards another; 1 is the other.
SongColour mixed(const SongColour& from, const SongColour& to, double step);

}  // namespace host
