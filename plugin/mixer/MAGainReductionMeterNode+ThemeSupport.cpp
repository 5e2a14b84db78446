// Gain reduction meters.

#include "cocoa/Override.h"
#include "plugin/hostapi/MANode.h"
#include "plugin/loader/Attach.h"
#include "plugin/mixer/KeyPair.h"

namespace velura {
namespace {

using namespace cocoa;

using BackgroundFillColor =
    Override<"MAGainReductionMeterNode", NSColor(), "backgroundFillColor", "customBackgroundFillColor">;
using FillColor = Override<"MAGainReductionMeterNode", NSColor(), "fillColor", "customFillColor">;

constexpr KeyPair kFill{key<"UnselectedGainReductionFillColor">, key<"SelectedGainReductionFillColor">};

NSColor customBackgroundFillColor(MANode meter) {
  const bool isOn = meter.respondsToSelector(selector<"isOn">()) && asks<"isOn">(meter.object);
  const NSColor themed = ThemeUtility::shared().colorForKey(isOn ? key<"GainReductionBackgroundColor">
                                                                 : key<"GainReductionEmptyBackgroundColor">);
  return themed ? themed : BackgroundFillColor::callHost(meter);
}

NSColor customFillColor(MANode meter) {
  const NSColor themed = kFill.color(meter.isHighlighted());
  return themed ? themed : FillColor::callHost(meter);
}

}  // namespace

void attachMAGainReductionMeterNodeThemeSupport() {
  CategoryDefinition("MAGainReductionMeterNode")
      .replacement<BackgroundFillColor, customBackgroundFillColor>()
      .replacement<FillColor, customFillColor>()
      .classMethod<"addSwizzleMethod", installOnce<BackgroundFillColor, FillColor>>();
}

}  // namespace velura
