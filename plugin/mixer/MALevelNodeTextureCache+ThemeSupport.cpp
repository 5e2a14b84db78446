// The pictures that the host makes level meters of.

#include "plugin/mixer/LevelMeters.h"
#include "plugin/overrides/HostOverride.h"
#include "plugin/overrides/ThemedClass.h"

namespace velura {
namespace {

using namespace cocoa;

constexpr FixedString kClass{"MALevelNodeTextureCache"};

struct TextureNamed
    : HostClassOverride<kClass, "textureNamed:withSize:constentScale:", CGImageRef(NSInteger, CGSize, CGFloat)> {
  static constexpr OpenWindow kOpenWindow = notReached("a meter keeps the picture that it has");

  static CGImageRef themed(Class cache, NSInteger number, CGSize size, CGFloat scale) {
    const MeterType type = MeterType::of(number);
    if (type.style < 0) return callHost(cache, number, size, scale);
    const CGImageRef themed = vlrLevelMeterTexture(type, size, scale);
    // The host knows its own numbers only.
    return themed != nullptr ? themed : callHost(cache, type.base, size, scale);
  }
};

}  // namespace

namespace overrides {
extern constinit const ThemedClass MALevelNodeTextureCache = OverridesOf<kClass, TextureNamed>::themedClass<>();
}  // namespace overrides

}  // namespace velura
