#pragma once
// Which classes of the host are themed, in the order in which start-up installs them.

#include <span>

namespace velura {

/// Adds the methods of one category to its class, where the running host has that class.
using AttachCategory = void (*)();

struct ThemedClass {
  const char* name;
  AttachCategory attach;
};

/// The classes that start-up always sends `addSwizzleMethod`, in order.
std::span<const ThemedClass> themedClasses();

/// Themed on host 11.2 or newer only.
const ThemedClass& themedImageNode();

/// Themed only while arrange tracks take the track colour.
const ThemedClass& themedString();

/// Attaches every category whose class is there. Runs once, when the bundle is loaded.
void attachCategories();

/// Whether a category was attached to the class: only then may it be sent `addSwizzleMethod`. The message
/// itself cannot be asked for, since a subclass inherits it.
bool isAttached(const ThemedClass& themed);

}  // namespace velura
