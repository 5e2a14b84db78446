// NSTextField and NSTextFieldCell.

#include "standin/controls/Cell.h"
#include "standin/controls/Registration.h"

using namespace cocoa;

namespace standin {

namespace {

/// State of an NSTextFieldCell.
struct TextFieldCell : ObjectState {
  Ref<NSColor> textColor;
  Ref<NSColor> backgroundColor;
  bool drawsBackground = false;

  NSColor text() { return textColor ? textColor.get() : NSColor::blackColor(); }
  void setText(NSColor color) {
    textColor = color;
    stateOf<CellState>(self).redraw();
  }
  void setBackground(NSColor color) {
    backgroundColor = color;
    stateOf<CellState>(self).redraw();
  }
  void drawWithFrame(NSRect frame, NSView view) {
    if (drawsBackground && backgroundColor) {
      const SavedState saved(*currentContext());
      backgroundColor->set();
      NSBezierPath::fillRect(frame);
    }
    NSCell(self).drawInteriorWithFrame(frame, view);
  }
  /// From the top down, two points in from the sides.
  void drawInterior(NSRect frame, NSView) {
    constexpr double kSideMargin = 2;
    drawText(styledText(NSControl(self).attributedStringValue()), frame.insetBy(kSideMargin, 0));
  }
};

/// NSTextField adds no state of its own to its cell's.
struct TextField : ObjectState {};

Class cellClass(Class) { return classNamed<"NSTextFieldCell">(); }

/// A label: text without a frame.
NSTextField labelWithString(Class cls, NSString text) {
  const auto field = Ref<NSTextField>::adopt(call<"initWithFrame:", NSTextField>(call<"alloc", id>(cls), NSRect{}));
  field->setStringValue(text);
  const NSSize size = cocoa::text::size(field->attributedStringValue());
  field->setFrame({{}, {size.width + 4, size.height}});
  return autoreleased(field);
}

}  // namespace

void registerTextFields() {
  ClassDefinition<TextFieldCell>("NSTextFieldCell", "NSCell")
      .method<"textColor", &TextFieldCell::text>()
      .method<"setTextColor:", &TextFieldCell::setText>()
      .getter<"backgroundColor", &TextFieldCell::backgroundColor>()
      .method<"setBackgroundColor:", &TextFieldCell::setBackground>()
      .property<"drawsBackground", "setDrawsBackground:", &TextFieldCell::drawsBackground>()
      .method<"drawWithFrame:inView:", &TextFieldCell::drawWithFrame>()
      .method<"drawInteriorWithFrame:inView:", &TextFieldCell::drawInterior>()
      .registered();
  ClassDefinition<TextField>("NSTextField", "NSControl")
      .classMethod<"cellClass", cellClass>()
      .classMethod<"labelWithString:", labelWithString>()
      .registered();
  CategoryDefinition("NSTextField")
      .method<"textColor", fromCell<"textColor", NSColor>>()
      .method<"setTextColor:", toCell<"setTextColor:", NSColor>>()
      .method<"backgroundColor", fromCell<"backgroundColor", NSColor>>()
      .method<"setBackgroundColor:", toCell<"setBackgroundColor:", NSColor>>()
      .method<"drawsBackground", fromCell<"drawsBackground", BOOL>>()
      .method<"setDrawsBackground:", toCell<"setDrawsBackground:", BOOL>>();
}

}  // namespace standin
