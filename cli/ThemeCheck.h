#pragma once

#include <string>
#include <vector>

namespace session {

/// Whether a theme folder can be used at all. False, with `error` set to one line that names the file and
/// the reason. `warnings` takes one line for each value that the plug-in will leave aside.
bool checkTheme(const std::string& folder, std::string& error, std::vector<std::string>& warnings);

}  // namespace session
