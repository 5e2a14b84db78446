#include "standin/views/Registration.h"
#include "standin/views/View.h"

#include <algorithm>
#include <cmath>

#include "standin/images/BitmapImageRep.h"
#include "standin/steering/Display.h"

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

/// A rectangle of the view's own space, measured from its lower left corner, y up.
NSRect fromCorner(ViewState& view, NSRect r) {
  return spanning(fromCorner(view, NSPoint{r.minX(), r.minY()}), fromCorner(view, NSPoint{r.maxX(), r.maxY()}));
}

NSRect joined(NSRect a, NSRect b) {
  if (a.isEmpty()) return b;
  if (b.isEmpty()) return a;
  const NSPoint low{std::fmin(a.minX(), b.minX()), std::fmin(a.minY(), b.minY())};
  return {low, {std::fmax(a.maxX(), b.maxX()) - low.x, std::fmax(a.maxY(), b.maxY()) - low.y}};
}

/// Transforms leave traces of rounding.
bool covers(NSRect outer, NSRect inner) {
  constexpr double kSlop = 1e-3;
  return inner.isEmpty() || (outer.minX() <= inner.minX() + kSlop && outer.minY() <= inner.minY() + kSlop &&
                             outer.maxX() >= inner.maxX() - kSlop && outer.maxY() >= inner.maxY() - kSlop);
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

/// A part that was drawn settles a mark that lies inside of it. What cannot show needs no drawing.
void settle(ViewState& view, const Context& context) {
  if (!view.needsDisplay) return;
  const NSRect drawn = context.clipBounds();
  const NSRect pending = view.dirty();
  if (covers(drawn, fromCorner(view, pending)) ||
      covers(drawn, fromCorner(view, CGRectIntersection(pending, view.visibleRect())))) {
    view.needsDisplay = false;
  }
}

void renderParts(ViewState& view, Context& context, CGContextRef target, const CGAffineTransform& toDevice,
                 Marks marks) {
  if (marks == Marks::kSettle) settle(view, context);
  if (view.layer) {
    const SavedState saved(context);
    LayerState& layer = stateOf<LayerState>(view.layer);
    renderLayer(layer, context, toDevice, layer.geometryFlipped);
  }
  if (drawsRect(view.self)) drawOwn(view, context, target, toDevice);
  const auto below = view.subviews;  // drawing may change them
  for (const auto& subview : below) {
    ViewState& state = stateOf<ViewState>(subview);
    const NSPoint corner = cornerIn(view, state);
    renderView(state, context, target, CGAffineTransformTranslate(toDevice, corner.x, corner.y), marks);
  }
}

/// What of a view and its descendants needs display. `corner` is its lower left corner and `clip` what can
/// show of it, in the space of the outermost view.
NSRect dirtyBelow(ViewState& view, NSPoint corner, NSRect clip) {
  if (view.hidden || !(view.alphaValue > 0)) return {};
  const NSRect visible = CGRectIntersection({corner, view.frame.size}, clip);
  if (visible.isEmpty()) return {};
  NSRect all;
  if (view.needsDisplay) {
    all = CGRectIntersection(fromCorner(view, view.dirty()).offsetBy(corner.x, corner.y), visible);
  }
  for (const auto& subview : view.subviews) {
    ViewState& below = stateOf<ViewState>(subview);
    const NSPoint step = cornerIn(view, below);
    all = joined(all, dirtyBelow(below, {corner.x + step.x, corner.y + step.y}, visible));
  }
  return all;
}

/// The pixels that a length takes; nothing for what no bitmap can have.
std::optional<NSInteger> pixelCount(double points, double scale) {
  constexpr double kMost = 1e6;
  const double pixels = std::ceil(points * scale);
  if (!(pixels >= 1 && pixels <= kMost)) return std::nullopt;
  return static_cast<NSInteger>(pixels);
}

double scaleOf(ViewState& view) {
  const NSWindow window = view.windowHandle();
  return window ? window.backingScaleFactor() : 1;
}

/// Pixels a point along one side of a bitmap that stands for `points`. The last pixel may be covered in part.
double pixelsPerPoint(NSInteger pixels, double points, double scale) {
  return pixelCount(points, scale) == pixels ? scale : static_cast<double>(pixels) / points;
}

}  // namespace

bool windowNeedsDisplay(NSWindow window) { return !windowDirtyRect(window).isEmpty(); }

NSRect windowDirtyRect(NSWindow window) {
  NSView outermost = window.contentView();
  while (outermost.superview()) outermost = outermost.superview();
  if (!outermost) return {};
  ViewState& view = stateOf<ViewState>(outermost);
  return dirtyBelow(view, {}, {{}, view.frame.size});
}

NSRect dirtyRect(NSView view) { return view ? stateOf<ViewState>(view).dirty() : NSRect{}; }

void renderView(ViewState& view, Context& context, CGContextRef target, const CGAffineTransform& toDevice,
                Marks marks) {
  if (view.hidden || !(view.alphaValue > 0)) return;
  const PixelRect& clip = context.state().clip;
  const CGRect place = CGRectApplyAffineTransform({{}, view.frame.size}, toDevice);
  if (place.maxX() <= clip.left || place.minX() >= clip.right || place.maxY() <= clip.top ||
      place.minY() >= clip.bottom) {
    return;
  }
  const SavedState saved(context);
  context.setTransform(toDevice);
  context.clipToRect({{}, view.frame.size});
  if (context.state().clip.isEmpty()) return;
  if (!(view.alphaValue < 1)) return renderParts(view, context, target, toDevice, marks);
  context.state().alpha = view.alphaValue;
  context.beginLayer();
  renderParts(view, context, target, toDevice, marks);
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
  const NSRect before = frame;
  changingFrame = true;
  call<"setFrameOrigin:">(self, rect.origin);
  call<"setFrameSize:">(self, rect.size);
  changingFrame = false;
  if (!(frame == before)) frameChanged();
}

void ViewState::setFrameSize(NSSize size) {
  if (size == frame.size) return;
  markPlace();
  frame.size = size;
  markPlace();
  placeLayer();
  setNeedsDisplay(YES);
  frameChanged();
}

void ViewState::setFrameOrigin(NSPoint origin) {
  if (origin == frame.origin) return;
  markPlace();
  frame.origin = origin;
  markPlace();
  placeLayer();
  frameChanged();
}

void ViewState::frameChanged() {
  if (!postsFrameChanges || changingFrame) return;
  NSNotificationCenter::defaultCenter().postNotificationName(NSViewFrameDidChangeNotification, view());
}

void ViewState::setBoundsOrigin(NSPoint origin) {
  if (origin == boundsOrigin) return;
  boundsOrigin = origin;
  setNeedsDisplay(YES);
}

void ViewState::setHidden(BOOL hides) {
  if (hidden == (hides != 0)) return;
  hidden = hides != 0;
  markPlace();
}

void ViewState::setAlphaValue(CGFloat alpha) {
  if (alpha == alphaValue) return;
  alphaValue = alpha;
  markPlace();
}

void ViewState::setNeedsDisplay(BOOL needs) {
  needsDisplay = needs != 0;
  marked = {};
}

void ViewState::setNeedsDisplayInRect(NSRect rect) {
  const NSRect shown = CGRectIntersection(rect, bounds());
  if (shown.isEmpty() || (needsDisplay && marked.isEmpty())) return;
  marked = needsDisplay ? joined(marked, shown) : shown;
  needsDisplay = true;
}

BOOL ViewState::needsToDrawRect(NSRect rect) { return static_cast<BOOL>(CGRectIntersectsRect(rect, dirty())); }

NSRect ViewState::dirty() {
  if (!needsDisplay) return {};
  return marked.isEmpty() ? bounds() : CGRectIntersection(marked, bounds());
}

void ViewState::markPlace() {
  if (superview != nullptr) stateOf<ViewState>(superview).setNeedsDisplayInRect(frame);
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
  autoreleased(std::move(subviewsSnapshot));  // somebody may be walking it
  below.superview = self;
  below.setNeedsDisplay(YES);
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
  autoreleased(std::move(above.subviewsSnapshot));
  markPlace();
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
  setNeedsDisplay(NO);
}

void ViewState::displayRect(NSRect rect, NSGraphicsContext graphics) {
  const CGContextRef target = graphics.CGContext();
  if (target == nullptr) return;
  Context& context = contextState(target);
  const SavedState saved(context);
  context.clipToRect(fromCorner(*this, rect));
  const CGAffineTransform toDevice = context.state().ctm;
  renderView(*this, context, target, toDevice, Marks::kSettle);
}

NSBitmapImageRep ViewState::bitmapForCaching(NSRect rect) {
  const double scale = scaleOf(*this);
  const auto width = pixelCount(rect.size.width, scale);
  const auto height = pixelCount(rect.size.height, scale);
  if (!width || !height) return {};
  const auto bitmap =
      NSBitmapImageRep::withBitmapDataPlanes(nullptr, *width, *height, 8, 4, true, false, NSDeviceRGBColorSpace, 0, 0);
  if (bitmap) bitmap->setSize(rect.size);
  return autoreleased(bitmap);
}

/// Of a bitmap that cannot be drawn into nothing is changed.
void ViewState::cacheDisplay(NSRect rect, NSBitmapImageRep bitmap) {
  if (rect.isEmpty() || !std::isfinite(rect.minX() + rect.minY() + rect.maxX() + rect.maxY())) return;
  const auto target = CFRef<CGContextRef>::adopt(makeBitmapContext(bitmap));
  if (!target) return;
  Context& context = contextState(target);
  const NSRect part = fromCorner(*this, rect);
  const double scale = scaleOf(*this);
  const double scaleX = pixelsPerPoint(bitmap.pixelsWide(), rect.size.width, scale);
  const double scaleY = pixelsPerPoint(bitmap.pixelsHigh(), rect.size.height, scale);
  const CGAffineTransform toDevice{scaleX, 0, 0, -scaleY, -part.minX() * scaleX, part.maxY() * scaleY};
  renderView(*this, context, target, toDevice, Marks::kKeep);
}

NSView ViewState::hitTest(NSPoint point) {
  const NSPoint own = pointFrom(point, superviewHandle());
  // The mouse points at the pixel below and to the right of its place.
  const double down = view().isFlipped() ? own.y - bounds().minY() : bounds().maxY() - own.y;
  const double right = own.x - bounds().minX();
  if (hidden || !(right >= 0 && right < frame.size.width && down >= 0 && down < frame.size.height)) return {};
  const auto below = subviews;  // a subclass may change them when it is asked
  for (auto each = below.rbegin(); each != below.rend(); ++each) {
    if (const NSView found = (*each)->hitTest(own)) return found;
  }
  return view();
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
                        .getter<"isHidden", &ViewState::hidden>()
                        .method<"setHidden:", &ViewState::setHidden>()
                        .getter<"alphaValue", &ViewState::alphaValue>()
                        .method<"setAlphaValue:", &ViewState::setAlphaValue>()
                        .property<"identifier", "setIdentifier:", &ViewState::identifier>()
                        .property<"autoresizingMask", "setAutoresizingMask:", &ViewState::autoresizingMask>()
                        .property<"postsFrameChangedNotifications",
                                  "setPostsFrameChangedNotifications:", &ViewState::postsFrameChanges>()
                        .getter<"needsDisplay", &ViewState::needsDisplay>()
                        .method<"setNeedsDisplay:", &ViewState::setNeedsDisplay>()
                        .method<"setNeedsDisplayInRect:", &ViewState::setNeedsDisplayInRect>()
                        .method<"needsToDrawRect:", &ViewState::needsToDrawRect>()
                        .method<"display", &ViewState::display>()
                        .method<"displayIfNeeded", &ViewState::displayIfNeeded>()
                        .method<"displayRectIgnoringOpacity:inContext:", &ViewState::displayRect>()
                        .method<"bitmapImageRepForCachingDisplayInRect:", &ViewState::bitmapForCaching>()
                        .method<"cacheDisplayInRect:toBitmapImageRep:", &ViewState::cacheDisplay>()
                        .method<"hitTest:", &ViewState::hitTest>()
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
