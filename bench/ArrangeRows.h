#pragma once
// Rows about the arrange window: recolouring, reading rulers, whole frames, and the settings watcher.

#include <string>

#include "bench/Worker.h"

namespace bench {

/// A song whose ruler is 2,560 points wide.
host::Song wideSong();

/// Forked before anything of Foundation runs in the process.
struct ArrangeWorkers {
  ArrangeWorkers();
  std::string gridFile;
  Worker plainFrame;
  Worker themedFrame;
  Worker manyTracks;
  Worker watched;
  Worker bareWatch;
};

void addRecoloringRows();
/// `application` shows `wideSong` at two pixels a point.
void addRulerRows(host::Application& application);
void addArrangeRows(const ArrangeWorkers& workers);

}  // namespace bench
