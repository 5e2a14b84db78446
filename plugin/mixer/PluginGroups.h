#pragma once
// Groups of plug-ins to which a theme gives looks of their own.

#include <cstdint>

#include "cocoa/AppKit.h"

namespace velura {

/// The component that a plug-in is: three four-character codes.
struct PluginID {
  std::uint32_t type = 0;
  std::uint32_t subtype = 0;
  std::uint32_t manufacturer = 0;
};

/// "0x61756678:0x64656C79:0x64656D6F": how a theme names the plug-in.
NSString makePluginID(const PluginID& plugin);

/// What a theme says of a group; every part may be missing.
struct PluginGroup {
  NSDictionary entries;  // nil where there is no group

  /// The group's asset set, without what stands before it in the path; nil when it is missing or empty.
  [[nodiscard]] NSString image() const;
  [[nodiscard]] NSColor color(NSString entry) const;
  /// A colour that the group holds as a colour string.
  [[nodiscard]] NSColor colorFromString(NSString entry) const;
};

/// The group of the plug-in that a node represents; an empty one when the node represents none, or one of no
/// group.
PluginGroup groupOf(NSObject represented);

}  // namespace velura
