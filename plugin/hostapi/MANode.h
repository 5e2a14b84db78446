#pragma once
// The host's mixer nodes as the plug-in knows them: messages that the host answers.

#include "cocoa/AppKit.h"
#include "cocoa/Call.h"

namespace velura {

/// Part of a mixer strip. Frames are in points of the parent, y upwards.
struct MANode : NSObject {
  static constexpr cocoa::FixedString kClassName{"MANode"};
  using NSObject::NSObject;
  [[nodiscard]] NSString name() const { return cocoa::call<"name", NSString>(object); }
  [[nodiscard]] CGRect frame() const { return cocoa::call<"frame", CGRect>(object); }
  [[nodiscard]] MANode parent() const { return cocoa::call<"parent", MANode>(object); }
  [[nodiscard]] NSArray childrenArray() const { return cocoa::call<"childrenArray", NSArray>(object); }
  /// Not 0 while the strip is selected.
  [[nodiscard]] bool isHighlighted() const { return cocoa::call<"highlightState", NSInteger>(object) != 0; }
  [[nodiscard]] NSObject representedObject() const { return cocoa::call<"representedObject", NSObject>(object); }
  [[nodiscard]] NSObject controller() const { return cocoa::call<"controller", NSObject>(object); }
  [[nodiscard]] NSView view() const { return cocoa::call<"view", NSView>(object); }
  void setNeedsDisplay(bool needs) const { cocoa::call<"setNeedsDisplay:">(object, BOOL(needs)); }

  /// Whether the node's name is exactly `Name`.
  template <cocoa::FixedString Name>
  [[nodiscard]] bool isNamed() const {
    return name().isEqualToString(cocoa::literal<Name>());
  }
};

struct MAStripNode : MANode {
  static constexpr cocoa::FixedString kClassName{"MAStripNode"};
  using MANode::MANode;
};

/// Shows a picture, a Core Graphics image.
struct MAImageNode : MANode {
  static constexpr cocoa::FixedString kClassName{"MAImageNode"};
  using MANode::MANode;
  [[nodiscard]] NSObject contents() const { return cocoa::call<"contents", NSObject>(object); }
  void setContents(NSObject image) const { cocoa::call<"setContents:">(object, image); }
};

struct MATextNode : MANode {
  static constexpr cocoa::FixedString kClassName{"MATextNode"};
  using MANode::MANode;
};

}  // namespace velura
