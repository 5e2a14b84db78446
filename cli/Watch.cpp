#include "cli/Watch.h"

#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "cli/Session.h"
#include "plugin/files/AtomicWrite.h"
#include "standin/steering/Display.h"
#include "standin/steering/RunLoop.h"

namespace session {
namespace {

volatile std::sig_atomic_t ended = 0;
void end(int /*signal*/) { ended = 1; }

void endOnSignals() {
  struct sigaction action {};
  action.sa_handler = end;
  ::sigaction(SIGINT, &action, nullptr);
  ::sigaction(SIGTERM, &action, nullptr);
}

constexpr std::int64_t kNever = 0;

/// When a file was last written, in nanoseconds of the system's clock; `kNever` while there is none.
std::int64_t modified(const std::string& path) {
  struct stat status {};
  if (path.empty() || ::stat(path.c_str(), &status) != 0) return kNever;
  constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
  return status.st_mtim.tv_sec * kNanosecondsPerSecond + status.st_mtim.tv_nsec;
}

double millisecondsSince(std::int64_t time) {
  constexpr double kNanosecondsPerMillisecond = 1e6;
  const auto now =
      std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::system_clock::now().time_since_epoch());
  return static_cast<double>(now.count() - time) / kNanosecondsPerMillisecond;
}

/// Counts redraws and says how long after a save each was done.
class Reporter {
 public:
  explicit Reporter(const std::string& gridFile) : gridFile_(gridFile), seen_(modified(gridFile)) {}

  void redrawn() {
    const std::int64_t saved = modified(gridFile_);
    if (saved != kNever && saved != seen_) {
      std::printf("redraw %d: %.1f ms after the settings were saved\n", ++count_, millisecondsSince(saved));
    } else {
      std::printf("redraw %d\n", ++count_);
    }
    std::fflush(stdout);
    seen_ = saved;
  }

 private:
  const std::string& gridFile_;
  std::int64_t seen_;
  int count_ = 0;
};

bool writePicture(host::Application& application, const WatchOptions& options, std::string& error) {
  const std::string png = drawnAsPng(application, options.window);
  errno = 0;
  if (!png.empty() && velura::writeAtomically(options.out, png)) return true;
  error = options.out + (png.empty() ? ": the window cannot be drawn" : ": cannot be written: ") +
          (png.empty() ? "" : std::strerror(errno));
  return false;
}

}  // namespace

bool watch(host::Application& application, const WatchOptions& options, std::string& error) {
  constexpr double kLongestSleep = 0.1;  // seconds until a signal is seen
  endOnSignals();
  Reporter reporter(options.gridFile);
  bool due = true;
  while (ended == 0) {
    if (due || standin::windowNeedsDisplay(application.window(options.window))) {
      if (!writePicture(application, options, error)) return false;
      reporter.redrawn();
    }
    due = false;
    standin::waitForMainQueue(kLongestSleep);
    const cocoa::AutoreleasePool pool;
    standin::runMainQueue();
  }
  return true;
}

}  // namespace session
