// Colours that the host takes from its asset catalogue by name.

#include "cocoa/AppKit.h"
#include "cocoa/Override.h"
#include "plugin/hostapi/Identifiers.h"
#include "plugin/loader/Attach.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {

using namespace cocoa;

namespace {

using ColorWithCatalogName =
    Override<"NSColor", NSColor(NSString, NSString),
             "colorWithCatalogName:colorName:", "customColorWithCatalogName:colorName:", MethodKind::kClass>;
using StepSequencerBackground = Override<"NSColor", NSColor(), "stepSequencerRowHeadersBackgroundColor",
                                         "customStepSequencerBackgroundColor", MethodKind::kClass>;

/// The host's main catalogue. A theme colours any of its entries by naming it.
constexpr FixedString kMainCatalogue{"#$assets-mainBundleID"};

NSColor customColorWithCatalogName(Class self, NSString catalogue, NSString name) {
  if (!catalogue.isEqualToString(literal<kMainCatalogue>())) {
    return ColorWithCatalogName::callHost(self, catalogue, name);
  }
  if (const NSColor themed = ThemeUtility::shared().colorForKey(name)) return themed;
  if (const NSColor host = ColorWithCatalogName::callHost(self, catalogue, name)) return host;
  return NSColor::colorNamed(name, NSBundle::bundleWithIdentifier(literal<kHostResourcesIdentifier>()));
}

NSColor customStepSequencerBackgroundColor(Class self) {
  const NSColor themed = ThemeUtility::shared().colorForKey(key<"StepSequencerHeader_EmptyAreaBelow">);
  return themed ? themed : StepSequencerBackground::callHost(self);
}

}  // namespace

void attachNSColorThemeSupport() {
  CategoryDefinition("NSColor")
      .replacement<ColorWithCatalogName, customColorWithCatalogName>()
      .replacement<StepSequencerBackground, customStepSequencerBackgroundColor>()
      .classMethod<"addSwizzleMethod", installOnce<ColorWithCatalogName, StepSequencerBackground>>();
}

}  // namespace velura
