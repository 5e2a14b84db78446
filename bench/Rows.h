#pragma once
// Rows of the table: each is a ratio against a baseline. The two are measured in turns, a moment each, because the
// speed of a machine that others use changes by half from one second to the next.

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "bench/Worker.h"

namespace bench {

struct Row {
  std::string name;
  double limit;
  double perOurs = 1;  // things done in one run, to give a time for each
  double perBaseline = 1;
};

/// Seconds that `count` runs of something took. What is done around them is not counted.
using Side = std::function<double(unsigned count)>;

void addRow(const Row& row, Side ours, Side baseline);

using Clock = std::chrono::steady_clock;
inline double secondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

template <class Work>
Side repeated(Work work) {
  return [work = std::move(work)](unsigned count) {
    const auto start = Clock::now();
    for (unsigned i = 0; i < count; ++i) work();
    return secondsSince(start);
  };
}

/// Times `work` alone: `prepare` runs before it each time.
Side timed(std::function<void()> prepare, std::function<void()> work);

/// Runs of a worker's task, after one that is not counted: what others did in between has cooled its caches.
Side inWorker(const Worker& worker);

/// What one takes longer than the other: the median of a few alternations.
Side difference(Side more, Side less);

struct Result {
  Row row;
  double ours = 0;  // seconds for each thing done
  double baseline = 0;
  [[nodiscard]] double ratio() const { return ours / baseline; }
};

/// Measures the rows whose names match `filter`, a regular expression.
std::vector<Result> measured(const std::string& filter);

/// A file of the benchmark's own, its folders included.
void writeFile(const std::string& path, const std::string& contents);

/// The sample song; ends the process when it cannot be read.
host::Song sampleSong();

}  // namespace bench
