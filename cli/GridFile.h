#pragma once
// Grid settings files, as the `velura` command edits and documents them.

#include <string>
#include <vector>

namespace session {

/// Changes values of a grid settings file, which is made if there is none: each edit is "KEY=VALUE". Other
/// entries of the file stay. The file is replaced whole or not at all. False, with `error` set to one line,
/// for an unknown key, a value of another kind or out of range, or a file that cannot be read or written.
bool editGridFile(const std::string& path, const std::vector<std::string>& edits, std::string& error);

/// The settings of a file as the plug-in takes them, "KEY=VALUE" a line.
std::string gridFileText(const std::string& path);

/// The table of all keys for docs/arrange.md, as Markdown.
std::string gridKeyTable();

}  // namespace session
