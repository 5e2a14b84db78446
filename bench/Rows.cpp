#include "bench/Rows.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace bench {

using benchmark::State;

std::vector<Row>& rows() {
  static std::vector<Row> all;
  return all;
}

void addRow(const Row& row, const Body& ours, const Body& baseline, Timing timing) {
  rows().push_back(row);
  for (const auto& [side, body] : {std::pair("ours", &ours), std::pair("baseline", &baseline)}) {
    auto* registered = benchmark::RegisterBenchmark((row.name + "/" + side).c_str(), *body);
    registered->MinTime(0.1);
    if (timing == Timing::kByTheBody) registered->UseManualTime();
  }
}

Body inWorker(const Worker& worker) {
  return [&worker](State& state) {
    for (auto iteration : state) {
      static_cast<void>(iteration);
      state.SetIterationTime(worker.run(1));
    }
  };
}

Body timed(std::function<void()> prepare, std::function<void()> work) {
  return [prepare = std::move(prepare), work = std::move(work)](State& state) {
    using Clock = std::chrono::steady_clock;
    for (auto iteration : state) {
      static_cast<void>(iteration);
      prepare();
      const auto start = Clock::now();
      work();
      state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
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
