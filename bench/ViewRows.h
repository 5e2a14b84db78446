#pragma once
// Rows of the remaining windows, of their refresh and of the installation of everything.

#include "bench/Worker.h"

namespace bench {

/// Processes that these rows need. They are started before Foundation runs.
struct ViewWorkers {
  ViewWorkers();
  Worker plainLoops;
  Worker themedLoops;
  Worker refresh;
  Worker drawing;
  Worker installing;
  Worker exchanging;
};

void addViewRows(const ViewWorkers& workers);

}  // namespace bench
