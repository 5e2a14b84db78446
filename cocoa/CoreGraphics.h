#pragma once
// Core Graphics under its own names: types, constants and functions. y points up; angles are radians,
// counter-clockwise; components and alphas run from 0 to 1. A null colour, path, image or context is
// ignored by every function. "Create" and "Copy" results are owned by the caller.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "cocoa/Encoding.h"
#include "cocoa/Foundation.h"

// ---- Core Foundation objects ----------------------------------------------------------------------

using CFTypeRef = const void*;
using CFIndex = long;
using CFStringRef = const struct __CFString*;
using CFArrayRef = const struct __CFArray*;
using CFDictionaryRef = const struct __CFDictionary*;

using CGColorRef = struct CGColor*;
using CGColorSpaceRef = struct CGColorSpace*;
using CGContextRef = struct CGContext*;
using CGGradientRef = struct CGGradient*;
using CGImageRef = struct CGImage*;
using CGPatternRef = struct CGPattern*;
using CGMutablePathRef = struct CGPath*;
using CGPathRef = const struct CGPath*;

extern "C" {
CFTypeRef CFRetain(CFTypeRef object);
void CFRelease(CFTypeRef object);
BOOL CFEqual(CFTypeRef a, CFTypeRef b);
}

namespace cocoa {

/// A Core Foundation object as the runtime object that it is: the same pointer.
inline NSObject bridged(CFTypeRef object) { return NSObject(static_cast<id>(const_cast<void*>(object))); }

/// An object as the Core Foundation pointer `T`, unchecked.
template <class T>
requires std::is_pointer_v<T> T bridged(NSObject object) { return static_cast<T>(static_cast<void*>(object.object)); }

/// Owns one Core Foundation object, as `Ref` owns a handle.
template <class T>
requires std::is_pointer_v<T>
class CFRef {
 public:
  CFRef() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): retaining a pointer loses nothing
  CFRef(T object) : object_(object) { retain(); }
  CFRef(const CFRef& other) : object_(other.object_) { retain(); }
  CFRef(CFRef&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  CFRef& operator=(CFRef other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~CFRef() {
    if (object_ != nullptr) CFRelease(object_);
  }

  /// Takes over a reference that the caller owns already (a `Create` or `Copy` result).
  static CFRef adopt(T owned) {
    CFRef ref;
    ref.object_ = owned;
    return ref;
  }
  [[nodiscard]] T detach() { return std::exchange(object_, nullptr); }
  [[nodiscard]] T get() const { return object_; }
  // NOLINTNEXTLINE(google-explicit-constructor): a CFRef serves wherever its pointer does
  operator T() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

 private:
  void retain() {
    if (object_ != nullptr) CFRetain(object_);
  }
  T object_ = nullptr;
};

}  // namespace cocoa

// ---- Geometry -------------------------------------------------------------------------------------

struct CGAffineTransform {
  CGFloat a = 1, b = 0, c = 0, d = 1, tx = 0, ty = 0;
  friend bool operator==(const CGAffineTransform&, const CGAffineTransform&) = default;
};

template <>
inline constexpr bool cocoa::isPlainStruct<CGAffineTransform> = true;
template <>
struct cocoa::TypeEncoding<CGAffineTransform> {
  static constexpr std::string_view text() { return "{CGAffineTransform=dddddd}"; }
};

inline constexpr CGAffineTransform CGAffineTransformIdentity{};

inline CGAffineTransform CGAffineTransformMake(CGFloat a, CGFloat b, CGFloat c, CGFloat d, CGFloat tx, CGFloat ty) {
  return {a, b, c, d, tx, ty};
}
inline CGAffineTransform CGAffineTransformMakeTranslation(CGFloat tx, CGFloat ty) { return {1, 0, 0, 1, tx, ty}; }
inline CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy) { return {sx, 0, 0, sy, 0, 0}; }
inline CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle) {
  return {std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle), 0, 0};
}
/// First `t1`, then `t2`.
inline CGAffineTransform CGAffineTransformConcat(CGAffineTransform t1, CGAffineTransform t2) {
  return {t1.a * t2.a + t1.b * t2.c, t1.a * t2.b + t1.b * t2.d,           t1.c * t2.a + t1.d * t2.c,
          t1.c * t2.b + t1.d * t2.d, t1.tx * t2.a + t1.ty * t2.c + t2.tx, t1.tx * t2.b + t1.ty * t2.d + t2.ty};
}
inline CGAffineTransform CGAffineTransformTranslate(CGAffineTransform t, CGFloat tx, CGFloat ty) {
  return CGAffineTransformConcat(CGAffineTransformMakeTranslation(tx, ty), t);
}
inline CGAffineTransform CGAffineTransformScale(CGAffineTransform t, CGFloat sx, CGFloat sy) {
  return CGAffineTransformConcat(CGAffineTransformMakeScale(sx, sy), t);
}
inline CGAffineTransform CGAffineTransformRotate(CGAffineTransform t, CGFloat angle) {
  return CGAffineTransformConcat(CGAffineTransformMakeRotation(angle), t);
}
/// The transform itself when it has no inverse.
inline CGAffineTransform CGAffineTransformInvert(CGAffineTransform t) {
  const CGFloat determinant = t.a * t.d - t.b * t.c;
  if (determinant == 0) return t;
  return {t.d / determinant,
          -t.b / determinant,
          -t.c / determinant,
          t.a / determinant,
          (t.c * t.ty - t.d * t.tx) / determinant,
          (t.b * t.tx - t.a * t.ty) / determinant};
}
inline CGPoint CGPointApplyAffineTransform(CGPoint p, CGAffineTransform t) {
  return {t.a * p.x + t.c * p.y + t.tx, t.b * p.x + t.d * p.y + t.ty};
}
/// The smallest upright rectangle around the transformed one.
inline CGRect CGRectApplyAffineTransform(CGRect r, CGAffineTransform t) {
  const CGPoint corners[] = {
      CGPointApplyAffineTransform({r.minX(), r.minY()}, t), CGPointApplyAffineTransform({r.maxX(), r.minY()}, t),
      CGPointApplyAffineTransform({r.minX(), r.maxY()}, t), CGPointApplyAffineTransform({r.maxX(), r.maxY()}, t)};
  CGPoint low = corners[0];
  CGPoint high = corners[0];
  for (const CGPoint& corner : corners) {
    low = {std::fmin(low.x, corner.x), std::fmin(low.y, corner.y)};
    high = {std::fmax(high.x, corner.x), std::fmax(high.y, corner.y)};
  }
  return {low, {high.x - low.x, high.y - low.y}};
}

inline CGRect CGRectInset(CGRect r, CGFloat dx, CGFloat dy) { return r.insetBy(dx, dy); }
inline CGRect CGRectOffset(CGRect r, CGFloat dx, CGFloat dy) { return r.offsetBy(dx, dy); }
/// An empty rectangle at zero when the two do not meet.
inline CGRect CGRectIntersection(CGRect a, CGRect b) {
  const CGFloat left = std::fmax(a.minX(), b.minX());
  const CGFloat bottom = std::fmax(a.minY(), b.minY());
  const CGFloat right = std::fmin(a.maxX(), b.maxX());
  const CGFloat top = std::fmin(a.maxY(), b.maxY());
  return right > left && top > bottom ? CGRectMake(left, bottom, right - left, top - bottom) : CGRect{};
}
inline bool CGRectIntersectsRect(CGRect a, CGRect b) { return !CGRectIntersection(a, b).isEmpty(); }
inline bool CGRectContainsPoint(CGRect r, CGPoint p) {
  return p.x >= r.minX() && p.x < r.maxX() && p.y >= r.minY() && p.y < r.maxY();
}

// ---- Constants ------------------------------------------------------------------------------------

enum CGBlendMode : int32_t {
  kCGBlendModeNormal = 0,
  kCGBlendModeMultiply = 1,
  kCGBlendModeScreen = 2,
  kCGBlendModeOverlay = 3,
  kCGBlendModeDarken = 4,
  kCGBlendModeLighten = 5,
  kCGBlendModeClear = 16,
  kCGBlendModeCopy = 17,
  kCGBlendModeSourceIn = 18,
  kCGBlendModeSourceOut = 19,
  kCGBlendModeSourceAtop = 20,
  kCGBlendModeDestinationOver = 21,
  kCGBlendModeDestinationIn = 22,
  kCGBlendModeDestinationOut = 23,
  kCGBlendModeDestinationAtop = 24,
  kCGBlendModeXOR = 25,
  kCGBlendModePlusDarker = 26,
  kCGBlendModePlusLighter = 27
};
enum CGLineCap : int32_t { kCGLineCapButt, kCGLineCapRound, kCGLineCapSquare };
enum CGLineJoin : int32_t { kCGLineJoinMiter, kCGLineJoinRound, kCGLineJoinBevel };
enum CGPathDrawingMode : int32_t { kCGPathFill, kCGPathEOFill, kCGPathStroke, kCGPathFillStroke, kCGPathEOFillStroke };
enum CGInterpolationQuality : int32_t {
  kCGInterpolationDefault = 0,
  kCGInterpolationNone = 1,
  kCGInterpolationLow = 2,
  kCGInterpolationHigh = 3,
  kCGInterpolationMedium = 4
};
enum CGGradientDrawingOptions : uint32_t {
  kCGGradientDrawsNeither = 0,
  kCGGradientDrawsBeforeStartLocation = 1,
  kCGGradientDrawsAfterEndLocation = 2
};
/// Where the alpha is (low bits), floating point samples, and the byte order of a pixel.
using CGBitmapInfo = uint32_t;
inline constexpr CGBitmapInfo kCGImageAlphaNone = 0;
inline constexpr CGBitmapInfo kCGImageAlphaPremultipliedLast = 1;
inline constexpr CGBitmapInfo kCGImageAlphaPremultipliedFirst = 2;
inline constexpr CGBitmapInfo kCGImageAlphaLast = 3;
inline constexpr CGBitmapInfo kCGImageAlphaFirst = 4;
inline constexpr CGBitmapInfo kCGImageAlphaNoneSkipLast = 5;
inline constexpr CGBitmapInfo kCGImageAlphaNoneSkipFirst = 6;
inline constexpr CGBitmapInfo kCGBitmapAlphaInfoMask = 0x1F;
inline constexpr CGBitmapInfo kCGBitmapFloatComponents = 1U << 8U;
inline constexpr CGBitmapInfo kCGBitmapByteOrder32Little = 2U << 12U;
inline constexpr CGBitmapInfo kCGBitmapByteOrder32Big = 4U << 12U;

// ---- Functions ------------------------------------------------------------------------------------

#if defined(__clang__)
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#endif
extern "C" {
extern CFStringRef kCGColorSpaceSRGB;
extern CFStringRef kCGColorSpaceGenericRGB;
extern CFStringRef kCGColorSpaceGenericGrayGamma2_2;

CGColorSpaceRef CGColorSpaceCreateDeviceRGB();
CGColorSpaceRef CGColorSpaceCreateDeviceGray();
CGColorSpaceRef CGColorSpaceCreateWithName(CFStringRef name);
size_t CGColorSpaceGetNumberOfComponents(CGColorSpaceRef space);
CGColorSpaceRef CGColorSpaceRetain(CGColorSpaceRef space);
void CGColorSpaceRelease(CGColorSpaceRef space);

CGColorRef CGColorCreate(CGColorSpaceRef space, const CGFloat* components);
CGColorRef CGColorCreateGenericRGB(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
CGColorRef CGColorCreateGenericGray(CGFloat gray, CGFloat alpha);
CGColorRef CGColorCreateSRGB(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
CGColorRef CGColorCreateCopyWithAlpha(CGColorRef color, CGFloat alpha);
CGColorRef CGColorRetain(CGColorRef color);
void CGColorRelease(CGColorRef color);
bool CGColorEqualToColor(CGColorRef a, CGColorRef b);
/// The alpha counts as a component. A pattern has one: its alpha.
size_t CGColorGetNumberOfComponents(CGColorRef color);
const CGFloat* CGColorGetComponents(CGColorRef color);
CGFloat CGColorGetAlpha(CGColorRef color);
CGColorSpaceRef CGColorGetColorSpace(CGColorRef color);
/// The pattern of a pattern colour, else null.
CGPatternRef CGColorGetPattern(CGColorRef color);

CGMutablePathRef CGPathCreateMutable();
CGPathRef CGPathCreateWithRect(CGRect rect, const CGAffineTransform* transform);
CGPathRef CGPathCreateWithEllipseInRect(CGRect rect, const CGAffineTransform* transform);
CGPathRef CGPathCreateWithRoundedRect(CGRect rect, CGFloat cornerWidth, CGFloat cornerHeight,
                                      const CGAffineTransform* transform);
CGPathRef CGPathCreateCopy(CGPathRef path);
CGMutablePathRef CGPathCreateMutableCopy(CGPathRef path);
CGPathRef CGPathRetain(CGPathRef path);
void CGPathRelease(CGPathRef path);
void CGPathMoveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x, CGFloat y);
void CGPathAddLineToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x, CGFloat y);
void CGPathAddCurveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat c1x, CGFloat c1y,
                           CGFloat c2x, CGFloat c2y, CGFloat x, CGFloat y);
void CGPathAddQuadCurveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat cx, CGFloat cy,
                               CGFloat x, CGFloat y);
void CGPathAddArc(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x, CGFloat y, CGFloat radius,
                  CGFloat startAngle, CGFloat endAngle, bool clockwise);
void CGPathAddRect(CGMutablePathRef path, const CGAffineTransform* transform, CGRect rect);
void CGPathAddRoundedRect(CGMutablePathRef path, const CGAffineTransform* transform, CGRect rect, CGFloat cornerWidth,
                          CGFloat cornerHeight);
void CGPathAddEllipseInRect(CGMutablePathRef path, const CGAffineTransform* transform, CGRect rect);
void CGPathAddPath(CGMutablePathRef path, const CGAffineTransform* transform, CGPathRef added);
void CGPathCloseSubpath(CGMutablePathRef path);
bool CGPathIsEmpty(CGPathRef path);
bool CGPathEqualToPath(CGPathRef a, CGPathRef b);
/// Control points included.
CGRect CGPathGetBoundingBox(CGPathRef path);
bool CGPathContainsPoint(CGPathRef path, const CGAffineTransform* transform, CGPoint point, bool evenOdd);

size_t CGImageGetWidth(CGImageRef image);
size_t CGImageGetHeight(CGImageRef image);
CGImageRef CGImageRetain(CGImageRef image);
void CGImageRelease(CGImageRef image);
/// A part of the image, in pixels from its top left.
CGImageRef CGImageCreateWithImageInRect(CGImageRef image, CGRect rect);

/// `locations` may be null: the colours are then spread evenly.
CGGradientRef CGGradientCreateWithColors(CGColorSpaceRef space, CFArrayRef colors, const CGFloat* locations);
CGGradientRef CGGradientCreateWithColorComponents(CGColorSpaceRef space, const CGFloat* components,
                                                  const CGFloat* locations, size_t count);
CGGradientRef CGGradientRetain(CGGradientRef gradient);
void CGGradientRelease(CGGradientRef gradient);

/// `data` may be null: the context then owns its pixels.
CGContextRef CGBitmapContextCreate(void* data, size_t width, size_t height, size_t bitsPerComponent, size_t bytesPerRow,
                                   CGColorSpaceRef space, CGBitmapInfo info);
CGImageRef CGBitmapContextCreateImage(CGContextRef context);
void* CGBitmapContextGetData(CGContextRef context);
size_t CGBitmapContextGetWidth(CGContextRef context);
size_t CGBitmapContextGetHeight(CGContextRef context);
size_t CGBitmapContextGetBytesPerRow(CGContextRef context);
CGContextRef CGContextRetain(CGContextRef context);
void CGContextRelease(CGContextRef context);
void CGContextFlush(CGContextRef context);

void CGContextSaveGState(CGContextRef context);
void CGContextRestoreGState(CGContextRef context);
void CGContextTranslateCTM(CGContextRef context, CGFloat tx, CGFloat ty);
void CGContextScaleCTM(CGContextRef context, CGFloat sx, CGFloat sy);
void CGContextRotateCTM(CGContextRef context, CGFloat angle);
void CGContextConcatCTM(CGContextRef context, CGAffineTransform transform);
CGAffineTransform CGContextGetCTM(CGContextRef context);

void CGContextSetFillColorWithColor(CGContextRef context, CGColorRef color);
void CGContextSetStrokeColorWithColor(CGContextRef context, CGColorRef color);
void CGContextSetRGBFillColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
void CGContextSetRGBStrokeColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha);
void CGContextSetGrayFillColor(CGContextRef context, CGFloat gray, CGFloat alpha);
void CGContextSetGrayStrokeColor(CGContextRef context, CGFloat gray, CGFloat alpha);
void CGContextSetLineWidth(CGContextRef context, CGFloat width);
void CGContextSetLineCap(CGContextRef context, CGLineCap cap);
void CGContextSetLineJoin(CGContextRef context, CGLineJoin join);
void CGContextSetMiterLimit(CGContextRef context, CGFloat limit);
void CGContextSetLineDash(CGContextRef context, CGFloat phase, const CGFloat* lengths, size_t count);
void CGContextSetAlpha(CGContextRef context, CGFloat alpha);
void CGContextSetBlendMode(CGContextRef context, CGBlendMode mode);
void CGContextSetShouldSmoothFonts(CGContextRef context, bool smooth);
void CGContextSetShouldAntialias(CGContextRef context, bool antialias);
void CGContextSetAllowsAntialiasing(CGContextRef context, bool allows);
void CGContextSetInterpolationQuality(CGContextRef context, CGInterpolationQuality quality);
void CGContextSetPatternPhase(CGContextRef context, CGSize phase);
/// `blur` in points of the base space; a null colour turns the shadow off.
void CGContextSetShadowWithColor(CGContextRef context, CGSize offset, CGFloat blur, CGColorRef color);

void CGContextBeginPath(CGContextRef context);
void CGContextMoveToPoint(CGContextRef context, CGFloat x, CGFloat y);
void CGContextAddLineToPoint(CGContextRef context, CGFloat x, CGFloat y);
void CGContextAddLines(CGContextRef context, const CGPoint* points, size_t count);
void CGContextAddCurveToPoint(CGContextRef context, CGFloat c1x, CGFloat c1y, CGFloat c2x, CGFloat c2y, CGFloat x,
                              CGFloat y);
void CGContextAddQuadCurveToPoint(CGContextRef context, CGFloat cx, CGFloat cy, CGFloat x, CGFloat y);
void CGContextAddArc(CGContextRef context, CGFloat x, CGFloat y, CGFloat radius, CGFloat startAngle, CGFloat endAngle,
                     int clockwise);
void CGContextAddArcToPoint(CGContextRef context, CGFloat x1, CGFloat y1, CGFloat x2, CGFloat y2, CGFloat radius);
void CGContextAddRect(CGContextRef context, CGRect rect);
void CGContextAddRects(CGContextRef context, const CGRect* rects, size_t count);
void CGContextAddEllipseInRect(CGContextRef context, CGRect rect);
void CGContextAddPath(CGContextRef context, CGPathRef path);
void CGContextClosePath(CGContextRef context);

void CGContextFillPath(CGContextRef context);
void CGContextEOFillPath(CGContextRef context);
void CGContextStrokePath(CGContextRef context);
void CGContextDrawPath(CGContextRef context, CGPathDrawingMode mode);
void CGContextFillRect(CGContextRef context, CGRect rect);
void CGContextFillRects(CGContextRef context, const CGRect* rects, size_t count);
void CGContextStrokeRect(CGContextRef context, CGRect rect);
void CGContextStrokeRectWithWidth(CGContextRef context, CGRect rect, CGFloat width);
void CGContextStrokeLineSegments(CGContextRef context, const CGPoint* points, size_t count);
void CGContextFillEllipseInRect(CGContextRef context, CGRect rect);
void CGContextStrokeEllipseInRect(CGContextRef context, CGRect rect);
void CGContextClearRect(CGContextRef context, CGRect rect);
void CGContextClip(CGContextRef context);
void CGContextEOClip(CGContextRef context);
void CGContextClipToRect(CGContextRef context, CGRect rect);
CGRect CGContextGetClipBoundingBox(CGContextRef context);
void CGContextDrawImage(CGContextRef context, CGRect rect, CGImageRef image);
void CGContextDrawLinearGradient(CGContextRef context, CGGradientRef gradient, CGPoint start, CGPoint end,
                                 CGGradientDrawingOptions options);
void CGContextDrawRadialGradient(CGContextRef context, CGGradientRef gradient, CGPoint startCenter, CGFloat startRadius,
                                 CGPoint endCenter, CGFloat endRadius, CGGradientDrawingOptions options);
void CGContextBeginTransparencyLayer(CGContextRef context, CFDictionaryRef auxiliary);
void CGContextEndTransparencyLayer(CGContextRef context);
}
#if defined(__clang__)
#pragma clang diagnostic pop
#endif
