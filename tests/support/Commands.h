#pragma once
// The command as its users run it.

#include <string>
#include <vector>

namespace support {

/// The exit status of a command, and what it wrote to both outputs.
struct CommandResult {
  int status = -1;
  std::string output;
};
/// Runs `velura` in the folder of the sources, with arguments that a shell splits.
CommandResult runVelura(const std::string& arguments);

/// Arguments that the command does not do: its exit status, and a part of the one line that says why
/// (before a hint to the help, when they are no arguments of it).
struct Refusal {
  std::string arguments;
  int status;
  std::string message;
};
void expectRefusals(const std::vector<Refusal>& refusals);

}  // namespace support
