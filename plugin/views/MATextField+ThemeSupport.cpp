// The label of the volume in the mixer's legend.

#include "cocoa/AppKit.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"
#include "plugin/text/StringBytes.h"
#include "plugin/views/LayerColor.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"MATextField"};

struct ViewDidMoveToWindow : HostOverride<kClass, "viewDidMoveToWindow", void()> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kLegend);

  static void themed(NSView field) {
    constexpr std::string_view kVolumeLabel = "MAMixerLegendVolumeLabelItem";
    if (BriefUTF8(call<"identifier", NSString>(field)).view().starts_with(kVolumeLabel)) {
      fillLayer(field.superview().layer(), key<"componentsLabelBackgroundColor">);
    }
    callHost(field);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MATextField = OverridesOf<kClass, ViewDidMoveToWindow>::themedClass<>();
}  // namespace overrides

}  // namespace velura
