// The mixer's legend: its background, and its elements, which stay the host's.

#include "cocoa/AppKit.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/theme/ThemeUtility.h"

namespace velura {
namespace {

using namespace cocoa;

struct BackgroundColor : ThemedColor<"MixerLegendView", "backgroundColor", key<"componentsLabelBackgroundColor">> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kLegend);
};

struct AddElements : HostOverride<"MixerLegendViewController", "addElements", void()> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kLegend);

  static void themed(NSObject controller) { callHost(controller); }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MixerLegendView = OverridesOf<"MixerLegendView", BackgroundColor>::themedClass<>();

extern constinit const ThemedClass MixerLegendViewController =
    OverridesOf<"MixerLegendViewController", AddElements>::themedClass<>();
}  // namespace overrides

}  // namespace velura
