#pragma once

#include "host/mixer/MANode.h"

namespace host {

/// A small button with a glyph: mute, solo, record, input monitoring, bounce, dim, disclosure. `title` is its
/// letter; `state` is one of the following.
struct MASymbolButtonNode : cocoa::ObjectState {
  static constexpr NSInteger kOff = 0;
  static constexpr NSInteger kOn = 1;
  static constexpr NSInteger kBlinking = 2;  // dark, with its letter in the colour of the button

  cocoa::Ref<NSAttributedString> symbol;
  cocoa::Ref<NSColor> foregroundColor;

  id init();
  void setState(NSInteger state);
  void setForegroundColor(NSColor color);
  void setSymbol(NSAttributedString glyph);
  void drawRect(CGRect rect, CGContextRef context);

  /// Sets the symbol that the state asks for.
  void applySymbol();
};

void defineMASymbolButtonNode();

}  // namespace host
