// The main queue: work waits here until the host turns it.

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>

#include "standin/dispatch/Dispatch.h"
#include "standin/steering/RunLoop.h"

namespace standin {

namespace {

/// A clock in seconds cannot name every nanosecond: times closer than this are the same.
constexpr std::int64_t kSameTime = 1000;

class MainQueue : public DispatchQueue {
 public:
  void post(Work work) override {
    {
      const std::lock_guard lock(mutex_);
      makeReady(clockNanoseconds());
      ready_.push_back(std::move(work));
    }
    changed_.notify_all();
  }

  void postAfter(dispatch_time_t when, Work work) override {
    const std::int64_t due = dueTime(when);
    if (due <= clockNanoseconds()) return post(std::move(work));
    {
      const std::lock_guard lock(mutex_);
      delayed_.emplace(due, std::move(work));
    }
    changed_.notify_all();
  }

  std::size_t run() {
    const std::int64_t now = clockNanoseconds();
    std::size_t count = 0;
    while (Work work = next(now)) {
      runInPool(std::move(work));
      ++count;
    }
    return count;
  }

  std::optional<double> timeUntilWork() {
    const std::lock_guard lock(mutex_);
    return timeUntilReady();
  }

  bool wait(double seconds) {
    constexpr double kLongest = 1e6;
    constexpr double kShortest = 1e-3;  // a stopped clock never gets there, and waiting must not spin
    using Seconds = std::chrono::duration<double>;
    const auto start = std::chrono::steady_clock::now();
    const double most = seconds > 0 ? std::min(seconds, kLongest) : 0;
    std::unique_lock lock(mutex_);
    for (;;) {
      const auto until = timeUntilReady();
      if (until == 0.0) return true;
      const double left = most - Seconds(std::chrono::steady_clock::now() - start).count();
      if (!(left > 0)) return false;
      const double pause = until ? std::min(left, std::max(*until, kShortest)) : left;
      changed_.wait_for(lock, Seconds(pause));
    }
  }

 private:
  /// Moves what is due behind what was posted earlier.
  void makeReady(std::int64_t now) {
    while (!delayed_.empty() && delayed_.begin()->first <= now + kSameTime) {
      ready_.push_back(std::move(delayed_.begin()->second));
      delayed_.erase(delayed_.begin());
    }
  }
  /// Empty when nothing is ready.
  Work next(std::int64_t now) {
    const std::lock_guard lock(mutex_);
    makeReady(now);
    if (ready_.empty()) return {};
    Work work = std::move(ready_.front());
    ready_.pop_front();
    return work;
  }
  [[nodiscard]] std::optional<double> timeUntilReady() const {
    if (!ready_.empty()) return 0;
    if (delayed_.empty()) return std::nullopt;
    const std::int64_t left = delayed_.begin()->first - clockNanoseconds();
    return left <= kSameTime ? 0 : static_cast<double>(left) / static_cast<double>(NSEC_PER_SEC);
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Work> ready_;
  std::multimap<std::int64_t, Work> delayed_;  // by due time, equal times in their order
};

MainQueue& theMainQueue() {
  static auto* queue = new MainQueue();  // outlives every late post
  return *queue;
}

}  // namespace

DispatchQueue& mainQueue() { return theMainQueue(); }

std::size_t runMainQueue() { return theMainQueue().run(); }
std::optional<double> timeUntilMainQueueWork() { return theMainQueue().timeUntilWork(); }
bool waitForMainQueue(double seconds) { return theMainQueue().wait(seconds); }

}  // namespace standin
