#include "standin/dispatch/Worker.h"

#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <asio/bind_executor.hpp>
#include <asio/executor_work_guard.hpp>
#include <asio/post.hpp>
#include <asio/steady_timer.hpp>
#include <asio/strand.hpp>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <thread>

#include "standin/dispatch/Dispatch.h"

extern "C" BOOL GSRegisterCurrentThread();

namespace standin {

namespace {

class Worker {
 public:
  Worker() {
    // Signals are for the threads of the host.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    std::thread([this] { run(); }).detach();
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
  }

  asio::io_context& loop() { return loop_; }

  /// Waits for the work that runs now, for a moment: it may itself wait for the thread that exits.
  void stop() {
    constexpr std::chrono::seconds kPatience{1};
    loop_.stop();
    std::unique_lock lock(mutex_);
    ended_.wait_for(lock, kPatience, [this] { return hasEnded_; });
  }

 private:
  void run() {
    GSRegisterCurrentThread();
    loop_.run();
    {
      const std::lock_guard lock(mutex_);
      hasEnded_ = true;
    }
    ended_.notify_all();
    // What a thread leaves behind would be taken apart beside the process: the exit ends it.
    for (;;) pause();
  }

  asio::io_context loop_{1};
  asio::executor_work_guard<asio::io_context::executor_type> guard_{loop_.get_executor()};
  std::mutex mutex_;
  std::condition_variable ended_;
  bool hasEnded_ = false;
};

Worker& worker() {
  static auto* shared = [] {
    auto* made = new Worker();  // outlives every late post
    std::atexit([] { worker().stop(); });
    return made;
  }();
  return *shared;
}

class SerialQueue : public DispatchQueue {
 public:
  void post(Work work) override {
    asio::post(strand_, [queue = Retained<DispatchQueue>(this), work = std::move(work)]() mutable {
      runInPool(std::move(work));
    });
  }

  void postAfter(dispatch_time_t when, Work work) override {
    constexpr std::int64_t kLongest = NSEC_PER_SEC * 3600 * 24 * 365;
    const std::int64_t delay = std::min(kLongest, dueTime(when) - clockNanoseconds());
    if (delay <= 0) return post(std::move(work));
    auto timer = std::make_shared<asio::steady_timer>(workerLoop(), std::chrono::nanoseconds(delay));
    timer->async_wait(asio::bind_executor(
        strand_, [queue = Retained<DispatchQueue>(this), timer, work = std::move(work)](asio::error_code) mutable {
          runInPool(std::move(work));
        }));
  }

 private:
  asio::strand<asio::io_context::executor_type> strand_ = asio::make_strand(workerLoop());
};

}  // namespace

asio::io_context& workerLoop() { return worker().loop(); }

DispatchQueue* makeSerialQueue() { return new SerialQueue(); }

}  // namespace standin
