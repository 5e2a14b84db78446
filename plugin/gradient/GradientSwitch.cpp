#include "plugin/gradient/GradientSwitch.h"

#include <sys/stat.h>

#include "cocoa/Foundation.h"

namespace velura {

namespace {

constexpr const char* kSwitchFile = "/tmp/vlr_gradients_off";
constexpr double kSecondsBetweenTests = 1;

bool exists(const char* path) {
  struct stat status {};
  return ::stat(path, &status) == 0;
}

}  // namespace

bool VLRGradientsDisabled() {
  static double lastTest = 0;
  static bool disabled = false;
  const double now = CFAbsoluteTimeGetCurrent();
  if (now - lastTest > kSecondsBetweenTests) {
    lastTest = now;
    disabled = exists(kSwitchFile);
  }
  return disabled;
}

}  // namespace velura
