// What happens while the bundle is loaded, before anything is sent to it: its classes are registered and
// its categories attached, as the platform does for a bundle whose compiler knew them.

#include "cocoa/Memory.h"
#include "plugin/gradient/VLRStripBevel.h"
#include "plugin/gradient/VLRStripGradient.h"
#include "plugin/loader/Attach.h"
#include "plugin/loader/Categories.h"
#include "plugin/loader/LoaderClass.h"
#include "plugin/theme/ThemeUtility.h"
#include "plugin/theme/Utility.h"

namespace velura {
namespace {

[[gnu::constructor]] void loadBundle() {
  const cocoa::AutoreleasePool pool;
  defineVLRStripGradient();
  defineVLRStripBevel();
  defineThemeUtility();
  defineUtility();
  defineLoaderClass();
  attachNSStringCompareToVersion();
  attachCategories();
}

}  // namespace
}  // namespace velura
