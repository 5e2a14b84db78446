#pragma once

#include <string>

namespace host {

/// What kind of host this is. The classes that a host has are defined once a process, by the first one's options.
struct HostOptions {
  static inline std::string usualVersion = "12.3";  // unless somebody asks for another one
  std::string version = usualVersion;
  double scale = 1;             // pixels per point
  bool flippedHeaders = false;  // the column of track headers counts from its top
  bool modelAdapter = true;     // the mixer's model can be asked, by the class MAMixerModelAdapter
  bool adapterBySong = false;   // … which is made from a song instead of its number
};

}  // namespace host
