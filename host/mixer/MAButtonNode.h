#pragma once

#include "host/mixer/MANode.h"

namespace host {

/// What a button shows beside being on or off.
enum class ButtonMode {
  kNormal,
  kLowLatency,  // left out while recording with little delay
  kDimmed       // cannot be used as things are
};

/// A slot or button with a title. Its asset set path says which kind it is; `state` 0 is off or bypassed.
struct MAButtonNode : cocoa::ObjectState {
  ButtonMode mode = ButtonMode::kNormal;
  bool isPlugIn = false;  // has a power switch where there is room for it
  cocoa::Ref<NSColor> foregroundColor;

  id init();
  void setAssetSetPath(NSString path);
  NSString assetSetPath() { return cocoa::stateOf<MANode>(self).assetSetPath; }
  void setRepresentedObject(NSObject object);
  NSObject representedObject() { return cocoa::stateOf<MANode>(self).representedObject; }
  void setState(NSInteger state);
  void setHighlightState(NSInteger state);
  void setMode(ButtonMode newMode);
  void setForegroundColor(NSColor color);
  NSInteger numberOfSegments();
  /// An attributed string, or a plain one that is drawn in the foreground colour.
  NSObject attributedTitleForState(NSInteger state);
  /// The picture of a part of the button: 2 is the symbol of its left segment.
  NSImage imageForState(NSInteger part);
  void drawRect(CGRect rect, CGContextRef context);

  /// Gives the button the foreground colour of what it shows at the moment.
  void applyForeground();

 private:
  NSColor ownColor();
  void drawBody(CGRect rect, CGContextRef context);
};

void defineMAButtonNode();

}  // namespace host
