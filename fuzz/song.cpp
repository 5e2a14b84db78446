#include "host/song/Song.h"
#include "fuzz/Fuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string error;
  const auto song = host::parseSong(fuzzing::text(data, size), error);
  // Either a song or a reason, in one line.
  fuzzing::require(song.has_value() == error.empty());
  fuzzing::require(error.find('\n') == std::string::npos);
  fuzzing::require(!song || song->tracks.size() <= host::kMostTracks);
  return 0;
}
