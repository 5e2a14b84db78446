#include "standin/View.h"

#include <algorithm>
#include <cmath>

using namespace cocoa;

namespace standin {

namespace {

/// A point of the view's own space, measured from its lower left corner, y up; and back.
NSPoint fromCorner(ViewState& view, NSPoint p) {
  const double up = p.y - view.boundsOrigin.y;
  return {p.x - view.boundsOrigin.x, view.view().isFlipped() ? view.frame.size.height - up : up};
}
NSPoint toOwnSpace(ViewState& view, NSPoint p) {
  return {p.x + view.boundsOrigin.x,
          (view.view().isFlipped() ? view.frame.size.height - p.y : p.y) + view.boundsOrigin.y};
}

/// The lower left corner of a subview, measured from the lower left corner of its superview.
NSPoint cornerIn(ViewState& above, const ViewState& view) {
  const double up = view.frame.minY() - above.boundsOrigin.y;
  return {view.frame.minX() - above.boundsOrigin.x,
          above.view().isFlipped() ? above.frame.size.height - up - view.frame.size.height : up};
}

/// The lower left corner in the space of the outermost view, which is that of the window.
NSPoint cornerInRoot(ViewState& view) {
  NSPoint corner;
  for (ViewState* each = &view; each->superview != nullptr; each = &stateOf<ViewState>(each->superview)) {
    const NSPoint step = cornerIn(stateOf<ViewState>(each->superview), *each);
    corner = {corner.x + step.x, corner.y + step.y};
  }
  return corner;
}

NSPoint toRoot(ViewState& view, NSPoint p) {
  const NSPoint corner = cornerInRoot(view);
  const NSPoint local = fromCorner(view, p);
  return {local.x + corner.x, local.y + corner.y};
}
NSPoint fromRoot(ViewState& view, NSPoint p) {
  const NSPoint corner = cornerInRoot(view);
  return toOwnSpace(view, {p.x - corner.x, p.y - corner.y});
}

NSRect spanning(NSPoint a, NSPoint b) {
  return {{std::fmin(a.x, b.x), std::fmin(a.y, b.y)}, {std::abs(a.x - b.x), std::abs(a.y - b.y)}};
}

BOOL notFlipped(NSView) { return NO; }
BOOL notOpaque(NSView) { return NO; }
NSInteger noTag(NSView) { return -1; }
void drawNothing(NSView, NSRect) {}
void ignoreWindow(NSView, NSWindow) {}
void ignoreMove(NSView) {}

IMP baseDrawRect = nullptr;

/// Whether a subclass draws anything in `drawRect:`.
bool drawsRect(id view) {
  const SEL draw = selector<"drawRect:">();
#if defined(__APPLE__)
  return class_getMethodImplementation(object_getClass(view), draw) != baseDrawRect;
#else
  return objc_msg_lookup(view, draw) != baseDrawRect;
#endif
}

/// Makes a graphics context current for as long as it lives.
class CurrentGraphics {
 public:
  CurrentGraphics(CGContextRef target, bool flipped) : before_(NSGraphicsContext::currentContext()) {
    NSGraphicsContext::setCurrentContext(NSGraphicsContext::graphicsContextWithCGContext(target, flipped));
  }
  CurrentGraphics(const CurrentGraphics&) = delete;
  CurrentGraphics& operator=(const CurrentGraphics&) = delete;
  ~CurrentGraphics() { NSGraphicsContext::setCurrentContext(before_); }

 private:
  Ref<NSGraphicsContext> before_;
};

void drawOwn(ViewState& view, Context& context, CGContextRef target, const CGAffineTransform& toDevice) {
  const SavedState saved(context);
  const bool flipped = view.view().isFlipped();
  context.setTransform(toDevice);
  if (flipped) context.concat({1, 0, 0, -1, 0, view.frame.size.height});
  context.concat(CGAffineTransformMakeTranslation(-view.boundsOrigin.x, -view.boundsOrigin.y));
  context.state().patternSpace = toDevice;
  const CurrentGraphics graphics(target, flipped);
  view.view().drawRect(CGRectIntersection(context.clipBounds(), view.bounds()));
}

void renderParts(ViewState& view, Context& context, CGContextRef target, const CGAffineTransform& toDevice) {
  if (view.layer) {
    const SavedState saved(context);
    LayerState& layer = stateOf<LayerState>(view.layer);
    renderLayer(layer, context, toDevice, layer.geometryFlipped);
  }
  if (drawsRect(view.self)) drawOwn(view, context, target, toDevice);
  view.needsDisplay = false;
  const auto below = view.subviews;  // drawing may change them
  for (const auto& subview : below) {
    ViewState& state = stateOf<ViewState>(subview);
    const NSPoint corner = cornerIn(view, state);
    renderView(state, context, target, CGAffineTransformTranslate(toDevice, corner.x, corner.y));
  }
}

}  // namespace

void renderView(ViewState& view, Context& context, CGContextRef target, const CGAffineTransform& toDevice) {
  if (view.hidden || !(view.alphaValue > 0)) return;
  const SavedState saved(context);
  context.setTransform(toDevice);
  context.clipToRect({{}, view.frame.size});
  if (context.state().clip.isEmpty()) return;
  if (!(view.alphaValue < 1)) return renderParts(view, context, target, toDevice);
  context.state().alpha = view.alphaValue;
  context.beginLayer();
  renderParts(view, context, target, toDevice);
  context.endLayer();
}

ViewState::~ViewState() {
  for (const auto& subview : subviews) {
    ViewState& below = stateOf<ViewState>(subview);
    below.superview = nullptr;
    below.window = nullptr;
    stateOf<ResponderState>(subview).next = nullptr;
  }
  if (layer && stateOf<LayerState>(layer).delegate == self) stateOf<LayerState>(layer).delegate = nullptr;
}

id ViewState::initWithFrame(NSRect rect) {
  frame = rect;
  return self;
}

void ViewState::setFrame(NSRect rect) {
  call<"setFrameOrigin:">(self, rect.origin);
  call<"setFrameSize:">(self, rect.size);
}

void ViewState::setFrameSize(NSSize size) {
  if (size == frame.size) return;
  frame.size = size;
  placeLayer();
  needsDisplay = true;
  if (postsFrameChanges) {
    NSNotificationCenter::defaultCenter().postNotificationName(NSViewFrameDidChangeNotification, view());
  }
}

void ViewState::setFrameOrigin(NSPoint origin) {
  if (origin == frame.origin) return;
  frame.origin = origin;
  placeLayer();
  if (postsFrameChanges) {
    NSNotificationCenter::defaultCenter().postNotificationName(NSViewFrameDidChangeNotification, view());
  }
}

NSRect ViewState::visibleRect() {
  NSRect visible = bounds();
  for (ViewState* each = this; each->superview != nullptr; each = &stateOf<ViewState>(each->superview)) {
    const ViewState& above = stateOf<ViewState>(each->superview);
    visible = CGRectIntersection(visible, rectFrom({above.boundsOrigin, above.frame.size}, NSView(above.self)));
  }
  return visible;
}

NSArray ViewState::subviewArray() {
  if (!subviewsSnapshot) {
    std::vector<id> objects;
    objects.reserve(subviews.size());
    for (const auto& subview : subviews) objects.push_back(subview.get().object);
    subviewsSnapshot = NSArray::arrayWithObjects(objects.data(), objects.size());
  }
  return subviewsSnapshot;
}

void ViewState::setSubviews(NSArray views) {
  const Ref<NSArray> kept = views;  // may be this view's own snapshot
  while (!subviews.empty()) subviews.back()->removeFromSuperview();
  for (const NSView each : items<NSView>(kept)) call<"addSubview:">(self, each);
}

void ViewState::addSubview(NSView added) { insertSubview(added, subviews.size()); }

void ViewState::addSubviewPositioned(NSView added, NSWindowOrderingMode place, NSView other) {
  const Ref<NSView> kept = added;
  added.removeFromSuperview();
  const auto found =
      std::find_if(subviews.begin(), subviews.end(), [other](const auto& each) { return each.get() == other; });
  auto index = static_cast<std::size_t>(found - subviews.begin());
  if (found == subviews.end()) {
    index = place == NSWindowBelow ? 0 : subviews.size();
  } else if (place != NSWindowBelow) {
    ++index;
  }
  insertSubview(added, index);
}

void ViewState::insertSubview(NSView added, std::size_t index) {
  if (stateIfKind<ViewState>(added) == nullptr || isDescendantOf(added) != 0) return;
  const Ref<NSView> kept = added;
  added.removeFromSuperview();
  ViewState& below = stateOf<ViewState>(added);
  subviews.insert(subviews.begin() + static_cast<std::ptrdiff_t>(std::min(index, subviews.size())), kept);
  subviewsSnapshot = {};
  below.superview = self;
  // A view controller stands between its view and what comes after.
  const id answering = below.controller != nullptr ? below.controller : added.object;
  stateOf<ResponderState>(answering).next = self;
  below.moveToWindow(window);
}

void ViewState::removeFromSuperview() {
  if (superview == nullptr) return;
  const Ref<NSView> kept = view();
  ViewState& above = stateOf<ViewState>(superview);
  std::erase_if(above.subviews, [this](const auto& each) { return each.get().object == self; });
  above.subviewsSnapshot = {};
  above.needsDisplay = true;
  superview = nullptr;
  stateOf<ResponderState>(controller != nullptr ? controller : self).next = nullptr;
  moveToWindow(nullptr);
}

BOOL ViewState::isDescendantOf(NSView other) {
  for (id each = self; each != nullptr; each = stateOf<ViewState>(each).superview) {
    if (each == other.object) return YES;
  }
  return NO;
}

void ViewState::moveToWindow(id changed) {
  if (changed == window) return;
  const Ref<NSView> kept = view();
  view().viewWillMoveToWindow(NSWindow(changed));
  window = changed;
  const auto below = subviews;
  for (const auto& subview : below) stateOf<ViewState>(subview).moveToWindow(changed);
  view().viewDidMoveToWindow();
}

NSView ViewState::viewWithTag(NSInteger tag) {
  if (view().tag() == tag) return view();
  for (const auto& subview : subviews) {
    if (const NSView found = subview->viewWithTag(tag)) return found;
  }
  return {};
}

void ViewState::setWantsLayer(BOOL wants) {
  wantsLayer = wants != 0;
  if (wantsLayer && !layer) call<"setLayer:">(self, call<"makeBackingLayer", CALayer>(self));
}

void ViewState::setLayer(CALayer changed) {
  if (layer && stateOf<LayerState>(layer).delegate == self) stateOf<LayerState>(layer).delegate = nullptr;
  layer = changed;
  if (!layer) return;
  LayerState& state = stateOf<LayerState>(layer);
  if (state.delegate == nullptr) state.delegate = self;
  state.geometryFlipped = view().isFlipped();
  placeLayer();
}

void ViewState::placeLayer() {
  if (layer) layer->setFrame(frame);
}

/// Every picture is composed anew from the whole tree, so there is nothing to keep up to date but layers.
void ViewState::displayIfNeeded() {
  if (needsDisplay) call<"display">(self);
}
void ViewState::display() {
  if (layer) layer->displayIfNeeded();
  needsDisplay = false;
}

void ViewState::displayRect(NSRect rect, NSGraphicsContext graphics) {
  const CGContextRef target = graphics.CGContext();
  if (target == nullptr) return;
  Context& context = contextState(target);
  const SavedState saved(context);
  const NSPoint low = fromCorner(*this, {rect.minX(), rect.minY()});
  const NSPoint high = fromCorner(*this, {rect.maxX(), rect.maxY()});
  context.clipToRect(spanning(low, high));
  const CGAffineTransform toDevice = context.state().ctm;
  renderView(*this, context, target, toDevice);
}

NSPoint ViewState::pointTo(NSPoint point, NSView other) {
  const NSPoint root = toRoot(*this, point);
  return other ? fromRoot(stateOf<ViewState>(other), root) : root;
}
NSPoint ViewState::pointFrom(NSPoint point, NSView other) {
  return fromRoot(*this, other ? toRoot(stateOf<ViewState>(other), point) : point);
}
NSRect ViewState::rectTo(NSRect rect, NSView other) {
  return spanning(pointTo({rect.minX(), rect.minY()}, other), pointTo({rect.maxX(), rect.maxY()}, other));
}
NSRect ViewState::rectFrom(NSRect rect, NSView other) {
  return spanning(pointFrom({rect.minX(), rect.minY()}, other), pointFrom({rect.maxX(), rect.maxY()}, other));
}

namespace {

CALayer makeBackingLayer(NSView) { return CALayer::layer(); }

}  // namespace

void registerViews() {
  const Class cls = ClassDefinition<ViewState>("NSView", "NSResponder")
                        .method<"init", &ViewState::init>()
                        .method<"initWithFrame:", &ViewState::initWithFrame>()
                        .getter<"frame", &ViewState::frame>()
                        .method<"setFrame:", &ViewState::setFrame>()
                        .method<"setFrameSize:", &ViewState::setFrameSize>()
                        .method<"setFrameOrigin:", &ViewState::setFrameOrigin>()
                        .method<"bounds", &ViewState::bounds>()
                        .method<"setBounds:", &ViewState::setBounds>()
                        .method<"setBoundsOrigin:", &ViewState::setBoundsOrigin>()
                        .method<"visibleRect", &ViewState::visibleRect>()
                        .method<"superview", &ViewState::superviewHandle>()
                        .method<"subviews", &ViewState::subviewArray>()
                        .method<"setSubviews:", &ViewState::setSubviews>()
                        .method<"addSubview:", &ViewState::addSubview>()
                        .method<"addSubview:positioned:relativeTo:", &ViewState::addSubviewPositioned>()
                        .method<"removeFromSuperview", &ViewState::removeFromSuperview>()
                        .method<"isDescendantOf:", &ViewState::isDescendantOf>()
                        .method<"window", &ViewState::windowHandle>()
                        .method<"viewWithTag:", &ViewState::viewWithTag>()
                        .getter<"wantsLayer", &ViewState::wantsLayer>()
                        .method<"setWantsLayer:", &ViewState::setWantsLayer>()
                        .method<"layer", &ViewState::layerHandle>()
                        .method<"setLayer:", &ViewState::setLayer>()
                        .property<"isHidden", "setHidden:", &ViewState::hidden>()
                        .property<"alphaValue", "setAlphaValue:", &ViewState::alphaValue>()
                        .property<"identifier", "setIdentifier:", &ViewState::identifier>()
                        .property<"autoresizingMask", "setAutoresizingMask:", &ViewState::autoresizingMask>()
                        .property<"postsFrameChangedNotifications",
                                  "setPostsFrameChangedNotifications:", &ViewState::postsFrameChanges>()
                        .getter<"needsDisplay", &ViewState::needsDisplay>()
                        .method<"setNeedsDisplay:", &ViewState::setNeedsDisplay>()
                        .method<"setNeedsDisplayInRect:", &ViewState::setNeedsDisplayInRect>()
                        .method<"display", &ViewState::display>()
                        .method<"displayIfNeeded", &ViewState::displayIfNeeded>()
                        .method<"displayRectIgnoringOpacity:inContext:", &ViewState::displayRect>()
                        .method<"convertPoint:toView:", &ViewState::pointTo>()
                        .method<"convertPoint:fromView:", &ViewState::pointFrom>()
                        .method<"convertRect:toView:", &ViewState::rectTo>()
                        .method<"convertRect:fromView:", &ViewState::rectFrom>()
                        .registered();
  CategoryDefinition("NSView")
      .method<"isFlipped", notFlipped>()
      .method<"isOpaque", notOpaque>()
      .method<"tag", noTag>()
      .method<"drawRect:", drawNothing>()
      .method<"viewWillMoveToWindow:", ignoreWindow>()
      .method<"viewDidMoveToWindow", ignoreMove>()
      .method<"makeBackingLayer", makeBackingLayer>();
  baseDrawRect = class_getMethodImplementation(cls, selector<"drawRect:">());
}

}  // namespace standin
