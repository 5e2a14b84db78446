#pragma once

#include <string_view>

namespace velura {

/// Whether the host's short version string is at least `version`. A host without one is never equal or newer. Read from
/// the main bundle once: a host does not change while it runs.
bool isHostEqualOrNewerThan(std::string_view version);

/// Whether it is less than `version`. A host without one counts as no older than any.
bool isHostOlderThan(std::string_view version);

}  // namespace velura
