#pragma once
// A host in a process of its own: one process is one theme. The benchmark asks it to do something some
// number of times and is told how long that took.

#include <sys/types.h>

#include <functional>
#include <memory>
#include <string>

#include "host/app/Application.h"
#include "host/song/Song.h"

namespace bench {

/// What a worker does over and over.
using Task = std::function<void(host::Application&)>;

/// For a task that times itself: what it counts stands in place of the time around it.
void countSeconds(double seconds);

class Worker {
 public:
  /// Starts the process. `theme` is a theme folder, or "" for the host without the plug-in. `prepare` runs
  /// once, after the song is open. `gridFile` is the grid settings file, "" for none.
  Worker(std::string theme, host::Song song, Task prepare, Task task, std::string gridFile = {});
  ~Worker();
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  /// Seconds that `count` runs of the task took.
  double run(unsigned count) const;

 private:
  struct Host {
    std::string theme;
    std::string gridFile;
    host::Song song;
  };
  [[noreturn]] static void serve(int requests, int answers, Host host, const Task& prepare, const Task& task);
  pid_t process_ = -1;
  int requests_ = -1;
  int answers_ = -1;
};

}  // namespace bench
