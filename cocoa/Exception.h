#pragma once
// The one place that catches what the host raises.

#include <cxxabi.h>
#include <unwind.h>

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <typeinfo>

#include "cocoa/Foundation.h"

namespace cocoa {

/// An exception of the host, read after its handler was left.
struct Raised {
  std::string name;
  std::string reason;
};

namespace detail {
#if defined(__APPLE__)
extern "C" const void* objc_ehtype_vtable[];
extern "C" void* __cxa_current_primary_exception() noexcept;
extern "C" void __cxa_decrement_exception_refcount(void*) noexcept;

/// The object of the exception being handled; null for a C++ exception.
inline id exceptionInFlight() {
  const std::type_info* type = abi::__cxa_current_exception_type();
  if (type == nullptr) return nullptr;
  const void* vtable = nullptr;
  std::memcpy(&vtable, static_cast<const void*>(type), sizeof vtable);
  if (vtable != static_cast<const void*>(objc_ehtype_vtable + 2)) return nullptr;
  void* thrown = __cxa_current_primary_exception();
  id object = nullptr;
  std::memcpy(&object, thrown, sizeof object);
  __cxa_decrement_exception_refcount(thrown);
  return object;
}
#else
/// The object of the exception being handled; null for a C++ exception. To the C++ runtime an
/// Objective-C exception is foreign: it hangs the unwinder's header into its own list of caught
/// exceptions as if that header closed one of its records. The object follows the header.
inline id exceptionInFlight() {
  constexpr std::size_t kHeaderOffset = 80;
  constexpr char kObjectiveC[] = {'G', 'N', 'U', 'C', 'O', 'B', 'J', 'C'};
  struct Globals {
    char* caught;
    unsigned uncaught;
  };
  Globals globals{};
  std::memcpy(&globals, abi::__cxa_get_globals(), sizeof globals);
  if (globals.caught == nullptr) return nullptr;
  const char* header = globals.caught + kHeaderOffset;
  std::uint64_t exceptionClass = 0;
  std::memcpy(&exceptionClass, header, sizeof exceptionClass);
  std::uint64_t expected = 0;
  for (char c : kObjectiveC) expected = expected << 8U | static_cast<unsigned char>(c);
  if (exceptionClass != expected) return nullptr;
  id object = nullptr;
  std::memcpy(&object, header + sizeof(_Unwind_Exception), sizeof object);
  return object;
}
#endif
}  // namespace detail

/// Runs `f`; answers the exception that the host raised in it, if it did. A C++ exception passes on.
/// The handler is left before the exception's name and reason are read: an Objective-C exception that is
/// raised and caught inside a C++ handler ends the process.
template <class F>
std::optional<Raised> guarded(F&& f) {
  Ref<NSException> exception;
  try {
    f();
    return std::nullopt;
  } catch (...) {
    exception = NSException(detail::exceptionInFlight());
    if (!exception) throw;
  }
  // Any object may be thrown; only an exception has a name and a reason.
  if (!as<NSException>(exception))
    return Raised{toStdString(exception->className()), toStdString(exception->description())};
  return Raised{toStdString(exception->name()), toStdString(exception->reason())};
}

/// What a query of the host finds; an empty value when the host raises an exception in it.
template <class Query>
auto foundBy(Query query) {
  decltype(query()) found{};
  static_cast<void>(guarded([&] { found = query(); }));
  return found;
}

}  // namespace cocoa
