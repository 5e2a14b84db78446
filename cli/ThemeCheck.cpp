#include "cli/ThemeCheck.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "cocoa/Foundation.h"
#include "plugin/language/BevelString.h"
#include "plugin/language/ColorString.h"
#include "plugin/language/GradientString.h"
#include "plugin/language/ThemeKeys.h"
#include "plugin/plist/PropertyListReader.h"

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

bool isColor(NSObject value) {
  return as<NSString>(value) && velura::parseColorString(toStdString(as<NSString>(value)));
}
bool isGradient(NSObject value) {
  return as<NSString>(value) && velura::parseGradient(toStdString(as<NSString>(value)));
}
bool isBevel(NSObject value) { return as<NSString>(value) && velura::parseBevel(toStdString(as<NSString>(value))); }
bool isNumber(NSObject value) { return as<NSNumber>(value) || as<NSString>(value); }
bool isDictionary(NSObject value) { return static_cast<bool>(as<NSDictionary>(value)); }

struct KindCheck {
  velura::ThemeKeyKind kind;
  bool (*fits)(NSObject);
  const char* expected;
};
constexpr KindCheck kChecks[] = {
    {velura::ThemeKeyKind::kColor, isColor, "a colour such as sRGBColor:{255, 128, 0, 100}"},
    {velura::ThemeKeyKind::kGradient, isGradient,
     "a gradient such as LinearGradient:{{62,62,66,100},{40,40,44,100},V}"},
    {velura::ThemeKeyKind::kBevel, isBevel, "a bevel such as Bevel:{R,2,30}"},
    {velura::ThemeKeyKind::kFlag, isNumber, "true or false"},
    {velura::ThemeKeyKind::kPercentage, isNumber, "a whole number"},
    {velura::ThemeKeyKind::kPoints, isNumber, "a whole number"},
    {velura::ThemeKeyKind::kPluginGroups, isDictionary, "a dictionary"},
};

/// What the plug-in will leave aside, key by key.
std::vector<std::string> unfitValues(const std::string& path, NSDictionary theme) {
  std::vector<std::string> found;
  for (const velura::ThemeKeyRow& row : velura::kThemeKeys) {
    const NSObject value = theme.objectForKey(string(row.name));
    if (!value) continue;
    const auto* check =
        std::find_if(std::begin(kChecks), std::end(kChecks), [&](const auto& c) { return c.kind == row.kind; });
    if (check->fits(value)) continue;
    found.push_back(path + ": " + std::string(row.name) + ": ignored, expected " + check->expected);
  }
  return found;
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
  warnings = unfitValues(path, theme);
  return true;
}

}  // namespace session
