#pragma once

#include <string>

namespace session {

/// The keys of a theme settings file that have an effect, as Markdown tables, one for each group.
std::string keyTables();

}  // namespace session
