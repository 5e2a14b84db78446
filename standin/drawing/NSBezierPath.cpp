#include <numbers>

#include "cocoa/AppKit.h"
#include "standin/drawing/Context.h"
#include "standin/drawing/Registration.h"

using namespace cocoa;

namespace standin {

namespace {

constexpr double radians(double degrees) { return degrees * std::numbers::pi / 180; }

/// State of an NSBezierPath.
struct BezierPath : ObjectState {
  PathElements path;
  CGFloat lineWidth = 1;
  NSUInteger windingRule = NSWindingRuleNonZero;
  NSUInteger lineCap = NSLineCapStyleButt;
  NSUInteger lineJoin = NSLineJoinStyleMiter;
  std::vector<CGFloat> dash;
  CGFloat dashPhase = 0;

  [[nodiscard]] Context::Rule rule() const {
    return windingRule == NSWindingRuleEvenOdd ? Context::Rule::kEvenOdd : Context::Rule::kNonZero;
  }
  void moveTo(NSPoint p) { path.move(p); }
  void lineTo(NSPoint p) { path.line(p); }
  void curveTo(NSPoint end, NSPoint control1, NSPoint control2) { path.curve(control1, control2, end); }
  void appendArc(NSPoint center, CGFloat radius, CGFloat start, CGFloat end, BOOL clockwise) {
    path.arc(center, radius, radians(start), radians(end), clockwise != 0);
  }
  void appendCounterclockwiseArc(NSPoint center, CGFloat radius, CGFloat start, CGFloat end) {
    appendArc(center, radius, start, end, NO);
  }
  void appendRect(NSRect rect) { path.rect(rect); }
  void appendOval(NSRect rect) { path.ellipse(rect); }
  void appendRoundedRect(NSRect rect, CGFloat xRadius, CGFloat yRadius) { path.roundedRect(rect, xRadius, yRadius); }
  void append(NSBezierPath other) {
    if (const auto* state = stateIfKind<BezierPath>(other)) path.append(state->path);
  }
  void close() { path.close(); }
  void removeAllPoints() { path.clear(); }
  BOOL isEmpty() { return static_cast<BOOL>(path.isEmpty()); }
  NSRect bounds() { return path.boundingBox(); }
  BOOL contains(NSPoint p) { return static_cast<BOOL>(path.contains(p, windingRule == NSWindingRuleEvenOdd)); }
  void setLineDash(const CGFloat* pattern, NSInteger count, CGFloat phase) {
    dash.clear();
    if (pattern != nullptr && count > 0) dash.assign(pattern, pattern + count);
    dashPhase = phase;
  }

  void take(Context& context) {
    context.path().clear();
    context.path().append(path, context.state().ctm);
  }
  void fill() {
    if (Context* context = currentContext()) {
      take(*context);
      context->fillPath(rule());
    }
  }
  void addClip() {
    if (Context* context = currentContext()) {
      take(*context);
      context->clipToPath(rule());
    }
  }
  void stroke() {
    Context* context = currentContext();
    if (context == nullptr) return;
    const SavedState saved(*context);
    const auto target = NSGraphicsContext::currentContext().CGContext();
    CGContextSetLineDash(target, dashPhase, dash.data(), dash.size());
    context->state().lineWidth = lineWidth;
    context->state().lineCap = static_cast<CGLineCap>(lineCap);
    context->state().lineJoin = static_cast<CGLineJoin>(lineJoin);
    take(*context);
    context->strokePath();
  }
  id copy(void*) {
    const id other = newObject<BezierPath>();
    auto& state = stateOf<BezierPath>(other);
    state = *this;
    state.self = other;
    return other;
  }
};

NSBezierPath newPath() { return autoreleased(Ref<NSBezierPath>::adopt(NSBezierPath(newObject<BezierPath>()))); }

NSBezierPath emptyPath(Class) { return newPath(); }
NSBezierPath pathWithRect(Class, NSRect rect) {
  const NSBezierPath path = newPath();
  stateOf<BezierPath>(path).path.rect(rect);
  return path;
}
NSBezierPath pathWithRoundedRect(Class, NSRect rect, CGFloat xRadius, CGFloat yRadius) {
  const NSBezierPath path = newPath();
  stateOf<BezierPath>(path).path.roundedRect(rect, xRadius, yRadius);
  return path;
}
NSBezierPath pathWithOval(Class, NSRect rect) {
  const NSBezierPath path = newPath();
  stateOf<BezierPath>(path).path.ellipse(rect);
  return path;
}
void fillRect(Class, NSRect rect) {
  if (Context* context = currentContext()) context->fillRect(rect);
}
void strokeRect(Class, NSRect rect) { CGContextStrokeRect(NSGraphicsContext::currentContext().CGContext(), rect); }
void clipRect(Class, NSRect rect) {
  if (Context* context = currentContext()) context->clipToRect(rect);
}
void strokeLine(Class, NSPoint from, NSPoint to) {
  const CGPoint ends[] = {from, to};
  CGContextStrokeLineSegments(NSGraphicsContext::currentContext().CGContext(), ends, 2);
}

}  // namespace

void registerBezierPaths() {
  ClassDefinition<BezierPath>("NSBezierPath", "NSObject")
      .classMethod<"bezierPath", emptyPath>()
      .classMethod<"bezierPathWithRect:", pathWithRect>()
      .classMethod<"bezierPathWithRoundedRect:xRadius:yRadius:", pathWithRoundedRect>()
      .classMethod<"bezierPathWithOvalInRect:", pathWithOval>()
      .classMethod<"fillRect:", fillRect>()
      .classMethod<"strokeRect:", strokeRect>()
      .classMethod<"clipRect:", clipRect>()
      .classMethod<"strokeLineFromPoint:toPoint:", strokeLine>()
      .method<"moveToPoint:", &BezierPath::moveTo>()
      .method<"lineToPoint:", &BezierPath::lineTo>()
      .method<"curveToPoint:controlPoint1:controlPoint2:", &BezierPath::curveTo>()
      .method<"appendBezierPathWithArcWithCenter:radius:startAngle:endAngle:clockwise:", &BezierPath::appendArc>()
      .method<"appendBezierPathWithArcWithCenter:radius:startAngle:endAngle:", &BezierPath::appendCounterclockwiseArc>()
      .method<"appendBezierPathWithRect:", &BezierPath::appendRect>()
      .method<"appendBezierPathWithOvalInRect:", &BezierPath::appendOval>()
      .method<"appendBezierPathWithRoundedRect:xRadius:yRadius:", &BezierPath::appendRoundedRect>()
      .method<"appendBezierPath:", &BezierPath::append>()
      .method<"closePath", &BezierPath::close>()
      .method<"removeAllPoints", &BezierPath::removeAllPoints>()
      .method<"isEmpty", &BezierPath::isEmpty>()
      .method<"bounds", &BezierPath::bounds>()
      .method<"containsPoint:", &BezierPath::contains>()
      .property<"lineWidth", "setLineWidth:", &BezierPath::lineWidth>()
      .property<"windingRule", "setWindingRule:", &BezierPath::windingRule>()
      .property<"lineCapStyle", "setLineCapStyle:", &BezierPath::lineCap>()
      .property<"lineJoinStyle", "setLineJoinStyle:", &BezierPath::lineJoin>()
      .method<"setLineDash:count:phase:", &BezierPath::setLineDash>()
      .method<"fill", &BezierPath::fill>()
      .method<"stroke", &BezierPath::stroke>()
      .method<"addClip", &BezierPath::addClip>()
      .method<"copyWithZone:", &BezierPath::copy>()
      .registered();
}

}  // namespace standin

using namespace standin;

extern "C" {

void NSRectFillUsingOperation(NSRect rect, NSCompositingOperation operation) {
  const auto current = NSGraphicsContext::currentContext();
  Context* context = currentContext();
  if (context == nullptr) return;
  const CGBlendMode before = context->state().blendMode;
  current.setCompositingOperation(operation);
  context->fillRect(rect);
  context->state().blendMode = before;
}

void NSRectFill(NSRect rect) { NSRectFillUsingOperation(rect, NSCompositingOperationCopy); }

void NSFrameRectWithWidth(NSRect rect, CGFloat width) {
  const CGRect sides[] = {CGRectMake(rect.minX(), rect.minY(), rect.size.width, width),
                          CGRectMake(rect.minX(), rect.maxY() - width, rect.size.width, width),
                          CGRectMake(rect.minX(), rect.minY() + width, width, rect.size.height - 2 * width),
                          CGRectMake(rect.maxX() - width, rect.minY() + width, width, rect.size.height - 2 * width)};
  for (const CGRect& side : sides) {
    if (!side.isEmpty()) NSRectFill(side);
  }
}

void NSFrameRect(NSRect rect) { NSFrameRectWithWidth(rect, 1); }

void NSRectClip(NSRect rect) {
  if (Context* context = currentContext()) context->clipToRect(rect);
}
}
