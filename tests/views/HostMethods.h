#pragma once
// Hosts of several kinds, and what a bundle changes of their methods.

#include <map>
#include <memory>
#include <ostream>
#include <set>
#include <string>

#include "tests/support/Theme.h"
#include "tests/views/OverrideTable.h"

namespace support {

using Names = std::set<std::string>;

struct HostKind {
  const char* version;
  bool images = false;  // the theme draws with images, and colours track headers

  [[nodiscard]] bool isAtLeast(double oldest) const { return std::stod(version) >= oldest; }
  [[nodiscard]] bool meets(Needs needs) const;
};
std::ostream& operator<<(std::ostream& out, const HostKind& kind);

/// A theme that has all overrides installed which such a host can have.
std::string themeOf(const HostKind& kind);

/// A host of a kind, before anything is loaded into it.
std::unique_ptr<host::Application> hostOf(const HostKind& kind);

/// Loads the bundle, with a theme or, for "", with the theme "Default".
bool load(host::Application& application, const std::string& theme);

/// Every method of every class, by name; a class itself stands there by its name alone.
using Methods = std::map<std::string, IMP>;
Methods methodsOfAllClasses();

/// What has changed of the methods that were there.
Names exchangedSince(const Methods& before);

/// Opens and draws every window, and does what a user does.
void operate(host::Application& application, host::Song song);

}  // namespace support
