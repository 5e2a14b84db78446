#include "bench/Worker.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "cli/Session.h"
#include "cocoa/Memory.h"

namespace bench {

namespace {
double countedSeconds = 0;
}  // namespace

void countSeconds(double seconds) { countedSeconds += seconds; }

Worker::Worker(std::string theme, host::Song song, Task prepare, Task task, std::string gridFile) {
  std::array<int, 2> requests{};
  std::array<int, 2> answers{};
  if (::pipe(requests.data()) != 0 || ::pipe(answers.data()) != 0) std::abort();
  process_ = ::fork();
  if (process_ == 0) {
    ::close(requests[1]);
    ::close(answers[0]);
    serve(requests[0], answers[1], {std::move(theme), std::move(gridFile), std::move(song)}, prepare, task);
  }
  ::close(requests[0]);
  ::close(answers[1]);
  requests_ = requests[1];
  answers_ = answers[0];
  run(1);  // the worker is up once it has answered
}

Worker::~Worker() {
  ::kill(process_, SIGCONT);
  ::close(requests_);
  ::close(answers_);
  ::waitpid(process_, nullptr, 0);
}

double Worker::run(unsigned count) const {
  double seconds = 0;
  ::kill(process_, SIGCONT);
  if (::write(requests_, &count, sizeof count) != sizeof count ||
      ::read(answers_, &seconds, sizeof seconds) != sizeof seconds) {
    std::fprintf(stderr, "a worker ended early\n");
    std::exit(1);
  }
  ::kill(process_, SIGSTOP);  // all watch the same folder, and must not answer to what another one saves there
  return seconds;
}

void Worker::serve(int requests, int answers, Host host, const Task& prepare, const Task& task) {
  using Clock = std::chrono::steady_clock;
  session::SessionOptions options;
  options.theming = host.theme.empty() ? session::Theming::kWithoutBundle : session::Theming::kTheme;
  options.themeFolder = host.theme;
  options.gridSettings = host.gridFile;
  std::string error;
  const auto application = session::startSession(options, std::move(host.song), error);
  if (!application) {
    std::fprintf(stderr, "%s\n", error.c_str());
    ::_exit(1);
  }
  if (prepare) prepare(*application);
  unsigned count = 0;
  while (::read(requests, &count, sizeof count) == sizeof count) {
    const cocoa::AutoreleasePool pool;
    const auto start = Clock::now();
    for (unsigned i = 0; i < count; ++i) task(*application);
    double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    if (countedSeconds > 0) seconds = std::exchange(countedSeconds, 0);
    if (::write(answers, &seconds, sizeof seconds) != sizeof seconds) break;
  }
  ::_exit(0);
}

}  // namespace bench
