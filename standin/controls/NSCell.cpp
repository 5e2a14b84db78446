#include "standin/controls/Cell.h"
#include "standin/controls/Registration.h"

using namespace cocoa;

namespace standin {

NSAttributedString attributed(NSString text, NSFont font, NSColor color, NSTextAlignment alignment,
                              NSLineBreakMode mode) {
  const auto style = make<NSMutableParagraphStyle>();
  style->setAlignment(alignment);
  style->setLineBreakMode(mode);
  const auto attributes = NSMutableDictionary::dictionary();
  if (font) attributes.setObject(font, NSFontAttributeName);
  if (color) attributes.setObject(color, NSForegroundColorAttributeName);
  attributes.setObject(style.get(), NSParagraphStyleAttributeName);
  return autoreleased(NSAttributedString::withString(text ? text : literal<"">(), attributes));
}

void drawCentered(NSAttributedString text, NSRect rect) {
  const StyledText styled = styledText(text);
  const double height = sizeOf(styled).height;
  drawText(styled, {{rect.minX(), rect.minY() + (rect.size.height - height) / 2}, {rect.size.width, height}});
}

NSString CellState::stringValue() {
  if (attributedText) return attributedText->string();
  return text ? text.get() : literal<"">();
}

void CellState::setText(NSString plain) {
  text = plain;
  attributedText = {};
  redraw();
}

NSAttributedString CellState::attributedStringValue() {
  if (attributedText) return attributedText;
  const auto color = respondsTo(self, selector<"textColor">()) ? call<"textColor", NSColor>(self) : NSColor();
  return attributed(text, fontHandle(), color, alignment, lineBreakMode);
}

void CellState::setAttributedText(NSAttributedString styled) {
  attributedText = Ref<NSAttributedString>::adopt(call<"copy", NSAttributedString>(styled));
  redraw();
}

NSFont CellState::fontHandle() {
  if (!font) font = NSFont::systemFontOfSize(NSFont::systemFontSize());
  return font;
}

void CellState::setFont(NSFont changed) {
  font = changed;
  redraw();
}
void CellState::setImage(NSImage changed) {
  image = changed;
  redraw();
}
void CellState::setState(NSInteger changed) {
  state = changed;
  redraw();
}
void CellState::setEnabled(BOOL changed) {
  enabled = changed != 0;
  redraw();
}
void CellState::redraw() { NSView(controlView).setNeedsDisplay(true); }

void CellState::drawWithFrame(NSRect frame, NSView view) { NSCell(self).drawInteriorWithFrame(frame, view); }
void CellState::drawInterior(NSRect frame, NSView) { drawCentered(attributedStringValue(), frame); }

void registerCells() {
  ClassDefinition<CellState>("NSCell", "NSObject")
      .method<"init", &CellState::init>()
      .method<"initTextCell:", &CellState::initText>()
      .method<"stringValue", &CellState::stringValue>()
      .method<"setStringValue:", &CellState::setText>()
      .method<"attributedStringValue", &CellState::attributedStringValue>()
      .method<"setAttributedStringValue:", &CellState::setAttributedText>()
      .method<"font", &CellState::fontHandle>()
      .method<"setFont:", &CellState::setFont>()
      .getter<"image", &CellState::image>()
      .method<"setImage:", &CellState::setImage>()
      .property<"representedObject", "setRepresentedObject:", &CellState::representedObject>()
      .property<"alignment", "setAlignment:", &CellState::alignment>()
      .property<"lineBreakMode", "setLineBreakMode:", &CellState::lineBreakMode>()
      .getter<"state", &CellState::state>()
      .method<"setState:", &CellState::setState>()
      .property<"tag", "setTag:", &CellState::tag>()
      .property<"action", "setAction:", &CellState::action>()
      .method<"target", &CellState::targetHandle>()
      .method<"setTarget:", &CellState::setTarget>()
      .method<"controlView", &CellState::controlViewHandle>()
      .method<"setControlView:", &CellState::setControlView>()
      .getter<"isEnabled", &CellState::enabled>()
      .method<"setEnabled:", &CellState::setEnabled>()
      .property<"isHighlighted", "setHighlighted:", &CellState::highlighted>()
      .property<"isBordered", "setBordered:", &CellState::bordered>()
      .method<"drawWithFrame:inView:", &CellState::drawWithFrame>()
      .method<"drawInteriorWithFrame:inView:", &CellState::drawInterior>()
      .registered();
}

}  // namespace standin
