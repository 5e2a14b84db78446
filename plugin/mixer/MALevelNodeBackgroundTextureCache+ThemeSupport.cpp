// The picture behind the bars of a level meter.

#include "cocoa/Override.h"
#include "plugin/loader/Attach.h"
#include "plugin/mixer/LevelMeters.h"

namespace velura {
namespace {

using namespace cocoa;

using BackgroundTextureNamed = Override<"MALevelNodeBackgroundTextureCache", CGImageRef(NSInteger, CGSize, CGFloat),
                                        "backgroundTextureNamed:withSize:constentScale:",
                                        "customBackgroundTextureNamed:withSize:constentScale:", MethodKind::kClass>;

CGImageRef customBackgroundTextureNamed(Class cache, NSInteger name, CGSize size, CGFloat scale) {
  const CGImageRef themed = levelMeterBackground(size, scale);
  return themed != nullptr ? themed : BackgroundTextureNamed::callHost(cache, name, size, scale);
}

}  // namespace

void attachMALevelNodeBackgroundTextureCacheThemeSupport() {
  CategoryDefinition("MALevelNodeBackgroundTextureCache")
      .replacement<BackgroundTextureNamed, customBackgroundTextureNamed>()
      .classMethod<"addSwizzleMethod", installOnce<BackgroundTextureNamed>>();
}

}  // namespace velura
