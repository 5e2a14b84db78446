#include "standin/text/Registration.h"
#include "standin/text/Text.h"

using namespace cocoa;

namespace standin {

namespace {

/// State of NSMutableParagraphStyle, which adds only setters.
struct MutableParagraph : ObjectState {
  void setAlignment(NSTextAlignment alignment) { stateOf<ParagraphState>(self).alignment = alignment; }
  void setLineBreakMode(NSLineBreakMode mode) { stateOf<ParagraphState>(self).lineBreakMode = mode; }
};

NSParagraphStyle defaultStyle(Class) {
  static const NSParagraphStyle shared(newObject<ParagraphState>());
  return shared;
}

template <class Made>
id copied(const ParagraphState& from) {
  const id made = newObject<Made>();
  auto& state = stateOf<ParagraphState>(made);
  state.alignment = from.alignment;
  state.lineBreakMode = from.lineBreakMode;
  return made;
}

}  // namespace

id ParagraphState::copy(void*) { return copied<ParagraphState>(*this); }
id ParagraphState::mutableCopy(void*) { return copied<MutableParagraph>(*this); }

BOOL ParagraphState::isEqual(NSObject other) {
  const auto* style = stateIfKind<ParagraphState>(other);
  return static_cast<BOOL>(style != nullptr && style->alignment == alignment && style->lineBreakMode == lineBreakMode);
}
NSUInteger ParagraphState::hash() {
  return static_cast<NSUInteger>(alignment) * 31U + static_cast<NSUInteger>(lineBreakMode);
}

void registerParagraphStyles() {
  ClassDefinition<ParagraphState>("NSParagraphStyle", "NSObject")
      .classMethod<"defaultParagraphStyle", defaultStyle>()
      .getter<"alignment", &ParagraphState::alignment>()
      .getter<"lineBreakMode", &ParagraphState::lineBreakMode>()
      .method<"copyWithZone:", &ParagraphState::copy>()
      .method<"mutableCopyWithZone:", &ParagraphState::mutableCopy>()
      .method<"isEqual:", &ParagraphState::isEqual>()
      .method<"hash", &ParagraphState::hash>()
      .registered();
  ClassDefinition<MutableParagraph>("NSMutableParagraphStyle", "NSParagraphStyle")
      .method<"setAlignment:", &MutableParagraph::setAlignment>()
      .method<"setLineBreakMode:", &MutableParagraph::setLineBreakMode>()
      .registered();
}

}  // namespace standin
