#include "plugin/theme/VLRStripBevel.h"

#include <utility>

#include "plugin/text/StringBytes.h"

namespace velura {

using namespace cocoa;

namespace {

NSObject bevelFromStringMessage(Class /*self*/, NSObject value) { return VLRStripBevel::bevelFromString(value); }

}  // namespace

NSObject VLRStripBevel::bevelFromString(NSObject value) {
  const auto data = parseBevel(utf8Bytes(as<NSString>(value)));
  if (!data) return {};
  auto made = Ref<NSObject>::adopt(
      send<NSObject>(send<id>(DefinedClass<VLRStripBevel>::cls, selector<"alloc">()), selector<"init">()));
  static_cast<BevelData&>(stateOf<VLRStripBevel>(made.get())) = *data;
  return autoreleased(std::move(made));
}

void defineVLRStripBevel() {
  if (DefinedClass<VLRStripBevel>::cls != nullptr) return;
  ClassDefinition<VLRStripBevel>("VLRStripBevel", "NSObject")
      .classMethod<"bevelFromString:", bevelFromStringMessage>()
      .method<"styleForHighlighted:", &VLRStripBevel::styleForHighlighted>()
      .getter<"style", &VLRStripBevel::style>()
      .getter<"selectedStyle", &VLRStripBevel::selectedStyle>()
      .getter<"width", &VLRStripBevel::width>()
      .getter<"strength", &VLRStripBevel::strength>()
      .registered();
}

}  // namespace velura
