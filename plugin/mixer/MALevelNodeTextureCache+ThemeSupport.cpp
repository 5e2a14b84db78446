// The pictures that the host makes level meters of.

#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/mixer/LevelMeters.h"

namespace velura {
namespace {

using namespace cocoa;

using TextureNamed =
    Override<"MALevelNodeTextureCache", CGImageRef(NSInteger, CGSize, CGFloat),
             "textureNamed:withSize:constentScale:", "customTextureNamed:withSize:constentScale:", MethodKind::kClass>;

CGImageRef customTextureNamed(Class cache, NSInteger number, CGSize size, CGFloat scale) {
  const MeterType type = MeterType::of(number);
  if (type.style < 0) return TextureNamed::callHost(cache, number, size, scale);
  const CGImageRef themed = vlrLevelMeterTexture(type, size, scale);
  // The host knows its own numbers only.
  return themed != nullptr ? themed : TextureNamed::callHost(cache, type.base, size, scale);
}

}  // namespace

void attachMALevelNodeTextureCacheThemeSupport() {
  CategoryDefinition("MALevelNodeTextureCache")
      .replacement<TextureNamed, customTextureNamed>()
      .classMethod<"addSwizzleMethod", installOnce<TextureNamed>>();
}

}  // namespace velura
