#include "plugin/loader/LoaderClass.h"

#include "cocoa/ClassDefinition.h"
#include "plugin/arrange/VLRGridSettingsReader.h"
#include "plugin/loader/Categories.h"
#include "plugin/loader/HostVersion.h"
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
    if (VLRIsCustomThemeSelected()) installOverrides();
    VLRGridSettingsReader::shared().startWatching();
  }

 private:
  static void installOverrides() {
    if (ThemeUtility::shared().useTrackColorAsArrangeStripBackground) install(themedString());
    for (const ThemedClass& themed : themedClasses()) install(themed);
    if (isHostEqualOrNewerThan("11.2")) install(themedImageNode());
  }
};

}  // namespace

void defineLoaderClass() {
  ClassDefinition<LoaderClass>("LoaderClass", "NSObject").method<"initialize", &LoaderClass::initialize>().registered();
}

}  // namespace velura
