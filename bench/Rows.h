#pragma once
// Rows of the table: each is a ratio against a baseline that is measured in the same run, interleaved with it.

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <vector>

#include "bench/Worker.h"

namespace bench {

struct Row {
  std::string name;
  double limit;
  double perOurs = 1;  // things done in one iteration, to give a time for each
  double perBaseline = 1;
};

std::vector<Row>& rows();

using Body = std::function<void(benchmark::State&)>;

/// Who says how long an iteration took.
enum class Timing { kByTheLoop, kByTheBody };

void addRow(const Row& row, const Body& ours, const Body& baseline, Timing timing = Timing::kByTheLoop);

/// One run of a worker's task an iteration.
Body inWorker(const Worker& worker);

/// Times `work` alone: `prepare` runs before it in every iteration.
Body timed(std::function<void()> prepare, std::function<void()> work);

/// A file of the benchmark's own, its folders included.
void writeFile(const std::string& path, const std::string& contents);

/// The sample song; ends the process when it cannot be read.
host::Song sampleSong();

}  // namespace bench
