#pragma once
// A small picture of what each theme key colours.

#include <string>
#include <string_view>
#include <vector>

namespace session {

struct KeyPicturesOptions {
  std::string out = "docs/keys";
  std::string song = "tools/key-pictures.json";
  std::string companion = "themes/ember/Companion.bundle";  // has images of all names
  std::vector<std::string> keys;                            // all that are in use when empty
};

/// The name of a key's picture. No system minds its characters.
std::string keyPictureName(std::string_view key);

/// Draws each key's picture: the host with a theme of that key alone, around the place where it differs from the
/// host without the key. `unseen` gets the keys that nothing differs by; they have no picture.
/// False, with `error` set, when something cannot be drawn or written.
bool makeKeyPictures(const KeyPicturesOptions& options, std::string& error, std::vector<std::string>& unseen);

}  // namespace session
