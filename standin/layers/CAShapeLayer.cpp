#include "standin/layers/Layer.h"
#include "standin/layers/Registration.h"

using namespace cocoa;

namespace standin {

namespace {

/// State of a CAShapeLayer.
struct ShapeLayer : ObjectState {
  CFRef<CGPathRef> path;
  CFRef<CGColorRef> fillColor = CFRef<CGColorRef>::adopt(CGColorCreateGenericGray(0, 1));
  CFRef<CGColorRef> strokeColor;
  CGFloat lineWidth = 1;
  Ref<NSString> lineCap = kCALineCapButt;
  Ref<NSString> fillRule = kCAFillRuleNonZero;

  id init() {
    stateOf<LayerState>(self).paintOwn = &paint;
    return self;
  }
  CGPathRef pathPointer() { return path; }
  void setPath(CGPathRef changed) {
    // What the caller does to its path afterwards does not change the layer.
    path = CFRef<CGPathRef>::adopt(CGPathCreateCopy(changed));
  }
  CGColorRef fill() { return fillColor; }
  void setFill(CGColorRef color) { fillColor = color; }
  CGColorRef stroke() { return strokeColor; }
  void setStroke(CGColorRef color) { strokeColor = color; }

  static void paint(LayerState& layer, Context& context, bool flipped);
};

CGLineCap capNamed(NSString name) {
  if (name.isEqual(kCALineCapRound)) return kCGLineCapRound;
  return name.isEqual(kCALineCapSquare) ? kCGLineCapSquare : kCGLineCapButt;
}

void ShapeLayer::paint(LayerState& layer, Context& context, bool flipped) {
  const auto& shape = stateOf<ShapeLayer>(layer.self);
  if (!shape.path) return;
  const SavedState saved(context);
  if (flipped) context.concat({1, 0, 0, -1, 0, layer.bounds.size.height});
  context.concat(CGAffineTransformMakeTranslation(-layer.bounds.minX(), -layer.bounds.minY()));
  const auto take = [&] {
    context.path().clear();
    context.path().append(elementsOf(shape.path), context.state().ctm);
  };
  if (shape.fillColor) {
    take();
    context.state().fill = paintOf(shape.fillColor.get());
    context.fillPath(shape.fillRule->isEqual(kCAFillRuleEvenOdd) ? Context::Rule::kEvenOdd : Context::Rule::kNonZero);
  }
  if (shape.strokeColor && shape.lineWidth > 0) {
    take();
    context.state().stroke = paintOf(shape.strokeColor.get());
    context.state().lineWidth = shape.lineWidth;
    context.state().lineCap = capNamed(shape.lineCap);
    context.strokePath();
  }
}

}  // namespace

void registerShapeLayers() {
  ClassDefinition<ShapeLayer>("CAShapeLayer", "CALayer")
      .method<"init", &ShapeLayer::init>()
      .method<"path", &ShapeLayer::pathPointer>()
      .method<"setPath:", &ShapeLayer::setPath>()
      .method<"fillColor", &ShapeLayer::fill>()
      .method<"setFillColor:", &ShapeLayer::setFill>()
      .method<"strokeColor", &ShapeLayer::stroke>()
      .method<"setStrokeColor:", &ShapeLayer::setStroke>()
      .property<"lineWidth", "setLineWidth:", &ShapeLayer::lineWidth>()
      .property<"lineCap", "setLineCap:", &ShapeLayer::lineCap>()
      .property<"fillRule", "setFillRule:", &ShapeLayer::fillRule>()
      .registered();
}

}  // namespace standin
