#pragma once
// A message whose selector is a template argument: what handles are written with.

#include "cocoa/Foundation.h"

namespace cocoa {

/// Sends `Selector` to an object, a handle or a class.
template <FixedString Selector, class R = void, class... A>
R call(id receiver, A... arguments) {
  static_assert(Selector.arguments() == sizeof...(A), "the selector names another number of arguments");
  return send<R>(receiver, selector<Selector>(), arguments...);
}
template <FixedString Selector, class R = void, class... A>
R call(NSObject receiver, A... arguments) {
  return call<Selector, R>(receiver.object, arguments...);
}
template <FixedString Selector, class R = void, class... A>
R call(Class receiver, A... arguments) {
  return call<Selector, R>(asObject(receiver), arguments...);
}

/// The same for a question that is answered with BOOL.
template <FixedString Selector, class... A>
bool callBool(id receiver, A... arguments) {
  return call<Selector, BOOL>(receiver, arguments...) != 0;
}

template <FixedString Selector, class... A>
bool callBool(NSObject receiver, A... arguments) {
  return callBool<Selector>(receiver.object, arguments...);
}

/// Whether an object answers the message. False for nil.
template <FixedString Selector>
bool respondsTo(NSObject object) {
  return respondsTo(object.object, selector<Selector>());
}

/// What an object answers, if it can be asked; zero or nil otherwise.
template <FixedString Getter, class R = NSObject>
R callIfResponds(NSObject object) {
  return respondsTo<Getter>(object) ? call<Getter, R>(object) : R();
}

/// Sends a class message to the class that a handle type names.
template <Handle T, FixedString Selector, class R = T, class... A>
R callClass(A... arguments) {
  return call<Selector, R>(asObject(classOf<T>()), arguments...);
}

/// `alloc` and the given initialiser; null when the initialiser refuses.
template <Handle T, FixedString Initialiser, class... A>
Ref<T> makeWith(A... arguments) {
  return Ref<T>::adopt(call<Initialiser, T>(allocate<T>(), arguments...));
}

}  // namespace cocoa
