// The functions of Core Graphics that take a context.

#include "standin/drawing/Context.h"
#include "standin/drawing/Gradient.h"
#include "standin/drawing/Registration.h"
#include "standin/pixels/Image.h"

using namespace cocoa;

namespace standin {

void registerCoreGraphicsContexts() { ClassDefinition<Context>("CGContext", "NSObject").registered(); }

}  // namespace standin

using namespace standin;

namespace {

/// Runs `f` with the context behind the pointer; does nothing without one.
template <class F>
void with(CGContextRef context, F&& f) {
  if (context != nullptr) f(contextState(context));
}

/// Adds to the context's path, in device space.
template <class F>
void addTo(CGContextRef context, F&& f) {
  if (context == nullptr) return;
  Context& c = contextState(context);
  f(c.path(), c.state().ctm);
}

Paint solid(double red, double green, double blue, double alpha) { return {{red, green, blue, alpha}, {}}; }

std::optional<PixelOrder> orderOf(CGBitmapInfo info) {
  struct Layout {
    CGBitmapInfo info;
    PixelOrder order;
  };
  constexpr Layout kLayouts[] = {
      {kCGImageAlphaPremultipliedLast, PixelOrder::kRgba},
      {kCGImageAlphaNoneSkipLast, PixelOrder::kRgba},
      {kCGImageAlphaPremultipliedLast | kCGBitmapByteOrder32Big, PixelOrder::kRgba},
      {kCGImageAlphaNoneSkipLast | kCGBitmapByteOrder32Big, PixelOrder::kRgba},
      {kCGImageAlphaPremultipliedFirst | kCGBitmapByteOrder32Little, PixelOrder::kNative},
      {kCGImageAlphaNoneSkipFirst | kCGBitmapByteOrder32Little, PixelOrder::kNative},
  };
  for (const Layout& layout : kLayouts) {
    if (layout.info == info) return layout.order;
  }
  return std::nullopt;
}

void drawPath(CGContextRef context, CGPathDrawingMode mode) {
  with(context, [&](Context& c) {
    switch (mode) {
      case kCGPathFill:
        return c.fillPath(Context::Rule::kNonZero);
      case kCGPathEOFill:
        return c.fillPath(Context::Rule::kEvenOdd);
      case kCGPathStroke:
        return c.strokePath();
      case kCGPathFillStroke:
        return c.fillAndStrokePath(Context::Rule::kNonZero);
      case kCGPathEOFillStroke:
        return c.fillAndStrokePath(Context::Rule::kEvenOdd);
    }
  });
}

/// Draws a path of its own; the context's path is used up, as it is by every drawing of a path.
template <class F>
void drawOwnPath(CGContextRef context, CGPathDrawingMode mode, F&& build) {
  with(context, [&](Context& c) {
    c.path().clear();
    build(c.path(), c.state().ctm);
    drawPath(context, mode);
  });
}

}  // namespace

extern "C" {

CGContextRef CGBitmapContextCreate(void* data, size_t width, size_t height, size_t bitsPerComponent, size_t bytesPerRow,
                                   CGColorSpaceRef space, CGBitmapInfo info) {
  const auto order = orderOf(info);
  if (!order || bitsPerComponent != 8 || CGColorSpaceGetNumberOfComponents(space) != 3) return nullptr;
  if (width < 1 || height < 1 || width > kLongestSide || height > kLongestSide) return nullptr;
  const int w = static_cast<int>(width);
  const int h = static_cast<int>(height);
  if (data == nullptr) return makeContext(Surface::make(w, h, *order));
  if (bytesPerRow < width * sizeof(Pixel) || bytesPerRow % sizeof(Pixel) != 0) return nullptr;
  return makeContext({static_cast<std::byte*>(data), static_cast<std::ptrdiff_t>(bytesPerRow), {0, 0, w, h}, *order},
                     nullptr);
}

CGImageRef CGBitmapContextCreateImage(CGContextRef context) {
  if (context == nullptr) return nullptr;
  const PixelView& pixels = contextState(context).pixels();
  return makeImage(copied(pixels, pixels.order));
}

void* CGBitmapContextGetData(CGContextRef context) {
  return context == nullptr ? nullptr : contextState(context).pixels().base;
}
size_t CGBitmapContextGetWidth(CGContextRef context) {
  return context == nullptr ? 0 : static_cast<size_t>(contextState(context).pixels().area.width());
}
size_t CGBitmapContextGetHeight(CGContextRef context) {
  return context == nullptr ? 0 : static_cast<size_t>(contextState(context).pixels().area.height());
}
size_t CGBitmapContextGetBytesPerRow(CGContextRef context) {
  return context == nullptr ? 0 : static_cast<size_t>(contextState(context).pixels().stride);
}
CGContextRef CGContextRetain(CGContextRef context) {
  CFRetain(context);
  return context;
}
void CGContextRelease(CGContextRef context) { CFRelease(context); }
/// Pixels are always up to date.
void CGContextFlush(CGContextRef) {}

void CGContextSaveGState(CGContextRef context) {
  with(context, [](Context& c) { c.save(); });
}
void CGContextRestoreGState(CGContextRef context) {
  with(context, [](Context& c) { c.restore(); });
}
void CGContextTranslateCTM(CGContextRef context, CGFloat tx, CGFloat ty) {
  CGContextConcatCTM(context, CGAffineTransformMakeTranslation(tx, ty));
}
void CGContextScaleCTM(CGContextRef context, CGFloat sx, CGFloat sy) {
  CGContextConcatCTM(context, CGAffineTransformMakeScale(sx, sy));
}
void CGContextRotateCTM(CGContextRef context, CGFloat angle) {
  CGContextConcatCTM(context, CGAffineTransformMakeRotation(angle));
}
void CGContextConcatCTM(CGContextRef context, CGAffineTransform transform) {
  with(context, [&](Context& c) { c.concat(transform); });
}
CGAffineTransform CGContextGetCTM(CGContextRef context) {
  if (context == nullptr) return {};
  // As seen from the platform's y-up device space.
  const Context& c = contextState(context);
  return CGAffineTransformConcat(c.state().ctm, {1, 0, 0, -1, 0, static_cast<double>(c.pixels().area.bottom)});
}

void CGContextSetFillColorWithColor(CGContextRef context, CGColorRef color) {
  with(context, [&](Context& c) { c.state().fill = color == nullptr ? solid(0, 0, 0, 0) : paintOf(color); });
}
void CGContextSetStrokeColorWithColor(CGContextRef context, CGColorRef color) {
  with(context, [&](Context& c) { c.state().stroke = color == nullptr ? solid(0, 0, 0, 0) : paintOf(color); });
}
void CGContextSetRGBFillColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  with(context, [&](Context& c) { c.state().fill = solid(red, green, blue, alpha); });
}
void CGContextSetRGBStrokeColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  with(context, [&](Context& c) { c.state().stroke = solid(red, green, blue, alpha); });
}
void CGContextSetGrayFillColor(CGContextRef context, CGFloat gray, CGFloat alpha) {
  CGContextSetRGBFillColor(context, gray, gray, gray, alpha);
}
void CGContextSetGrayStrokeColor(CGContextRef context, CGFloat gray, CGFloat alpha) {
  CGContextSetRGBStrokeColor(context, gray, gray, gray, alpha);
}
void CGContextSetLineWidth(CGContextRef context, CGFloat width) {
  with(context, [&](Context& c) { c.state().lineWidth = width; });
}
void CGContextSetLineCap(CGContextRef context, CGLineCap cap) {
  with(context, [&](Context& c) { c.state().lineCap = cap; });
}
void CGContextSetLineJoin(CGContextRef context, CGLineJoin join) {
  with(context, [&](Context& c) { c.state().lineJoin = join; });
}
void CGContextSetMiterLimit(CGContextRef context, CGFloat limit) {
  with(context, [&](Context& c) { c.state().miterLimit = limit; });
}
void CGContextSetLineDash(CGContextRef context, CGFloat phase, const CGFloat* lengths, size_t count) {
  with(context, [&](Context& c) {
    double total = 0;
    for (size_t i = 0; lengths != nullptr && i < count; ++i) {
      if (!(lengths[i] >= 0)) return;
      total += lengths[i];
    }
    c.state().dash =
        total > 0 ? std::make_shared<Dash>(Dash{std::vector<double>(lengths, lengths + count), phase}) : nullptr;
  });
}
void CGContextSetAlpha(CGContextRef context, CGFloat alpha) {
  with(context, [&](Context& c) { c.state().alpha = clampedUnit(alpha); });
}
void CGContextSetBlendMode(CGContextRef context, CGBlendMode mode) {
  with(context, [&](Context& c) { c.state().blendMode = mode; });
}
/// Text is always drawn with grey edges.
void CGContextSetShouldSmoothFonts(CGContextRef, bool) {}
void CGContextSetShouldAntialias(CGContextRef context, bool antialias) {
  with(context, [&](Context& c) { c.state().antialias = antialias; });
}
void CGContextSetAllowsAntialiasing(CGContextRef, bool) {}
void CGContextSetInterpolationQuality(CGContextRef context, CGInterpolationQuality quality) {
  with(context, [&](Context& c) { c.state().interpolation = quality; });
}
void CGContextSetPatternPhase(CGContextRef context, CGSize phase) {
  with(context, [&](Context& c) { c.state().patternPhase = phase; });
}
void CGContextSetShadowWithColor(CGContextRef context, CGSize offset, CGFloat blur, CGColorRef color) {
  with(context, [&](Context& c) {
    c.state().shadow =
        color == nullptr ? nullptr : std::make_shared<Shadow>(Shadow{offset, blur, paintOf(color).color});
  });
}

void CGContextBeginPath(CGContextRef context) {
  with(context, [](Context& c) { c.path().clear(); });
}
void CGContextMoveToPoint(CGContextRef context, CGFloat x, CGFloat y) {
  addTo(context, [&](PathElements& p, const CGAffineTransform& t) { p.move({x, y}, t); });
}
void CGContextAddLineToPoint(CGContextRef context, CGFloat x, CGFloat y) {
  addTo(context, [&](PathElements& p, const CGAffineTransform& t) { p.line({x, y}, t); });
}
void CGContextAddLines(CGContextRef context, const CGPoint* points, size_t count) {
  for (size_t i = 0; points != nullptr && i < count; ++i) {
    addTo(context,
          [&](PathElements& p, const CGAffineTransform& t) { i == 0 ? p.move(points[i], t) : p.line(points[i], t); });
  }
}
void CGContextAddCurveToPoint(CGContextRef context, CGFloat c1x, CGFloat c1y, CGFloat c2x, CGFloat c2y, CGFloat x,
                              CGFloat y) {
  addTo(context, [&](PathElements& p, const CGAffineTransform& t) { p.curve({c1x, c1y}, {c2x, c2y}, {x, y}, t); });
}
void CGContextAddQuadCurveToPoint(CGContextRef context, CGFloat cx, CGFloat cy, CGFloat x, CGFloat y) {
  addTo(context, [&](PathElements& p, const CGAffineTransform& t) { p.quadCurve({cx, cy}, {x, y}, t); });
}
void CGContextAddArc(CGContextRef context, CGFloat x, CGFloat y, CGFloat radius, CGFloat startAngle, CGFloat endAngle,
                     int clockwise) {
  addTo(context, [&](PathElements& p, const CGAffineTransform& t) {
    p.arc({x, y}, radius, startAngle, endAngle, clockwise != 0, t);
  });
}
void CGContextAddArcToPoint(CGContextRef context, CGFloat x1, CGFloat y1, CGFloat x2, CGFloat y2, CGFloat radius) {
  addTo(context, [&](PathElements& p, const CGAffineTransform& t) { p.arcTo({x1, y1}, {x2, y2}, radius, t); });
}
void CGContextAddRect(CGContextRef context, CGRect rect) {
  addTo(context, [&](PathElements& p, const CGAffineTransform& t) { p.rect(rect, t); });
}
void CGContextAddRects(CGContextRef context, const CGRect* rects, size_t count) {
  for (size_t i = 0; rects != nullptr && i < count; ++i) CGContextAddRect(context, rects[i]);
}
void CGContextAddEllipseInRect(CGContextRef context, CGRect rect) {
  addTo(context, [&](PathElements& p, const CGAffineTransform& t) { p.ellipse(rect, t); });
}
void CGContextAddPath(CGContextRef context, CGPathRef path) {
  if (path == nullptr) return;
  addTo(context, [&](PathElements& p, const CGAffineTransform& t) { p.append(elementsOf(path), t); });
}
void CGContextClosePath(CGContextRef context) {
  with(context, [](Context& c) { c.path().close(); });
}

void CGContextFillPath(CGContextRef context) { drawPath(context, kCGPathFill); }
void CGContextEOFillPath(CGContextRef context) { drawPath(context, kCGPathEOFill); }
void CGContextStrokePath(CGContextRef context) { drawPath(context, kCGPathStroke); }
void CGContextDrawPath(CGContextRef context, CGPathDrawingMode mode) { drawPath(context, mode); }
void CGContextFillRect(CGContextRef context, CGRect rect) {
  with(context, [&](Context& c) { c.fillRect(rect); });
}
void CGContextFillRects(CGContextRef context, const CGRect* rects, size_t count) {
  for (size_t i = 0; rects != nullptr && i < count; ++i) CGContextFillRect(context, rects[i]);
}
void CGContextStrokeRect(CGContextRef context, CGRect rect) {
  drawOwnPath(context, kCGPathStroke, [&](PathElements& p, const CGAffineTransform& t) { p.rect(rect, t); });
}
void CGContextStrokeRectWithWidth(CGContextRef context, CGRect rect, CGFloat width) {
  with(context, [&](Context& c) {
    const double before = std::exchange(c.state().lineWidth, width);
    CGContextStrokeRect(context, rect);
    c.state().lineWidth = before;
  });
}
void CGContextStrokeLineSegments(CGContextRef context, const CGPoint* points, size_t count) {
  drawOwnPath(context, kCGPathStroke, [&](PathElements& p, const CGAffineTransform& t) {
    for (size_t i = 0; points != nullptr && i + 1 < count; i += 2) {
      p.move(points[i], t);
      p.line(points[i + 1], t);
    }
  });
}
void CGContextFillEllipseInRect(CGContextRef context, CGRect rect) {
  drawOwnPath(context, kCGPathFill, [&](PathElements& p, const CGAffineTransform& t) { p.ellipse(rect, t); });
}
void CGContextStrokeEllipseInRect(CGContextRef context, CGRect rect) {
  drawOwnPath(context, kCGPathStroke, [&](PathElements& p, const CGAffineTransform& t) { p.ellipse(rect, t); });
}
void CGContextClearRect(CGContextRef context, CGRect rect) {
  with(context, [&](Context& c) { c.clearRect(rect); });
}
void CGContextClip(CGContextRef context) {
  with(context, [](Context& c) { c.clipToPath(Context::Rule::kNonZero); });
}
void CGContextEOClip(CGContextRef context) {
  with(context, [](Context& c) { c.clipToPath(Context::Rule::kEvenOdd); });
}
void CGContextClipToRect(CGContextRef context, CGRect rect) {
  with(context, [&](Context& c) { c.clipToRect(rect); });
}
CGRect CGContextGetClipBoundingBox(CGContextRef context) {
  return context == nullptr ? CGRect{} : contextState(context).clipBounds();
}
void CGContextDrawImage(CGContextRef context, CGRect rect, CGImageRef image) {
  if (image == nullptr) return;
  with(context, [&](Context& c) { c.drawSurface(rect, pixelsOf(image)); });
}
void CGContextDrawLinearGradient(CGContextRef context, CGGradientRef gradient, CGPoint start, CGPoint end,
                                 CGGradientDrawingOptions options) {
  if (gradient == nullptr) return;
  with(context, [&](Context& c) {
    c.drawLinearGradient(stateBehind<GradientState>(gradient).stops, start, end,
                         static_cast<GradientEnds>(options & static_cast<uint32_t>(GradientEnds::kBoth)));
  });
}
void CGContextDrawRadialGradient(CGContextRef context, CGGradientRef gradient, CGPoint startCenter, CGFloat startRadius,
                                 CGPoint endCenter, CGFloat endRadius, CGGradientDrawingOptions options) {
  if (gradient == nullptr) return;
  with(context, [&](Context& c) {
    c.drawRadialGradient(stateBehind<GradientState>(gradient).stops, startCenter, startRadius, endCenter, endRadius,
                         static_cast<GradientEnds>(options & static_cast<uint32_t>(GradientEnds::kBoth)));
  });
}
void CGContextBeginTransparencyLayer(CGContextRef context, CFDictionaryRef) {
  with(context, [](Context& c) { c.beginLayer(); });
}
void CGContextEndTransparencyLayer(CGContextRef context) {
  with(context, [](Context& c) { c.endLayer(); });
}
}
