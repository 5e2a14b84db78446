// The few Core Foundation functions: its objects are objects of the runtime.

#include <atomic>
#include <chrono>
#include <cmath>
#include <limits>

#include "cocoa/CoreGraphics.h"
#include "standin/steering/Clock.h"

using namespace cocoa;

namespace {

constexpr double kRunning = std::numeric_limits<double>::quiet_NaN();
std::atomic<double> stoppedClock{kRunning};  // queues of any thread read it

}  // namespace

namespace standin {

void setClock(double seconds) { stoppedClock = seconds; }
void runClock() { stoppedClock = kRunning; }

}  // namespace standin

extern "C" {

CFTypeRef CFRetain(CFTypeRef object) {
  send<id>(bridged(object).object, selector<"retain">());
  return object;
}

void CFRelease(CFTypeRef object) { send<void>(bridged(object).object, selector<"release">()); }

BOOL CFEqual(CFTypeRef a, CFTypeRef b) { return static_cast<BOOL>(bridged(a).isEqual(bridged(b))); }

double CFAbsoluteTimeGetCurrent() {
  const double stopped = stoppedClock;
  if (!std::isnan(stopped)) return stopped;
  constexpr double kSecondsFrom1970To2001 = 978307200;
  const std::chrono::duration<double> sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
  return sinceEpoch.count() - kSecondsFrom1970To2001;
}
}
