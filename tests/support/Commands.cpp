#include "tests/support/Commands.h"

#include <gmock/gmock.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdio>

namespace support {

CommandResult runVelura(const std::string& arguments) {
  CommandResult result;
  FILE* pipe = ::popen(("cd " VELURA_SOURCE_DIR " && " VELURA_COMMAND " " + arguments + " 2>&1").c_str(), "r");
  if (pipe == nullptr) return result;
  char buffer[4096];
  while (const std::size_t got = std::fread(buffer, 1, sizeof buffer, pipe)) result.output.append(buffer, got);
  const int status = ::pclose(pipe);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return result;
}

void expectRefusals(const std::vector<Refusal>& refusals) {
  for (const Refusal& refusal : refusals) {
    const auto result = runVelura(refusal.arguments);
    EXPECT_EQ(result.status, refusal.status) << refusal.arguments;
    EXPECT_THAT(result.output, testing::HasSubstr(refusal.message)) << refusal.arguments;
    const std::string reason = result.output.substr(0, result.output.find("Run with --help"));
    EXPECT_EQ(std::ranges::count(reason, '\n'), 1) << result.output;
  }
}

}  // namespace support
