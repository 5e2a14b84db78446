#include "plugin/imaging/RectToSourceColorData.h"

#include "cocoa/Call.h"

namespace velura {

using namespace cocoa;

Ref<NSObject> RectToSourceColorData::make(CGRect rect, NSColor source, NSColor suggested, double ignoreAlpha,
                                          bool compareAlpha) {
  const id made = call<"alloc", id>(DefinedClass<RectToSourceColorData>::cls);
  return Ref<NSObject>::adopt(
      call<"initWithRect:sourceColor:suggestedColor:ignoreAlphaValue:compareAlphaValue:", NSObject>(
          made, rect, source, suggested, ignoreAlpha, BOOL(compareAlpha)));
}

id RectToSourceColorData::init(CGRect rect, NSColor source, NSColor suggested, double ignoreAlpha, BOOL compareAlpha) {
  superSend<RectToSourceColorData, id>(self, selector<"init">());
  mRect = rect;
  sourceColor = source;
  suggestedColor = suggested;
  ignoreAlphaValue = ignoreAlpha;
  compareAlphaValue = compareAlpha != 0;
  return self;
}

void defineRectToSourceColorData() {
  using Data = RectToSourceColorData;
  if (DefinedClass<Data>::cls != nullptr) return;
  ClassDefinition<Data>("RectToSourceColorData", "NSObject")
      .method<"initWithRect:sourceColor:suggestedColor:ignoreAlphaValue:compareAlphaValue:", &Data::init>()
      .property<"mRect", "setMRect:", &Data::mRect>()
      .atomicProperty<"sourceColor", "setSourceColor:", &Data::sourceColor>()
      .atomicProperty<"suggestedColor", "setSuggestedColor:", &Data::suggestedColor>()
      .property<"ignoreAlphaValue", "setIgnoreAlphaValue:", &Data::ignoreAlphaValue>()
      .property<"compareAlphaValue", "setCompareAlphaValue:", &Data::compareAlphaValue>()
      .registered();
}

}  // namespace velura
