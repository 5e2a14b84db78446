// What AppKit adds to strings: drawing, measuring, alignment.

#include "standin/text/Registration.h"
#include "standin/text/Text.h"

using namespace cocoa;

namespace standin {

namespace {

/// The rectangle whose top left is where text drawn at `point` begins: the point is the lower left corner,
/// or the upper left one in a flipped view.
NSRect unlimitedAt(NSPoint point, const StyledText& text) { return {point, {0, sizeOf(text).height}}; }

void drawStringInRect(NSString text, NSRect rect, NSDictionary attributes) {
  drawText(styledText(text, attributes), rect);
}
void drawStringAtPoint(NSString text, NSPoint point, NSDictionary attributes) {
  const StyledText styled = styledText(text, attributes);
  drawText(styled, unlimitedAt(point, styled));
}
NSSize stringSize(NSString text, NSDictionary attributes) { return sizeOf(styledText(text, attributes)); }

void drawStyled(const StyledText& text, NSRect rect, NSStringDrawingOptions options) {
  if ((options & NSStringDrawingUsesLineFragmentOrigin) != 0) return drawText(text, rect);
  drawOnBaseline(text, rect);
}
void drawStringWithRect(NSString text, NSRect rect, NSStringDrawingOptions options, NSDictionary attributes, id) {
  drawStyled(styledText(text, attributes), rect, options);
}

void drawAttributedInRect(NSAttributedString text, NSRect rect) { drawText(styledText(text), rect); }
void drawAttributedAtPoint(NSAttributedString text, NSPoint point) {
  const StyledText styled = styledText(text);
  drawText(styled, unlimitedAt(point, styled));
}
void drawAttributedWithRect(NSAttributedString text, NSRect rect, NSStringDrawingOptions options, id) {
  drawStyled(styledText(text), rect, options);
}
NSSize attributedSize(NSAttributedString text) { return sizeOf(styledText(text)); }

void setAlignment(NSMutableAttributedString text, NSTextAlignment alignment, NSRange range) {
  const auto style = make<NSMutableParagraphStyle>();
  if (range.length > 0) {
    const auto* before =
        stateIfKind<ParagraphState>(text.attribute(NSParagraphStyleAttributeName, range.location, nullptr));
    if (before != nullptr) style->setLineBreakMode(before->lineBreakMode);
  }
  style->setAlignment(alignment);
  text.addAttribute(NSParagraphStyleAttributeName, style.get(), range);
}

}  // namespace

void registerStringDrawing() {
  CategoryDefinition("NSString")
      .method<"drawInRect:withAttributes:", drawStringInRect>()
      .method<"drawAtPoint:withAttributes:", drawStringAtPoint>()
      .method<"drawWithRect:options:attributes:context:", drawStringWithRect>()
      .method<"sizeWithAttributes:", stringSize>();
  CategoryDefinition("NSAttributedString")
      .method<"drawInRect:", drawAttributedInRect>()
      .method<"drawAtPoint:", drawAttributedAtPoint>()
      .method<"drawWithRect:options:context:", drawAttributedWithRect>()
      .method<"size", attributedSize>();
  CategoryDefinition("NSMutableAttributedString").method<"setAlignment:range:", setAlignment>();
}

}  // namespace standin
