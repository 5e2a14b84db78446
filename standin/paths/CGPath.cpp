#include "standin/paths/Path.h"
#include "standin/paths/Registration.h"

using namespace cocoa;

namespace standin {

BOOL PathState::isEqual(NSObject other) {
  const auto* state = stateIfKind<PathState>(other);
  return static_cast<BOOL>(state != nullptr && state->path == path);
}

NSUInteger PathState::hash() { return path.elements().size(); }

CGMutablePathRef makePath(PathElements elements) {
  const id path = newObject<PathState>();
  stateOf<PathState>(path).path = std::move(elements);
  return bridged<CGMutablePathRef>(NSObject(path));
}

void registerCoreGraphicsPaths() {
  ClassDefinition<PathState>("CGPath", "NSObject")
      .method<"isEqual:", &PathState::isEqual>()
      .method<"hash", &PathState::hash>()
      .registered();
}

}  // namespace standin

using namespace standin;

namespace {

CGAffineTransform orIdentity(const CGAffineTransform* transform) {
  return transform == nullptr ? CGAffineTransformIdentity : *transform;
}

template <class F>
CGPathRef pathWith(F&& addTo) {
  PathElements elements;
  addTo(elements);
  return makePath(std::move(elements));
}

}  // namespace

extern "C" {

CGMutablePathRef CGPathCreateMutable() { return makePath(); }

CGPathRef CGPathCreateWithRect(CGRect rect, const CGAffineTransform* transform) {
  return pathWith([&](PathElements& p) { p.rect(rect, orIdentity(transform)); });
}
CGPathRef CGPathCreateWithEllipseInRect(CGRect rect, const CGAffineTransform* transform) {
  return pathWith([&](PathElements& p) { p.ellipse(rect, orIdentity(transform)); });
}
CGPathRef CGPathCreateWithRoundedRect(CGRect rect, CGFloat cornerWidth, CGFloat cornerHeight,
                                      const CGAffineTransform* transform) {
  return pathWith([&](PathElements& p) { p.roundedRect(rect, cornerWidth, cornerHeight, orIdentity(transform)); });
}

CGPathRef CGPathCreateCopy(CGPathRef path) { return CGPathCreateMutableCopy(path); }
CGMutablePathRef CGPathCreateMutableCopy(CGPathRef path) {
  return path == nullptr ? nullptr : makePath(elementsOf(path));
}
CGPathRef CGPathRetain(CGPathRef path) {
  CFRetain(path);
  return path;
}
void CGPathRelease(CGPathRef path) { CFRelease(path); }

void CGPathMoveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x, CGFloat y) {
  if (path != nullptr) elementsOf(path).move({x, y}, orIdentity(transform));
}
void CGPathAddLineToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x, CGFloat y) {
  if (path != nullptr) elementsOf(path).line({x, y}, orIdentity(transform));
}
void CGPathAddCurveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat c1x, CGFloat c1y,
                           CGFloat c2x, CGFloat c2y, CGFloat x, CGFloat y) {
  if (path != nullptr) elementsOf(path).curve({c1x, c1y}, {c2x, c2y}, {x, y}, orIdentity(transform));
}
void CGPathAddQuadCurveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat cx, CGFloat cy,
                               CGFloat x, CGFloat y) {
  if (path != nullptr) elementsOf(path).quadCurve({cx, cy}, {x, y}, orIdentity(transform));
}
void CGPathAddArc(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x, CGFloat y, CGFloat radius,
                  CGFloat startAngle, CGFloat endAngle, bool clockwise) {
  if (path != nullptr) elementsOf(path).arc({x, y}, radius, startAngle, endAngle, clockwise, orIdentity(transform));
}
void CGPathAddRect(CGMutablePathRef path, const CGAffineTransform* transform, CGRect rect) {
  if (path != nullptr) elementsOf(path).rect(rect, orIdentity(transform));
}
void CGPathAddRoundedRect(CGMutablePathRef path, const CGAffineTransform* transform, CGRect rect, CGFloat cornerWidth,
                          CGFloat cornerHeight) {
  if (path != nullptr) elementsOf(path).roundedRect(rect, cornerWidth, cornerHeight, orIdentity(transform));
}
void CGPathAddEllipseInRect(CGMutablePathRef path, const CGAffineTransform* transform, CGRect rect) {
  if (path != nullptr) elementsOf(path).ellipse(rect, orIdentity(transform));
}
void CGPathAddPath(CGMutablePathRef path, const CGAffineTransform* transform, CGPathRef added) {
  if (path != nullptr && added != nullptr) elementsOf(path).append(elementsOf(added), orIdentity(transform));
}
void CGPathCloseSubpath(CGMutablePathRef path) {
  if (path != nullptr) elementsOf(path).close();
}

bool CGPathIsEmpty(CGPathRef path) { return path == nullptr || elementsOf(path).isEmpty(); }
bool CGPathEqualToPath(CGPathRef a, CGPathRef b) {
  return a == b || (a != nullptr && b != nullptr && elementsOf(a) == elementsOf(b));
}
CGRect CGPathGetBoundingBox(CGPathRef path) { return path == nullptr ? CGRect{} : elementsOf(path).boundingBox(); }
bool CGPathContainsPoint(CGPathRef path, const CGAffineTransform* transform, CGPoint point, bool evenOdd) {
  if (path == nullptr) return false;
  const CGPoint inPath = CGPointApplyAffineTransform(point, CGAffineTransformInvert(orIdentity(transform)));
  return elementsOf(path).contains(inPath, evenOdd);
}
}
