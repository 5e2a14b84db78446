#pragma once

#include <string>

namespace session {

/// Gives the process an Application Support folder and user defaults of its own, below a new temporary
/// folder that is removed at exit. Foundation reads where its folders are before `main` runs, so the
/// process starts itself again once; call this first, before anything that must not run twice.
/// Ends the process with a message and status 1 when no folder can be made.
void enterPrivateFolders(char** argv);

/// The temporary folder. Its path is absolute.
const std::string& privateFolder();

}  // namespace session
