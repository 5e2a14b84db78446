#include "standin/views/Registration.h"
#include "standin/views/View.h"

using namespace cocoa;

namespace standin {

namespace {

/// What a responder does not take goes to the next one.
template <FixedString Selector>
void passOn(NSResponder self, NSEvent event) {
  call<Selector>(self.nextResponder(), event);
}

}  // namespace

void registerResponders() {
  ClassDefinition<ResponderState>("NSResponder", "NSObject")
      .method<"nextResponder", &ResponderState::nextResponder>()
      .method<"setNextResponder:", &ResponderState::setNextResponder>()
      .registered();
  CategoryDefinition("NSResponder")
      .method<"mouseDown:", passOn<"mouseDown:">>()
      .method<"mouseDragged:", passOn<"mouseDragged:">>()
      .method<"mouseUp:", passOn<"mouseUp:">>();
}

}  // namespace standin
