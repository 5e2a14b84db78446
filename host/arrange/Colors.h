#pragma once
// Arithmetic with the colours of a song.

#include "cocoa/AppKit.h"
#include "host/song/Song.h"

namespace host {

/// Above this luminance, text on a colour is dark.
inline constexpr double kBright = 0.55;

NSColor asColor(const SongColor& color);
/// Between 0 and 1.
double luminance(const SongColor& color);
/// A step from one colour towards another; 1 is the other.
SongColor mixed(const SongColor& from, const SongColor& to, double step);

}  // namespace host
