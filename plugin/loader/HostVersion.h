#pragma once

#include <string_view>

namespace velura {

/// Whether the host's short version string is at least `version`. A host without one counts as older than
/// any version. Read from the main bundle once: a host does not change while it runs.
bool isHostEqualOrNewerThan(std::string_view version);

}  // namespace velura
