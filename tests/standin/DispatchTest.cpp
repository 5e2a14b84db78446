// Queues and the sources that watch files.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <functional>
#include <semaphore>
#include <thread>
#include <vector>

#include "cocoa/Dispatch.h"
#include "cocoa/Foundation.h"
#include "standin/steering/Clock.h"
#include "standin/steering/RunLoop.h"

namespace {

using namespace cocoa;
namespace fs = std::filesystem;

/// The clock stands while this lives.
struct StoppedClock {
  explicit StoppedClock(double seconds) { standin::setClock(seconds); }
  StoppedClock(const StoppedClock&) = delete;
  StoppedClock& operator=(const StoppedClock&) = delete;
  ~StoppedClock() { standin::runClock(); }
};

void finish(dispatch_queue_t queue) {
  std::binary_semaphore done(0);
  async(queue, [&done] { done.release(); });
  done.acquire();
}

std::size_t entriesOf(const char* folder) {
  return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST(MainQueue, RunsWorkInOrderByTheClock) {
  for (const double start : {0.0, 800000000.25, -5.0}) {
    const StoppedClock clock(start);
    std::string order;
    const auto note = [&order](char name) { return [&order, name] { order += name; }; };
    const dispatch_queue_t queue = dispatch_get_main_queue();
    asyncAfter(2, queue, note('e'));
    asyncAfter(0.5, queue, note('b'));
    asyncAfter(0.5, queue, note('c'));
    async(queue, note('a'));
    asyncAfter(0.5, queue, note('d'));
    EXPECT_EQ(standin::timeUntilMainQueueWork(), 0);
    EXPECT_EQ(standin::runMainQueue(), 1U);
    EXPECT_NEAR(standin::timeUntilMainQueueWork().value_or(-1), 0.5, 1e-6);
    EXPECT_FALSE(standin::waitForMainQueue(0.01)) << "a stopped clock holds it back";
    standin::setClock(start + 0.5);
    async(queue, note('x'));
    async(queue, [&] {
      order += 'y';
      async(queue, note('z'));
      asyncAfter(0, queue, note('0'));
      asyncAfter(1, queue, note('-'));
    });
    EXPECT_TRUE(standin::waitForMainQueue(0));
    EXPECT_EQ(standin::runMainQueue(), 7U);
    EXPECT_EQ(order, "abcdxyz0");
    standin::setClock(start + 9);
    standin::runMainQueue();
    EXPECT_EQ(order, "abcdxyz0-e");
    EXPECT_FALSE(standin::timeUntilMainQueueWork());
  }
}

TEST(MainQueue, TakesWorkOfEveryThread) {
  constexpr int kEach = 500;
  std::vector<std::thread> threads;
  int sum = 0;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&sum] {
      for (int k = 0; k < kEach; ++k) {
        dispatch_async_f(dispatch_get_main_queue(), &sum, [](void* context) { ++*static_cast<int*>(context); });
      }
    });
  }
  std::size_t ran = 0;
  while (ran < 4 * kEach && standin::waitForMainQueue(5)) ran += standin::runMainQueue();
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(sum, 4 * kEach);
  EXPECT_FALSE(standin::waitForMainQueue(0));
}

TEST(MainQueue, KnowsFarAndForeverTimes) {
  const dispatch_time_t forever = ~dispatch_time_t{0};
  EXPECT_EQ(dispatch_time(forever, -1), forever);
  EXPECT_EQ(dispatch_time(DISPATCH_TIME_NOW, INT64_MAX), forever);
  const dispatch_time_t soon = dispatch_time(DISPATCH_TIME_NOW, NSEC_PER_SEC);
  EXPECT_EQ(dispatch_time(soon, 5), soon + 5);
  dispatch_after_f(forever, dispatch_get_main_queue(), nullptr, [](void*) { FAIL(); });
  EXPECT_EQ(standin::runMainQueue(), 0U);
}

TEST(SerialQueue, RunsInOrderOnOneOtherThread) {
  std::vector<int> seen;
  std::thread::id where;
  const dispatch_queue_t queue = dispatch_queue_create("test", DISPATCH_QUEUE_SERIAL);
  for (int i = 0; i < 100; ++i) {
    async(queue, [&, i] {
      seen.push_back(i);
      where = std::this_thread::get_id();
      autoreleased(makeString("an object of Foundation, made and given up on this thread"));
    });
  }
  const auto start = std::chrono::steady_clock::now();
  std::binary_semaphore later(0);
  asyncAfter(0.05, queue, [&later] { later.release(); });
  dispatch_release(queue);  // work that waits keeps it
  later.acquire();
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(50));
  ASSERT_EQ(seen.size(), 100U);
  EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
  EXPECT_NE(where, std::this_thread::get_id());
}

/// A file in a folder of its own, a source that watches it on the main queue, and what the source told.
class VnodeTest : public testing::Test {
 protected:
  VnodeTest() {
    std::string pattern = (fs::temp_directory_path() / "vnode-XXXXXX").string();
    folder_ = mkdtemp(pattern.data());
    file_ = folder_ / "file";
    write("first");
  }
  ~VnodeTest() override {
    for (const Watch* watch : watches_) dispatch_source_cancel(watch->source);
    while (standin::waitForMainQueue(0)) standin::runMainQueue();
    for (Watch* watch : watches_) {
      dispatch_release(watch->source);
      delete watch;
    }
    fs::remove_all(folder_);
  }

  struct Watch {
    dispatch_source_t source = nullptr;
    int file = -1;
    unsigned long events = 0;
    int runs = 0;
    int cancelled = 0;
    std::function<void()> inHandler;
  };

  static constexpr std::uintptr_t kEverything = 0x7F;

  Watch& watch(const fs::path& path, bool resumed = true, dispatch_queue_t queue = dispatch_get_main_queue()) {
    auto* watch = new Watch();
    watch->file = open(path.c_str(), O_EVTONLY | O_CLOEXEC);
    watch->source = dispatch_source_create(DISPATCH_SOURCE_TYPE_VNODE, static_cast<std::uintptr_t>(watch->file),
                                           kEverything, queue);
    dispatch_set_context(watch->source, watch);
    dispatch_source_set_event_handler_f(watch->source, [](void* context) {
      auto* told = static_cast<Watch*>(context);
      told->events |= dispatch_source_get_data(told->source);
      ++told->runs;
      if (told->inHandler) told->inHandler();
    });
    dispatch_source_set_cancel_handler_f(watch->source, [](void* context) {
      auto* told = static_cast<Watch*>(context);
      ++told->cancelled;
      close(told->file);
    });
    if (resumed) dispatch_resume(watch->source);
    watches_.push_back(watch);
    return *watch;
  }

  void write(const std::string& text) const { std::ofstream(file_) << text; }

  /// Runs the main queue until the file is quiet; answers what the source has told since the last time.
  static unsigned long told(Watch& watch) {
    while (standin::waitForMainQueue(0.05)) standin::runMainQueue();
    return std::exchange(watch.events, 0);
  }

  fs::path folder_;
  fs::path file_;
  std::vector<Watch*> watches_;
};

TEST_F(VnodeTest, NamesWhatHappened) {
  Watch& source = watch(file_);
  const fs::path other = folder_ / "other";
  struct Case {
    const char* what;
    std::function<void()> act;
    unsigned long events;
  };
  const Case cases[] = {
      {"nothing", [] {}, 0},
      {"shortened", [&] { fs::resize_file(file_, 2); }, DISPATCH_VNODE_WRITE},
      {"appended", [&] { std::ofstream(file_, std::ios::app) << "more"; },
       DISPATCH_VNODE_WRITE | DISPATCH_VNODE_EXTEND},
      {"mode", [&] { chmod(file_.c_str(), 0600); }, DISPATCH_VNODE_ATTRIB},
      {"linked", [&] { fs::create_hard_link(file_, other); }, DISPATCH_VNODE_LINK},
      {"unlinked", [&] { fs::remove(other); }, DISPATCH_VNODE_LINK},
      {"renamed", [&] { fs::rename(file_, other); }, DISPATCH_VNODE_RENAME},
      {"renamed back", [&] { fs::rename(other, file_); }, DISPATCH_VNODE_RENAME},
      {"read", [&] { std::ifstream(file_).get(); }, 0},
      {"replaced",
       [&] {
         std::ofstream(other) << "new";
         fs::rename(other, file_);
       },
       DISPATCH_VNODE_DELETE},
      {"the new file", [&] { write("unseen"); }, 0},
  };
  for (const Case& c : cases) {
    c.act();
    EXPECT_EQ(told(source), c.events) << c.what;
  }
  Watch& second = watch(file_);
  fs::remove(file_);
  EXPECT_EQ(told(second), DISPATCH_VNODE_DELETE);
}

TEST_F(VnodeTest, KeepsWhatHappensBetweenHandlers) {
  Watch& source = watch(file_, false);
  write("before it was resumed");
  EXPECT_EQ(told(source), 0U);
  dispatch_resume(source.source);
  EXPECT_EQ(told(source), DISPATCH_VNODE_WRITE | DISPATCH_VNODE_EXTEND);
  source.runs = 0;
  fs::resize_file(file_, 2);
  fs::rename(file_, folder_ / "other");
  fs::remove(folder_ / "other");
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_EQ(told(source), DISPATCH_VNODE_WRITE | DISPATCH_VNODE_RENAME | DISPATCH_VNODE_DELETE);
  EXPECT_EQ(source.runs, 1) << "one run tells of all";
}

TEST_F(VnodeTest, WatchesOneFileForSeveralSources) {
  Watch& first = watch(file_);
  Watch& second = watch(file_);
  write("a");
  EXPECT_TRUE(told(first) & DISPATCH_VNODE_WRITE);
  EXPECT_TRUE(second.events & DISPATCH_VNODE_WRITE);
  second.events = 0;
  dispatch_source_cancel(first.source);
  write("b");
  EXPECT_EQ(told(first), 0U);
  EXPECT_TRUE(second.events & DISPATCH_VNODE_WRITE);
  EXPECT_EQ(first.cancelled, 1);
}

TEST_F(VnodeTest, IsCancelledOnce) {
  Watch& inside = watch(file_);
  inside.inHandler = [&] {
    dispatch_source_cancel(inside.source);
    EXPECT_EQ(inside.cancelled, 0) << "after the handler";
  };
  Watch& pending = watch(file_);
  Watch& suspended = watch(file_, false);
  write("a");
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  dispatch_source_cancel(pending.source);
  dispatch_source_cancel(pending.source);
  dispatch_source_cancel(suspended.source);
  EXPECT_EQ(pending.cancelled, 0) << "not within the call";
  write("b");
  told(inside);
  EXPECT_EQ(inside.runs, 1);
  EXPECT_EQ(inside.cancelled, 1);
  EXPECT_EQ(pending.runs, 0) << "what was on its way is given up";
  EXPECT_EQ(pending.cancelled, 1);
  EXPECT_EQ(suspended.cancelled, 0);
  dispatch_resume(suspended.source);
  told(suspended);
  EXPECT_EQ(suspended.cancelled, 1);
  EXPECT_EQ(suspended.runs, 0);
}

TEST_F(VnodeTest, RefusesWhatCannotBeWatchedAndNeverWaits) {
  EXPECT_EQ(dispatch_source_create(DISPATCH_SOURCE_TYPE_VNODE, 9999, kEverything, dispatch_get_main_queue()), nullptr);
  EXPECT_EQ(dispatch_source_create(nullptr, 0, kEverything, dispatch_get_main_queue()), nullptr);
  const fs::path pipe = folder_ / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  Watch& fifo = watch(pipe);
  Watch& folder = watch(folder_);
  EXPECT_EQ(told(fifo), 0U);
  write("not the folder's own");
  EXPECT_EQ(told(folder), 0U);
  fs::remove(pipe);
  EXPECT_EQ(told(folder), DISPATCH_VNODE_WRITE);
  EXPECT_TRUE(fifo.events & DISPATCH_VNODE_DELETE);
}

TEST_F(VnodeTest, LeavesNothingBehind) {
  const dispatch_queue_t queue = dispatch_queue_create(nullptr, DISPATCH_QUEUE_SERIAL);
  struct Closing {
    int file;
    std::atomic<int>* cancelled;
  };
  std::atomic<int> cancelled = 0;
  const auto cycle = [&] {
    const int file = open(file_.c_str(), O_EVTONLY | O_CLOEXEC);
    const dispatch_source_t source =
        dispatch_source_create(DISPATCH_SOURCE_TYPE_VNODE, static_cast<std::uintptr_t>(file), kEverything, queue);
    dispatch_set_context(source, new Closing{file, &cancelled});
    dispatch_source_set_event_handler_f(source, [](void*) {});
    dispatch_source_set_cancel_handler_f(source, [](void* context) {
      const std::unique_ptr<Closing> closing(static_cast<Closing*>(context));
      close(closing->file);
      ++*closing->cancelled;
    });
    dispatch_resume(source);
    write("some");
    dispatch_source_cancel(source);
    dispatch_release(source);
  };
  const auto cycles = [&](int count) {
    for (int i = 0; i < count; ++i) cycle();
    finish(queue);
  };
  cycles(50);
  const std::size_t files = entriesOf("/proc/self/fd");
  const std::size_t threads = entriesOf("/proc/self/task");
  const auto memory = mallinfo2().uordblks;
  cycles(1000);
  EXPECT_EQ(cancelled, 1050);
  EXPECT_EQ(entriesOf("/proc/self/fd"), files);
  EXPECT_EQ(entriesOf("/proc/self/task"), threads);
  EXPECT_LT(mallinfo2().uordblks, memory + 16 * 1024);
  const int file = open(file_.c_str(), O_EVTONLY | O_CLOEXEC);
  const dispatch_source_t forgotten =
      dispatch_source_create(DISPATCH_SOURCE_TYPE_VNODE, static_cast<std::uintptr_t>(file), kEverything, queue);
  dispatch_resume(forgotten);
  dispatch_release(forgotten);
  write("some");
  finish(queue);
  close(file);
  EXPECT_EQ(entriesOf("/proc/self/fd"), files);
  dispatch_release(queue);
}

}  // namespace
