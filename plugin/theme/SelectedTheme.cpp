#include "plugin/theme/SelectedTheme.h"

#include "plugin/hostapi/Identifiers.h"

namespace velura {

using namespace cocoa;

NSString VLRSelectedThemeName() {
  const Ref<NSUserDefaults> suite = NSUserDefaults::suiteNamed(literal<kCompanionSuite>());
  const auto name = as<NSString>(suite->objectForKey(literal<"kLastSelectedTheme">()));
  if (!name) return literal<"Default">();
  // The suite may take the string along when it goes.
  return autoreleased(Ref<NSString>(name));
}

bool VLRIsCustomThemeSelected() { return !VLRSelectedThemeName().isEqualToString(literal<"Default">()); }

}  // namespace velura
