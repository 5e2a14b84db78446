#pragma once

#include <string>

namespace velura {

/// Writes a report for theme authors to `path`, in the temporary folder; where that cannot be written, under `name`
/// into the plug-in's folder in Application Support. A failure there has no consequence.
void writeReport(const std::string& path, const std::string& name, const std::string& text);

}  // namespace velura
