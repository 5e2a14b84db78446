// Dispatch's functions for objects, times and queues.

#include "standin/dispatch/Dispatch.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "cocoa/Foundation.h"

using namespace standin;

namespace standin {

namespace {

/// Times of dispatch lie around this, so that zero stays free to mean now.
constexpr std::int64_t kTimeOrigin = std::int64_t{1} << 62U;
constexpr std::int64_t kFarthest = kTimeOrigin - 1;

}  // namespace

bool DispatchObject::retainIfAlive() {
  long references = references_.load();
  while (references > 0) {
    if (references_.compare_exchange_weak(references, references + 1)) return true;
  }
  return false;
}

void DispatchObject::release() {
  if (references_.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
}

void runInPool(Work&& work) {
  const cocoa::AutoreleasePool pool;
  const Work running = std::move(work);  // what it holds is given up in the pool
  running();
}

std::int64_t clockNanoseconds() {
  constexpr double kMost = 4e18;
  return std::llround(std::clamp(CFAbsoluteTimeGetCurrent() * static_cast<double>(NSEC_PER_SEC), -kMost, kMost));
}

std::int64_t dueTime(dispatch_time_t when) {
  if (when == DISPATCH_TIME_NOW) return clockNanoseconds();
  return static_cast<std::int64_t>(std::min(when, static_cast<dispatch_time_t>(kTimeOrigin + kFarthest))) - kTimeOrigin;
}

DispatchObject* objectBehind(dispatch_object_t handle) {
  if (handle == &_dispatch_main_q) return &mainQueue();
  return reinterpret_cast<DispatchObject*>(handle);
}

}  // namespace standin

extern "C" {

dispatch_queue_s _dispatch_main_q;

dispatch_queue_t dispatch_queue_create(const char*, dispatch_queue_attr_t) {
  return reinterpret_cast<dispatch_queue_t>(static_cast<DispatchObject*>(makeSerialQueue()));
}

void dispatch_retain(dispatch_object_t object) {
  if (object != nullptr) objectBehind(object)->retain();
}
void dispatch_release(dispatch_object_t object) {
  if (object != nullptr && object != &_dispatch_main_q) objectBehind(object)->release();
}
void dispatch_set_context(dispatch_object_t object, void* context) {
  if (object != nullptr) objectBehind(object)->setContext(context);
}
void* dispatch_get_context(dispatch_object_t object) {
  return object == nullptr ? nullptr : objectBehind(object)->context();
}
void dispatch_resume(dispatch_object_t object) {
  if (object != nullptr) objectBehind(object)->resume();
}

void dispatch_async_f(dispatch_queue_t queue, void* context, dispatch_function_t work) {
  if (queue != nullptr && work != nullptr) queueBehind(queue)->post([context, work] { work(context); });
}

dispatch_time_t dispatch_time(dispatch_time_t when, std::int64_t delta) {
  if (when == kNever) return kNever;
  std::int64_t due = 0;
  if (__builtin_add_overflow(dueTime(when), delta, &due) || due > kFarthest) return delta > 0 ? kNever : 1;
  return static_cast<dispatch_time_t>(std::max(due, -kFarthest) + kTimeOrigin);
}

void dispatch_after_f(dispatch_time_t when, dispatch_queue_t queue, void* context, dispatch_function_t work) {
  if (queue == nullptr || work == nullptr || when == kNever) return;
  queueBehind(queue)->postAfter(when, [context, work] { work(context); });
}
}
