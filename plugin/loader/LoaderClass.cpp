#include "plugin/loader/LoaderClass.h"

#include "cocoa/ClassDefinition.h"
#include "plugin/arrange/VLRGridSettingsReader.h"
#include "plugin/hostapi/HostVersion.h"
#include "plugin/loader/Categories.h"
#include "plugin/loader/WindowRefresh.h"
#include "plugin/theme/SelectedTheme.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

void install(const ThemedClass& themed) {
  if (isAttached(themed)) send<void>(classNamed(themed.name), selector<"addSwizzleMethod">());
}

struct LoaderClass : ObjectState {
  void initialize() {
    if (VLRIsCustomThemeSelected()) {
      installOverrides();
      call<"refreshWindows">(self);
    }
    VLRGridSettingsReader::shared().startWatching();
  }
  void refresh() { refreshWindows(); }
  NSView findSubview(NSString className, NSView root) { return findSubviewOfClass(className, root); }
  void resetLibrary(NSView view) { resetLibViewColors(view); }
  void resetMixer(NSObject node) { resetMixerNode(node); }
  void resetLiveLoops(NSView view) { resetLiveLoopsView(view); }
  void resetEvents(NSView view) { resetEventViewColors(view); }

 private:
  static void installOverrides() {
    if (ThemeUtility::shared().useTrackColorAsArrangeStripBackground) install(themedString());
    for (const ThemedClass& themed : themedClasses()) install(themed);
    if (isHostEqualOrNewerThan("11.2")) install(themedImageNode());
  }
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
      .registered();
}

}  // namespace velura
