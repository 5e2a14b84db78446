#pragma once
// Rows about the controls of the mixer: whole frames, titles, meter textures, and start-up.

#include "bench/Worker.h"

namespace bench {

/// Forked before anything of Foundation runs in the process.
struct ControlWorkers {
  ControlWorkers();
  Worker plainFrame;
  Worker gradientFrame;
  Worker imageFrame;
  Worker themedTitle;
  Worker plainTitle;
  Worker cachedTexture;
  Worker freshTexture;
  Worker startUp;
  Worker firstDrawing;
};

void addControlRows(const ControlWorkers& workers);

}  // namespace bench
