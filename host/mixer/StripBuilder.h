#pragma once
// Builds the node tree of a channel strip: which sections a track has, and where they lie.

#include <string>
#include <vector>

#include "host/mixer/MANode.h"
#include "host/song/Song.h"

namespace host {

inline constexpr double kStripWidth = 84;

/// How high every strip of the song is, in points: the rows of slots and sends decide.
double stripHeight(const Song& song);

/// The fader in every strip: its height, and its lower edge above the strip's.
double faderHeight(const Song& song);
double faderBottom();

/// Where the sections of strips lie, from the top; of those with several slots the uppermost one.
struct StripRow {
  const char* section;
  double y;
  double height;
};
std::vector<StripRow> stripRows(const Song& song);

/// The strip of a track, with all of its sections. `number` counts from 1.
cocoa::Ref<NSObject> buildStrip(const Song& song, const Track& track, std::size_t number);

/// Shows a plug-in in a slot's button: its title, whether it is on, what it stands for.
void showPlugIn(NSObject button, const PlugInSlot& slot);

/// A number with its sign.
std::string signedNumber(double value);

/// How a level in dB is written, and the colour of a peak of that level.
std::string decibels(double value);
NSColor peakColor(double decibels);

}  // namespace host
