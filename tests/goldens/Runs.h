#pragma once
// The runs of the host whose pictures are kept.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/Session.h"

namespace goldens {

/// A window, as far as the song is not shown otherwise.
struct Picture {
  std::string name;
  host::WindowKind window = host::WindowKind::kMixer;
  std::optional<double> zoom;  // of the arrange window
  std::optional<double> scroll;
};

/// One process: one theme, one kind of host, one song.
struct Run {
  std::string name;
  std::string look;  // "host", a folder of themes/, or a theme that is made of the keys
  std::vector<Picture> pictures;
  bool states = false;  // a song with every state of the controls, in place of the sample song
  bool loadsLate = false;
  host::HostOptions host;
  std::optional<int> gridMode;
  std::optional<long> tracksBackground;
  host::FaderLength faders = host::FaderLength::kShort;
  bool trackColors = true;  // whether the host is set to show them
};

const std::vector<Run>& runs();

/// Starts the host of a run, with a clock that stands still. Null, with `error` set, when it cannot be started.
std::unique_ptr<host::Application> start(const Run& run, std::string& error);

/// Draws a picture of a run; nil when it cannot be drawn.
cocoa::Ref<NSBitmapImageRep> draw(host::Application& application, const Picture& picture);

}  // namespace goldens
