#pragma once
// Dispatch's queues and vnode sources under their own names, in the forms that take a function and a context,
// and the same for callables. A callable runs once, in an autorelease pool of its own.

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

#include "cocoa/Memory.h"

#if defined(__APPLE__)
#include <dispatch/dispatch.h>
#else
struct dispatch_object_s {};
struct dispatch_queue_s : dispatch_object_s {};
struct dispatch_source_s : dispatch_object_s {};
struct dispatch_source_type_s;
struct dispatch_queue_attr_s;
using dispatch_object_t = dispatch_object_s*;
using dispatch_queue_t = dispatch_queue_s*;
using dispatch_source_t = dispatch_source_s*;
using dispatch_source_type_t = const dispatch_source_type_s*;
using dispatch_queue_attr_t = dispatch_queue_attr_s*;
using dispatch_function_t = void (*)(void* context);
using dispatch_time_t = std::uint64_t;

inline constexpr dispatch_queue_attr_t DISPATCH_QUEUE_SERIAL = nullptr;
inline constexpr dispatch_time_t DISPATCH_TIME_NOW = 0;
inline constexpr std::int64_t NSEC_PER_SEC = 1'000'000'000;

/// What happened to a watched file.
inline constexpr unsigned long DISPATCH_VNODE_DELETE = 0x1;
inline constexpr unsigned long DISPATCH_VNODE_WRITE = 0x2;
inline constexpr unsigned long DISPATCH_VNODE_EXTEND = 0x4;
inline constexpr unsigned long DISPATCH_VNODE_ATTRIB = 0x8;
inline constexpr unsigned long DISPATCH_VNODE_LINK = 0x10;
inline constexpr unsigned long DISPATCH_VNODE_RENAME = 0x20;
inline constexpr unsigned long DISPATCH_VNODE_REVOKE = 0x40;

/// Opens a file only to be told of what happens to it.
inline constexpr int O_EVTONLY = 010000000;  // O_PATH

extern "C" {
extern dispatch_queue_s _dispatch_main_q;
extern const dispatch_source_type_s _dispatch_source_type_vnode;

dispatch_queue_t dispatch_queue_create(const char* label, dispatch_queue_attr_t attributes);
void dispatch_retain(dispatch_object_t object);
void dispatch_release(dispatch_object_t object);
void dispatch_set_context(dispatch_object_t object, void* context);
void* dispatch_get_context(dispatch_object_t object);

void dispatch_async_f(dispatch_queue_t queue, void* context, dispatch_function_t work);
/// `delta` in nanoseconds after `when`.
dispatch_time_t dispatch_time(dispatch_time_t when, std::int64_t delta);
void dispatch_after_f(dispatch_time_t when, dispatch_queue_t queue, void* context, dispatch_function_t work);

/// A source starts suspended: `dispatch_resume` brings it to work. Null for a descriptor that cannot be watched.
dispatch_source_t dispatch_source_create(dispatch_source_type_t type, std::uintptr_t handle, std::uintptr_t mask,
                                         dispatch_queue_t queue);
void dispatch_source_set_event_handler_f(dispatch_source_t source, dispatch_function_t handler);
/// Runs once on the source's queue after the source was cancelled and its last event handler has returned.
void dispatch_source_set_cancel_handler_f(dispatch_source_t source, dispatch_function_t handler);
/// The events that led to the running event handler.
std::uintptr_t dispatch_source_get_data(dispatch_source_t source);
void dispatch_source_cancel(dispatch_source_t source);
void dispatch_resume(dispatch_object_t object);
}

inline dispatch_queue_t dispatch_get_main_queue() { return &_dispatch_main_q; }
inline constexpr dispatch_source_type_t DISPATCH_SOURCE_TYPE_VNODE = &_dispatch_source_type_vnode;
#endif

namespace cocoa {

namespace detail {
template <class Work>
void runOwned(void* context) {
  const AutoreleasePool pool;
  const std::unique_ptr<Work> work(static_cast<Work*>(context));
  (*work)();
}
}  // namespace detail

/// Runs a callable on a queue, later.
template <std::invocable Work>
void async(dispatch_queue_t queue, Work work) {
  dispatch_async_f(queue, new Work(std::move(work)), detail::runOwned<Work>);
}

/// The same, not before `seconds` have passed.
template <std::invocable Work>
void asyncAfter(double seconds, dispatch_queue_t queue, Work work) {
  const auto delay = static_cast<std::int64_t>(seconds * static_cast<double>(NSEC_PER_SEC));
  dispatch_after_f(dispatch_time(DISPATCH_TIME_NOW, delay), queue, new Work(std::move(work)), detail::runOwned<Work>);
}

}  // namespace cocoa
