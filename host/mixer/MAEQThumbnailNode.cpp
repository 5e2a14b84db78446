#include "host/mixer/MAEQThumbnailNode.h"

#include <cmath>

#include "host/drawing/Painter.h"

namespace host {
namespace {

using namespace cocoa;

/// A bell of a curve, in fractions of the thumbnail.
double bell(double x, double centre, double width, double gain) {
  const double distance = (x - centre) / width;
  return gain * std::exp(-distance * distance);
}

double gainAt(double x, unsigned curve) {
  const double a = static_cast<double>(curve % 7) / 7;
  const double b = static_cast<double>(curve % 5) / 5;
  const double lowCut = -0.5 * std::exp(-x * (10 + 8 * b));
  return lowCut + bell(x, 0.2 + 0.2 * a, 0.12, 0.32 * b - 0.12) + bell(x, 0.75 - 0.15 * b, 0.14, 0.28 * a - 0.05);
}

void addCurve(CGContextRef context, CGRect rect, unsigned curve) {
  constexpr int kSteps = 36;
  CGContextBeginPath(context);
  for (int i = 0; i <= kSteps; ++i) {
    const double x = static_cast<double>(i) / kSteps;
    const CGPoint point{rect.minX() + x * rect.size.width, rect.midY() + gainAt(x, curve) * rect.size.height * 0.7};
    if (i == 0) {
      CGContextMoveToPoint(context, point.x, point.y);
    } else {
      CGContextAddLineToPoint(context, point.x, point.y);
    }
  }
}

void drawCurve(const Painter& painter, CGRect rect, unsigned curve) {
  CGContextRef context = painter.context();
  for (int i = 1; i < 4; ++i) {
    painter.fill(CGRectMake(rect.minX() + std::round(rect.size.width * i / 4), rect.minY(), 1, rect.size.height),
                 paletteColor(Palette::kEqualizerGrid));
  }
  painter.fill(CGRectMake(rect.minX(), std::floor(rect.midY()), rect.size.width, 1),
               paletteColor(Palette::kEqualizerGrid));
  CGContextSaveGState(context);
  CGContextClipToRect(context, rect);
  addCurve(context, rect, curve);
  CGContextAddLineToPoint(context, rect.maxX(), rect.minY());
  CGContextAddLineToPoint(context, rect.minX(), rect.minY());
  CGContextClosePath(context);
  CGContextSetFillColorWithColor(context, faded(paletteColor(Palette::kEqualizerCurve), 0.18).CGColor());
  CGContextFillPath(context);
  addCurve(context, rect, curve);
  CGContextSetStrokeColorWithColor(context, paletteColor(Palette::kEqualizerCurve).CGColor());
  CGContextSetLineWidth(context, 1.2);
  CGContextStrokePath(context);
  CGContextRestoreGState(context);
}

}  // namespace

id MAEQThumbnailNode::init() {
  superSend<MAEQThumbnailNode, id>(self, selector<"init">());
  stateOf<MANode>(self).drawsContents = true;
  return self;
}

void MAEQThumbnailNode::drawRect(CGRect rect, CGContextRef context) {
  const Painter painter(context);
  painter.fillRounded(rect, 4, paletteColor(Palette::kEqualizerBackground));
  painter.strokeRounded(rect.insetBy(0.5, 0.5), 3.5, faded(NSColor::whiteColor(), 0.06), 1);
  if (curve != 0) {
    drawCurve(painter, rect.insetBy(2, 2), curve);
  } else {
    call<"drawTitleInRect:inContext:">(self, rect, context);
  }
}

void MAEQThumbnailNode::drawTitle(CGRect rect, CGContextRef context) {
  const MANode& node = stateOf<MANode>(self);
  if (node.title->length() == 0) return;
  const double size = NSFont::smallSystemFontSize();
  const auto attributes = NSMutableDictionary::dictionary();
  attributes.setObject(NSFont::systemFontOfSize(size), NSFontAttributeName);
  attributes.setObject(paletteColor(Palette::kEqualizerTitle), NSForegroundColorAttributeName);
  const Ref<NSMutableParagraphStyle> centred = make<NSMutableParagraphStyle>();
  centred->setAlignment(NSTextAlignmentCenter);
  attributes.setObject(centred.get(), NSParagraphStyleAttributeName);
  const auto title = NSAttributedString::withString(node.title, attributes);
  Painter(context).baselineText(title, CGRectMake(0, (rect.size.height - size) * 0.5, rect.size.width, size));
}

void defineMAEQThumbnailNode() {
  ClassDefinition<MAEQThumbnailNode>("MAEQThumbnailNode", "MANode")
      .method<"init", &MAEQThumbnailNode::init>()
      .method<"drawRect:inContext:", &MAEQThumbnailNode::drawRect>()
      .method<"drawTitleInRect:inContext:", &MAEQThumbnailNode::drawTitle>()
      .registered();
}

}  // namespace host
