#pragma once
// How the stand-in makes objects of its own classes.

#include "cocoa/Call.h"
#include "cocoa/ClassDefinition.h"
#include "cocoa/CoreGraphics.h"

namespace standin {

/// A new object of the class defined with `State`, owned by the caller.
template <class State>
id newObject() {
  return cocoa::send<id>(cocoa::DefinedClass<State>::cls, cocoa::selector<"alloc">());
}

/// The state behind a Core Foundation pointer that is known to be of the class defined with `State`.
template <class State>
State& stateBehind(CFTypeRef object) {
  return cocoa::stateOf<State>(cocoa::bridged(object));
}

template <class T>
T autoreleasedReference(T owned) {
  cocoa::send<id>(cocoa::bridged(owned).object, cocoa::selector<"autorelease">());
  return owned;
}

}  // namespace standin
