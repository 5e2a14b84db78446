// The compositing of layers: background, contents, sublayers, border, mask.

#include <cmath>

#include "standin/images/Contents.h"
#include "standin/layers/Layer.h"

using namespace cocoa;

namespace standin {

namespace {

CGRect localBounds(const LayerState& layer) { return {{}, layer.bounds.size}; }

/// Where a sublayer's bottom left corner lies in its superlayer's space before it is transformed.
CGPoint cornerIn(const LayerState& above, LayerState& layer, bool flipped) {
  const CGRect frame = layer.untransformedFrame();
  const double fromBottom = frame.minY() - above.bounds.minY();
  return {frame.minX() - above.bounds.minX(),
          flipped ? above.bounds.size.height - fromBottom - frame.size.height : fromBottom};
}

/// From a sublayer's space to its superlayer's: the layer's transform turns it about its anchor point.
CGAffineTransform placeIn(const LayerState& above, LayerState& layer, bool flipped) {
  const CGPoint corner = cornerIn(above, layer, flipped);
  if (layer.transform == CGAffineTransformIdentity) return CGAffineTransformMakeTranslation(corner.x, corner.y);
  CGAffineTransform transform = layer.transform;
  if (flipped) transform = {transform.a, -transform.b, -transform.c, transform.d, transform.tx, -transform.ty};
  const CGPoint anchor{layer.anchorPoint.x * layer.bounds.size.width,
                       (flipped ? 1 - layer.anchorPoint.y : layer.anchorPoint.y) * layer.bounds.size.height};
  const CGAffineTransform turned =
      CGAffineTransformConcat(CGAffineTransformMakeTranslation(-anchor.x, -anchor.y), transform);
  return CGAffineTransformConcat(turned, CGAffineTransformMakeTranslation(corner.x + anchor.x, corner.y + anchor.y));
}

/// Everything that the layer and its sublayers cover, in the layer's space.
CGRect extentOf(LayerState& layer, bool flipped) {
  CGRect extent = localBounds(layer);
  if (layer.masksToBounds) return extent;
  for (const auto& sublayer : layer.sublayers) {
    LayerState& below = stateOf<LayerState>(sublayer);
    if (below.hidden) continue;
    const CGRect part =
        CGRectApplyAffineTransform(extentOf(below, flipped != below.geometryFlipped), placeIn(layer, below, flipped));
    const double left = std::fmin(extent.minX(), part.minX());
    const double bottom = std::fmin(extent.minY(), part.minY());
    extent = {{left, bottom},
              {std::fmax(extent.maxX(), part.maxX()) - left, std::fmax(extent.maxY(), part.maxY()) - bottom}};
  }
  return extent;
}

class LayerRenderer {
 public:
  explicit LayerRenderer(Context& context) : context_(context) {}

  void render(LayerState& layer, const CGAffineTransform& toDevice, bool flipped) {
    if (layer.hidden || !(layer.opacity > 0)) return;
    enter(toDevice, 1);
    const bool visible = !context_.touchedPixels(localBounds(layer)).intersected(context_.state().clip).isEmpty();
    if (!visible && (layer.masksToBounds || layer.mask || layer.sublayers.empty())) return;
    layer.displayIfNeeded();
    const bool fades = layer.opacity < 1;
    if (layer.mask || (fades && partsOf(layer) > 1)) return renderGroup(layer, toDevice, flipped);
    enter(toDevice, fades ? static_cast<double>(layer.opacity) : 1);
    renderParts(layer, toDevice, flipped);
  }

 private:
  /// Moves the context into the layer's space.
  void enter(const CGAffineTransform& toDevice, double alpha) {
    GraphicsState& state = context_.state();
    state.ctm = toDevice;
    state.patternSpace = toDevice;
    state.alpha = alpha;
  }

  static int partsOf(const LayerState& layer) {
    const auto present = [](bool part) { return part ? 1 : 0; };
    return present(layer.backgroundColor.get() != nullptr) + present(static_cast<bool>(layer.contents)) +
           present(layer.paintOwn != nullptr) + present(layer.borderWidth > 0) + (layer.sublayers.empty() ? 0 : 2);
  }

  /// The layer as one picture, then masked or faded.
  void renderGroup(LayerState& layer, const CGAffineTransform& toDevice, bool flipped) {
    const SavedState saved(context_);
    context_.clipToPixels(context_.touchedPixels(extentOf(layer, flipped)));
    if (context_.state().clip.isEmpty()) return;
    context_.state().alpha = static_cast<double>(layer.opacity);
    context_.beginLayer();
    renderParts(layer, toDevice, flipped);
    if (layer.mask) applyMask(layer, toDevice, flipped);
    context_.endLayer();
  }

  void applyMask(LayerState& layer, const CGAffineTransform& toDevice, bool flipped) {
    LayerState& mask = stateOf<LayerState>(layer.mask);
    context_.beginLayer();
    renderBelow(layer, mask, toDevice, flipped);
    PixelRect area;
    if (const auto picture = context_.endLayerWithoutDrawing(area)) {
      PixelView view = picture->view();
      view.area = area;
      context_.maskLayer(view);
    }
  }

  void renderBelow(const LayerState& above, LayerState& layer, const CGAffineTransform& toDevice, bool flipped) {
    render(layer, CGAffineTransformConcat(placeIn(above, layer, flipped), toDevice), flipped != layer.geometryFlipped);
  }

  void renderParts(LayerState& layer, const CGAffineTransform& toDevice, bool flipped) {
    drawBackground(layer);
    if (layer.paintOwn != nullptr) layer.paintOwn(layer, context_, flipped);
    const bool rounds = layer.cornerRadius > 0;
    const bool clips = layer.masksToBounds &&
                       (!layer.sublayers.empty() || (layer.contents && (rounds || layer.gravity != Gravity::kResize)));
    if (clips) {
      const SavedState saved(context_);
      clipToBounds(layer);
      if (!context_.state().clip.isEmpty()) drawInside(layer, toDevice, flipped);
    } else {
      drawInside(layer, toDevice, flipped);
    }
    if (layer.borderWidth > 0 && layer.borderColor) {
      enter(toDevice, context_.state().alpha);
      drawBorder(layer);
    }
  }

  void drawInside(LayerState& layer, const CGAffineTransform& toDevice, bool flipped) {
    drawContents(layer);
    if (layer.sublayers.empty()) return;
    const double alpha = context_.state().alpha;
    for (LayerState* below : inDrawingOrder(layer)) renderBelow(layer, *below, toDevice, flipped);
    enter(toDevice, alpha);
  }

  /// By depth, equal depths in their order.
  static std::vector<LayerState*> inDrawingOrder(const LayerState& layer) {
    std::vector<LayerState*> order;
    order.reserve(layer.sublayers.size());
    bool sorted = true;
    for (const auto& sublayer : layer.sublayers) {
      order.push_back(&stateOf<LayerState>(sublayer));
      sorted = sorted && order.back()->zPosition == 0;
    }
    if (!sorted) {
      std::stable_sort(order.begin(), order.end(),
                       [](const LayerState* a, const LayerState* b) { return a->zPosition < b->zPosition; });
    }
    return order;
  }

  void clipToBounds(const LayerState& layer) {
    if (!(layer.cornerRadius > 0)) return context_.clipToRect(localBounds(layer));
    takeRoundedPath(layer, 0);
    context_.clipToPath(Context::Rule::kNonZero);
  }

  void takeRoundedPath(const LayerState& layer, double inset) {
    const double radius = std::fmax(0, layer.cornerRadius - inset);
    context_.path().roundedRect(localBounds(layer).insetBy(inset, inset), radius, radius, context_.state().ctm);
  }

  void drawBackground(const LayerState& layer) {
    if (!layer.backgroundColor) return;
    const Paint paint = paintOf(layer.backgroundColor.get());
    if (!(layer.cornerRadius > 0)) {
      const auto whole = context_.wholePixels(localBounds(layer));
      if (whole && context_.fillDirectly(*whole, paint)) return;
    }
    context_.path().clear();
    takeRoundedPath(layer, 0);
    context_.state().fill = paint;
    context_.fillPath(Context::Rule::kNonZero);
  }

  void drawBorder(const LayerState& layer) {
    const CGRect outer = localBounds(layer);
    const double width = std::fmin(layer.borderWidth, std::fmin(outer.size.width, outer.size.height) / 2);
    context_.state().fill = paintOf(layer.borderColor.get());
    if (!(layer.cornerRadius > 0)) {
      const double inner = outer.size.height - 2 * width;
      const CGRect sides[] = {{{0, 0}, {outer.size.width, width}},
                              {{0, outer.size.height - width}, {outer.size.width, width}},
                              {{0, width}, {width, inner}},
                              {{outer.size.width - width, width}, {width, inner}}};
      for (const CGRect& side : sides) {
        if (!side.isEmpty()) context_.fillRect(side);
      }
      return;
    }
    context_.path().clear();
    takeRoundedPath(layer, 0);
    takeRoundedPath(layer, width);
    context_.fillPath(Context::Rule::kEvenOdd);
  }

  void drawContents(LayerState& layer) {
    if (!layer.contents) return;
    if (layer.pixels == nullptr) layer.pixels = contentsPixels(layer.contents, layer.contentsScale);
    if (layer.pixels != nullptr) context_.drawSurface(contentsRect(layer), layer.pixels);
  }

  static CGRect contentsRect(const LayerState& layer) {
    const CGSize bounds = layer.bounds.size;
    const CGSize natural{layer.pixels->width() / layer.contentsScale, layer.pixels->height() / layer.contentsScale};
    if (layer.gravity == Gravity::kResize) return localBounds(layer);
    if (layer.gravity == Gravity::kResizeAspect) {
      const double scale = std::fmin(bounds.width / natural.width, bounds.height / natural.height);
      const CGSize size{natural.width * scale, natural.height * scale};
      return {{(bounds.width - size.width) / 2, (bounds.height - size.height) / 2}, size};
    }
    // Which part of the room that is left lies to the left of the picture, and which below it.
    struct Share {
      Gravity gravity;
      double left;
      double below;
    };
    constexpr Share kShares[] = {
        {Gravity::kCenter, 0.5, 0.5}, {Gravity::kTop, 0.5, 1},      {Gravity::kBottom, 0.5, 0},
        {Gravity::kLeft, 0, 0.5},     {Gravity::kRight, 1, 0.5},    {Gravity::kTopLeft, 0, 1},
        {Gravity::kTopRight, 1, 1},   {Gravity::kBottomLeft, 0, 0}, {Gravity::kBottomRight, 1, 0},
    };
    for (const Share& share : kShares) {
      if (share.gravity == layer.gravity) {
        return {{(bounds.width - natural.width) * share.left, (bounds.height - natural.height) * share.below}, natural};
      }
    }
    return localBounds(layer);
  }

  Context& context_;
};

}  // namespace

void renderLayer(LayerState& layer, Context& context, const CGAffineTransform& toDevice, bool flipped) {
  LayerRenderer(context).render(layer, toDevice, flipped);
}

}  // namespace standin
