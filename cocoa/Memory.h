#pragma once
// Ownership: `Ref<T>` retains what a handle only names; a pool releases what was autoreleased in it.

#include <utility>

#include "cocoa/Message.h"

namespace cocoa {

/// Owns one object. Null when it holds none.
template <class T>
class Ref {
 public:
  Ref() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): retaining a handle loses nothing
  Ref(T handle) : handle_(handle) { retain(); }
  Ref(const Ref& other) : handle_(other.handle_) { retain(); }
  Ref(Ref&& other) noexcept : handle_(std::exchange(other.handle_, T())) {}
  Ref& operator=(Ref other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~Ref() { send<void>(handle_.object, selector<"release">()); }

  /// Takes over a reference that the caller owns already (an `alloc`, `copy` or `Create` result).
  static Ref adopt(T owned) {
    Ref ref;
    ref.handle_ = owned;
    return ref;
  }

  /// Gives the reference up to the caller, who owns it from then on.
  [[nodiscard]] T detach() { return std::exchange(handle_, T()); }

  [[nodiscard]] T get() const { return handle_; }
  const T* operator->() const { return &handle_; }
  // NOLINTNEXTLINE(google-explicit-constructor): a Ref serves wherever its handle does
  operator T() const { return handle_; }
  explicit operator bool() const { return handle_.object != nullptr; }

 private:
  void retain() { send<id>(handle_.object, selector<"retain">()); }
  T handle_;
};

/// Hands an owned object over to the innermost pool, as a plain result is handed over.
template <class T>
T autoreleased(Ref<T> owned) {
  const T handle = owned.detach();
  send<id>(handle.object, selector<"autorelease">());
  return handle;
}

/// Releases at the end of the scope what was autoreleased in it. Open one at the top of every callback
/// of a queue or source. Never let an exception of the host pass one: it is autoreleased itself.
class AutoreleasePool {
 public:
  AutoreleasePool()
      : pool_(send<id>(send<id>(classNamed<"NSAutoreleasePool">(), selector<"alloc">()), selector<"init">())) {}
  AutoreleasePool(const AutoreleasePool&) = delete;
  AutoreleasePool& operator=(const AutoreleasePool&) = delete;
  ~AutoreleasePool() { send<void>(pool_, selector<"drain">()); }

 private:
  id pool_;
};

}  // namespace cocoa
