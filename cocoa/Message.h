#pragma once
// Typed message sends. What crosses a message is exactly what crosses it on the real platform: objects,
// selectors, BOOL, numbers, plain structs by value and C pointers, never a type of the C++ library.

#include <objc/message.h>

#include <concepts>
#include <type_traits>

#include "cocoa/Geometry.h"
#include "cocoa/Selector.h"

struct NSObject;

namespace cocoa {

/// A value that holds one object pointer and passes in a register as the pointer does.
template <class T>
concept Handle = std::derived_from<T, ::NSObject> && sizeof(T) == sizeof(id) && std::is_trivially_copyable_v<T>;

template <class T>
inline constexpr bool isPlainStruct = false;
template <>
inline constexpr bool isPlainStruct<CGPoint> = true;
template <>
inline constexpr bool isPlainStruct<CGSize> = true;
template <>
inline constexpr bool isPlainStruct<CGRect> = true;
template <>
inline constexpr bool isPlainStruct<NSRange> = true;

template <class T>
concept Crossing = std::is_void_v<T> || std::is_arithmetic_v<T> || std::is_enum_v<T> || std::is_pointer_v<T> ||
    Handle<T> || isPlainStruct<T>;

namespace detail {
template <class R, class... A>
using Implementation = R (*)(id, SEL, A...);

template <class R, class... A>
inline R invoke(IMP imp, id receiver, SEL sel, A... arguments) {
  // A method is stored as a pointer of no particular signature; the caller states the real one.
  return reinterpret_cast<Implementation<R, A...>>(reinterpret_cast<void (*)()>(imp))(receiver, sel, arguments...);
}

#if defined(__APPLE__)
/// Whether a result comes back through memory that the caller points to: the runtime then wants to be
/// called by another name on x86_64.
template <class R>
constexpr bool returnedInMemory() {
#if defined(__x86_64__)
  if constexpr (std::is_class_v<R>) return sizeof(R) > 16;
#endif
  return false;
}
template <class R>
inline IMP messenger() {
#if defined(__x86_64__)
  if constexpr (returnedInMemory<R>()) return reinterpret_cast<IMP>(objc_msgSend_stret);
#endif
  return reinterpret_cast<IMP>(objc_msgSend);
}
template <class R>
inline IMP superMessenger() {
#if defined(__x86_64__)
  if constexpr (returnedInMemory<R>()) return reinterpret_cast<IMP>(objc_msgSendSuper_stret);
#endif
  return reinterpret_cast<IMP>(objc_msgSendSuper);
}
#endif
}  // namespace detail

/// Sends a message. A nil receiver answers `R{}`.
template <class R, class... A>
requires(Crossing<R> && (Crossing<A> && ...)) inline R send(id receiver, SEL sel, A... arguments) {
  if (receiver == nullptr) [[unlikely]] {
    return R();
  }
#if defined(__APPLE__)
  return detail::invoke<R, A...>(detail::messenger<R>(), receiver, sel, arguments...);
#else
  return detail::invoke<R, A...>(objc_msg_lookup(receiver, sel), receiver, sel, arguments...);
#endif
}

template <class R, class... A>
inline R send(Class receiver, SEL sel, A... arguments) {
  return send<R>(asObject(receiver), sel, arguments...);
}

/// Sends to the implementation that the superclass of `implementor` has: the class that the calling
/// method belongs to is named, because the receiver may be of any subclass of it.
template <class R, class... A>
requires(Crossing<R> && (Crossing<A> && ...)) inline R
    sendSuper(Class implementor, id receiver, SEL sel, A... arguments) {
  if (receiver == nullptr) [[unlikely]] {
    return R();
  }
  struct objc_super target {};
#if defined(__APPLE__)
  target.receiver = receiver;
  target.super_class = class_getSuperclass(implementor);
  using F = R (*)(struct objc_super*, SEL, A...);
  return reinterpret_cast<F>(detail::superMessenger<R>())(&target, sel, arguments...);
#else
  target.self = receiver;
  target.super_class = class_getSuperclass(implementor);
  return detail::invoke<R, A...>(objc_msg_lookup_super(&target, sel), receiver, sel, arguments...);
#endif
}

/// Whether the object (or class) answers the message. False for nil.
inline bool respondsTo(id object, SEL sel) {
  return object != nullptr && send<BOOL>(object, selector<"respondsToSelector:">(), sel) != 0;
}

}  // namespace cocoa
