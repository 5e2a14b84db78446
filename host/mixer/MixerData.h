#pragma once
// The mixer's model objects: what a strip stands for, where its colours come from, how strips are set up.

#include "cocoa/AppKit.h"
#include "cocoa/Call.h"
#include "cocoa/ClassDefinition.h"
#include "host/song/Song.h"

namespace host {

/// What a strip represents: a track of the song.
struct CLgChannelStrip : cocoa::ObjectState {
  const Track* track = nullptr;  // of the song, which outlives the mixer
};

/// Answers what the mixer asks of a strip, which is named by the object it represents.
struct CLgMixerDataSource : cocoa::ObjectState {
  NSInteger typeOfStrip(NSObject strip);
  NSColor colorOfStrip(NSObject strip, BOOL highlighted);
};

/// Holds the mixer's node tree together.
struct CLgMixerContentsController : cocoa::ObjectState {
  cocoa::Ref<NSObject> dataSource;
  cocoa::Ref<NSObject> node;
};

/// The mixer window as the set-up of its strips knows it.
struct CLgMixerWindow : cocoa::ObjectState {
  bool showsTrackColors = true;
};

/// The track colour of a track, or nil.
NSColor trackColor(const Track& track);

void defineMixerData();

}  // namespace host
