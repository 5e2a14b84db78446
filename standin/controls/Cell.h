#pragma once
// The states of NSCell and NSControl, for the classes that build on them.

#include "cocoa/AppKit.h"
#include "standin/text/Text.h"
#include "standin/views/View.h"

namespace standin {

/// State of an NSCell: what a control shows.
struct CellState : cocoa::ObjectState {
  cocoa::Ref<NSString> text;
  cocoa::Ref<NSAttributedString> attributedText;  // set instead of the plain text
  cocoa::Ref<NSFont> font;
  cocoa::Ref<NSImage> image;
  cocoa::Ref<NSObject> representedObject;
  NSTextAlignment alignment = NSTextAlignmentNatural;
  NSLineBreakMode lineBreakMode = NSLineBreakByClipping;
  NSInteger state = 0;
  NSInteger tag = 0;
  SEL action = nullptr;
  id target = nullptr;
  id controlView = nullptr;
  bool enabled = true;
  bool highlighted = false;
  bool bordered = false;

  id init() { return self; }
  id initText(NSString plain) {
    setText(plain);
    return self;
  }
  NSString stringValue();
  void setText(NSString plain);
  /// The text with its looks: as it was set, or the plain text in the cell's font and colour.
  NSAttributedString attributedStringValue();
  void setAttributedText(NSAttributedString styled);
  NSFont fontHandle();
  void setFont(NSFont changed);
  NSObject targetHandle() { return NSObject(target); }
  void setTarget(NSObject object) { target = object.object; }
  NSView controlViewHandle() { return NSView(controlView); }
  void setControlView(NSView view) { controlView = view.object; }
  void setImage(NSImage changed);
  void setState(NSInteger changed);
  void setEnabled(BOOL changed);
  void drawWithFrame(NSRect frame, NSView view);
  void drawInterior(NSRect frame, NSView view);
  void redraw();
};

/// An attributed string in one look, autoreleased.
NSAttributedString attributed(NSString text, NSFont font, NSColor color, NSTextAlignment alignment,
                              NSLineBreakMode mode);
/// Draws the text as one line in the middle of the rectangle's height.
void drawCentered(NSAttributedString text, NSRect rect);

/// A control answers what its cell answers, and passes on what is set.
template <cocoa::FixedString Selector, class R>
R fromCell(NSControl control) {
  return cocoa::call<Selector, R>(control.cell());
}
template <cocoa::FixedString Selector, class V>
void toCell(NSControl control, V value) {
  cocoa::call<Selector>(control.cell(), value);
}

/// State of an NSControl.
struct ControlState : cocoa::ObjectState {
  cocoa::Ref<NSCell> cell;
  NSInteger tag = 0;
  ~ControlState();
  id initWithFrame(NSRect frame);
  void setCell(NSCell changed);
  NSCell cellHandle() { return cell; }
};

}  // namespace standin
