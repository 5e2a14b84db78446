#pragma once
// The clock that CFAbsoluteTimeGetCurrent reads.

namespace standin {

/// Stops the clock at `seconds` since 1 January 2001, until it is set again or let run.
void setClock(double seconds);
/// Lets the clock follow the system's time again.
void runClock();

}  // namespace standin
