#include <cmath>

#include "standin/layers/Layer.h"
#include "standin/layers/Registration.h"
#include "standin/pixels/Image.h"

using namespace cocoa;

namespace standin {

namespace {

struct GravityName {
  NSString* name;
  Gravity gravity;
};
const GravityName kGravities[] = {
    {&kCAGravityResize, Gravity::kResize},
    {&kCAGravityResizeAspect, Gravity::kResizeAspect},
    {&kCAGravityCenter, Gravity::kCenter},
    {&kCAGravityTop, Gravity::kTop},
    {&kCAGravityBottom, Gravity::kBottom},
    {&kCAGravityLeft, Gravity::kLeft},
    {&kCAGravityRight, Gravity::kRight},
    {&kCAGravityTopLeft, Gravity::kTopLeft},
    {&kCAGravityTopRight, Gravity::kTopRight},
    {&kCAGravityBottomLeft, Gravity::kBottomLeft},
    {&kCAGravityBottomRight, Gravity::kBottomRight},
};

CALayer newLayer(Class cls) { return autoreleased(Ref<CALayer>::adopt(call<"init", CALayer>(call<"alloc", id>(cls)))); }

/// Whether sublayers are laid out from the top: flips of the layers above undo each other.
bool isFlipped(const LayerState& layer) {
  bool flipped = layer.geometryFlipped;
  for (id above = layer.superlayer; above != nullptr; above = stateOf<LayerState>(above).superlayer) {
    flipped = flipped != stateOf<LayerState>(above).geometryFlipped;
  }
  return flipped;
}

bool drawsItself(const LayerState& layer) {
  static const SEL draw = selector<"drawInContext:">();
  const auto base = class_getMethodImplementation(DefinedClass<LayerState>::cls, draw);
  return class_getMethodImplementation(object_getClass(layer.self), draw) != base ||
         respondsTo(layer.delegate, selector<"drawLayer:inContext:">());
}

}  // namespace

LayerState::~LayerState() {
  for (const auto& sublayer : sublayers) stateOf<LayerState>(sublayer).superlayer = nullptr;
}

void LayerState::setBounds(CGRect changed) {
  if (wantsDisplayOnResize && !(changed.size == bounds.size)) needsDisplay = true;
  bounds = changed;
}

void LayerState::setFrame(CGRect frame) {
  position = {frame.minX() + anchorPoint.x * frame.size.width, frame.minY() + anchorPoint.y * frame.size.height};
  setBounds({bounds.origin, frame.size});
}

void LayerState::setContents(NSObject changed) {
  contents = changed;
  pixels = nullptr;
}

void LayerState::setContentsScale(CGFloat scale) {
  if (scale != contentsScale) pixels = nullptr;  // another representation may suit
  contentsScale = scale;
}

NSString LayerState::contentsGravity() {
  for (const GravityName& entry : kGravities) {
    if (entry.gravity == gravity) return *entry.name;
  }
  return kCAGravityResize;
}

void LayerState::setContentsGravity(NSString wanted) {
  for (const GravityName& entry : kGravities) {
    if (entry.name->isEqual(wanted)) gravity = entry.gravity;
  }
}

NSArray LayerState::sublayerArray() {
  if (sublayers.empty()) return {};
  if (!sublayersSnapshot) {
    std::vector<id> objects;
    objects.reserve(sublayers.size());
    for (const auto& sublayer : sublayers) objects.push_back(sublayer.get().object);
    sublayersSnapshot = NSArray::arrayWithObjects(objects.data(), objects.size());
  }
  return sublayersSnapshot;
}

void LayerState::setSublayers(NSArray layers) {
  const Ref<NSArray> kept = layers;  // may be this layer's own snapshot
  while (!sublayers.empty()) sublayers.back()->removeFromSuperlayer();
  for (const CALayer layer : items<CALayer>(kept)) addSublayer(layer);
}

std::ptrdiff_t LayerState::indexOf(CALayer layer) const {
  const auto found =
      std::find_if(sublayers.begin(), sublayers.end(), [layer](const auto& s) { return s.get() == layer; });
  return found == sublayers.end() ? -1 : found - sublayers.begin();
}

void LayerState::insertSublayer(CALayer layer, unsigned index) {
  if (stateIfKind<LayerState>(layer) == nullptr || layer.object == self) return;
  for (id above = superlayer; above != nullptr; above = stateOf<LayerState>(above).superlayer) {
    if (above == layer.object) return;  // a layer cannot lie inside itself
  }
  const Ref<CALayer> kept = layer;
  layer.removeFromSuperlayer();
  const auto at = std::min<std::size_t>(index, sublayers.size());
  sublayers.insert(sublayers.begin() + static_cast<std::ptrdiff_t>(at), kept);
  autoreleased(std::move(sublayersSnapshot));  // somebody may be walking it
  stateOf<LayerState>(layer).superlayer = self;
}

void LayerState::insertSublayerAbove(CALayer layer, CALayer sibling) {
  const Ref<CALayer> kept = layer;
  layer.removeFromSuperlayer();
  const auto at = indexOf(sibling);
  insertSublayer(layer, static_cast<unsigned>(at < 0 ? static_cast<std::ptrdiff_t>(sublayers.size()) : at + 1));
}

void LayerState::insertSublayerBelow(CALayer layer, CALayer sibling) {
  const Ref<CALayer> kept = layer;
  layer.removeFromSuperlayer();
  const auto at = indexOf(sibling);
  insertSublayer(layer, static_cast<unsigned>(std::max<std::ptrdiff_t>(at, 0)));
}

void LayerState::removeFromSuperlayer() {
  if (superlayer == nullptr) return;
  LayerState& above = stateOf<LayerState>(superlayer);
  superlayer = nullptr;
  const auto at = above.indexOf(CALayer(self));
  if (at < 0) return;
  autoreleased(std::move(above.sublayersSnapshot));
  const Ref<CALayer> kept = above.sublayers[static_cast<std::size_t>(at)];  // this state until the end
  above.sublayers.erase(above.sublayers.begin() + at);
}

void LayerState::displayIfNeeded() {
  if (needsDisplay) call<"display">(self);
}

/// The delegate's picture, or one drawn at the scale of the contents.
void LayerState::display() {
  needsDisplay = false;
  if (respondsTo(delegate, selector<"displayLayer:">())) {
    return call<"displayLayer:">(delegate, CALayer(self));
  }
  if (!drawsItself(*this)) return;
  const auto side = [this](double points) {
    return static_cast<int>(std::fmin(std::ceil(points * contentsScale), kLongestSide + 1));
  };
  const auto surface = Surface::make(side(bounds.size.width), side(bounds.size.height), PixelOrder::kNative);
  const auto context = CFRef<CGContextRef>::adopt(makeContext(surface, contentsScale));
  if (!context) return setContents({});
  contextState(context).concat(CGAffineTransformMakeTranslation(-bounds.minX(), -bounds.minY()));
  call<"drawInContext:">(self, context.get());
  const auto image = CFRef<CGImageRef>::adopt(makeImage(surface));
  call<"setContents:">(self, bridged(image.get()));
}

void LayerState::drawInContext(CGContextRef context) {
  if (respondsTo(delegate, selector<"drawLayer:inContext:">())) {
    call<"drawLayer:inContext:">(delegate, CALayer(self), context);
  }
}

void LayerState::renderInContext(CGContextRef target) {
  if (target == nullptr) return;
  Context& context = contextState(target);
  const SavedState saved(context);
  const CGAffineTransform toDevice = CGAffineTransformTranslate(context.state().ctm, bounds.minX(), bounds.minY());
  renderLayer(*this, context, toDevice, isFlipped(*this));
}

void registerLayers() {
  ClassDefinition<LayerState>("CALayer", "NSObject")
      .classMethod<"layer", newLayer>()
      .getter<"bounds", &LayerState::bounds>()
      .method<"setBounds:", &LayerState::setBounds>()
      .property<"position", "setPosition:", &LayerState::position>()
      .property<"anchorPoint", "setAnchorPoint:", &LayerState::anchorPoint>()
      .method<"frame", &LayerState::frame>()
      .method<"setFrame:", &LayerState::setFrame>()
      .property<"affineTransform", "setAffineTransform:", &LayerState::transform>()
      .property<"zPosition", "setZPosition:", &LayerState::zPosition>()
      .property<"isGeometryFlipped", "setGeometryFlipped:", &LayerState::geometryFlipped>()
      .property<"name", "setName:", &LayerState::name>()
      .method<"delegate", &LayerState::delegateHandle>()
      .method<"setDelegate:", &LayerState::setDelegate>()
      .method<"sublayers", &LayerState::sublayerArray>()
      .method<"setSublayers:", &LayerState::setSublayers>()
      .method<"superlayer", &LayerState::superlayerHandle>()
      .method<"addSublayer:", &LayerState::addSublayer>()
      .method<"insertSublayer:atIndex:", &LayerState::insertSublayer>()
      .method<"insertSublayer:above:", &LayerState::insertSublayerAbove>()
      .method<"insertSublayer:below:", &LayerState::insertSublayerBelow>()
      .method<"removeFromSuperlayer", &LayerState::removeFromSuperlayer>()
      .getter<"contents", &LayerState::contents>()
      .method<"setContents:", &LayerState::setContents>()
      .getter<"contentsScale", &LayerState::contentsScale>()
      .method<"setContentsScale:", &LayerState::setContentsScale>()
      .method<"contentsGravity", &LayerState::contentsGravity>()
      .method<"setContentsGravity:", &LayerState::setContentsGravity>()
      .method<"backgroundColor", &LayerState::background>()
      .method<"setBackgroundColor:", &LayerState::setBackground>()
      .method<"borderColor", &LayerState::border>()
      .method<"setBorderColor:", &LayerState::setBorder>()
      .property<"borderWidth", "setBorderWidth:", &LayerState::borderWidth>()
      .property<"cornerRadius", "setCornerRadius:", &LayerState::cornerRadius>()
      .property<"opacity", "setOpacity:", &LayerState::opacity>()
      .property<"isHidden", "setHidden:", &LayerState::hidden>()
      .property<"masksToBounds", "setMasksToBounds:", &LayerState::masksToBounds>()
      .getter<"mask", &LayerState::mask>()
      .method<"setMask:", &LayerState::setMask>()
      .property<"needsDisplayOnBoundsChange", "setNeedsDisplayOnBoundsChange:", &LayerState::wantsDisplayOnResize>()
      .method<"setNeedsDisplay", &LayerState::markNeedsDisplay>()
      .method<"needsDisplay", &LayerState::isNeedingDisplay>()
      .method<"displayIfNeeded", &LayerState::displayIfNeeded>()
      .method<"display", &LayerState::display>()
      .method<"drawInContext:", &LayerState::drawInContext>()
      .method<"renderInContext:", &LayerState::renderInContext>()
      .registered();
}

}  // namespace standin
