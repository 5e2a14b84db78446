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
  /// Of buttons: 0 while they are off.
  [[nodiscard]] NSInteger state() const { return cocoa::call<"state", NSInteger>(object); }
  /// The look that the host draws the node with.
  [[nodiscard]] NSString assetSetPath() const { return cocoa::call<"assetSetPath", NSString>(object); }
  [[nodiscard]] NSObject representedObject() const { return cocoa::call<"representedObject", NSObject>(object); }
  [[nodiscard]] NSObject controller() const { return cocoa::call<"controller", NSObject>(object); }
  [[nodiscard]] NSView view() const { return cocoa::call<"view", NSView>(object); }
  void setNeedsDisplay(bool needs) const { cocoa::call<"setNeedsDisplay:">(object, BOOL(needs)); }
  void setNeedsUpdateContents(bool needs) const { cocoa::call<"setNeedsUpdateContents:">(object, BOOL(needs)); }
  /// Asked for with `respondsToSelector:`, as not every node keeps a cache.
  void invalidateCache() const { cocoa::call<"invalidateCache">(object); }

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

struct MAButtonNode : MANode {
  static constexpr cocoa::FixedString kClassName{"MAButtonNode"};
  using MANode::MANode;
  [[nodiscard]] bool isOn() const { return state() != 0; }
};

struct MADisplayNode : MANode {
  static constexpr cocoa::FixedString kClassName{"MADisplayNode"};
  using MANode::MANode;
};

struct MAEQThumbnailNode : MANode {
  static constexpr cocoa::FixedString kClassName{"MAEQThumbnailNode"};
  using MANode::MANode;
  [[nodiscard]] NSString title() const { return cocoa::call<"title", NSString>(object); }
};

struct MAFaderNode : MANode {
  static constexpr cocoa::FixedString kClassName{"MAFaderNode"};
  using MANode::MANode;
  [[nodiscard]] NSInteger faderMode() const { return cocoa::call<"faderMode", NSInteger>(object); }
  /// Has the host put its own cap into the child named "fader knob".
  void updateFaderKnob() const { cocoa::call<"updateFaderKnob">(object); }
};

struct MALevelNode : MANode {
  static constexpr cocoa::FixedString kClassName{"MALevelNode"};
  using MANode::MANode;
  [[nodiscard]] NSInteger mixerLevelType() const { return cocoa::call<"mixerLevelType", NSInteger>(object); }
  void setMixerLevelType(NSInteger type) const { cocoa::call<"setMixerLevelType:">(object, type); }
  /// The bars of the meter.
  [[nodiscard]] NSArray levelDisplays() const { return cocoa::call<"levelDisplays", NSArray>(object); }
};

/// A mark of a scale, with colours for strips that are selected and that are not.
struct MAScaleTick : NSObject {
  static constexpr cocoa::FixedString kClassName{"MAScaleTick"};
  using NSObject::NSObject;
  [[nodiscard]] NSInteger type() const { return cocoa::call<"type", NSInteger>(object); }
  [[nodiscard]] double defaultYPosition() const { return cocoa::call<"defaultYPosition", double>(object); }
  void setColor(CGColorRef color) const { cocoa::call<"setColor:">(object, color); }
  void setHighlightedColor(CGColorRef color) const { cocoa::call<"setHighlightedColor:">(object, color); }
};

struct MAScaleNode : MANode {
  static constexpr cocoa::FixedString kClassName{"MAScaleNode"};
  using MANode::MANode;
  [[nodiscard]] NSInteger type() const { return cocoa::call<"type", NSInteger>(object); }
  [[nodiscard]] NSArray largeScaleTicks() const { return cocoa::call<"largeScaleTicks", NSArray>(object); }
};

struct MATextNode : MANode {
  static constexpr cocoa::FixedString kClassName{"MATextNode"};
  using MANode::MANode;
};

}  // namespace velura
