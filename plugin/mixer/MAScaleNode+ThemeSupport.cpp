// Scales that the host draws from ticks and labels.

#include "cocoa/Override.h"
#include "plugin/hostapi/MANode.h"
#include "plugin/loader/Attach.h"
#include "plugin/mixer/KeyPair.h"

namespace velura {
namespace {

using namespace cocoa;

using LabelColor = Override<"MAScaleNode", CGColorRef(), "labelColor", "customLabelColor">;
using HighlightedLabelColor =
    Override<"MAScaleNode", CGColorRef(), "highlightedLabelColor", "customHighlightedLabelColor">;
using SetType = Override<"MAScaleNode", void(NSInteger), "setType:", "customSetType:">;

constexpr KeyPair kTick{key<"scaleTickMarkColor">, key<"scaleTickMarkHighlightColor">};
constexpr KeyPair kZeroTick{key<"scale0DBTickMarkColor">, key<"scale0DBTickMarkHighlightColor">};

CGColorRef customLabelColor(MAScaleNode scale) {
  const NSColor themed = ThemeUtility::shared().colorForKey(key<"scaleNumberColor">);
  return themed ? themed.CGColor() : LabelColor::callHost(scale);
}
CGColorRef customHighlightedLabelColor(MAScaleNode scale) {
  const NSColor themed = ThemeUtility::shared().colorForKey(key<"scaleNumberHighlightColor">);
  return themed ? themed.CGColor() : HighlightedLabelColor::callHost(scale);
}

/// The mark of 0 dB: the host says so by where it puts the tick on a volume scale.
bool isZeroTick(MAScaleNode scale, MAScaleTick tick) {
  constexpr NSInteger kVolumeScale = 2;
  constexpr NSInteger kNumberedTick = 1;
  constexpr double kZeroPosition = 101.0;
  return scale.type() == kVolumeScale && tick.type() == kNumberedTick && tick.defaultYPosition() == kZeroPosition;
}

void customSetType(MAScaleNode scale, NSInteger type) {
  SetType::callHost(scale, type);
  for (const MAScaleTick tick : items<MAScaleTick>(scale.largeScaleTicks())) {
    const KeyPair& keys = isZeroTick(scale, tick) ? kZeroTick : kTick;
    if (const NSColor plain = keys.color(false)) tick.setColor(plain.CGColor());
    if (const NSColor highlighted = keys.color(true)) tick.setHighlightedColor(highlighted.CGColor());
  }
}

}  // namespace

void attachMAScaleNodeThemeSupport() {
  CategoryDefinition("MAScaleNode")
      .replacement<LabelColor, customLabelColor>()
      .replacement<HighlightedLabelColor, customHighlightedLabelColor>()
      .replacement<SetType, customSetType>()
      .classMethod<"addSwizzleMethod", installOnce<LabelColor, HighlightedLabelColor, SetType>>();
}

}  // namespace velura
