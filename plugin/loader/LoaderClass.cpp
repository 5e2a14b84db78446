#include "plugin/loader/LoaderClass.h"

#include "cocoa/ClassDefinition.h"
#include "plugin/arrange/VLRGridSettingsReader.h"
#include "plugin/loader/OverrideReport.h"
#include "plugin/loader/ThemedClasses.h"
#include "plugin/loader/WindowRefresh.h"
#include "plugin/theme/SelectedTheme.h"

namespace velura {
namespace {

using namespace cocoa;

struct LoaderClass : ObjectState {
  void initialize() {
    if (VLRIsCustomThemeSelected()) {
      installThemedClasses();
      call<"refreshWindows">(self);
    }
    VLRGridSettingsReader::shared().startWatching();
    dumpOverridesIfArmed();
  }
  void refresh() { refreshWindows(); }
  NSView findSubview(NSString className, NSView root) { return findSubviewOfClass(className, root); }
  void resetLibrary(NSView view) { resetLibViewColors(view); }
  void resetMixer(NSObject node) { resetMixerNode(node); }
  void resetLiveLoops(NSView view) { resetLiveLoopsView(view); }
  void resetEvents(NSView view) { resetEventViewColors(view); }
  NSArray overrides() { return overrideList(); }
  NSString overridesAsText() { return overrideText(); }
};

}  // namespace

void defineLoaderClass() {
  ClassDefinition<LoaderClass>("LoaderClass", "NSObject")
      .method<"initialize", &LoaderClass::initialize>()
      .method<"refreshWindows", &LoaderClass::refresh>()
      .method<"findSubviewOfClass:inView:", &LoaderClass::findSubview>()
      .method<"resetLibViewColors:", &LoaderClass::resetLibrary>()
      .method<"resetMixerNode:", &LoaderClass::resetMixer>()
      .method<"resetLiveLoopsView:", &LoaderClass::resetLiveLoops>()
      .method<"resetEventViewColors:", &LoaderClass::resetEvents>()
      .method<"vlrOverrides", &LoaderClass::overrides>()
      .method<"vlrOverridesAsText", &LoaderClass::overridesAsText>()
      .registered();
}

}  // namespace velura
