#include "host/drawing/Painter.h"

#include <algorithm>
#include <numbers>

#include "cocoa/Call.h"

namespace host {

using namespace cocoa;

namespace {

/// Where messages draw while it lasts. What it changes of the context is put back.
class CurrentContext {
 public:
  explicit CurrentContext(const Painter& painter) : context_(painter.context()) {
    CGContextSaveGState(context_);
    NSGraphicsContext::saveGraphicsState();
    NSGraphicsContext::setCurrentContext(
        NSGraphicsContext::graphicsContextWithCGContext(context_, painter.isFlipped()));
  }
  CurrentContext(const CurrentContext&) = delete;
  CurrentContext& operator=(const CurrentContext&) = delete;
  ~CurrentContext() {
    NSGraphicsContext::restoreGraphicsState();
    CGContextRestoreGState(context_);
  }

 private:
  CGContextRef context_;
};

}  // namespace

void Painter::fill(CGRect rect, NSColor color) const {
  CGContextSetFillColorWithColor(context_, color.CGColor());
  CGContextFillRect(context_, rect);
}

void Painter::addRounded(CGRect rect, double radius) const {
  const double fitting = std::max(0.0, std::min({radius, rect.size.width / 2, rect.size.height / 2}));
  const auto path = CFRef<CGPathRef>::adopt(CGPathCreateWithRoundedRect(rect, fitting, fitting, nullptr));
  CGContextBeginPath(context_);
  CGContextAddPath(context_, path);
}

void Painter::fillRounded(CGRect rect, double radius, NSColor color) const {
  addRounded(rect, radius);
  CGContextSetFillColorWithColor(context_, color.CGColor());
  CGContextFillPath(context_);
}

void Painter::strokeRounded(CGRect rect, double radius, NSColor color, double width) const {
  addRounded(rect, radius);
  CGContextSetStrokeColorWithColor(context_, color.CGColor());
  CGContextSetLineWidth(context_, width);
  CGContextStrokePath(context_);
}

void Painter::verticalGradient(CGRect rect, double radius, NSColor top, NSColor bottom) const {
  double components[8];
  top.getComponents(components);
  bottom.getComponents(components + 4);
  const auto space = CFRef<CGColorSpaceRef>::adopt(CGColorSpaceCreateWithName(kCGColorSpaceSRGB));
  const auto gradient = CFRef<CGGradientRef>::adopt(CGGradientCreateWithColorComponents(space, components, nullptr, 2));
  CGContextSaveGState(context_);
  addRounded(rect, radius);
  CGContextClip(context_);
  const double upper = flipped_ ? rect.minY() : rect.maxY();
  CGContextDrawLinearGradient(context_, gradient, {rect.midX(), upper},
                              {rect.midX(), rect.minY() + rect.maxY() - upper}, kCGGradientDrawsNeither);
  CGContextRestoreGState(context_);
}

void Painter::body(CGRect rect, double radius, NSColor top, NSColor bottom, NSColor edge) const {
  fillRounded(rect, radius, edge);
  const CGRect inner = rect.insetBy(1, 1);
  verticalGradient(inner, radius - 1, top, bottom);
  CGContextSetRGBFillColor(context_, 1, 1, 1, 0.14);
  CGContextFillRect(context_, CGRectMake(inner.minX() + radius - 1, flipped_ ? inner.minY() : inner.maxY() - 1,
                                         std::max(0.0, inner.size.width - 2 * (radius - 1)), 1));
}

void Painter::fillEllipse(CGRect rect, NSColor color) const {
  CGContextSetFillColorWithColor(context_, color.CGColor());
  CGContextFillEllipseInRect(context_, rect);
}

void Painter::strokeEllipse(CGRect rect, NSColor color, double width) const {
  CGContextSetStrokeColorWithColor(context_, color.CGColor());
  CGContextSetLineWidth(context_, width);
  CGContextStrokeEllipseInRect(context_, rect);
}

void Painter::line(CGPoint from, CGPoint to, NSColor color, double width) const {
  CGContextSetStrokeColorWithColor(context_, color.CGColor());
  CGContextSetLineWidth(context_, width);
  CGContextSetLineCap(context_, kCGLineCapRound);
  CGContextBeginPath(context_);
  CGContextMoveToPoint(context_, from.x, from.y);
  CGContextAddLineToPoint(context_, to.x, to.y);
  CGContextStrokePath(context_);
}

void Painter::arc(CGPoint centre, double radius, double fromDegrees, double toDegrees, NSColor color,
                  double width) const {
  constexpr double kRadians = std::numbers::pi / 180;
  CGContextSetStrokeColorWithColor(context_, color.CGColor());
  CGContextSetLineWidth(context_, width);
  CGContextSetLineCap(context_, kCGLineCapRound);
  CGContextBeginPath(context_);
  CGContextAddArc(context_, centre.x, centre.y, radius, fromDegrees * kRadians, toDegrees * kRadians, 1);
  CGContextStrokePath(context_);
}

void Painter::text(std::string_view text, CGRect rect, NSColor color, const TextStyle& style) const {
  this->text(string(text), rect, color, style);
}

void Painter::text(NSString text, CGRect rect, NSColor color, const TextStyle& style) const {
  if (text.length() == 0) return;
  const NSFont font = NSFont::systemFontOfSize(style.size, style.weight);
  const auto attributes = NSMutableDictionary::dictionary();
  attributes.setObject(font, NSFontAttributeName);
  attributes.setObject(color, NSForegroundColorAttributeName);
  const CGSize size = call<"sizeWithAttributes:", CGSize>(text, attributes);
  double x = rect.minX();
  if (style.alignment == TextAlignment::kCentre) x += std::max(0.0, (rect.size.width - size.width) / 2);
  if (style.alignment == TextAlignment::kRight) x += std::max(0.0, rect.size.width - size.width);
  const double y = rect.minY() + (rect.size.height - size.height) / 2;
  const CurrentContext current(*this);
  CGContextClipToRect(context_, rect);
  call<"drawAtPoint:withAttributes:">(text, CGPoint{x, y}, attributes);
}

void Painter::text(NSAttributedString text, CGRect rect) const {
  if (text.length() == 0) return;
  const CGSize size = call<"size", CGSize>(text);
  const double y = rect.minY() + (rect.size.height - size.height) / 2;
  const CurrentContext current(*this);
  call<"drawInRect:">(text, CGRectMake(rect.minX(), y, rect.size.width, size.height));
}

void Painter::baselineText(NSAttributedString text, CGRect rect) const {
  const CurrentContext current(*this);
  cocoa::text::drawWithRect(text, rect, NSStringDrawingUsesBaseline);
}

void Painter::image(NSImage image, CGRect rect) const {
  const CurrentContext current(*this);
  image.drawInRect(rect, {}, NSCompositingOperationSourceOver, 1);
}

NSMutableDictionary textAttributes(NSColor color, double size, double weight, NSTextAlignment alignment) {
  const auto style = make<NSMutableParagraphStyle>();
  style->setAlignment(alignment);
  style->setLineBreakMode(NSLineBreakByTruncatingTail);
  const auto attributes = NSMutableDictionary::dictionary();
  attributes.setObject(NSFont::systemFontOfSize(size, weight), NSFontAttributeName);
  attributes.setObject(color, NSForegroundColorAttributeName);
  attributes.setObject(style.get(), NSParagraphStyleAttributeName);
  return attributes;
}

NSMutableDictionary lineAttributes(NSColor color, const TextStyle& style) {
  return textAttributes(color, style.size, style.weight, NSTextAlignmentCenter);
}

NSColor faded(NSColor color, double alpha) { return color.colorWithAlphaComponent(alpha); }

}  // namespace host
