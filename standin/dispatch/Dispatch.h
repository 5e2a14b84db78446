#pragma once
// The objects behind dispatch's handles. All of it may be used from any thread.

#include <atomic>
#include <functional>
#include <utility>

#include "cocoa/Dispatch.h"

namespace standin {

/// What queues and sources share. A new object has one reference.
class DispatchObject {
 public:
  DispatchObject() = default;
  DispatchObject(const DispatchObject&) = delete;
  DispatchObject& operator=(const DispatchObject&) = delete;
  virtual ~DispatchObject() = default;

  void retain() { references_.fetch_add(1, std::memory_order_relaxed); }
  /// False for an object that is being destroyed already.
  bool retainIfAlive();
  void release();
  virtual void resume() {}
  [[nodiscard]] void* context() const { return context_.load(); }
  void setContext(void* context) { context_.store(context); }

 private:
  std::atomic<long> references_{1};
  std::atomic<void*> context_{nullptr};
};

/// Owns one reference to an object of dispatch.
template <class T>
class Retained {
 public:
  explicit Retained(T* object) : object_(object) { object_->retain(); }
  Retained(const Retained& other) : Retained(other.object_) {}
  Retained(Retained&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Retained& operator=(Retained other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Retained() {
    if (object_ != nullptr) object_->release();
  }
  static Retained adopt(T* owned) {
    Retained taken;
    taken.object_ = owned;
    return taken;
  }
  T* operator->() const { return object_; }

 private:
  Retained() = default;
  T* object_ = nullptr;
};

using Work = std::function<void()>;

/// Runs one piece of work, in an autorelease pool of its own.
void runInPool(Work&& work);

class DispatchQueue : public DispatchObject {
 public:
  virtual void post(Work work) = 0;
  virtual void postAfter(dispatch_time_t when, Work work) = 0;
};

DispatchQueue& mainQueue();
DispatchQueue* makeSerialQueue();

/// Nanoseconds by the clock that CFAbsoluteTimeGetCurrent reads, which times of dispatch are measured by.
std::int64_t clockNanoseconds();
/// When a time of dispatch is due, in `clockNanoseconds`. The clock's own for DISPATCH_TIME_NOW.
std::int64_t dueTime(dispatch_time_t when);
inline constexpr dispatch_time_t kNever = ~dispatch_time_t{0};

/// The object behind a handle; null for null.
DispatchObject* objectBehind(dispatch_object_t handle);
inline DispatchQueue* queueBehind(dispatch_queue_t handle) { return static_cast<DispatchQueue*>(objectBehind(handle)); }

}  // namespace standin
