#include "standin/layers/Layer.h"
#include "standin/layers/Registration.h"

using namespace cocoa;

namespace standin {

namespace {

/// State of a CAGradientLayer.
struct GradientLayer : ObjectState {
  Ref<NSArray> colors;
  Ref<NSArray> locations;
  CGPoint startPoint{0.5, 0};
  CGPoint endPoint{0.5, 1};

  id init() {
    stateOf<LayerState>(self).paintOwn = &paint;
    return self;
  }
  [[nodiscard]] GradientStops stops() const;
  static void paint(LayerState& layer, Context& context, bool flipped);
};

GradientStops GradientLayer::stops() const {
  GradientStops made;
  const NSUInteger count = colors->count();
  for (NSUInteger i = 0; i < count; ++i) {
    const auto* color = stateIfKind<ColorState>(colors->objectAtIndex(i));
    if (color == nullptr || color->pattern) return {};
    const double even = count < 2 ? 0 : static_cast<double>(i) / static_cast<double>(count - 1);
    const double location = i < locations->count() ? cast<NSNumber>(locations->objectAtIndex(i)).doubleValue() : even;
    made.push_back({location, color->value.rgba()});
  }
  return normalized(std::move(made));
}

void GradientLayer::paint(LayerState& layer, Context& context, bool flipped) {
  const auto& gradient = stateOf<GradientLayer>(layer.self);
  const GradientStops stops = gradient.stops();
  if (stops.empty()) return;
  const CGSize size = layer.bounds.size;
  const auto inLayer = [&](CGPoint unit) {
    return CGPoint{unit.x * size.width, (flipped ? 1 - unit.y : unit.y) * size.height};
  };
  const SavedState saved(context);
  const CGRect area{{}, size};
  if (layer.cornerRadius > 0) {
    context.path().clear();
    context.path().roundedRect(area, layer.cornerRadius, layer.cornerRadius, context.state().ctm);
    context.clipToPath(Context::Rule::kNonZero);
  }
  context.fillRectWithGradient(area, stops, inLayer(gradient.startPoint), inLayer(gradient.endPoint));
}

}  // namespace

void registerGradientLayers() {
  ClassDefinition<GradientLayer>("CAGradientLayer", "CALayer")
      .method<"init", &GradientLayer::init>()
      .property<"colors", "setColors:", &GradientLayer::colors>()
      .property<"locations", "setLocations:", &GradientLayer::locations>()
      .property<"startPoint", "setStartPoint:", &GradientLayer::startPoint>()
      .property<"endPoint", "setEndPoint:", &GradientLayer::endPoint>()
      .registered();
}

}  // namespace standin
