#pragma once
// The names of the mixer's sections, and a scale for its faders, at the left of the strips.

#include "cocoa/AppKit.h"
#include "host/song/Song.h"

namespace host {

/// The controller of a legend, whose view has been set up. `items` answers `legendItemForIdentifier:`.
cocoa::Ref<NSObject> newLegendController(const Song& song, NSObject items, CGRect frame);
/// The song is no more: the legend stays as it is.
void closeLegend(NSObject controller);

/// An element of the legend, made anew; nil for an identifier that the host does not know.
NSObject newLegendItem(const Song& song, NSString identifier);

void defineMixerLegend();

}  // namespace host
