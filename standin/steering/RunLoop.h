#pragma once
// The main queue as the simulated host turns it. Delays on it are measured by the stand-in's clock, so a
// stopped clock (see Clock.h) holds delayed work back until it is set forward.

#include <cstddef>
#include <optional>

namespace standin {

/// Runs what is due on the main queue, and what that makes due at once. Answers how much was run.
std::size_t runMainQueue();

/// Seconds by the stand-in's clock until something is due on the main queue: 0 for work that is due already,
/// nothing when none is queued.
std::optional<double> timeUntilMainQueueWork();

/// Sleeps until work is due on the main queue, at most `seconds` of real time. True when some is due.
bool waitForMainQueue(double seconds);

}  // namespace standin
