#pragma once

#include "cocoa/ClassDefinition.h"

namespace host {

/// Answers what the mixer's model knows of a song.
struct MAMixerModelAdapter : cocoa::ObjectState {
  NSInteger numberOfControlSurfaceBars = 0;

  /// nil for a song that is not open.
  id initWithSongID(NSInteger songID);
  id initWithSong(NSObject song);
};

/// Older hosts make the adapter from the song itself and know nothing of song numbers.
void defineMAMixerModelAdapter(bool bySong);

}  // namespace host
