#pragma once

#include <functional>
#include <string>

#include "host/app/Application.h"

namespace session {

struct WatchOptions {
  host::WindowKind window = host::WindowKind::kArrange;
  std::string gridFile;  // the settings file whose changes are followed
  std::string out;       // the PNG file, written anew at every redraw
};

/// Keeps the host running until the process is asked to end (SIGINT or SIGTERM): whenever its window needs
/// display the picture is written anew. One line on stdout for each. False, with `error` set, when a
/// picture cannot be written.
bool watch(host::Application& application, const WatchOptions& options, std::string& error);

}  // namespace session
