// Scales that the host draws from ticks and labels.

#include "plugin/hostapi/MANode.h"
#include "plugin/mixer/KeyPair.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"

namespace velura {
namespace {

using namespace cocoa;

using Scale = MAScaleNode;
constexpr FixedString kClass = Scale::kClassName;

constexpr KeyPair kTick{key<"scaleTickMarkColor">, key<"scaleTickMarkHighlightColor">};
constexpr KeyPair kZeroTick{key<"scale0DBTickMarkColor">, key<"scale0DBTickMarkHighlightColor">};

struct LabelColor : ThemedColor<kClass, "labelColor", key<"scaleNumberColor">, CGColorRef> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerNodes);
};

struct HighlightedLabelColor
    : ThemedColor<kClass, "highlightedLabelColor", key<"scaleNumberHighlightColor">, CGColorRef> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerNodes);
};

/// The mark of 0 dB: the host says so by where it puts the tick on a volume scale.
bool isZeroTick(Scale scale, MAScaleTick tick) {
  constexpr NSInteger kVolumeScale = 2;
  constexpr NSInteger kNumberedTick = 1;
  constexpr double kZeroPosition = 101.0;
  return scale.type() == kVolumeScale && tick.type() == kNumberedTick && tick.defaultYPosition() == kZeroPosition;
}

struct SetType : HostOverride<kClass, "setType:", void(NSInteger)> {
  static constexpr OpenWindow kOpenWindow = notReached(kKeepsTicks, "MAScaleNode levelScale, MAScaleNode volumeScale");

  static void themed(Scale scale, NSInteger type) {
    callHost(scale, type);
    for (const MAScaleTick tick : items<MAScaleTick>(scale.largeScaleTicks())) {
      const KeyPair& keys = isZeroTick(scale, tick) ? kZeroTick : kTick;
      if (const NSColor plain = keys.color(false)) tick.setColor(plain.CGColor());
      if (const NSColor highlighted = keys.color(true)) tick.setHighlightedColor(highlighted.CGColor());
    }
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MAScaleNode =
    OverridesOf<kClass, LabelColor, HighlightedLabelColor, SetType>::themedClass<>();
}  // namespace overrides

}  // namespace velura
