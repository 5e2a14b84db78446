#pragma once
// What became of the plug-in's overrides on a host.

#include <string>

#include "cli/Session.h"

namespace session {

enum class OverridesFormat { kText, kJson };

/// Whether a text is a version such as "11.2" or "12.3.1".
bool isVersion(const std::string& text);

/// Starts a host with a theme and an empty song, and lists every override as the plug-in tells of it: lines of text, or
/// an array of JSON objects. "", with `error` set, when the host or the theme cannot be had.
std::string overridesOf(const SessionOptions& options, OverridesFormat format, std::string& error);

}  // namespace session
