#include "host/arrange/MAMixerModelAdapter.h"

#include "host/arrange/CLgSong.h"
#include "host/arrange/CLgSongDocument.h"

namespace host {

using namespace cocoa;

id MAMixerModelAdapter::initWithSongID(NSInteger songID) {
  const NSObject document = openSongDocument(songID);
  return initWithSong(document ? stateOf<CLgSongDocument>(document).song.get() : NSObject());
}

id MAMixerModelAdapter::initWithSong(NSObject song) {
  const CLgSong* open = stateIfKind<CLgSong>(song);
  if (open == nullptr || open->model == nullptr) {
    send<void>(self, selector<"release">());
    return nullptr;
  }
  numberOfControlSurfaceBars = open->model->song.arrange.headers.controlSurfaceBars.value_or(0);
  return self;
}

void defineMAMixerModelAdapter(bool bySong) {
  ClassDefinition<MAMixerModelAdapter> adapter("MAMixerModelAdapter", "NSObject");
  adapter.getter<"numberOfControlSurfaceBars", &MAMixerModelAdapter::numberOfControlSurfaceBars>();
  if (bySong) {
    adapter.method<"initWithSong:", &MAMixerModelAdapter::initWithSong>();
  } else {
    adapter.method<"initWithSongID:", &MAMixerModelAdapter::initWithSongID>();
  }
  adapter.registered();
}

}  // namespace host
