#include "cli/ThemeCheck.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "cocoa/Foundation.h"
#include "plugin/theme/PropertyListReader.h"
#include "plugin/theme/ThemeKeys.h"

namespace session {
namespace {

using namespace cocoa;

/// Why a file cannot be read as one; "" when it can.
std::string fileProblem(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return std::strerror(errno);
  if (!S_ISREG(status.st_mode)) return "not a file";
  if (::access(path.c_str(), R_OK) != 0) return std::strerror(errno);
  if (status.st_size == 0) return "empty";
  return {};
}

}  // namespace

bool checkTheme(const std::string& folder, std::string& error, std::vector<std::string>& warnings) {
  const AutoreleasePool pool;
  const std::string path = folder + "/PluginHelper.plist";
  if (const std::string problem = fileProblem(path); !problem.empty()) {
    error = path + ": " + problem;
    return false;
  }
  const Ref<NSObject> list = velura::readPropertyList(path.c_str());
  if (!list) {
    error = path + ": not a property list, or larger, deeper or more entangled than a theme can be";
    return false;
  }
  const auto theme = as<NSDictionary>(list);
  if (!theme) {
    error = path + ": the top of the property list is not a dictionary";
    return false;
  }
  return true;
}

}  // namespace session
