#pragma once

#include <string>

namespace session {

/// The keys of a theme settings file that have an effect, as Markdown tables, one for each group. With a folder of
/// pictures a column shows each key's; the tables name them below that folder's name, where a document beside it
/// finds them.
std::string keyTables(const std::string& pictures = {});

}  // namespace session
