#include "cli/Overrides.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "cocoa/Call.h"

namespace session {
namespace {

using namespace cocoa;

std::string asJson(NSArray overrides) {
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (const NSDictionary entry : items<NSDictionary>(overrides)) {
    nlohmann::ordered_json& object = list.emplace_back(nlohmann::ordered_json::object());
    for (const char* name :
         {"class", "selector", "outcome", "hostTypes", "ownTypes", "openWindow", "whyStale", "stale"}) {
      object[name] = toStdString(cast<NSString>(entry.objectForKey(string(name))));
    }
  }
  return list.dump(2) + '\n';
}

}  // namespace

bool isVersion(const std::string& text) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const auto dots = std::ranges::count(text, '.');
  return (dots == 1 || dots == 2) && isDigit(text.front()) && isDigit(text.back()) &&
         text.find("..") == std::string::npos &&
         std::ranges::all_of(text, [&](char c) { return c == '.' || isDigit(c); });
}

std::string overridesOf(const SessionOptions& options, OverridesFormat format, std::string& error) {
  const AutoreleasePool pool;
  const auto application = startSession(options, host::Song(), error);
  if (!application) return {};
  // Any loader tells of the process's overrides.
  const auto loader = Ref<NSObject>::adopt(call<"new", NSObject>(classNamed("LoaderClass")));
  if (format == OverridesFormat::kJson) return asJson(call<"vlrOverrides", NSArray>(loader.get()));
  return toStdString(call<"vlrOverridesAsText", NSString>(loader.get()));
}

}  // namespace session
