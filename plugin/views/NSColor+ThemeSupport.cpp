// Colours that the host takes from its asset catalogue by name.

#include "cocoa/AppKit.h"
#include "plugin/hostapi/Identifiers.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {

using namespace cocoa;

namespace {

constexpr FixedString kClass{"NSColor"};

/// The host's main catalogue. A theme colours any of its entries by naming it.
constexpr FixedString kMainCatalogue{"#$assets-mainBundleID"};

struct ColorWithCatalogName
    : HostClassOverride<kClass, "colorWithCatalogName:colorName:", NSColor(NSString, NSString)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kLibrary);

  static NSColor themed(Class self, NSString catalogue, NSString name) {
    if (!catalogue.isEqualToString(literal<kMainCatalogue>())) {
      return callHost(self, catalogue, name);
    }
    if (const NSColor themed = ThemeUtility::shared().colorForKey(name)) return themed;
    if (const NSColor host = callHost(self, catalogue, name)) return host;
    return NSColor::colorNamed(name, NSBundle::bundleWithIdentifier(literal<kHostResourcesIdentifier>()));
  }
};

struct StepSequencerBackground
    : ThemedClassColor<kClass, "stepSequencerRowHeadersBackgroundColor", key<"StepSequencerHeader_EmptyAreaBelow">,
                       "customStepSequencerBackgroundColor"> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kHost);
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass NSColor =
    OverridesOf<kClass, ColorWithCatalogName, StepSequencerBackground>::themedClass<>();
}  // namespace overrides

}  // namespace velura
