// The picture behind the bars of a level meter.

#include "plugin/mixer/LevelMeters.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"MALevelNodeBackgroundTextureCache"};

struct BackgroundTextureNamed
    : HostClassOverride<kClass,
                        "backgroundTextureNamed:withSize:constentScale:", CGImageRef(NSInteger, CGSize, CGFloat)> {
  static constexpr OpenWindow kOpenWindow = reachedBy(RefreshBranch::kMixerNodes);

  static CGImageRef themed(Class cache, NSInteger name, CGSize size, CGFloat scale) {
    const CGImageRef themed = levelMeterBackground(size, scale);
    return themed != nullptr ? themed : callHost(cache, name, size, scale);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MALevelNodeBackgroundTextureCache =
    OverridesOf<kClass, BackgroundTextureNamed>::themedClass<>();
}  // namespace overrides

}  // namespace velura
