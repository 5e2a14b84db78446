#pragma once
// Names that live in the type system: a selector, a class or a constant string is spelled once as a
// template argument and registered with the runtime on first use.

#include <objc/runtime.h>

#include <atomic>
#include <string_view>

#include "cocoa/FixedString.h"

namespace cocoa {

namespace detail {
template <FixedString Name>
inline constinit std::atomic<SEL> selectorSlot{nullptr};
template <FixedString Name>
inline constinit std::atomic<Class> classSlot{nullptr};

template <FixedString Name>
[[gnu::cold, gnu::noinline]] SEL registerSelector() {
  SEL sel = sel_registerName(Name.text);
  selectorSlot<Name>.store(sel, std::memory_order_relaxed);
  return sel;
}
}  // namespace detail

/// The runtime's selector for `Name`. Registering is idempotent, so two threads may race to do it.
template <FixedString Name>
inline SEL selector() {
  SEL sel = detail::selectorSlot<Name>.load(std::memory_order_relaxed);
  if (sel != nullptr) [[likely]] {
    return sel;
  }
  return detail::registerSelector<Name>();
}

inline bool sameSelector(SEL a, SEL b) { return a == b || sel_isEqual(a, b) != 0; }

/// The class called `name`, or null when no such class is loaded.
inline Class classNamed(const char* name) { return static_cast<Class>(objc_lookUpClass(name)); }

/// The class called `Name`; remembered only once it was found, because a host may load it later.
template <FixedString Name>
inline Class classNamed() {
  Class cls = detail::classSlot<Name>.load(std::memory_order_relaxed);
  if (cls == nullptr) [[unlikely]] {
    cls = classNamed(Name.text);
    detail::classSlot<Name>.store(cls, std::memory_order_relaxed);
  }
  return cls;
}

inline id asObject(Class cls) { return reinterpret_cast<id>(cls); }

/// The class of a class: where its class methods live.
inline Class metaclassOf(Class cls) { return cls == nullptr ? nullptr : object_getClass(asObject(cls)); }

}  // namespace cocoa
