#include "plugin/overrides/OpenWindow.h"

#include <array>
#include <cstddef>

namespace velura {

std::string_view nameOf(RefreshBranch branch) {
  constexpr auto kNames = std::to_array<std::string_view>(
      {"none", "host", "mixer layout", "mixer nodes", "mixer background", "legend", "track headers", "arrange contents",
       "Live Loops", "library", "file browsers", "loop browser", "list area", "inspector", "action bar", "separators"});
  static_assert(kNames.size() == static_cast<std::size_t>(RefreshBranch::kSeparators) + 1, "one name per branch");
  return kNames[static_cast<std::size_t>(branch)];
}

}  // namespace velura
