#pragma once

#include <string>
#include <string_view>

namespace velura {

/// Replaces a file's contents whole or not at all: a new file is written beside it and renamed over it.
/// A link that stands at `path` is replaced, never followed. False when it cannot be written.
bool writeAtomically(const std::string& path, std::string_view contents);

/// The user's Application Support folder, or "" when the platform names none.
std::string applicationSupportFolder();

}  // namespace velura
