#include "bench/Rows.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <utility>

namespace bench {

namespace {

/// A row's sides, and what each turn of them took for each thing done.
struct Measurement {
  Row row;
  Side ours;
  Side baseline;
  std::vector<Result> turns;
};

std::vector<std::unique_ptr<Measurement>>& measurements() {
  static std::vector<std::unique_ptr<Measurement>> all;
  return all;
}

/// How many runs make a turn that a clock can tell.
unsigned runsOfATurn(const Side& side) {
  constexpr double kTurn = 0.02;  // seconds
  for (unsigned count = 1;; count *= 2) {
    const auto start = Clock::now();
    side(count);
    if (secondsSince(start) >= kTurn) return count;
  }
}

void takeTurns(benchmark::State& state, Measurement& measurement) {
  const unsigned oursCount = runsOfATurn(measurement.ours);
  const unsigned baselineCount = runsOfATurn(measurement.baseline);
  bool oursFirst = true;
  for (auto turn : state) {
    static_cast<void>(turn);
    Result result{measurement.row};
    for (const bool isOurs : {oursFirst, !oursFirst}) {
      if (isOurs) {
        result.ours = measurement.ours(oursCount) / oursCount / measurement.row.perOurs;
      } else {
        result.baseline = measurement.baseline(baselineCount) / baselineCount / measurement.row.perBaseline;
      }
    }
    state.SetIterationTime(result.ours);
    measurement.turns.push_back(result);
    oursFirst = !oursFirst;
  }
}

/// Leaves the printing to whoever has the ratios.
class NoReport : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& /*context*/) override { return true; }
  void ReportRuns(const std::vector<Run>& /*runs*/) override {}
};

}  // namespace

void addRow(const Row& row, Side ours, Side baseline) {
  constexpr int kTurns = 31;
  auto& added = *measurements().emplace_back(
      std::make_unique<Measurement>(Measurement{row, std::move(ours), std::move(baseline), {}}));
  benchmark::RegisterBenchmark(row.name.c_str(), [&added](benchmark::State& state) { takeTurns(state, added); })
      ->Iterations(kTurns)
      ->UseManualTime();
}

std::vector<Result> measured(const std::string& filter) {
  NoReport none;
  benchmark::RunSpecifiedBenchmarks(&none, filter);
  std::vector<Result> results;
  for (const auto& measurement : measurements()) {
    auto& turns = measurement->turns;
    if (turns.empty()) continue;
    // The turn with the median ratio stands for all.
    const auto middle = turns.begin() + static_cast<std::ptrdiff_t>(turns.size() / 2);
    std::ranges::nth_element(turns, middle, {}, &Result::ratio);
    results.push_back(*middle);
  }
  return results;
}

Side timed(std::function<void()> prepare, std::function<void()> work) {
  return [prepare = std::move(prepare), work = std::move(work)](unsigned count) {
    double seconds = 0;
    for (unsigned i = 0; i < count; ++i) {
      prepare();
      const auto start = Clock::now();
      work();
      seconds += secondsSince(start);
    }
    return seconds;
  };
}

Side inWorker(const Worker& worker) {
  return [&worker](unsigned count) {
    worker.run(1);
    return worker.run(count);
  };
}

Side difference(Side more, Side less) {
  return [more = std::move(more), less = std::move(less)](unsigned count) {
    std::array<double, 5> seconds{};  // alike as the two are, much of a single one is chance
    for (double& each : seconds) {
      each = more(count);
      each -= less(count);
    }
    std::ranges::sort(seconds);
    return std::max(0.0, seconds[seconds.size() / 2]);
  };
}

void writeFile(const std::string& path, const std::string& contents) {
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  std::ofstream(path) << contents;
}

host::Song sampleSong() {
  std::string error;
  auto song = host::readSong("songs/night-drive.json", error);
  if (!song) {
    std::fprintf(stderr, "%s\n", error.c_str());
    std::exit(1);
  }
  return std::move(*song);
}

}  // namespace bench
