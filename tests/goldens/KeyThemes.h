#pragma once
// Themes that are made from the table of keys, so that a new key is in them without anybody's doing.

#include <string>

namespace goldens {

/// Whether themes of that name are made here: "keys" has a colour or value of its own for every key; beside them
/// "keys-images" has images, gradients, bevels and groups of plug-ins, "keys-tracks" the track colours in place of
/// the strips' colours, and "keys-over" the same over gradients.
bool isKeyTheme(const std::string& name);

/// Writes the folder of such a theme below the private folder, and answers its path.
std::string writeKeyTheme(const std::string& name);

}  // namespace goldens
