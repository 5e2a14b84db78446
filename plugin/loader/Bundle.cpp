// What happens while the bundle is loaded, before anything is sent to it: its classes are registered and
// its categories attached, as the platform does for a bundle whose compiler knew them.

#include <algorithm>
#include <iterator>

#include "cocoa/Memory.h"
#include "plugin/arrange/Utility+TrackColorWarning.h"
#include "plugin/arrange/VLRGridSettingsReader.h"
#include "plugin/gradient/PatternRenderer.h"
#include "plugin/hostapi/NSString+CompareToVersion.h"
#include "plugin/imaging/MyNSBitmapImageRep.h"
#include "plugin/imaging/RectToSourceColorData.h"
#include "plugin/imaging/ThemeImages.h"
#include "plugin/imaging/Utility+Recoloring.h"
#include "plugin/loader/LoaderClass.h"
#include "plugin/loader/ThemedClasses.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/theme/Utility.h"
#include "plugin/theme/VLRStripBevel.h"
#include "plugin/theme/VLRStripGradient.h"
#include "plugin/views/WindowTitles.h"

namespace velura {
namespace {

/// Whether another bundle of the process has taken one of our class names. The host then stays as it is.
bool isNameTaken() {
  constexpr const char* kNames[] = {"VLRStripGradient", "VLRStripBevel",         "ThemeUtility",
                                    "Utility",          "RectToSourceColorData", "MyNSBitmapImageRep",
                                    "LoaderClass",      "VLRGridSettingsReader"};
  return std::any_of(std::begin(kNames), std::end(kNames),
                     [](const char* name) { return cocoa::classNamed(name) != nullptr; });
}

[[gnu::constructor]] void loadBundle() {
  const cocoa::AutoreleasePool pool;
  if (isNameTaken()) return;
  defineVLRStripGradient();
  defineVLRStripBevel();
  defineThemeUtility();
  defineUtility();
  defineRectToSourceColorData();
  defineMyNSBitmapImageRep();
  defineVLRGridSettingsReader();
  defineLoaderClass();
  attachNSStringCompareToVersion();
  attachUtilityRecoloring();
  attachThemeUtilityPatterns();
  attachThemeUtilityImages();
  attachWindowTitles();
  attachUtilityTrackColorWarning();
  attachCategories();
}

}  // namespace
}  // namespace velura
