#include "plugin/theme/GradientSwitch.h"

#include "cocoa/Foundation.h"
#include "plugin/files/FileExists.h"

namespace velura {

namespace {

constexpr const char* kSwitchFile = "/tmp/vlr_gradients_off";
constexpr double kSecondsBetweenTests = 1;

}  // namespace

bool VLRGradientsDisabled() {
  static double lastTest = 0;
  static bool disabled = false;
  const double now = CFAbsoluteTimeGetCurrent();
  if (now - lastTest > kSecondsBetweenTests) {
    lastTest = now;
    disabled = fileExists(kSwitchFile);
  }
  return disabled;
}

}  // namespace velura
