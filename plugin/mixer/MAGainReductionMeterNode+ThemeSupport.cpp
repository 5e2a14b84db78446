// Gain reduction meters.

#include "plugin/hostapi/MANode.h"
#include "plugin/mixer/KeyPair.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"MAGainReductionMeterNode"};

constexpr KeyPair kFill{key<"UnselectedGainReductionFillColor">, key<"SelectedGainReductionFillColor">};

struct BackgroundFillColor : HostOverride<kClass, "backgroundFillColor", NSColor()> {
  static constexpr OpenWindow kOpenWindow = notReached(kPassedOver, "MAGainReductionMeterNode gainReductionMeter");

  static NSColor themed(MANode meter) {
    const bool isOn = respondsTo<"isOn">(meter) && callBool<"isOn">(meter.object);
    const NSColor themed = ThemeUtility::shared().colorForKey(isOn ? key<"GainReductionBackgroundColor">
                                                                   : key<"GainReductionEmptyBackgroundColor">);
    return themed ? themed : callHost(meter);
  }
};

struct FillColor : HostOverride<kClass, "fillColor", NSColor()> {
  static constexpr OpenWindow kOpenWindow = notReached(kPassedOver);

  static NSColor themed(MANode meter) {
    const NSColor themed = kFill.color(meter.isHighlighted());
    return themed ? themed : callHost(meter);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MAGainReductionMeterNode =
    OverridesOf<kClass, BackgroundFillColor, FillColor>::themedClass<>();
}  // namespace overrides

}  // namespace velura
