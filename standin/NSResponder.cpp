#include "standin/View.h"

using namespace cocoa;

namespace standin {

void registerResponders() {
  ClassDefinition<ResponderState>("NSResponder", "NSObject")
      .method<"nextResponder", &ResponderState::nextResponder>()
      .method<"setNextResponder:", &ResponderState::setNextResponder>()
      .registered();
}

}  // namespace standin
