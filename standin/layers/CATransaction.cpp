// Nothing is animated here, so a transaction has nothing to group.

#include "cocoa/AppKit.h"
#include "standin/layers/Registration.h"
#include "standin/runtime/Objects.h"

using namespace cocoa;

namespace standin {

namespace {

struct Transaction : ObjectState {};

void nothing(Class) {}
void ignored(Class, BOOL) {}
void ignoredDuration(Class, double) {}

}  // namespace

void registerTransactions() {
  ClassDefinition<Transaction>("CATransaction", "NSObject")
      .classMethod<"begin", nothing>()
      .classMethod<"commit", nothing>()
      .classMethod<"flush", nothing>()
      .classMethod<"setDisableActions:", ignored>()
      .classMethod<"setAnimationDuration:", ignoredDuration>()
      .registered();
}

}  // namespace standin
