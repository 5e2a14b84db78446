// The few Core Foundation functions: its objects are objects of the runtime.

#include <chrono>
#include <optional>

#include "cocoa/CoreGraphics.h"
#include "standin/Clock.h"

using namespace cocoa;

namespace {

std::optional<double>& stoppedClock() {
  static std::optional<double> stopped;
  return stopped;
}

}  // namespace

namespace standin {

void setClock(double seconds) { stoppedClock() = seconds; }
void runClock() { stoppedClock().reset(); }

}  // namespace standin

extern "C" {

CFTypeRef CFRetain(CFTypeRef object) {
  send<id>(bridged(object).object, selector<"retain">());
  return object;
}

void CFRelease(CFTypeRef object) { send<void>(bridged(object).object, selector<"release">()); }

BOOL CFEqual(CFTypeRef a, CFTypeRef b) { return static_cast<BOOL>(bridged(a).isEqual(bridged(b))); }

double CFAbsoluteTimeGetCurrent() {
  if (stoppedClock()) return *stoppedClock();
  constexpr double kSecondsFrom1970To2001 = 978307200;
  const std::chrono::duration<double> sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
  return sinceEpoch.count() - kSecondsFrom1970To2001;
}
}
